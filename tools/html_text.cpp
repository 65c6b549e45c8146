// SPDX-License-Identifier: MIT
#include "tools/html_text.h"

#include <algorithm>
#include <array>
#include <cmark-gfm.h>
#include <utility>

// Last, because it defines macros with common names.
#include <cmark-gfm/houdini.h>

namespace vellumark::tools {
namespace {

constexpr std::string_view kHtmlBlanks = " \t\r\n\f";

constexpr std::array<std::string_view, 37> kElementsWithLines = {
    "address", "article", "aside", "blockquote", "body",   "center", "dd",     "details",
    "div",     "dl",      "dt",    "figcaption", "figure", "footer", "form",   "h1",
    "h2",      "h3",      "h4",    "h5",         "h6",     "head",   "header", "hr",
    "html",    "li",      "main",  "nav",        "ol",     "p",      "pre",    "section",
    "summary", "table",   "tr",    "ul",         "video"};

std::string DecodeEntities(std::string_view text) {
  if (text.find('&') == std::string_view::npos) return std::string(text);
  cmark_strbuf buffer;
  cmark_strbuf_init(cmark_get_default_mem_allocator(), &buffer, 0);
  houdini_unescape_html_f(&buffer, reinterpret_cast<const std::uint8_t*>(text.data()),
                          static_cast<bufsize_t>(text.size()));
  std::string decoded(reinterpret_cast<const char*>(buffer.ptr),
                      static_cast<std::size_t>(buffer.size));
  cmark_strbuf_free(&buffer);
  return decoded;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

struct Tag {
  std::string name;
  bool closing = false;
  std::string src;
  std::string alt;
  std::string id;
  bool has_address = false;
};

class HtmlReader {
 public:
  explicit HtmlReader(std::string_view html) : html_(html) {}

  std::vector<HtmlPiece> Read() {
    while (at_ < html_.size()) {
      const std::size_t mark = std::min(html_.find('<', at_), html_.size());
      AddText(mark);
      if (mark == html_.size()) break;
      if (!SkipUnseen() && !TakeTag()) AddText(at_ + 1);
    }
    return std::move(pieces_);
  }

 private:
  void Add(HtmlPiece piece, std::size_t end) {
    piece.line = line_;
    pieces_.push_back(std::move(piece));
    MoveTo(end);
  }

  void MoveTo(std::size_t end) {
    const auto from = html_.begin() + static_cast<std::ptrdiff_t>(at_);
    const auto to = html_.begin() + static_cast<std::ptrdiff_t>(end);
    line_ += static_cast<std::size_t>(std::count(from, to, '\n'));
    at_ = end;
  }

  /// A piece for each line.
  void AddText(std::size_t end) {
    while (at_ < end) {
      const std::size_t line_end = std::min(html_.substr(0, end).find('\n', at_), end);
      std::string text = DecodeEntities(html_.substr(at_, line_end - at_));
      if (line_end < end) text += ' ';
      Add({HtmlPiece::Kind::Text, std::move(text), {}, 0}, std::min(line_end + 1, end));
    }
  }

  /// Goes behind `mark`, or to the end if it does not follow.
  bool SkipPast(std::string_view mark, std::size_t from) {
    const std::size_t found = html_.find(mark, from);
    MoveTo(found == std::string_view::npos ? html_.size() : found + mark.size());
    return true;
  }

  bool SkipUnseen() {
    const std::string_view rest = html_.substr(at_);
    if (rest.starts_with("<!--")) return SkipPast("-->", at_ + 2);
    if (rest.starts_with("<![CDATA[")) return SkipPast("]]>", at_);
    if (rest.starts_with("<!") || rest.starts_with("<?")) return SkipPast(">", at_);
    return false;
  }

  bool TakeTag() {
    if (tags_have_ended_) return false;
    std::size_t end = at_ + 1;
    Tag tag;
    if (!ReadTag(end, tag)) {
      tags_have_ended_ = end == html_.size();
      return false;
    }
    using enum HtmlPiece::Kind;
    const bool has_lines =
        std::binary_search(kElementsWithLines.begin(), kElementsWithLines.end(), tag.name);
    if (tag.name == "br") {
      Add({Break, {}, {}, 0}, end);
    } else if (tag.name == "img") {
      if (!tag.src.empty()) Add({Picture, std::move(tag.alt), std::move(tag.src), 0}, end);
    } else {
      const bool only_anchor = tag.name == "a" && !tag.id.empty() && !tag.has_address;
      if (!tag.closing && !only_anchor) Add({Element, tag.name, {}, 0}, at_);
      if (has_lines) Add({Paragraph, {}, {}, 0}, at_);
      if (tag.name == "td" || tag.name == "th") Add({Text, " ", {}, 0}, at_);
      if (!tag.closing && !tag.id.empty()) Add({Anchor, std::move(tag.id), {}, 0}, at_);
    }
    MoveTo(end);
    if (!tag.closing && (tag.name == "script" || tag.name == "style")) SkipContent(tag.name);
    return true;
  }

  /// Goes to the closing tag of a script or style sheet.
  void SkipContent(const std::string& name) {
    for (std::size_t at = at_; at < html_.size(); at += 2) {
      at = std::min(html_.find("</", at), html_.size());
      if (at == html_.size() || LowerCase(html_.substr(at + 2, name.size())) == name) {
        MoveTo(at);
        return;
      }
    }
    MoveTo(html_.size());
  }

  void SkipBlanks(std::size_t& at) const {
    at = std::min(html_.find_first_not_of(kHtmlBlanks, at), html_.size());
  }

  /// Reads a tag from behind its "<" to behind its ">". False if this is not a whole tag.
  bool ReadTag(std::size_t& at, Tag& tag) const {
    tag.closing = at < html_.size() && html_[at] == '/';
    if (tag.closing) ++at;
    if (at >= html_.size() || !IsLetter(html_[at])) return false;
    const std::size_t name_end = std::min(html_.find_first_of(" \t\r\n\f/>", at), html_.size());
    tag.name = LowerCase(html_.substr(at, name_end - at));
    at = name_end;
    while (true) {
      at = std::min(html_.find_first_not_of(" \t\r\n\f/", at), html_.size());
      if (at == html_.size()) return false;
      if (html_[at] == '>') {
        ++at;
        return true;
      }
      if (!ReadAttribute(at, tag)) return false;
    }
  }

  bool ReadAttribute(std::size_t& at, Tag& tag) const {
    // An attribute has at least one character, whatever it is.
    const std::size_t name_end =
        std::min(html_.find_first_of(" \t\r\n\f/>=", at + 1), html_.size());
    const std::string name = LowerCase(html_.substr(at, name_end - at));
    at = name_end;
    SkipBlanks(at);
    if (at == html_.size() || html_[at] != '=') return true;
    ++at;
    SkipBlanks(at);
    if (at == html_.size()) return false;
    std::string_view value;
    if (html_[at] == '"' || html_[at] == '\'') {
      const std::size_t end = html_.find(html_[at], at + 1);
      if (end == std::string_view::npos) {
        at = html_.size();
        return false;
      }
      value = html_.substr(at + 1, end - at - 1);
      at = end + 1;
    } else {
      const std::size_t end = std::min(html_.find_first_of(" \t\r\n\f>", at), html_.size());
      value = html_.substr(at, end - at);
      at = end;
    }
    if (name == "src") tag.src = DecodeEntities(value);
    if (name == "alt") tag.alt = DecodeEntities(value);
    if (name == "id" || (name == "name" && tag.name == "a")) tag.id = DecodeEntities(value);
    if (name == "href") tag.has_address = true;
    return true;
  }

  std::string_view html_;
  std::size_t at_ = 0;
  std::size_t line_ = 0;          // line ends before at_
  bool tags_have_ended_ = false;  // a tag without end was found: looking for others takes too long
  std::vector<HtmlPiece> pieces_;
};

}  // namespace

std::vector<HtmlPiece> ReadHtml(std::string_view html) { return HtmlReader(html).Read(); }

}  // namespace vellumark::tools
