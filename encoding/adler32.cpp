// SPDX-License-Identifier: MIT
#include "encoding/adler32.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vellumark::encoding {
namespace {

constexpr std::uint32_t kModulus = 65521;  // the greatest prime below 65536

// How many bytes may be summed before s2 must be reduced: with both sums just reduced, n bytes of
// 255 make it 255 n (n + 1) / 2 + (n + 1) (kModulus - 1), which first leaves 32 bits at n = 5553.
constexpr std::size_t kMostUnreduced = 5552;
constexpr std::uint64_t GreatestSum(std::uint64_t n) {
  return 255 * n * (n + 1) / 2 + (n + 1) * (kModulus - 1);
}
static_assert(GreatestSum(kMostUnreduced) <= UINT32_MAX &&
              GreatestSum(kMostUnreduced + 1) > UINT32_MAX);

}  // namespace

void Adler32::AddPortable(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const auto part = bytes.first(std::min(bytes.size(), kMostUnreduced));
    for (const std::uint8_t byte : part) {
      s1_ += byte;
      s2_ += s1_;
    }
    s1_ %= kModulus;
    s2_ %= kModulus;
    bytes = bytes.subspan(part.size());
  }
}

#if defined(__SSE2__)

// A row of 32 bytes adds to s2 32 times the s1 before it, and each byte as often as it is followed
// by bytes of the row, itself included: with weights 32 down to 1.
void Adler32::Add(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t kRow = 32;
  constexpr std::size_t kMostRows = kMostUnreduced / kRow;
  const __m128i zero = _mm_setzero_si128();
  const __m128i weights[4] = {
      _mm_set_epi16(25, 26, 27, 28, 29, 30, 31, 32), _mm_set_epi16(17, 18, 19, 20, 21, 22, 23, 24),
      _mm_set_epi16(9, 10, 11, 12, 13, 14, 15, 16), _mm_set_epi16(1, 2, 3, 4, 5, 6, 7, 8)};
  const auto total = [](__m128i lanes) {
    std::array<std::uint32_t, 4> numbers{};
    std::memcpy(numbers.data(), &lanes, sizeof lanes);
    return std::accumulate(numbers.begin(), numbers.end(), std::uint32_t{0});
  };
  while (bytes.size() >= kRow) {
    const std::size_t rows = std::min(bytes.size() / kRow, kMostRows);
    __m128i sum = zero;       // of the bytes
    __m128i row_sums = zero;  // of the values of `sum` before each row
    __m128i weighted = zero;
    const std::uint8_t* from = bytes.data();
    for (std::size_t row = 0; row < rows; ++row, from += kRow) {
      const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
      const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + 16));
      row_sums = _mm_add_epi32(row_sums, sum);
      sum = _mm_add_epi32(sum, _mm_add_epi32(_mm_sad_epu8(a, zero), _mm_sad_epu8(b, zero)));
      const __m128i first = _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi8(a, zero), weights[0]),
                                          _mm_madd_epi16(_mm_unpackhi_epi8(a, zero), weights[1]));
      const __m128i second = _mm_add_epi32(_mm_madd_epi16(_mm_unpacklo_epi8(b, zero), weights[2]),
                                           _mm_madd_epi16(_mm_unpackhi_epi8(b, zero), weights[3]));
      weighted = _mm_add_epi32(weighted, _mm_add_epi32(first, second));
    }
    s2_ += static_cast<std::uint32_t>(rows * kRow) * s1_ + 32 * total(row_sums) + total(weighted);
    s1_ += total(sum);
    s1_ %= kModulus;
    s2_ %= kModulus;
    bytes = bytes.subspan(rows * kRow);
  }
  AddPortable(bytes);
}

#else

void Adler32::Add(std::span<const std::uint8_t> bytes) { AddPortable(bytes); }

#endif

}  // namespace vellumark::encoding
