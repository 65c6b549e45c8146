// SPDX-License-Identifier: MIT
//
// RefusalNote: the reason of a refusal and its numbers, as an operation returns it.
//
// It is three words wide and has no text, so that refusing costs no more than accepting; the
// sentence is put together when the host asks. A default note means that nothing was refused:
//
//     if (const RefusalNote refused = box.CheckLine(...)) return refused;
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include <vellumark/refusal.h>
#include <vellumark/run_time_error.h>

namespace vellumark::document {

struct RefusalNote {
  RefusalReason reason = RefusalReason::None;
  std::int32_t got = 0;      ///< the number that was refused
  std::int32_t allowed = 0;  ///< the number that it was measured against

  explicit operator bool() const noexcept { return reason != RefusalReason::None; }
};

/// The note of a file operation: with the file's name and the system's own reason.
struct FileNote {
  RefusalNote note;
  std::string detail;

  FileNote() = default;
  FileNote(const RefusalNote& refused) : note(refused) {}
  FileNote(RefusalReason reason, std::string text) : note{reason}, detail(std::move(text)) {}

  /// Called after every drawing call: costs no second string.
  FileNote& operator=(const RefusalNote& refused) noexcept {
    note = refused;
    detail.clear();
    return *this;
  }
};

/// The note of a run-time error: its number, 7 for memory that is short.
[[nodiscard]] RefusalNote FaultNote(const std::exception& error) noexcept;

/// The sentence for `note`; `detail` names the file and the system's own reason if a file operation
/// failed.
[[nodiscard]] std::string Sentence(const RefusalNote& note, std::string_view detail);

}  // namespace vellumark::document
