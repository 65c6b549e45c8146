// SPDX-License-Identifier: MIT
//
// How wide a text and how high a paragraph would be: the rules of WriteText and WriteMultiText,
// without writing.
#include "document/document_model.h"
#include "layout/shown_characters.h"

namespace vellumark::document {

RefusalNote DocumentModel::MeasureText(std::string_view text, Points& width) noexcept {
  return Attempt([&]() -> RefusalNote {
    width = Setter().WidthInPoints(text, state_.font);
    return {};
  });
}

RefusalNote DocumentModel::MeasureParagraph(const Paragraph& paragraph,
                                            std::int32_t& height) noexcept {
  return Attempt([&]() -> RefusalNote {
    Paragraph measured = paragraph;
    std::string storage;
    if (!state_.oddities.TextIsCodePageBytes()) {
      measured.text = layout::WithPlainBlanks(paragraph.text, state_.font, storage);
    }
    Column column;
    if (const RefusalNote refused = CheckParagraph(measured)) return refused;
    if (const RefusalNote refused = PlaceParagraph(measured, column)) return refused;
    if (Shapes(measured.text)) {
      if (const RefusalNote refused = MeasurePieces(measured, column.width)) return refused;
      height = CountShapedLines(column.width) * (state_.font.height + paragraph.dy);
      return {};
    }
    const layout::CodeWidths* const codes = Setter().ByteWidths(measured.text, state_.font);
    if (const RefusalNote refused = MeasureWords(measured.text, codes, column.width)) {
      return refused;
    }
    std::int32_t lines = 1;  // the last one
    BreakLines(column.width, [&](const LineOfWords& /*line*/) -> RefusalNote {
      ++lines;
      return {};
    });
    height = lines * (state_.font.height + paragraph.dy);
    return {};
  });
}

}  // namespace vellumark::document
