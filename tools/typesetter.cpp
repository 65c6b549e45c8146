// SPDX-License-Identifier: MIT
#include "tools/typesetter.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "tools/type_scale.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr int kContinuationColumns = 2;  // the indent of the rest of a broken line of code

std::uint8_t FontSize(int size) { return static_cast<std::uint8_t>(size); }

PageSetup WithLargestSize(const TextStyle& style) {
  PageSetup setup = style.page;
  setup.largest_size = TitleSize(style.size, 1);
  return setup;
}

/// Breaks the last row of code, at its last blank if that is in the last third of the row.
void BreakRow(std::vector<GlyphRun>& rows) {
  GlyphRun row = std::move(rows.back());
  const std::size_t size = row.codes.size();
  const std::size_t blank = row.codes.rfind(' ');
  const bool late = blank != std::string::npos && blank + 1 > size * 2 / 3 && blank + 1 < size;
  const std::size_t end = late ? blank + 1 : size;
  GlyphRun continuation;
  continuation.codes.assign(kContinuationColumns, ' ');
  continuation.Append(row.Part(end, std::string::npos));
  rows.back() = row.Part(0, end);
  rows.push_back(std::move(continuation));
}

/// How many lines must fit on the page so that line `index` of `count` may be on it: the first and
/// the last line of a paragraph are never alone on a page.
std::size_t LinesTogether(std::size_t index, std::size_t count) {
  if (count == 3 && index == 0) return 3;
  const bool first = index == 0 && count > 1;
  const bool last_but_one = index + 2 == count;
  return first || last_but_one ? 2 : 1;
}

}  // namespace

Typesetter::Typesetter(OutputFormat& output, GlyphMeasure& measure, PicturePlatform& pictures,
                       const TextStyle& style)
    : measure_(measure),
      pictures_(pictures),
      output_(output),
      style_(style),
      pages_(output, measure, WithLargestSize(style)) {}

void Typesetter::Typeset(const std::vector<Block>& blocks, TypesetResult& result,
                         const Progress& progress) {
  result_ = &result;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const Block& block = blocks[i];
    result.line = block.PlaceOf(0).line;
    result.pages = pages_.pages();
    progress(result.pages, result.line);
    switch (block.kind) {
      case BlockKind::Title: SetTitle(blocks, i); break;
      case BlockKind::Paragraph: SetParagraph(block); break;
      case BlockKind::Code: SetCode(block); break;
      case BlockKind::Rule: SetRule(block); break;
      case BlockKind::Picture: SetPicture(block); break;
    }
  }
  result.pages = pages_.pages();
}

void Typesetter::SetTitle(const std::vector<Block>& blocks, std::size_t index) {
  const Block& block = blocks[index];
  const int size = TitleSize(style_.size, block.level);
  const InlineText text = ParseInline(block.text);
  const int left = Indent(block);
  const int text_left = left + size - 1;
  LineComposer composer(measure_, pages_.width() - text_left, false);
  const std::vector<Line> lines = composer.Compose(Words(block, text, TitleFaces(block.level)));
  if (lines.empty()) return;
  Space(SpaceAboveTitle(size));
  const int height = static_cast<int>(lines.size()) * LinePitch(size) + SpaceBelowTitle(size);
  if (!pages_.AtTop()) Make(std::min(height + HeightBelowTitle(blocks, index), pages_.height()));
  const bool disc = block.level % 2 == 1;
  for (const Line& line : lines) {
    Make(LinePitch(size));
    if (&line == &lines.front()) {
      WriteMarker(block, left);
      pages_.WriteTitleLine(line, text.links, left, size,
                            disc ? BulletConstants::Disc : BulletConstants::Square);
    } else {
      pages_.WriteLine(line, text.links, text_left, size);
    }
    pages_.Advance(LinePitch(size));
  }
  space_after_ = SpaceBelowTitle(size);
}

void Typesetter::SetParagraph(const Block& block) {
  const InlineText text = ParseInline(block.text);
  const int left = Indent(block);
  LineComposer composer(measure_, pages_.width() - left, style_.justify);
  std::vector<Line> lines = composer.Compose(Words(block, text, TextFaces()));
  if (lines.empty() && block.marker.empty()) return;
  if (lines.empty()) lines.emplace_back();
  Space(SpaceBefore(block));
  const int pitch = LinePitch(style_.size);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    Make(static_cast<int>(LinesTogether(i, lines.size())) * pitch);
    if (i == 0) WriteMarker(block, left);
    pages_.WriteLine(lines[i], text.links, left, style_.size);
    pages_.Advance(pitch);
  }
  space_after_ = 0;
}

void Typesetter::SetCode(const Block& block) {
  const int size = CodeSize(style_.size);
  const int left = Indent(block) + CodeIndent(style_.size);
  const Face face{FontNumberConstants::Courier, FontStyleConstants::Regular, FontSize(size)};
  const std::int64_t column = measure_.Width(face, " ");
  const std::int64_t room = std::int64_t{pages_.width() - left} * 1000;
  const std::vector<GlyphRun> rows = CodeRows(block, static_cast<std::size_t>(room / column));
  if (rows.empty()) return;
  Space(ParagraphSpace(style_.size));
  for (const GlyphRun& row : rows) {
    Make(LinePitch(size));
    if (&row == &rows.front()) WriteMarker(block, Indent(block));
    const bool blank = row.codes.find_first_not_of(' ') == std::string::npos;
    if (!blank) pages_.WriteLine({{{0, face, row, 0}}}, {}, left, size);
    pages_.Advance(LinePitch(size));
  }
  space_after_ = ParagraphSpace(style_.size);
}

void Typesetter::SetRule(const Block& block) {
  const int pitch = LinePitch(style_.size);
  Space(ParagraphSpace(style_.size));
  Make(pitch);
  pages_.WriteRule(Indent(block), pitch / 2);
  pages_.Advance(pitch);
  space_after_ = ParagraphSpace(style_.size);
}

void Typesetter::SetPicture(const Block& block) {
  std::string reason;
  const std::optional<PictureSize> size = FittedSize(block, reason);
  if (!size) return LosePicture(block, reason);
  Space(SpaceBefore(block));
  Make(size->height);
  const int left = Indent(block);
  const int x = left + (pages_.width() - left - size->width) / 2;
  if (!pages_.DrawPicture(block.picture, style_.encoding, block.picture_link, x,
                          PictureBox(block))) {
    return LosePicture(block, output_.document().LastRefusal().sentence);
  }
  WriteMarker(block, left);
  pages_.Advance(size->height);
  space_after_ = ParagraphSpace(style_.size);
}

std::optional<PictureSize> Typesetter::FittedSize(const Block& block, std::string& reason) {
  PictureSize pixels;
  if (!pictures_.Measure(block.picture, pixels, reason)) return std::nullopt;
  return FitInto(PictureBox(block), pixels);
}

PictureSize Typesetter::PictureBox(const Block& block) const {
  return {pages_.width() - Indent(block), pages_.height()};
}

/// Sets the text of a picture in its place, as a paragraph does, in italics.
void Typesetter::LosePicture(const Block& block, const std::string& reason) {
  result_->lost_pictures.push_back(block.picture + ": " + reason);
  SetParagraph(block);
}

/// The lines of a code block as glyphs, broken at `columns`, without empty lines at the end.
std::vector<GlyphRun> Typesetter::CodeRows(const Block& block, std::size_t columns) {
  std::vector<GlyphRun> rows;
  std::string_view rest = block.text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    rows.emplace_back();
    for (std::size_t at = 0; at < end;) {
      if (rows.back().codes.size() >= columns) BreakRow(rows);
      const char* const where = rest.data() + at;
      const char32_t character = NextCharacter(rest, at);
      if (!AppendCharacter(character, rows.back())) CountMissing(block, where, character);
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  while (!rows.empty() && rows.back().codes.find_first_not_of(' ') == std::string::npos) {
    rows.pop_back();
  }
  return rows;
}

std::vector<Word> Typesetter::Words(const Block& block, const InlineText& text,
                                    const BlockFaces& faces) {
  return MakeWords(text, faces, measure_, [&](const char* where, char32_t character) {
    CountMissing(block, where, character);
  });
}

void Typesetter::CountMissing(const Block& block, const char* where, char32_t character) {
  if (result_->missing++ > 0) return;
  result_->first_missing = character;
  result_->first_missing_place = block.PlaceOf(static_cast<std::size_t>(where - block.text.data()));
}

/// The bullet or number of a list item, to the left of `indent`.
void Typesetter::WriteMarker(const Block& block, int indent) {
  if (block.marker.empty()) return;
  Face face = TextFaces().text;
  GlyphRun glyphs;
  if (block.marker.size() > 1) {
    glyphs.codes = block.marker;
  } else {
    AppendCharacter(block.list_depth % 2 == 1 ? U'•' : U'–', glyphs);
  }
  const int width = ToPoints(measure_.Width(face, glyphs.codes));
  const int x = std::max(indent - MarkerGap(style_.size) - width, 0);
  pages_.WriteLine({{{x, face, glyphs, 0}}}, {}, 0, style_.size);
}

/// Leaves space above a block, unless the page begins with it.
void Typesetter::Space(int before) {
  if (!pages_.AtTop()) pages_.Advance(std::max(before, space_after_));
  space_after_ = 0;
}

/// Starts a new page if less than `height` is left on this one.
void Typesetter::Make(int height) {
  if (!pages_.Fits(height) && !pages_.AtTop()) pages_.NewPage();
}

/// Where the text of a block begins. At any depth of nesting, it keeps half of the width.
int Typesetter::Indent(const Block& block) const {
  const auto levels =
      static_cast<int>(std::min<std::size_t>(block.list_depth + block.quote_depth, 1000));
  int indent = levels * IndentOfALevel(style_.size);
  if (block.marker.size() > 1 || block.list_depth > 0) {
    const auto marker = static_cast<int>(block.marker.size());
    indent = std::max(indent, marker * style_.size / 2 + MarkerGap(style_.size));
  }
  return std::min(indent, pages_.width() / 2);
}

int Typesetter::SpaceBefore(const Block& block) const {
  const bool tight = !block.marker.empty() && !block.blank_before;
  return tight ? ListItemSpace(style_.size) : ParagraphSpace(style_.size);
}

BlockFaces Typesetter::TitleFaces(int level) const {
  const std::uint8_t size = FontSize(TitleSize(style_.size, level));
  return {{style_.font, FontStyleConstants::Bold, size},
          {FontNumberConstants::Courier, FontStyleConstants::Bold, size}};
}

BlockFaces Typesetter::TextFaces() const {
  const int code_size = InlineCodeSize(style_.size);
  return {{style_.font, FontStyleConstants::Regular, FontSize(style_.size)},
          {FontNumberConstants::Courier, FontStyleConstants::Regular, FontSize(code_size)}};
}

/// The height that must fit below a title: up to three titles, and then a picture or three lines,
/// because a paragraph of three lines is not divided.
int Typesetter::HeightBelowTitle(const std::vector<Block>& blocks, std::size_t index) {
  constexpr std::size_t kTitlesTogether = 3;
  int height = ParagraphSpace(style_.size);
  const std::size_t end = std::min(index + kTitlesTogether, blocks.size());
  std::size_t i = index + 1;
  for (; i < end && blocks[i].kind == BlockKind::Title; ++i) {
    const int size = TitleSize(style_.size, blocks[i].level);
    height += SpaceAboveTitle(size) + LinePitch(size) + SpaceBelowTitle(size);
  }
  std::optional<PictureSize> picture;
  std::string reason;
  if (i < blocks.size() && blocks[i].kind == BlockKind::Picture) {
    picture = FittedSize(blocks[i], reason);
  }
  return height + (picture ? picture->height : 3 * LinePitch(style_.size));
}

}  // namespace vellumark::tools
