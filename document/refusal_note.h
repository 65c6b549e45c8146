// SPDX-License-Identifier: MIT
//
// RefusalNote: the reason of a refusal and its numbers, as an operation returns it.
//
// It is three words wide and tells nothing in words, so that refusing costs no more than accepting;
// the sentence is put together when the host asks. A default note means that nothing was refused:
//
//     if (const RefusalNote refused = box.CheckLine(...)) return refused;
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <vellumark/refusal.h>

namespace vellumark::document {

struct RefusalNote {
  RefusalReason reason = RefusalReason::None;
  std::int32_t got = 0;      ///< the number that was refused
  std::int32_t allowed = 0;  ///< the number that it was measured against

  explicit operator bool() const noexcept { return reason != RefusalReason::None; }
};

/// The sentence for `note`; `detail` names the file and the system's own reason where a file
/// operation failed.
[[nodiscard]] std::string Sentence(const RefusalNote& note, std::string_view detail);

}  // namespace vellumark::document
