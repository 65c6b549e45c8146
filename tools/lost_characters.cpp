// SPDX-License-Identifier: MIT
#include "tools/lost_characters.h"

#include <algorithm>
#include <string>

#include "tools/html_text.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

/// How many line ends of a node's text are before the character, which it shows; or kNowhere.
std::size_t LinesBefore(std::string_view character, cmark_node* node, NodeKind kind) {
  const std::string_view literal = LiteralOf(node);
  if (kind == NodeKind::HtmlBlock || kind == NodeKind::HtmlInline) {
    for (const HtmlPiece& piece : ReadHtml(literal)) {
      const bool shown = piece.kind == HtmlPiece::Kind::Text;
      if (shown && piece.text.find(character) != kNowhere) return piece.line;
    }
    return kNowhere;
  }
  const std::size_t at = literal.find(character);
  if (at == kNowhere) return kNowhere;
  return static_cast<std::size_t>(std::count(literal.begin(), literal.begin() + at, '\n'));
}

bool IsFenced(cmark_node* block) {
  int length = 0;
  int offset = 0;
  char mark = 0;
  return cmark_node_get_fenced(block, &length, &offset, &mark) != 0;
}

}  // namespace

std::optional<Place> PlaceOfCharacter(char32_t character, cmark_node* root,
                                      std::string_view source) {
  std::string bytes;
  AppendUtf8(bytes, character);
  for (NodeWalk walk(root); walk.Next();) {
    if (!walk.entering()) continue;
    const NodeKind kind = KindOf(walk.node());
    std::size_t lines = LinesBefore(bytes, walk.node(), kind);
    if (lines == kNowhere) continue;
    if (kind == NodeKind::CodeBlock && IsFenced(walk.node())) ++lines;
    SourcePosition position = StartOf(walk.node());
    if (lines > 0) position = {position.line + lines, 1};
    return SourceText(source).PlaceOf(position, character);
  }
  return std::nullopt;
}

}  // namespace vellumark::tools
