// SPDX-License-Identifier: MIT
//
// CodeMeasure: the widths of glyph codes (tools/classic/glyph_codes.h), and of texts as these
// codes.
//
//     CodeMeasure measure;
//     measure.Width(face, "é");          // as the letter and its accent, which has no width
//     measure.CodesWidth(face, "\xD0");  // of codes; both in 1/1000 point
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "tools/text_measure.h"

namespace vellumark::tools {

class CodeMeasure final : public TextMeasure {
 public:
  CodeMeasure();

  [[nodiscard]] std::int64_t CodesWidth(const Face& face, std::string_view codes);

 private:
  using Table = std::array<std::int16_t, 256>;  // negative: not measured yet

  int Measure(const Face& face, std::string_view character) override;

  ScratchDocument scratch_{false};
  std::array<Table, 12> tables_{};  // three families of four styles
};

}  // namespace vellumark::tools
