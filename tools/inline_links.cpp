// SPDX-License-Identifier: MIT
#include "tools/inline_links.h"

#include <algorithm>
#include <array>

namespace vellumark::tools {
namespace {

constexpr std::size_t kLongestLabel = 1000;
constexpr std::size_t kLongestAddress = 2000;
constexpr std::size_t kDeepestBrackets = 8;

constexpr std::array<std::string_view, 3> kBareSchemes = {"https://", "http://", "mailto:"};
constexpr std::array<std::string_view, 5> kSchemes = {"https://", "http://", "mailto:", "ftp://",
                                                      "tel:"};
constexpr std::string_view kBlanks = " \n";

/// Where the bracket is closed that `text` begins with; none if it is not, or too far away.
std::optional<std::size_t> FindClosing(std::string_view text, char open, char close,
                                       std::size_t longest) {
  std::size_t depth = 0;
  const std::size_t end = std::min(text.size(), longest);
  for (std::size_t i = 0; i < end; ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == open) {
      if (++depth > kDeepestBrackets) return std::nullopt;
    } else if (text[i] == close && --depth == 0) {
      return i;
    }
  }
  return std::nullopt;
}

template <std::size_t Count>
bool StartsWithOneOf(std::string_view text, const std::array<std::string_view, Count>& schemes) {
  return std::any_of(schemes.begin(), schemes.end(), [text](std::string_view scheme) {
    return text.size() > scheme.size() && text.starts_with(scheme);
  });
}

/// The address in `inside`, the part between the parentheses: up to a blank, or within "<...>". A
/// full address may contain blanks, which are wrong and often seen.
std::optional<std::string_view> AddressIn(std::string_view inside) {
  inside.remove_prefix(std::min(inside.find_first_not_of(kBlanks), inside.size()));
  if (inside.starts_with('<')) {
    const std::size_t end = inside.find('>');
    if (end == std::string_view::npos) return std::nullopt;
    return inside.substr(1, end - 1);
  }
  const std::size_t end = std::min(inside.find_first_of(kBlanks), inside.size());
  const std::size_t title = inside.find_first_not_of(kBlanks, end);
  if (title == std::string_view::npos || inside[title] == '"' || inside[title] == '\'') {
    return inside.substr(0, end);
  }
  if (!StartsWithOneOf(inside, kSchemes)) return std::nullopt;
  return inside.substr(0, inside.find_last_not_of(kBlanks) + 1);
}

bool LooksLikeMail(std::string_view text) {
  const std::size_t sign = text.find('@');
  return sign != 0 && sign != std::string_view::npos && text.find('.', sign) != sign + 1 &&
         sign + 1 < text.size() && text.find('@', sign + 1) == std::string_view::npos;
}

/// Without the punctuation that belongs to the sentence around it.
std::string_view TrimSentence(std::string_view address) {
  const auto excess = std::count(address.begin(), address.end(), ')') -
                      std::count(address.begin(), address.end(), '(');
  for (auto unbalanced = excess; !address.empty();) {
    const char last = address.back();
    if (last == ')' && unbalanced-- <= 0) break;
    if (last != ')' && std::string_view(".,;:!?'\"*_]}").find(last) == std::string_view::npos)
      break;
    address.remove_suffix(1);
  }
  return address;
}

}  // namespace

std::optional<FoundLink> FindLink(std::string_view text, std::size_t at) {
  const auto label_end = FindClosing(text.substr(at), '[', ']', kLongestLabel);
  if (!label_end) return std::nullopt;
  const std::size_t parenthesis = at + *label_end + 1;
  if (parenthesis >= text.size() || text[parenthesis] != '(') return std::nullopt;
  const auto length = FindClosing(text.substr(parenthesis), '(', ')', kLongestAddress);
  if (!length) return std::nullopt;
  const auto address = AddressIn(text.substr(parenthesis + 1, *length - 1));
  if (!address) return std::nullopt;
  return FoundLink{text.substr(at + 1, *label_end - 1), std::string(*address),
                   parenthesis + *length + 1};
}

std::optional<FoundPicture> FindLonePicture(std::string_view text) {
  FoundPicture found;
  if (text.starts_with('[')) {
    const auto link = FindLink(text, 0);
    if (!link || link->end != text.size()) return std::nullopt;
    found.link = link->address;
    text = link->label;
  }
  if (!text.starts_with("![")) return std::nullopt;
  const auto picture = FindLink(text, 1);
  if (!picture || picture->end != text.size() || picture->address.empty()) return std::nullopt;
  found.file = picture->address;
  return found;
}

std::optional<FoundLink> FindBracketedAddress(std::string_view text, std::size_t at) {
  const std::string_view inside = text.substr(at + 1, kLongestAddress);
  const std::size_t length = inside.find_first_of("> \n<");
  if (length == std::string_view::npos || inside[length] != '>') return std::nullopt;
  const std::string_view address = inside.substr(0, length);
  const std::size_t end = at + length + 2;
  if (StartsWithOneOf(address, kSchemes)) return FoundLink{address, std::string(address), end};
  if (!LooksLikeMail(address)) return std::nullopt;
  return FoundLink{address, "mailto:" + std::string(address), end};
}

std::optional<FoundLink> FindBareAddress(std::string_view text, std::size_t at) {
  const std::string_view rest = text.substr(at, kLongestAddress);
  if (!StartsWithOneOf(rest, kBareSchemes)) return std::nullopt;
  const std::size_t length = std::min(rest.find_first_of(" \n<>\"`|"), rest.size());
  const std::string_view address = TrimSentence(rest.substr(0, length));
  if (!StartsWithOneOf(address, kBareSchemes)) return std::nullopt;
  return FoundLink{address, std::string(address), at + address.size()};
}

}  // namespace vellumark::tools
