// SPDX-License-Identifier: MIT
#include "layout/plain_text.h"

#include <array>
#include <cstddef>

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

// One for each byte of eight, by how many of the last ones count. They take the place of a loop
// over the rest of a text, whose end nobody can predict.
constexpr std::array<std::array<Entry, 8>, 8> kLastOfEight = [] {
  std::array<std::array<Entry, 8>, 8> masks{};
  for (std::size_t count = 0; count < 8; ++count) {
    for (std::size_t i = 8 - count; i < 8; ++i) masks[count][i] = ~Entry{0};
  }
  return masks;
}();

Entry Sum(std::string_view text, const Entries& entries) noexcept {
  const auto entry = [&](char c) { return entries[static_cast<std::uint8_t>(c)]; };
  Entry even = 0;
  Entry odd = 0;
  if (text.size() < 8) {
    for (const char c : text) even += entry(c);
    return even;
  }
  const char* const last = text.data() + text.size() - 8;
  const char* from = text.data();
  for (; from <= last; from += 8) {
    even += entry(from[0]) + entry(from[2]) + entry(from[4]) + entry(from[6]);
    odd += entry(from[1]) + entry(from[3]) + entry(from[5]) + entry(from[7]);
  }
  const auto& mask = kLastOfEight[text.size() % 8];
  for (std::size_t i = 0; i < 8; i += 2) {
    even += entry(last[i]) & mask[i];
    odd += entry(last[i + 1]) & mask[i + 1];
  }
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
