// SPDX-License-Identifier: MIT
//
// OutputFormat: a document of one format, as the typesetter sees it.
//
// The typesetter uses document() for everything that all formats do alike: pages, positions, fonts,
// lines. This interface is for what differs: whether texts and pictures can have links, and which
// properties there are. PdfOutput and PsOutput write conforming documents, to which all text goes
// as it is; for classic ones see tools/classic/classic_output.h.
#pragma once

#include <string>
#include <string_view>

#include <vellumark/vellumark.h>

#include "tools/document_fonts.h"
#include "tools/face.h"

namespace vellumark::tools {

enum class Format { Pdf, Ps };

/// In UTF-8. A format ignores those that it does not have.
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

  /// Loads the fonts, which must outlive the document; from here on text is set in them.
  void UseFonts(const DocumentFonts& fonts) {
    fonts_ = &fonts;
    fonts.LoadInto(document());
  }

  /// What a face is for SetFont.
  [[nodiscard]] FontNumberConstants NumberOf(const Face& face) const {
    return fonts_ == nullptr ? face.family : fonts_->NumberOf(face);
  }

  /// Before Create.
  virtual void SetProperties(const Properties& properties) = 0;

  /// Writes a text at the current position, in the current font. `link` is an address in UTF-8, or
  /// empty; a format without links ignores it.
  [[nodiscard]] virtual bool WriteText(std::string_view text, std::string_view link) = 0;

  /// Writes it behind a bullet.
  [[nodiscard]] virtual bool WriteTitle(std::string_view text, BulletConstants bullet,
                                        std::string_view link) = 0;

  /// Draws a picture at the current position. `link` is as in WriteText.
  [[nodiscard]] virtual bool DrawPicture(std::string_view file, EncodingConstants encoding,
                                         std::string_view link) = 0;

  /// Names the current position, where a link to "#name" leads, and makes it an entry of the
  /// outline. A format without them ignores both.
  [[nodiscard]] virtual bool SetAnchor(std::string_view /*name*/) { return true; }
  [[nodiscard]] virtual bool WriteBookmark(std::string_view /*text*/, int /*level*/) {
    return true;
  }

  /// Each character, once, that was written and is not shown as itself.
  [[nodiscard]] virtual std::string LostCharacters() { return document().LostCharacters(); }

 private:
  const DocumentFonts* fonts_ = nullptr;
};

}  // namespace vellumark::tools
