// SPDX-License-Identifier: MIT
//
// LinkTargets: the places in the inputs that their links may lead to.
//
//     const LinkTargets targets(sources);
//     targets.PlaceOf(0, "#usage")            // "usage": the name of its anchor in the document
//     targets.PlaceOf(0, "other.md#usage")    // "2/usage", if other.md is the second input
//     targets.PlaceOf(0, "#none")             // "": there is no such place
//     targets.PlaceOf(0, "https://a.b/")      // nothing: it leads out of the document
//
// A place is a heading, by its slug (heading_slugs.h), an HTML element with an id, or the beginning
// of an input. A name is compared as it is, and then in lower case.
#pragma once

#include <cmark-gfm.h>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/heading_slugs.h"
#include "tools/source.h"

namespace vellumark::tools {

class LinkTargets {
 public:
  /// The sources must outlive this object.
  explicit LinkTargets(const std::vector<Source>& sources);

  [[nodiscard]] std::optional<std::string> PlaceOf(std::size_t source,
                                                   std::string_view address) const;

  /// The name of a heading's anchor.
  [[nodiscard]] std::string AnchorOfHeading(std::size_t source, cmark_node* heading) const;

  /// Whether an anchor is that of a heading.
  [[nodiscard]] bool IsHeading(std::string_view anchor) const;

  /// The name of the anchor of an element with this id.
  [[nodiscard]] static std::string AnchorOf(std::size_t source, std::string_view id);

  /// The name of the anchor at the beginning of a source.
  [[nodiscard]] static std::string TopOf(std::size_t source);

 private:
  void Collect(std::size_t number, cmark_node* root, HeadingSlugs& slugs);
  [[nodiscard]] std::optional<std::size_t> SourceNamed(std::size_t from,
                                                       std::string_view file) const;

  struct Heading {
    std::size_t line = 0;   // its first one
    std::string_view slug;  // in the places of its source
  };

  /// The places of a source.
  struct Places {
    std::string file;                             // its path
    std::unordered_map<std::string, bool> names;  // true for a heading
    std::vector<Heading> headings;                // in the order of their lines
  };

  std::vector<Places> places_;  // of each source
};

}  // namespace vellumark::tools
