// SPDX-License-Identifier: MIT
#include "tools/inline_text.h"

#include <algorithm>
#include <utility>

namespace vellumark::tools {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\f\v";

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(kBlanks) == std::string_view::npos;
}

/// The last part of a file name or address, for a picture that has no text of its own.
std::string_view LastPart(std::string_view file) {
  file = file.substr(0, file.find_first_of("?#"));
  const std::string_view last = file.substr(file.rfind('/') + 1);
  return last.empty() ? file : last;
}

/// Puts an InlineText together, in the look that is current.
class InlineBuilder {
 public:
  Span look;

  void Text(std::string_view text) {
    if (text.empty()) return;
    if (picture_depth_ == 0 && !IsBlank(text)) text_.only_pictures = false;
    Span span = look;
    span.text = text;
    text_.spans.push_back(span);
  }

  void OwnText(std::string text) { Text(text_.owned.emplace_back(std::move(text))); }

  void OpenLink(std::string_view address) {
    if (address.empty()) return;
    text_.links.emplace_back(address);
    look.link = text_.links.size();
  }

  void CloseLink() { look.link = 0; }

  /// Between these two, the text is that of a picture.
  void OpenPicture(std::string_view file) {
    if (picture_depth_++ > 0) return;
    outside_ = look;
    InlinePicture picture{std::string(file), look.link, text_.spans.size(), look.position};
    look.italic = true;
    if (IsRemote(file) && look.link == 0) OpenLink(file);
    picture_look_ = look;
    text_.pictures.push_back(std::move(picture));
  }

  void ClosePicture() {
    if (--picture_depth_ > 0) return;
    MergePictureText();
    look = outside_;
  }

  void Anchor(std::string name) { text_.anchors.push_back(std::move(name)); }

  void OmitElement(std::string_view name) {
    if (text_.omitted.count++ > 0) return;
    text_.omitted.first = name;
    text_.omitted.position = look.position;
  }

  [[nodiscard]] InlineText Take() {
    InlineText taken = std::exchange(text_, {});
    look = {.position = look.position};
    return taken;
  }

 private:
  /// A picture is represented by exactly one span.
  void MergePictureText() {
    const InlinePicture& picture = text_.pictures.back();
    std::string merged;
    for (std::size_t i = picture.span; i < text_.spans.size(); ++i) merged += text_.spans[i].text;
    text_.spans.resize(picture.span);
    look = picture_look_;
    if (IsBlank(merged)) merged = LastPart(picture.file);
    Span span = look;
    span.text = text_.owned.emplace_back(std::move(merged));
    text_.spans.push_back(span);
  }

  InlineText text_;
  Span outside_;       // the look before the picture
  Span picture_look_;  // and that of its text
  int picture_depth_ = 0;
};

void AddPicture(InlineBuilder& builder, const HtmlPiece& piece) {
  builder.OpenPicture(piece.file);
  builder.OwnText(piece.text);
  builder.ClosePicture();
}

/// Reads the nodes of a block in order, and keeps how deep the looks are nested.
class InlineReader {
 public:
  InlineText Read(cmark_node* block) {
    for (NodeWalk walk(block); walk.Next();) {
      if (walk.node() != block) Take(walk.node(), walk.entering());
    }
    return builder_.Take();
  }

 private:
  void Take(cmark_node* node, bool entering) {
    const int step = entering ? 1 : -1;
    Span& look = builder_.look;
    const NodeKind kind = KindOf(node);
    const bool has_position = kind != NodeKind::SoftBreak && kind != NodeKind::LineBreak;
    if (entering && has_position) look.position = StartOf(node);
    switch (kind) {
      case NodeKind::Text: builder_.Text(LiteralOf(node)); break;
      case NodeKind::SoftBreak: builder_.Text(" "); break;
      case NodeKind::LineBreak: builder_.Text("\n"); break;
      case NodeKind::Code: {
        look.code = true;
        builder_.Text(LiteralOf(node));
        look.code = false;
        break;
      }
      case NodeKind::HtmlInline: TakeHtml(LiteralOf(node)); break;
      case NodeKind::Emphasis: look.italic = (italic_ += step) > 0; break;
      case NodeKind::Strong: look.bold = (bold_ += step) > 0; break;
      case NodeKind::Strikethrough: look.struck = (struck_ += step) > 0; break;
      case NodeKind::Link: TakeLink(node, entering); break;
      case NodeKind::Image: TakeImage(node, entering); break;
      default: break;
    }
  }

  void TakeLink(cmark_node* node, bool entering) {
    if (entering) {
      builder_.OpenLink(AddressOf(node));
    } else {
      builder_.CloseLink();
    }
  }

  void TakeImage(cmark_node* node, bool entering) {
    if (entering) {
      builder_.OpenPicture(AddressOf(node));
    } else {
      builder_.ClosePicture();
    }
  }

  void TakeHtml(std::string_view html) {
    for (HtmlPiece& piece : ReadHtml(html)) {
      switch (piece.kind) {
        case HtmlPiece::Kind::Text: builder_.OwnText(std::move(piece.text)); break;
        case HtmlPiece::Kind::Break: builder_.Text("\n"); break;
        case HtmlPiece::Kind::Picture: AddPicture(builder_, piece); break;
        case HtmlPiece::Kind::Anchor: builder_.Anchor(std::move(piece.text)); break;
        case HtmlPiece::Kind::Element: builder_.OmitElement(piece.text); break;
        case HtmlPiece::Kind::Paragraph: break;
      }
    }
  }

  InlineBuilder builder_;
  int bold_ = 0;
  int italic_ = 0;
  int struck_ = 0;
};

}  // namespace

void OmittedHtml::Add(const OmittedHtml& other) {
  const std::size_t sum = count + other.count;
  if (count == 0) *this = other;
  count = sum;
}

void InlineText::RemoveLink(std::size_t number) {
  for (Span& span : spans) {
    if (span.link == number) span.link = 0;
  }
  for (InlinePicture& picture : pictures) {
    if (picture.link != number) continue;
    picture.link = 0;
    if (!IsRemote(picture.file)) continue;
    links.push_back(picture.file);
    spans[picture.span].link = links.size();
  }
}

InlineText ReadInlines(cmark_node* block) { return InlineReader().Read(block); }

std::vector<InlineText> ReadHtmlBlock(std::string_view html, SourcePosition position) {
  std::vector<InlineText> paragraphs;
  InlineBuilder builder;
  const auto end_paragraph = [&] {
    InlineText text = builder.Take();
    const bool empty = text.spans.empty() && text.anchors.empty();
    if (!empty || text.omitted.count > 0) paragraphs.push_back(std::move(text));
  };
  for (HtmlPiece& piece : ReadHtml(html)) {
    builder.look.position = {position.line + piece.line, piece.line == 0 ? position.byte : 1};
    switch (piece.kind) {
      case HtmlPiece::Kind::Text: builder.OwnText(std::move(piece.text)); break;
      case HtmlPiece::Kind::Break: builder.Text("\n"); break;
      case HtmlPiece::Kind::Picture: AddPicture(builder, piece); break;
      case HtmlPiece::Kind::Anchor: builder.Anchor(std::move(piece.text)); break;
      case HtmlPiece::Kind::Element: builder.OmitElement(piece.text); break;
      case HtmlPiece::Kind::Paragraph: end_paragraph(); break;
    }
  }
  end_paragraph();
  return paragraphs;
}

std::string PlainText(const InlineText& text) {
  std::string plain;
  for (const Span& span : text.spans) plain += span.text;
  std::replace(plain.begin(), plain.end(), '\n', ' ');
  return plain;
}

bool IsRemote(std::string_view file) {
  const std::size_t colon = file.find(':');
  // A letter and a colon are a drive; a scheme is longer.
  const bool scheme = colon != std::string_view::npos && colon > 1 && file.find('/') > colon;
  return scheme || file.starts_with("//");
}

}  // namespace vellumark::tools
