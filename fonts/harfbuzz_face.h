// SPDX-License-Identifier: MIT
//
// HarfBuzzFace: a face of a font file that HarfBuzz shapes and takes subsets of.
#pragma once

#include <memory>
#include <vector>

#include "fonts/font_file.h"
#include "layout/font_face.h"

namespace vellumark::fonts {

class HarfBuzzFace final : public layout::FontFace {
 public:
  /// `file` is one that is not refused.
  explicit HarfBuzzFace(std::unique_ptr<FontFile> file);

  [[nodiscard]] const layout::FaceFacts& Facts() const noexcept override { return facts_; }
  [[nodiscard]] bool Has(char32_t character) const override;
  [[nodiscard]] bool HasTogether(char32_t letter, char32_t mark) const override;
  void Shape(std::string_view utf8, const layout::RunFacts& run,
             std::vector<layout::PlacedGlyph>& glyphs) const override;
  [[nodiscard]] std::int32_t Advance(std::uint16_t glyph) const override;
  [[nodiscard]] layout::FontProgram Subset(std::span<const std::uint16_t> glyphs,
                                           std::string_view name) const override;

  /// Whether a font can be made of its first glyph.
  [[nodiscard]] bool CanBeSubset() const;

 private:
  [[nodiscard]] bool HasGlyph(char32_t character) const;
  [[nodiscard]] std::int32_t InThousandths(std::int64_t units) const noexcept;
  [[nodiscard]] layout::FaceFacts ReadFacts() const;
  [[nodiscard]] std::string ReadName() const;

  std::unique_ptr<FontFile> file_;
  int units_;  // per em
  Owned<hb_font_t> font_;
  Owned<hb_buffer_t> buffer_;
  layout::FaceFacts facts_;
};

}  // namespace vellumark::fonts
