// SPDX-License-Identifier: MIT
#include "tools/typesetter.h"

#include <algorithm>
#include <cmark-gfm-core-extensions.h>
#include <utility>
#include <vector>

#include "tools/code_block.h"
#include "tools/plain_text.h"
#include "tools/table_block.h"

namespace vellumark::tools {
namespace {

PageSetup WithLargestSize(const TextStyle& style) {
  PageSetup setup = style.page;
  setup.largest_size = TitleSize(style.size, 1);
  if (style.has_cover) setup.largest_size = CoverTitleSize(style.size);
  return setup;
}

/// How many lines must fit on the page so that line `index` of `count` may be on it: the first and
/// the last line of a paragraph are never alone on a page.
std::size_t LinesTogether(std::size_t index, std::size_t count) {
  if (count == 3 && index == 0) return 3;
  const bool first = index == 0 && count > 1;
  const bool last_but_one = index + 2 == count;
  return first || last_but_one ? 2 : 1;
}

/// The paragraph between pictures that cannot be drawn.
void AppendPictureText(const InlineText& from, const InlinePicture& picture, InlineText& text) {
  Span span = from.spans[picture.span];
  span.text = text.owned.emplace_back(span.text);
  if (span.link != 0) {
    text.links.push_back(from.links[span.link - 1]);
    span.link = text.links.size();
  }
  if (!text.spans.empty()) text.spans.push_back({.text = " "});
  text.spans.push_back(span);
}

/// The address around a picture.
std::string LinkOf(const InlineText& text, const InlinePicture& picture) {
  return picture.link == 0 ? std::string() : text.links[picture.link - 1];
}

/// Whether there is more in a block than comments and the places that links lead to.
bool IsShown(cmark_node* block) {
  const auto has_text = [](const InlineText& text) {
    return !text.only_pictures || !text.pictures.empty();
  };
  const NodeKind kind = KindOf(block);
  if (kind == NodeKind::Paragraph) return has_text(ReadInlines(block));
  if (kind != NodeKind::HtmlBlock) return true;
  const std::vector<InlineText> texts = ReadHtmlBlock(LiteralOf(block), StartOf(block));
  return std::any_of(texts.begin(), texts.end(), has_text);
}

}  // namespace

Typesetter::Typesetter(OutputFormat& output, TextMeasure& measure, PicturePlatform& pictures,
                       const TextStyle& style, const LinkTargets* targets)
    : pictures_(pictures),
      output_(output),
      style_(style),
      pages_(output, WithLargestSize(style)),
      flow_(pages_, measure, style),
      setting_{pages_, flow_, measure, style},
      targets_(targets) {}

void Typesetter::BeginPart() {
  if (begun_) flow_.NewPage();
  begun_ = true;
}

void Typesetter::SetCoverPage(const CoverText& cover) {
  BeginPart();
  // Header and footer are read when a page ends.
  Document& document = output_.document();
  const std::string header = document.Header();
  const std::string footer = document.Footer();
  document.Header("");
  document.Footer("");
  SetCover(cover, setting_);
  flow_.NewPage();
  begun_ = false;
  document.Header(header);
  document.Footer(footer);
}

int Typesetter::SetContentsPages(const std::vector<PlacedHeading>& headings) {
  BeginPart();
  const int before = pages_.pages() - 1;
  SetContents(headings, setting_);
  return pages_.pages() - before;
}

void Typesetter::Typeset(const Source& source, TypesetResult& result, const Progress& progress) {
  BeginPart();
  source_ += result_ != nullptr ? 1 : 0;
  result_ = &result;
  open_levels_.clear();
  anchors_.clear();
  if (targets_ != nullptr) pages_.SetAnchor(LinkTargets::TopOf(source_));
  if (source.markdown) {
    for (std::size_t i = 0; i < source.Trees(); ++i) TypesetTree(*source.Tree(i), progress);
  } else {
    SetPlainText(source.text, pages_, style_, setting_.measure, [&](std::size_t line) {
      result.line = line;
      result.pages = pages_.pages();
      progress(result.pages, line);
    });
  }
  flow_.WriteAnchors();  // of what has no line
  result.pages = pages_.pages();
}

void Typesetter::TypesetTree(const MarkdownTree& tree, const Progress& progress) {
  for (NodeWalk walk(tree.root()); walk.Next();) {
    const NodeKind kind = KindOf(walk.node());
    if (kind == NodeKind::Document) continue;
    if (!walk.entering()) {
      flow_.Leave();
      continue;
    }
    result_->line = StartOf(walk.node()).line;
    result_->pages = pages_.pages();
    progress(result_->pages, result_->line);
    Enter(walk, kind);
  }
}

void Typesetter::Enter(NodeWalk& walk, NodeKind kind) {
  cmark_node* const node = walk.node();
  switch (kind) {
    case NodeKind::BlockQuote: flow_.EnterQuote(); return;
    case NodeKind::List: EnterList(node); return;
    case NodeKind::Item: flow_.EnterItem(TaskBox::None); return;
    case NodeKind::TaskItem: {
      const bool checked = cmark_gfm_extensions_get_tasklist_item_checked(node);
      flow_.EnterItem(checked ? TaskBox::Checked : TaskBox::Open);
      return;
    }
    case NodeKind::Heading: SetTitle(node); break;
    case NodeKind::Paragraph: SetText(ReadInlines(node)); break;
    case NodeKind::CodeBlock: SetCode(LiteralOf(node), setting_); break;
    case NodeKind::Rule: SetRule(); break;
    case NodeKind::Table:
      SetTable(node, setting_, [this](InlineText& text) { Prepare(text); });
      break;
    case NodeKind::HtmlBlock:
      for (InlineText& text : ReadHtmlBlock(LiteralOf(node), StartOf(node))) {
        SetText(std::move(text));
      }
      break;
    default: break;
  }
  walk.Skip();
}

void Typesetter::EnterList(cmark_node* list) {
  ListLook look;
  look.tight = cmark_node_get_list_tight(list) != 0;
  look.ordered = cmark_node_get_list_type(list) == CMARK_ORDERED_LIST;
  if (look.ordered) {
    look.delimiter = cmark_node_get_list_delim(list) == CMARK_PAREN_DELIM ? ')' : '.';
    look.first_number = cmark_node_get_list_start(list);
    look.last_number = look.first_number - 1;
    for (cmark_node* item = cmark_node_first_child(list); item != nullptr;
         item = cmark_node_next(item)) {
      ++look.last_number;
    }
  }
  flow_.EnterList(look);
}

void Typesetter::SetTitle(cmark_node* heading) {
  InlineText text = ReadInlines(heading);
  Prepare(text);
  const int level = cmark_node_get_heading_level(heading);
  const int size = TitleSize(style_.size, level);
  const int text_left = flow_.left() + size - 1;
  BlockFaces faces = style_.Faces(size, FontStyleConstants::Bold);
  faces.code.size = faces.text.size;
  LineComposer composer(setting_.measure, pages_.width() - text_left, false);
  const std::vector<Line> lines = composer.Compose(MakeWords(text, faces, setting_.measure));
  if (lines.empty()) {
    if (targets_ != nullptr) flow_.AddAnchor(targets_->AnchorOfHeading(source_, heading));
    return;
  }
  flow_.BeginBlock(SpaceAboveTitle(size));
  const int height = static_cast<int>(lines.size()) * LinePitch(size) + SpaceBelowTitle(size);
  flow_.Make(std::min(height + HeightBelowTitle(heading), pages_.height()));
  for (const Line& line : lines) {
    flow_.Make(LinePitch(size));
    if (&line == &lines.front()) {
      if (targets_ != nullptr) WriteBookmark(heading, text);
      flow_.WriteMarker();
      pages_.WriteTitleLine(line, text.links, flow_.left(), size,
                            level % 2 == 1 ? BulletConstants::Disc : BulletConstants::Square);
    } else {
      pages_.WriteLine(line, text.links, text_left, size);
    }
    pages_.Advance(LinePitch(size));
  }
  flow_.EndBlock(SpaceBelowTitle(size));
}

void Typesetter::SetRule() {
  const int pitch = LinePitch(style_.size);
  flow_.BeginBlock(ParagraphSpace(style_.size));
  flow_.Make(pitch);
  flow_.WriteMarker();
  pages_.DrawLine({flow_.left(), pitch / 2}, {pages_.width(), pitch / 2}, 1, kRuleColor);
  pages_.Advance(pitch);
  flow_.EndBlock(ParagraphSpace(style_.size));
}

/// A paragraph, or the pictures in it if there is nothing else.
void Typesetter::SetText(InlineText text) {
  Prepare(text);
  if (text.only_pictures && !text.pictures.empty()) {
    SetPictures(text);
  } else {
    SetWords(text);
  }
}

void Typesetter::SetWords(const InlineText& text) {
  LineComposer composer(setting_.measure, flow_.width(), style_.justify);
  std::vector<Word> words = MakeWords(text, style_.TextFaces(), setting_.measure);
  // Classic documents, which have no targets, have no letters from right to left.
  const std::vector<Line> lines = targets_ != nullptr ? composer.ComposeParagraph(std::move(words))
                                                      : composer.Compose(std::move(words));
  if (lines.empty()) return;
  flow_.BeginBlock(flow_.SpaceOfParagraph());
  const int pitch = LinePitch(style_.size);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    flow_.Make(static_cast<int>(LinesTogether(i, lines.size())) * pitch);
    if (i == 0) flow_.WriteMarker();
    pages_.WriteLine(lines[i], text.links, flow_.left(), style_.size);
    pages_.Advance(pitch);
  }
  flow_.EndBlock(0);
}

void Typesetter::SetPictures(const InlineText& text) {
  InlineText instead;
  const auto set_instead = [&] {
    if (!instead.spans.empty()) SetWords(std::exchange(instead, {}));
  };
  for (const InlinePicture& picture : text.pictures) {
    std::string reason;
    std::optional<PictureSize> size;
    if (!IsRemote(picture.file)) size = FittedSize(picture.file, reason);
    if (size) {
      set_instead();
      if (Draw(text, picture, *size, reason)) continue;
    }
    if (!IsRemote(picture.file)) {
      result_->lost_pictures.push_back({picture.file, reason, picture.position});
    }
    AppendPictureText(text, picture, instead);
  }
  set_instead();
}

bool Typesetter::Draw(const InlineText& text, const InlinePicture& picture, const PictureSize& size,
                      std::string& reason) {
  flow_.BeginBlock(flow_.SpaceOfParagraph());
  flow_.Make(size.height);
  const int x = flow_.left() + (flow_.width() - size.width) / 2;
  if (!pages_.DrawPicture(picture.file, style_.encoding, LinkOf(text, picture), x, Box())) {
    reason = output_.document().LastRefusal().sentence;
    return false;
  }
  flow_.WriteMarker();
  pages_.Advance(size.height);
  flow_.EndBlock(ParagraphSpace(style_.size));
  return true;
}

PictureSize Typesetter::Box() const { return {flow_.width(), pages_.height()}; }

std::optional<PictureSize> Typesetter::FittedSize(const std::string& file, std::string& reason) {
  PictureSize pixels;
  if (!pictures_.Measure(file, pixels, reason)) return std::nullopt;
  return FitInto(Box(), pixels);
}

void Typesetter::WriteBookmark(cmark_node* heading, const InlineText& text) {
  const int level = cmark_node_get_heading_level(heading);
  while (!open_levels_.empty() && open_levels_.back() >= level) open_levels_.pop_back();
  open_levels_.push_back(level);
  const auto depth = static_cast<int>(open_levels_.size());
  std::string anchor = targets_->AnchorOfHeading(source_, heading);
  std::string title = PlainText(text);
  pages_.SetAnchor(anchor);
  pages_.WriteBookmark(title, depth);
  if (style_.has_contents) {
    result_->headings.push_back({std::move(title), depth, pages_.pages(), std::move(anchor)});
  }
}

void Typesetter::ResolveLinks(InlineText& text) {
  for (std::size_t number = 1; number <= text.links.size(); ++number) {
    const std::string address = text.links[number - 1];
    if (targets_ == nullptr) {
      if (address.starts_with('#')) text.RemoveLink(number);
      continue;
    }
    const std::optional<std::string> place = targets_->PlaceOf(source_, address);
    if (!place) continue;
    if (!place->empty()) {
      text.links[number - 1] = "#" + *place;
      continue;
    }
    const auto shown = std::find_if(text.spans.begin(), text.spans.end(),
                                    [=](const Span& span) { return span.link == number; });
    if (shown == text.spans.end()) continue;  // a link without text
    LostLinks& lost = result_->lost_links;
    if (lost.count++ == 0) {
      lost.first = address;
      lost.position = shown->position;
    }
    text.RemoveLink(number);
  }
}

void Typesetter::AddAnchors(const InlineText& text) {
  if (targets_ == nullptr) return;
  for (const std::string& name : text.anchors) {
    std::string anchor = LinkTargets::AnchorOf(source_, name);
    const bool first = !targets_->IsHeading(anchor) && anchors_.insert(anchor).second;
    if (first && !name.empty()) flow_.AddAnchor(std::move(anchor));
  }
}

void Typesetter::Prepare(InlineText& text) {
  ResolveLinks(text);
  AddAnchors(text);
  result_->omitted.Add(text.omitted);
  for (const InlinePicture& picture : text.pictures) {
    if (IsRemote(picture.file)) ++result_->remote_pictures;
  }
}

/// The height that must fit below a title: up to three titles, and then what begins the text.
int Typesetter::HeightBelowTitle(cmark_node* heading) {
  constexpr int kTitlesTogether = 3;
  int height = ParagraphSpace(style_.size);
  cmark_node* next = NextShown(heading);
  for (int titles = 1; titles < kTitlesTogether && next != nullptr; ++titles) {
    if (KindOf(next) != NodeKind::Heading) break;
    const int size = TitleSize(style_.size, cmark_node_get_heading_level(next));
    height += SpaceAboveTitle(size) + LinePitch(size) + SpaceBelowTitle(size);
    next = NextShown(next);
  }
  return next == nullptr ? height : height + HeightOfStart(next);
}

/// The block behind this one, without those that show nothing. Classic documents stay as they are.
cmark_node* Typesetter::NextShown(cmark_node* block) const {
  cmark_node* next = cmark_node_next(block);
  while (targets_ != nullptr && next != nullptr && !IsShown(next)) next = cmark_node_next(next);
  return next;
}

/// The height of the part of a block that is never divided: a picture, the first row of a table, or
/// three lines, because a paragraph of three lines stays on one page.
int Typesetter::HeightOfStart(cmark_node* block) {
  const int lines = 3 * LinePitch(style_.size);
  if (KindOf(block) == NodeKind::Table && targets_ != nullptr) {
    return std::max(HeightOfTableStart(block, setting_), lines);
  }
  if (KindOf(block) != NodeKind::Paragraph) return lines;
  const InlineText text = ReadInlines(block);
  if (!text.only_pictures || text.pictures.empty()) return lines;
  const std::string& file = text.pictures.front().file;
  if (IsRemote(file)) return lines;
  std::string reason;
  const std::optional<PictureSize> picture = FittedSize(file, reason);
  return picture ? picture->height : lines;
}

}  // namespace vellumark::tools
