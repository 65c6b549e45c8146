// SPDX-License-Identifier: MIT
//
// WordCache: words as glyphs, shaped once for as often as they come.
//
//     WordCache cache;
//     const ShapedWord word = cache.Shape("word", 101, face, {});
//     word.glyphs;  word.width;                      // valid until the next call
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "layout/font_face.h"

namespace vellumark::layout {

struct ShapedWord {
  std::span<const PlacedGlyph> glyphs;
  std::int64_t width = 0;  ///< 1/1000 em
};

class WordCache {
 public:
  /// `face` is that of the number `font`.
  ShapedWord Shape(std::string_view utf8, int font, const FontFace& face, const RunFacts& run);

  /// The word if it is there; one without glyphs and of the width -1 if not.
  [[nodiscard]] ShapedWord Find(std::string_view utf8, int font, const RunFacts& run) const;

 private:
  // As soon as there are so many of either, all are forgotten.
  static constexpr std::size_t kMostWords = 1 << 14;
  static constexpr std::size_t kMostGlyphs = 1 << 18;

  struct Entry {
    std::size_t text = 0;  // where it begins in texts_
    std::size_t text_size = 0;
    std::size_t glyphs = 0;  // likewise in glyphs_
    std::size_t glyph_count = 0;
    std::int64_t width = 0;
    int font = 0;
    RunFacts run;
  };

  [[nodiscard]] std::size_t SlotOf(std::string_view utf8, int font, const RunFacts& run) const;
  [[nodiscard]] ShapedWord WordOf(const Entry& entry) const;

  std::vector<std::uint32_t> slots_;  // 1 + the number of an entry; 0: free
  std::vector<Entry> entries_;
  std::string texts_;
  std::vector<PlacedGlyph> glyphs_;
};

}  // namespace vellumark::layout
