// SPDX-License-Identifier: MIT
#include "tools/classic/code_measure.h"

#include <string>

#include "tools/classic/glyph_codes.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {

CodeMeasure::CodeMeasure() {
  for (Table& table : tables_) table.fill(-1);
}

std::int64_t CodeMeasure::CodesWidth(const Face& face, std::string_view codes) {
  Table& table = tables_.at(FaceIndex(face));
  std::int64_t sum = 0;
  for (const char code : codes) {
    std::int16_t& width = table[static_cast<unsigned char>(code)];
    if (width < 0) {
      std::string text;
      AppendUtf8(text, static_cast<unsigned char>(code));
      width = static_cast<std::int16_t>(scratch_.WidthOf(face, text));
    }
    sum += width;
  }
  return sum * face.size;
}

int CodeMeasure::Measure(const Face& face, std::string_view character) {
  Face em = face;
  em.size = 1;
  return static_cast<int>(CodesWidth(em, GlyphsOf(character).codes));
}

}  // namespace vellumark::tools
