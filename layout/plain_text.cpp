// SPDX-License-Identifier: MIT
#include "layout/plain_text.h"

#include <array>
#include <cstddef>

#include "encoding/processor.h"
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

PlainText ReadPlainPortable(std::string_view text, const Font& font) noexcept {
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

#if defined(VELLUMARK_ASKS_PROCESSOR)

namespace {

// The widths of ASCII in bytes, as vectors look them up.
struct WidthBytes {
  alignas(64) std::array<std::uint8_t, 128> low{};
  alignas(64) std::array<std::uint8_t, 128> high{};
};

constexpr std::array<WidthBytes, kLatinFaces> kWidthBytes = [] {
  std::array<WidthBytes, kLatinFaces> tables{};
  for (std::size_t face = 0; face < kLatinFaces; ++face) {
    for (std::size_t code = ' '; code <= '~'; ++code) {
      const Entry width = kEntries[face][code] % kEscaped;
      tables[face].low[code] = static_cast<std::uint8_t>(width % 256);
      tables[face].high[code] = static_cast<std::uint8_t>(width / 256);
    }
  }
  return tables;
}();

// 64 bytes at a time; at the end of the text only those that are left, which needs no loop.
__attribute__((target("avx512bw,avx512vbmi"))) PlainText ReadByTables(
    std::string_view text, const WidthBytes& widths) noexcept {
  const __m512i low = _mm512_load_si512(widths.low.data());
  const __m512i low_of_letters = _mm512_load_si512(widths.low.data() + 64);
  const __m512i high = _mm512_load_si512(widths.high.data());
  const __m512i high_of_letters = _mm512_load_si512(widths.high.data() + 64);
  const __m512i zero = _mm512_setzero_si512();
  __m512i low_sum = zero;
  __m512i high_sum = zero;
  std::uint64_t not_plain = 0;
  std::uint64_t escaped = 0;
  const char* from = text.data();
  for (std::size_t left = text.size();; left -= 64, from += 64) {
    const __mmask64 given = left < 64 ? (std::uint64_t{1} << left) - 1 : ~std::uint64_t{0};
    const __m512i bytes = _mm512_maskz_loadu_epi8(given, from);
    not_plain |= _mm512_mask_cmplt_epu8_mask(given, bytes, _mm512_set1_epi8(' ')) |
                 _mm512_mask_cmpgt_epu8_mask(given, bytes, _mm512_set1_epi8('~'));
    escaped |=
        _mm512_cmpeq_epi8_mask(bytes, _mm512_set1_epi8('\\')) |
        _mm512_cmpeq_epi8_mask(_mm512_or_si512(bytes, _mm512_set1_epi8(1)), _mm512_set1_epi8(')'));
    const __m512i low_bytes = _mm512_permutex2var_epi8(low, bytes, low_of_letters);
    const __m512i high_bytes = _mm512_permutex2var_epi8(high, bytes, high_of_letters);
    low_sum += _mm512_sad_epu8(low_bytes, zero);
    high_sum += _mm512_sad_epu8(high_bytes, zero);
    if (left <= 64) break;
  }
  if (not_plain != 0) return {};
  // Each eighth of a vector has counted its own bytes.
  std::array<std::int64_t, 8> low_sums{};
  std::array<std::int64_t, 8> high_sums{};
  _mm512_storeu_si512(low_sums.data(), low_sum);
  _mm512_storeu_si512(high_sums.data(), high_sum);
  PlainText read{.plain = true, .literal = escaped == 0};
  for (std::size_t i = 0; i < 8; ++i) read.sum += low_sums[i] + 256 * high_sums[i];
  return read;
}

}  // namespace

PlainText ReadPlain(std::string_view text, const Font& font) noexcept {
  if (!encoding::HasByteTables()) return ReadPlainPortable(text, font);
  const std::size_t face = LatinFaceOf(font);
  return face == kLatinFaces ? PlainText() : ReadByTables(text, kWidthBytes[face]);
}

#else

PlainText ReadPlain(std::string_view text, const Font& font) noexcept {
  return ReadPlainPortable(text, font);
}

#endif

}  // namespace vellumark::layout
