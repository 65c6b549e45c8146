// SPDX-License-Identifier: MIT
//
// DocumentFonts: the font files of a conversion, and which font a face of text is set in.
//
//     DocumentFonts fonts;
//     fonts.SetFile("bold=Serif-Bold.ttf");             // --font-file
//     fonts.AddFallback("Collection.ttc#2");            // --fallback-font
//     fonts.LoadInto(document);                         // the same numbers in every document
//     document.SetFont(fonts.NumberOf(face), ...);
//
// A file stands for its style of Times and Helvetica, and the regular one for the styles that have
// none; code stays in Courier. "#2" is the third face of a collection.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <vellumark/vellumark.h>

#include "tools/face.h"

namespace vellumark::tools {

/// The names of the styles, in the order of FontStyleConstants.
inline constexpr const char* kStyleNames = "regular, bold, italic, bold-italic";

class DocumentFonts {
 public:
  /// "[STYLE=]FILE[#INDEX]", without a style the regular one. Throws Failure for a file that cannot
  /// be read, and a style that is given twice.
  void SetFile(const std::string& typed);

  /// "FILE[#INDEX]".
  void AddFallback(const std::string& typed);

  /// Throws Failure if bold or another style has a file, but regular has none.
  void Check() const;

  [[nodiscard]] bool Empty() const noexcept { return files_.empty(); }
  [[nodiscard]] bool HasFallbacks() const noexcept { return has_fallbacks_; }

  /// Loads the files, in their order. Throws Failure for one that is refused.
  void LoadInto(Document& document) const;

  [[nodiscard]] FontNumberConstants NumberOf(const Face& face) const;

 private:
  struct File {
    std::string option;
    std::string name;
    int index = 0;
    bool fallback = false;
    std::vector<std::uint8_t> bytes;
  };

  std::size_t Add(const std::string& option, std::string_view typed, bool fallback);

  std::vector<File> files_;
  std::array<std::optional<std::size_t>, 4> styles_;  // numbers of files
  bool has_fallbacks_ = false;
};

}  // namespace vellumark::tools
