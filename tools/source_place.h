// SPDX-License-Identifier: MIT
//
// Places in the input, for messages.
//
//     const SourceText source(text);
//     const Place place = source.PlaceOf({3, 5});      // the character at byte 5 of line 3
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace vellumark::tools {

/// A line and a byte in it, both counted from 1, as the Markdown parser has them.
struct SourcePosition {
  std::size_t line = 1;
  std::size_t byte = 1;
};

/// A line and a character in it, both counted from 1.
struct Place {
  std::size_t line = 1;
  std::size_t column = 1;
};

class SourceText {
 public:
  /// `text` must outlive this object. Lines end with LF, CR LF or CR.
  explicit SourceText(std::string_view text) : text_(text) {}

  [[nodiscard]] Place PlaceOf(SourcePosition position) const;

  /// The place of `character` in the line of `position`, at or behind it. If the line does not
  /// contain it, because an entity stands for it, the place of `position`.
  [[nodiscard]] Place PlaceOf(SourcePosition position, char32_t character) const;

 private:
  [[nodiscard]] std::string_view Line(std::size_t number) const;

  void FindLines() const;

  std::string_view text_;
  mutable std::vector<std::size_t> line_starts_;  // empty until a place is asked for
};

}  // namespace vellumark::tools
