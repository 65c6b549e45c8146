// SPDX-License-Identifier: MIT
//
// HeadingSlugs: the names by which links reach the headings of a text.
//
//     HeadingSlugs slugs;
//     slugs.Next("It's new!");      // "its-new"
//     slugs.Next("It's new!");      // "its-new-1"
//
// They are those of GitHub: letters in lower case, with their marks, decimal digits, "-" and "_";
// a blank becomes "-", and everything else is left out. A name that a heading before it has gets a
// number.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vellumark::tools {

class HeadingSlugs {
 public:
  /// The name of the next heading, whose text is in UTF-8.
  [[nodiscard]] std::string Next(std::string_view heading);

 private:
  std::unordered_map<std::string, std::size_t> numbers_;  // the last one that a name has
};

}  // namespace vellumark::tools
