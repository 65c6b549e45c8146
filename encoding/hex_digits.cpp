// SPDX-License-Identifier: MIT
#include "encoding/hex_digits.h"

#include <array>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vellumark::encoding {
namespace {

struct HexPair {
  std::uint8_t characters[2];
};

constexpr std::uint8_t Digit(std::size_t value) {
  return static_cast<std::uint8_t>(value < 10 ? '0' + value : 'A' + (value - 10));
}

constexpr auto kHexPairs = [] {
  std::array<HexPair, 256> pairs{};
  for (std::size_t byte = 0; byte < pairs.size(); ++byte) {
    pairs[byte] = {{Digit(byte / 16), Digit(byte % 16)}};
  }
  return pairs;
}();

}  // namespace

void WriteHexDigitsPortable(std::span<const std::uint8_t> bytes, std::uint8_t* out) {
  for (const std::uint8_t byte : bytes) {
    std::memcpy(out, kHexPairs[byte].characters, 2);
    out += 2;
  }
}

#if defined(__SSE2__)

void WriteHexDigits(std::span<const std::uint8_t> bytes, std::uint8_t* out) {
  const __m128i low_bits = _mm_set1_epi8(15);
  const __m128i nine = _mm_set1_epi8(9);
  const __m128i zero_digit = _mm_set1_epi8('0');
  const __m128i letter_gap = _mm_set1_epi8('A' - '9' - 1);
  const auto digits = [&](__m128i values) {
    const __m128i gap = _mm_and_si128(_mm_cmpgt_epi8(values, nine), letter_gap);
    return _mm_add_epi8(_mm_add_epi8(values, zero_digit), gap);
  };
  std::size_t i = 0;
  for (; i + 16 <= bytes.size(); i += 16) {
    const __m128i values = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data() + i));
    const __m128i high = digits(_mm_and_si128(_mm_srli_epi16(values, 4), low_bits));
    const __m128i low = digits(_mm_and_si128(values, low_bits));
    auto* const to = reinterpret_cast<__m128i*>(out + 2 * i);
    _mm_storeu_si128(to, _mm_unpacklo_epi8(high, low));
    _mm_storeu_si128(to + 1, _mm_unpackhi_epi8(high, low));
  }
  WriteHexDigitsPortable(bytes.subspan(i), out + 2 * i);
}

#else

void WriteHexDigits(std::span<const std::uint8_t> bytes, std::uint8_t* out) {
  WriteHexDigitsPortable(bytes, out);
}

#endif

}  // namespace vellumark::encoding
