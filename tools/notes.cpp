// SPDX-License-Identifier: MIT
#include "tools/notes.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>
#include <string>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

std::string UnicodeName(char32_t character) {
  std::array<char, 12> text{};
  const int size =
      std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned>(character));
  return {text.data(), static_cast<std::size_t>(std::max(size, 0))};
}

/// "1 character is" or "3 characters are".
std::string Count(std::size_t number, const std::string& one, const std::string& more) {
  return std::to_string(number) + " " + (number == 1 ? one : more);
}

/// Names come from the text, so control characters, which a terminal would obey, become "?". The
/// middle of a very long name is left out.
std::string Shown(std::string name) {
  constexpr std::size_t kLongest = 200;
  std::replace_if(
      name.begin(), name.end(), [](char c) { return (c >= 0 && c < ' ') || c == '\x7F'; }, '?');
  if (name.size() <= kLongest) return name;
  std::size_t end = kLongest;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U) --end;
  return name.substr(0, end) + "...";
}

class Notes {
 public:
  Notes(const TypesetResult& result, std::string_view text, std::string_view name,
        std::ostream& stream)
      : result_(result), source_(text), name_(name), stream_(stream) {}

  void Write() {
    WriteLostCharacters();
    if (result_.omitted.count > 0) {
      Line(Count(result_.omitted.count, "HTML tag was", "HTML tags were") +
           " left out, and the text inside was kept; first: <" + Shown(result_.omitted.first) +
           "> at " + PlaceText(source_.PlaceOf(result_.omitted.position)));
    }
    if (result_.remote_pictures > 0) {
      Line(Count(result_.remote_pictures, "remote picture is", "remote pictures are") +
           " represented by a link" + (name_.empty() ? "" : ", in " + Shown(std::string(name_))));
    }
    if (result_.lost_links.count > 0) {
      Line(Count(result_.lost_links.count, "link leads", "links lead") +
           " to a title that the text does not have; first: " + Shown(result_.lost_links.first) +
           " at " + PlaceText(source_.PlaceOf(result_.lost_links.position)));
    }
    for (const LostPicture& picture : result_.lost_pictures) {
      Line("picture " + Shown(picture.file) + " at " +
           PlaceText(source_.PlaceOf(picture.position)) + ": " + Shown(picture.reason));
    }
  }

 private:
  void WriteLostCharacters() {
    constexpr std::size_t kMostNamed = 8;
    const std::string& lost = result_.lost_characters;
    if (lost.empty()) return;
    const std::size_t count = CountCharacters(lost);
    std::string text = "\"?\" stands for " + Count(count, "character that", "characters that") +
                       " the fonts lack:";
    std::size_t at = 0;
    for (std::size_t i = 0; i < std::min(count, kMostNamed); ++i) {
      text += ' ' + UnicodeName(NextCharacter(lost, at));
    }
    if (count > kMostNamed) text += " and " + std::to_string(count - kMostNamed) + " others";
    if (result_.first_lost) text += "; the first is at " + PlaceText(*result_.first_lost);
    Line(text);
  }

  [[nodiscard]] std::string PlaceText(const Place& place) const {
    return "line " + std::to_string(place.line) + ", column " + std::to_string(place.column) +
           OfName();
  }

  [[nodiscard]] std::string OfName() const {
    return name_.empty() ? std::string() : " of " + Shown(std::string(name_));
  }

  void Line(const std::string& text) { stream_ << "vellumark: " << text << '\n'; }

  const TypesetResult& result_;
  SourceText source_;
  std::string_view name_;
  std::ostream& stream_;
};

}  // namespace

void WriteNotes(const TypesetResult& result, std::string_view text, std::string_view name,
                std::ostream& stream) {
  Notes(result, text, name, stream).Write();
}

}  // namespace vellumark::tools
