// SPDX-License-Identifier: MIT
#include "tools/table_of_contents.h"

#include <algorithm>
#include <string_view>

namespace vellumark::tools {
namespace {

constexpr std::string_view kWidestNumber = "00000";
constexpr std::string_view kDot = " .";

class ContentsSetter {
 public:
  explicit ContentsSetter(const BlockSetting& setting) : setting_(setting), pages_(setting.pages) {}

  void WriteTitle() {
    const int size = TitleSize(setting_.style.size, 1);
    const Face face = setting_.style.Faces(size, FontStyleConstants::Bold).text;
    pages_.WriteLine({{{0, face, "Contents"}}}, {}, 0, size);
    pages_.Advance(LinePitch(size) + SpaceBelowTitle(size));
  }

  void Write(const PlacedHeading& heading) {
    using enum FontStyleConstants;
    const int size = setting_.style.size;
    const bool highest = heading.depth == 1;
    const BlockFaces faces = setting_.style.Faces(size, highest ? Bold : Regular);
    const int left = (heading.depth - 1) * IndentOfALevel(size);
    const int column = WidthOf(faces.text, kWidestNumber) + WidthOf(faces.text, kDot);
    InlineText text;
    text.links.push_back("#" + heading.anchor);
    text.spans.push_back({.text = heading.title, .link = 1});
    LineComposer composer(setting_.measure, pages_.width() - left - column, false);
    std::vector<Line> lines = composer.Compose(MakeWords(text, faces, setting_.measure));
    if (lines.empty()) return;
    if (highest && !pages_.AtTop()) pages_.Advance(ListItemSpace(size) * 2);
    // A chapter is followed by at least one line.
    const std::size_t together = lines.size() + (highest ? 1 : 0);
    setting_.flow.Make(static_cast<int>(together) * LinePitch(size));
    AddNumber(heading.page, faces.text, pages_.width() - left, lines.back());
    for (Line& line : lines) {
      for (Run& run : line.runs) run.quiet = true;
      setting_.flow.Make(LinePitch(size));
      pages_.WriteLine(line, text.links, left, size);
      pages_.Advance(LinePitch(size));
    }
  }

 private:
  [[nodiscard]] int WidthOf(const Face& face, std::string_view text) const {
    return ToPoints(setting_.measure.Width(face, text));
  }

  /// The number at the right edge, and in front of it as many dots as there is room for.
  void AddNumber(int page, const Face& face, int right, Line& line) const {
    const int text_end = tools::WidthOf(line, setting_.measure);
    Run number{0, face, std::to_string(page), 1};
    number.x = right - WidthOf(face, number.text);
    // The last dot is at the same place in every line, whatever the number.
    const int dots_end = right - WidthOf(face, kWidestNumber.substr(0, 4));
    Face plain = face;
    plain.style = FontStyleConstants::Regular;
    const std::int64_t step = setting_.measure.Width(plain, kDot);
    const auto count = std::max<std::int64_t>(std::int64_t{dots_end - text_end} * 1000 / step, 0);
    std::string dots;
    for (std::int64_t i = 0; i < count; ++i) dots += kDot;
    if (count > 0) line.runs.push_back({dots_end - ToPoints(count * step), plain, dots});
    line.runs.push_back(std::move(number));
  }

  const BlockSetting& setting_;
  PageWriter& pages_;
};

}  // namespace

void SetContents(const std::vector<PlacedHeading>& headings, const BlockSetting& setting) {
  ContentsSetter setter(setting);
  setter.WriteTitle();
  for (const PlacedHeading& heading : headings) {
    if (heading.depth <= kContentsDepth) setter.Write(heading);
  }
}

}  // namespace vellumark::tools
