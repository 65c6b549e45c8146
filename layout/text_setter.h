// SPDX-License-Identifier: MIT
//
// TextSetter: who measures a text and puts it into the codes of a font.
//
// The document model decides where a text goes; a writer shows codes. What lies between stands
// behind this interface, chosen once for a document:
//
//     setter.Measure(word, font)            // 1/1000 em: does it fit?
//     setter.Encode(line, font, encoded);   // the same, and its runs of codes
//     writer.ShowText(encoded.Runs(), ...);
//
// ByteSetter takes bytes of the code page as the codes that they are; UnicodeSetter takes UTF-8.
// Both raise run-time error 6 for a width beyond 32 bits.
#pragma once

#include <cstdint>
#include <string_view>

#include "layout/encoded_text.h"
#include "layout/font.h"
#include "layout/text_width.h"

namespace vellumark::layout {

class TextSetter {
 public:
  TextSetter() = default;
  TextSetter(const TextSetter&) = delete;
  TextSetter& operator=(const TextSetter&) = delete;
  TextSetter(TextSetter&&) = delete;
  TextSetter& operator=(TextSetter&&) = delete;
  virtual ~TextSetter() = default;

  /// The width in 1/1000 em.
  [[nodiscard]] virtual std::int32_t Measure(std::string_view text, const Font& font) const = 0;

  /// The widths of the codes if each byte of `text` is a code that is measured by itself; null if
  /// it is not. They save a call for each word of a long text.
  [[nodiscard]] virtual const CodeWidths* ByteWidths(std::string_view text,
                                                     const Font& font) const = 0;

  /// The codes, and the same width. `encoded` may point into `text`.
  virtual void Encode(std::string_view text, const Font& font, EncodedText& encoded) const = 0;

  /// The width in whole points, as it is compared with what is free.
  [[nodiscard]] Points WidthInPoints(std::string_view text, const Font& font) const {
    return FontWidths::InPoints(font.height, Measure(text, font));
  }
};

/// Bytes of the code page, shown as they stand.
class ByteSetter final : public TextSetter {
 public:
  /// `widths` must outlive the setter.
  explicit ByteSetter(const FontWidths& widths) : widths_(widths) {}

  [[nodiscard]] std::int32_t Measure(std::string_view text, const Font& font) const override {
    return widths_.Sum(text, font);
  }
  [[nodiscard]] const CodeWidths* ByteWidths(std::string_view /*text*/,
                                             const Font& font) const override {
    return &widths_.Codes(font);
  }
  void Encode(std::string_view text, const Font& font, EncodedText& encoded) const override {
    encoded.Borrow(text, widths_.Sum(text, font));
  }

 private:
  const FontWidths& widths_;
};

/// UTF-8, up to the encodings of the standard fonts.
class UnicodeSetter final : public TextSetter {
 public:
  [[nodiscard]] std::int32_t Measure(std::string_view text, const Font& font) const override {
    return MeasureText(text, font);
  }
  [[nodiscard]] const CodeWidths* ByteWidths(std::string_view text,
                                             const Font& font) const override {
    return PlainWidths(text, font);
  }
  void Encode(std::string_view text, const Font& font, EncodedText& encoded) const override {
    EncodeText(text, font, encoded);
  }
};

}  // namespace vellumark::layout
