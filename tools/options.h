// SPDX-License-Identifier: MIT
//
// The command line.
//
//     const std::optional<Options> options = ParseOptions(argc, argv, "4a7a327f12bc");
//     if (!options) return 0;          // --help or --version has printed its text
//
// An unknown option or value throws Failure, which names the option and its values.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/document_fonts.h"
#include "tools/output_format.h"
#include "tools/running_heads.h"
#include "tools/source.h"
#include "tools/text_style.h"

namespace vellumark::tools {

struct Options {
  Format format = Format::Pdf;
  bool classic = false;             ///< otherwise conforming
  std::vector<std::string> inputs;  ///< file names, or "-" for standard input; at least one
  TextKind kind = TextKind::ByName;
  std::string output;  ///< a file name, or "-" for standard output
  PaperSizeConstants paper = PaperSizeConstants::A4;
  OrientationConstants orientation = OrientationConstants::Portrait;
  TextStyle style;
  DocumentFonts fonts;  ///< of a conforming document
  Properties properties;
  int picture_memory = 256;         ///< MiB that decoding a picture may take
  bool title_given = false;         ///< otherwise the first title of the text is used
  RunningHeads heads;               ///< of a conforming document
  bool contents = false;            ///< with a table of contents in front
  bool cover = false;               ///< with a cover page of title, author and date
  std::optional<std::string> date;  ///< on the cover; otherwise the day of its creation
};

/// `commit` is what --version shows behind the version; empty if nobody knows it.
[[nodiscard]] std::optional<Options> ParseOptions(int argc, const char* const* argv,
                                                  std::string_view commit);

}  // namespace vellumark::tools
