// SPDX-License-Identifier: MIT
#include "tools/source.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "tools/file_name.h"
#include "tools/inline_text.h"
#include "tools/input_text.h"
#include "tools/lost_characters.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

bool IsPlainByName(const std::string& name) {
  constexpr std::array<std::string_view, 4> kPlainEndings = {".txt", ".log", ".diff", ".patch"};
  if (name == "-") return true;
  const std::string ending = TextOf(PathOf(name).extension());
  return std::find(kPlainEndings.begin(), kPlainEndings.end(), ending) != kPlainEndings.end();
}

}  // namespace

std::filesystem::path Source::Folder() const {
  return name == "-" ? std::filesystem::path() : PathOf(name).parent_path();
}

std::string Source::Title() const {
  if (!markdown) return name == "-" ? std::string() : TextOf(PathOf(name).filename());
  for (std::size_t i = 0; i < Trees(); ++i) {
    const auto tree = Tree(i);
    for (NodeWalk walk(tree->root()); walk.Next();) {
      if (KindOf(walk.node()) == NodeKind::Heading) return PlainText(ReadInlines(walk.node()));
    }
  }
  return {};
}

std::optional<Place> Source::PlaceOf(char32_t character) const {
  for (std::size_t i = 0; i < Trees(); ++i) {
    const auto place = PlaceOfCharacter(character, Tree(i)->root(), text);
    if (place) return place;
  }
  if (markdown) return std::nullopt;
  std::string bytes;
  AppendUtf8(bytes, character);
  const std::size_t at = text.find(bytes);
  if (at == std::string::npos) return std::nullopt;
  const std::string_view before = std::string_view(text).substr(0, at);
  const std::size_t line_start = before.rfind('\n') + 1;  // npos + 1 is 0
  return Place{static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1,
               CountCharacters(before.substr(line_start)) + 1};
}

Source ReadSource(const std::string& name, TextKind kind) {
  Source source{name, ReadInput(name), std::nullopt};
  const bool plain = kind == TextKind::Plain || (kind == TextKind::ByName && IsPlainByName(name));
  if (!plain) source.markdown.emplace(source.text);
  return source;
}

}  // namespace vellumark::tools
