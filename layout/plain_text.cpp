// SPDX-License-Identifier: MIT
#include "layout/plain_text.h"

#include <array>
#include <cstddef>

#include "encoding/eight_bytes.h"
#include "layout/glyphs/glyph_tables.h"
#include "layout/text_encoding.h"

namespace vellumark::layout {
namespace {

// An entry, from its lowest bit: the width in 32 bits, and in 16 bits each whether the byte is one
// to escape and whether it is not plain. A block is as long as these counts allow.
using Entry = std::uint64_t;
constexpr std::size_t kBlock = 32768;
constexpr Entry kEscaped = Entry{1} << 32;
constexpr Entry kNotPlain = Entry{1} << 48;

using Entries = std::array<Entry, 256>;

constexpr std::array<Entries, kLatinFaces> kEntries = [] {
  std::array<Entries, kLatinFaces> entries{};
  for (std::size_t face = 0; face < kLatinFaces; ++face) {
    entries[face].fill(kNotPlain);
    for (const LatinGlyph& row : kLatinGlyphs) {
      const char16_t character = row.character;
      if (character < ' ' || character > '~') continue;
      const bool escaped = character == '(' || character == ')' || character == '\\';
      entries[face][character] = row.Width(face) + (escaped ? kEscaped : 0);
    }
  }
  return entries;
}();

Entry Sum(std::string_view text, const Entries& entries) noexcept {
  Entry even = 0;
  Entry odd = 0;
  for (; text.size() >= 8; text.remove_prefix(8)) {
    const std::uint64_t eight = encoding::LoadEight(text.data());
    const auto entry = [&](int shift) { return entries[eight >> shift & 0xFFU]; };
    even += entry(0) + entry(16) + entry(32) + entry(48);
    odd += entry(8) + entry(24) + entry(40) + entry(56);
  }
  for (const char c : text) even += entries[static_cast<std::uint8_t>(c)];
  return even + odd;
}

}  // namespace

PlainText ReadPlain(std::string_view text, const Font& font) noexcept {
  const std::size_t face = LatinFaceOf(font);
  if (face == kLatinFaces) return {};
  PlainText read{.plain = true, .literal = true};
  for (std::size_t begin = 0; begin < text.size(); begin += kBlock) {
    const Entry sum = Sum(text.substr(begin, kBlock), kEntries[face]);
    if (sum >= kNotPlain) return {};
    read.literal = read.literal && sum < kEscaped;
    read.sum += static_cast<std::uint32_t>(sum);
  }
  return read;
}

}  // namespace vellumark::layout
