// SPDX-License-Identifier: MIT
//
// Finding the addresses in inline text.
//
// Each function looks at `text` from `at` and says how much of it a link takes; none if there is no
// link. They look no further than a bounded distance, so that a text of nothing but "[" costs no
// more than another.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vellumark::tools {

struct FoundLink {
  std::string_view label;  ///< what is shown
  std::string address;
  std::size_t end = 0;  ///< behind the link
};

/// "[label](address)" or "[label](address "title")"; `at` stands at the "[".
[[nodiscard]] std::optional<FoundLink> FindLink(std::string_view text, std::size_t at);

struct FoundPicture {
  std::string file;
  std::string link;  ///< empty for none
};

/// A text that is nothing but "![alt](file)" or "[![alt](file)](address)", with a file that is
/// named.
[[nodiscard]] std::optional<FoundPicture> FindLonePicture(std::string_view text);

/// "<https://...>", "<mailto:...>" or "<name@host>"; `at` stands at the "<".
[[nodiscard]] std::optional<FoundLink> FindBracketedAddress(std::string_view text, std::size_t at);

/// A bare address that starts with http://, https:// or mailto:. Punctuation at its end is not part
/// of it.
[[nodiscard]] std::optional<FoundLink> FindBareAddress(std::string_view text, std::size_t at);

}  // namespace vellumark::tools
