// SPDX-License-Identifier: MIT
#include "tools/link_targets.h"

#include <algorithm>
#include <charconv>

#include "tools/file_name.h"
#include "tools/html_text.h"
#include "tools/inline_text.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

/// The text of a heading as its slug has it: without pictures and line ends.
std::string SluggedText(cmark_node* heading) {
  std::string text;
  for (NodeWalk walk(heading); walk.Next();) {
    if (!walk.entering()) continue;
    const NodeKind kind = KindOf(walk.node());
    if (kind == NodeKind::Image) walk.Skip();
    if (kind == NodeKind::Text || kind == NodeKind::Code) text += LiteralOf(walk.node());
  }
  return text;
}

/// Without percent signs; as it is if what they encode is not UTF-8.
std::string Decoded(std::string_view address) {
  std::string decoded;
  for (std::size_t at = 0; at < address.size(); ++at) {
    unsigned char byte = 0;
    const char* const digits = address.data() + at + 1;
    const bool encoded = address[at] == '%' && at + 2 < address.size() &&
                         std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    decoded += encoded ? static_cast<char>(byte) : address[at];
    if (encoded) at += 2;
  }
  return FirstInvalidByte(decoded) ? std::string(address) : decoded;
}

std::string LowerAscii(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return text;
}

/// What the anchors of a source have in front of the name.
std::string FrontOf(std::size_t source) {
  return source > 0 ? std::to_string(source + 1) + "/" : std::string();
}

}  // namespace

LinkTargets::LinkTargets(const std::vector<Source>& sources) : places_(sources.size()) {
  for (std::size_t i = 0; i < sources.size(); ++i) {
    const std::filesystem::path path = PathOf(sources[i].name);
    if (sources[i].name != "-") places_[i].file = TextOf(path.lexically_normal());
    HeadingSlugs slugs;
    for (std::size_t tree = 0; tree < sources[i].Trees(); ++tree) {
      Collect(i, sources[i].Tree(tree)->root(), slugs);
    }
  }
}

void LinkTargets::Collect(std::size_t number, cmark_node* root, HeadingSlugs& slugs) {
  for (NodeWalk walk(root); walk.Next();) {
    if (!walk.entering()) continue;
    const NodeKind kind = KindOf(walk.node());
    if (kind == NodeKind::Heading) {
      Places& places = places_[number];
      const auto& [slug, is_heading] =
          *places.names.insert_or_assign(slugs.Next(SluggedText(walk.node())), true).first;
      places.headings.push_back({StartOf(walk.node()).line, slug});
    } else if (kind == NodeKind::HtmlBlock || kind == NodeKind::HtmlInline) {
      for (HtmlPiece& piece : ReadHtml(LiteralOf(walk.node()))) {
        if (piece.kind == HtmlPiece::Kind::Anchor) {
          places_[number].names.emplace(std::move(piece.text), false);
        }
      }
    }
  }
}

std::optional<std::size_t> LinkTargets::SourceNamed(std::size_t from, std::string_view file) const {
  if (file.empty()) return from;
  if (IsRemote(file)) return std::nullopt;
  const auto path = PathOf(places_[from].file).parent_path() / PathOf(Decoded(file));
  const std::string wanted = TextOf(path.lexically_normal());
  for (std::size_t i = 0; i < places_.size(); ++i) {
    if (places_[i].file == wanted) return i;
  }
  return std::nullopt;
}

std::optional<std::string> LinkTargets::PlaceOf(std::size_t source,
                                                std::string_view address) const {
  if (address.empty()) return std::nullopt;
  const std::size_t mark = std::min(address.find('#'), address.size());
  const std::optional<std::size_t> target = SourceNamed(source, address.substr(0, mark));
  if (!target) return std::nullopt;
  const std::string id = Decoded(address.substr(std::min(mark + 1, address.size())));
  if (id.empty()) return TopOf(*target);
  for (const std::string& name : {id, LowerAscii(id)}) {
    if (places_[*target].names.count(name) > 0) return AnchorOf(*target, name);
  }
  return id == "top" ? TopOf(*target) : std::string();
}

std::string LinkTargets::AnchorOfHeading(std::size_t source, cmark_node* heading) const {
  const std::vector<Heading>& headings = places_[source].headings;
  const std::size_t line = StartOf(heading).line;
  const auto found =
      std::lower_bound(headings.begin(), headings.end(), line,
                       [](const Heading& one, std::size_t other) { return one.line < other; });
  return AnchorOf(source, found->slug);
}

bool LinkTargets::IsHeading(std::string_view anchor) const {
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const std::string front = FrontOf(i);
    if (!anchor.starts_with(front)) continue;
    const auto found = places_[i].names.find(std::string(anchor.substr(front.size())));
    if (found != places_[i].names.end() && found->second) return true;
  }
  return false;
}

std::string LinkTargets::AnchorOf(std::size_t source, std::string_view id) {
  if (id.empty()) return TopOf(source) + "/";  // of a heading such as "?"
  return FrontOf(source).append(id);
}

std::string LinkTargets::TopOf(std::size_t source) {
  return std::string("/").append(std::to_string(source + 1));
}

}  // namespace vellumark::tools
