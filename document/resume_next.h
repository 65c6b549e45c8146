// SPDX-License-Identifier: MIT
//
// ResumeNext: go on past a failing statement, and remember the first that failed.
//
// Page ends and Flush must reach their last step whatever happens before it. Each step stands in a
// lambda of its own; a run-time error ends that step only:
//
//     return ResumeNext([&] { SetMargins(); }, [&] { WriteBackground(); }, [&] { MoveToTop(); });
#pragma once

#include <exception>
#include <type_traits>

#include "document/refusal_note.h"

namespace vellumark::document {

/// Runs the steps one after the other. Returns the note of the first that failed: of the run-time
/// error it met (7 if memory is short), or the one that it returned.
template <class... Steps>
RefusalNote ResumeNext(const Steps&... steps) noexcept {
  RefusalNote first;
  const auto run = [&first](const auto& step) noexcept {
    RefusalNote note;
    try {
      if constexpr (std::is_void_v<decltype(step())>) {
        step();
      } else {
        note = step();
      }
    } catch (const std::exception& error) {
      note = FaultNote(error);
    }
    if (!first) first = note;
  };
  (run(steps), ...);
  return first;
}

}  // namespace vellumark::document
