// SPDX-License-Identifier: MIT
//
// ResumeNext: go on past a failing statement.
//
// Page ends and Flush must reach their last step whatever happens before it. Each step stands in a
// lambda of its own; a run-time error ends that step only:
//
//     ResumeNext([&] { SetMargins(); }, [&] { WriteBackground(); }, [&] { MoveToTop(); });
#pragma once

#include <exception>

namespace vellumark::document {

template <class... Steps>
void ResumeNext(const Steps&... steps) {
  const auto run = [](const auto& step) {
    try {
      step();
    } catch (const std::exception&) {  // a RunTimeError, or memory is short
      // The next statement runs.
    }
  };
  (run(steps), ...);
}

}  // namespace vellumark::document
