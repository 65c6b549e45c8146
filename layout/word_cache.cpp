// SPDX-License-Identifier: MIT
#include "layout/word_cache.h"

#include <functional>

namespace vellumark::layout {

/// The slot of the word, or the free one that it would take.
std::size_t WordCache::SlotOf(std::string_view utf8, int font, const RunFacts& run) const {
  const std::size_t mask = slots_.size() - 1;
  std::size_t slot = std::hash<std::string_view>()(utf8) + static_cast<std::size_t>(font) * 31;
  for (slot &= mask; slots_[slot] != 0; slot = (slot + 1) & mask) {
    const Entry& entry = entries_[slots_[slot] - 1];
    if (entry.font == font && entry.run.right_to_left == run.right_to_left &&
        entry.run.script == run.script &&
        std::string_view(texts_).substr(entry.text, entry.text_size) == utf8) {
      break;
    }
  }
  return slot;
}

ShapedWord WordCache::WordOf(const Entry& entry) const {
  return {std::span(glyphs_).subspan(entry.glyphs, entry.glyph_count), entry.width};
}

ShapedWord WordCache::Find(std::string_view utf8, int font, const RunFacts& run) const {
  if (slots_.empty()) return {{}, -1};
  const std::uint32_t entry = slots_[SlotOf(utf8, font, run)];
  return entry == 0 ? ShapedWord{{}, -1} : WordOf(entries_[entry - 1]);
}

ShapedWord WordCache::Shape(std::string_view utf8, int font, const FontFace& face,
                            const RunFacts& run) {
  if (entries_.size() >= kMostWords || glyphs_.size() >= kMostGlyphs) {
    entries_.clear();
    texts_.clear();
    glyphs_.clear();
    slots_.clear();
  }
  if (slots_.empty()) slots_.assign(2 * kMostWords, 0);
  const std::size_t slot = SlotOf(utf8, font, run);
  if (slots_[slot] != 0) return WordOf(entries_[slots_[slot] - 1]);
  const std::size_t text = texts_.size();
  const std::size_t first = glyphs_.size();
  texts_.append(utf8);
  face.Shape(utf8, run, glyphs_);
  std::int64_t width = 0;
  for (std::size_t i = first; i < glyphs_.size(); ++i) width += glyphs_[i].advance;
  entries_.push_back({text, utf8.size(), first, glyphs_.size() - first, width, font, run});
  slots_[slot] = static_cast<std::uint32_t>(entries_.size());
  return WordOf(entries_.back());
}

}  // namespace vellumark::layout
