// SPDX-License-Identifier: MIT
//
// OutputFormat: a document of one format, as the typesetter sees it.
//
// What all formats do alike, the typesetter asks of document(): pages, positions, fonts, lines.
// What differs stands here: how a text must be escaped, whether there are links, also over
// pictures, and which properties. One class per format derives from it (pdf_output.h); the
// typesetter knows none.
#pragma once

#include <string>
#include <string_view>

#include <vellumark/vellumark.h>

namespace vellumark::tools {

enum class Format { Pdf, Ps };

/// UTF-8, unescaped. A format takes those that it has.
struct Properties {
  std::string title;
  std::string author;
  std::string creator;
  std::string producer;
  std::string subject;
  std::string keywords;
};

class OutputFormat {
 public:
  OutputFormat() = default;
  OutputFormat(const OutputFormat&) = delete;
  OutputFormat& operator=(const OutputFormat&) = delete;
  OutputFormat(OutputFormat&&) = delete;
  OutputFormat& operator=(OutputFormat&&) = delete;
  virtual ~OutputFormat() = default;

  [[nodiscard]] virtual Document& document() = 0;

  /// Before Create.
  virtual void SetProperties(const Properties& properties) = 0;

  /// Writes a run of glyph codes (tools/glyph_codes.h) at the current position. `link` is an
  /// address in UTF-8, empty for none; a format without links leaves it out.
  [[nodiscard]] virtual bool WriteText(std::string_view codes, std::string_view link) = 0;

  /// The same behind a bullet.
  [[nodiscard]] virtual bool WriteTitle(std::string_view codes, BulletConstants bullet,
                                        std::string_view link) = 0;

  /// Draws a picture at the current position; `link` as in WriteText.
  [[nodiscard]] virtual bool DrawPicture(std::string_view file, EncodingConstants encoding,
                                         std::string_view link) = 0;

  /// How often `code` counts where the library measures it: twice where it is escaped.
  [[nodiscard]] virtual int MeasuredAs(char code) const = 0;
};

}  // namespace vellumark::tools
