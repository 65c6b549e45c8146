// SPDX-License-Identifier: MIT
#include "tools/cover_page.h"

#include <string_view>
#include <vector>

namespace vellumark::tools {
namespace {

void WriteCentered(std::string_view text, int size, FontStyleConstants style,
                   const BlockSetting& setting) {
  InlineText inlines;
  inlines.spans.push_back({.text = text});
  PageWriter& pages = setting.pages;
  LineComposer composer(setting.measure, pages.width(), false);
  const std::vector<Word> words =
      MakeWords(inlines, setting.style.Faces(size, style), setting.measure);
  for (const Line& line : composer.Compose(words)) {
    const int x = (pages.width() - WidthOf(line, setting.measure)) / 2;
    setting.flow.Make(LinePitch(size));
    pages.WriteLine(line, {}, x, size);
    pages.Advance(LinePitch(size));
  }
}

}  // namespace

void SetCover(const CoverText& cover, const BlockSetting& setting) {
  using enum FontStyleConstants;
  PageWriter& pages = setting.pages;
  const int title = CoverTitleSize(setting.style.size);
  const int text = TitleSize(setting.style.size, 2);
  pages.Advance(pages.height() / 4);
  WriteCentered(cover.title, title, Bold, setting);
  pages.Advance(2 * title);
  WriteCentered(cover.author, text, Regular, setting);
  pages.Advance(text);
  WriteCentered(cover.date, text, Regular, setting);
}

}  // namespace vellumark::tools
