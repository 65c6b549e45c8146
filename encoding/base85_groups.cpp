// SPDX-License-Identifier: MIT
#include "encoding/base85_groups.h"

#include <array>
#include <cstddef>
#include <cstring>

#include "encoding/byte_access.h"
#include "encoding/processor.h"

namespace vellumark::encoding {
namespace {

constexpr std::uint32_t kBase = 85;
constexpr std::uint32_t kPairBase = kBase * kBase;

struct DigitPair {
  std::uint8_t characters[2];
};

constexpr std::uint8_t Character(std::uint32_t digit) {
  return static_cast<std::uint8_t>('!' + digit);
}

// The two characters of each number below 85 * 85.
constexpr auto kPairs = [] {
  std::array<DigitPair, kPairBase> pairs{};
  for (std::uint32_t i = 0; i < kPairBase; ++i) {
    pairs[i] = {{Character(i / kBase), Character(i % kBase)}};
  }
  return pairs;
}();

}  // namespace

// One digit and two pairs.
void WriteBase85Group(std::uint32_t group, std::uint8_t* out) {
  const std::uint32_t upper = group / kPairBase;
  const DigitPair low = kPairs[group % kPairBase];
  const DigitPair middle = kPairs[upper % kPairBase];
  out[0] = Character(upper / kPairBase);
  std::memcpy(out + 1, middle.characters, 2);
  std::memcpy(out + 3, low.characters, 2);
}

std::uint8_t* WriteBase85GroupsPortable(std::span<const std::uint8_t> groups, std::uint8_t* out) {
  for (std::size_t i = 0; i < groups.size(); i += 4) {
    const auto group = LoadBigEndian<std::uint32_t>(groups.data() + i);
    if (group == 0) {
      *out++ = 'z';
    } else {
      WriteBase85Group(group, out);
      out += 5;
    }
  }
  return out;
}

#if defined(VELLUMARK_ASKS_PROCESSOR)

namespace {

constexpr std::size_t kVector = 32;  // bytes: eight groups

// The quotient by 85 * 85 is a product's upper bits, exact for each number of 32 bits.
constexpr std::uint64_t kInverse = 2434904643;
constexpr int kInverseShift = 44;
static_assert(kInverse * kPairBase - (std::uint64_t{1} << kInverseShift) <=
              std::uint64_t{1} << (kInverseShift - 32));

// A pair of digits has 16 bits: there the quotient by 85 needs this.
constexpr std::uint32_t kPairInverse = 49345;
constexpr int kPairInverseShift = 6;  // of the product's upper 16 bits
static_assert(kPairInverse * kBase - (1U << (16 + kPairInverseShift)) <= 1U << kPairInverseShift);

void Store(std::uint8_t* to, __m128i bytes) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(to), bytes);
}

__attribute__((target("avx2"))) std::uint8_t* WriteGroupsAvx2(std::span<const std::uint8_t> groups,
                                                              std::uint8_t* out) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i big_endian =
      _mm256_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12,  //
                       3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
  const __m256i inverse = _mm256_set1_epi32(static_cast<int>(kInverse));
  const __m256i pair_base = _mm256_set1_epi16(kPairBase);
  const __m256 pair_part = _mm256_set1_ps(1.0F / kPairBase);
  const __m256 half_pair_part = _mm256_set1_ps(0.5F / kPairBase);
  const __m256i pair_inverse = _mm256_set1_epi16(static_cast<short>(kPairInverse));
  const __m256i base = _mm256_set1_epi16(kBase);
  const __m256i first_character = _mm256_set1_epi8('!');
  // Where the first 16 of 20 characters lie: -1 leaves a place for the other kind.
  const __m256i places_of_pairs =
      _mm256_setr_epi8(-1, 0, 1, 2, 3, -1, 4, 5, 6, 7, -1, 8, 9, 10, 11, -1,  //
                       -1, 0, 1, 2, 3, -1, 4, 5, 6, 7, -1, 8, 9, 10, 11, -1);
  const __m256i places_of_tops =
      _mm256_setr_epi8(0, -1, -1, -1, -1, 4, -1, -1, -1, -1, 8, -1, -1, -1, -1, 12,  //
                       0, -1, -1, -1, -1, 4, -1, -1, -1, -1, 8, -1, -1, -1, -1, 12);
  for (; groups.size() >= kVector; groups = groups.subspan(kVector)) {
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(groups.data()));
    if (_mm256_movemask_epi8(_mm256_cmpeq_epi32(bytes, zero)) != 0) {
      out = WriteBase85GroupsPortable(groups.first(kVector), out);
      continue;
    }
    const __m256i value = _mm256_shuffle_epi8(bytes, big_endian);
    const __m256i even = _mm256_srli_epi64(_mm256_mul_epu32(value, inverse), kInverseShift);
    const __m256i odd = _mm256_srli_epi64(_mm256_mul_epu32(_mm256_srli_epi64(value, 32), inverse),
                                          kInverseShift - 32);
    const __m256i upper = _mm256_blend_epi32(even, odd, 0b10101010);
    // The highest digit: `upper` is below 2^20, so a float has it exactly, and half a part keeps
    // the product of whole numbers of parts above them.
    const __m256i top = _mm256_cvttps_epi32(
        _mm256_add_ps(_mm256_mul_ps(_mm256_cvtepi32_ps(upper), pair_part), half_pair_part));
    const __m256i low = _mm256_sub_epi16(value, _mm256_mullo_epi16(upper, pair_base));
    const __m256i middle = _mm256_sub_epi16(upper, _mm256_mullo_epi16(top, pair_base));
    const __m256i pairs = _mm256_blend_epi16(middle, _mm256_slli_epi32(low, 16), 0b10101010);
    const __m256i first =
        _mm256_srli_epi16(_mm256_mulhi_epu16(pairs, pair_inverse), kPairInverseShift);
    const __m256i second = _mm256_sub_epi16(pairs, _mm256_mullo_epi16(first, base));
    const __m256i of_pairs =
        _mm256_add_epi8(first_character, _mm256_or_si256(first, _mm256_slli_epi16(second, 8)));
    const __m256i text =
        _mm256_or_si256(_mm256_shuffle_epi8(of_pairs, places_of_pairs),
                        _mm256_shuffle_epi8(_mm256_add_epi8(first_character, top), places_of_tops));
    // Four groups are 20 characters. The last four are the last of `of_pairs`: the others of that
    // store are written over.
    Store(out + 4, _mm256_castsi256_si128(of_pairs));
    Store(out, _mm256_castsi256_si128(text));
    Store(out + 24, _mm256_extracti128_si256(of_pairs, 1));
    Store(out + 20, _mm256_extracti128_si256(text, 1));
    out += 40;
  }
  return WriteBase85GroupsPortable(groups, out);
}

}  // namespace

std::uint8_t* WriteBase85Groups(std::span<const std::uint8_t> groups, std::uint8_t* out) {
  if (HasVectorsOf32()) return WriteGroupsAvx2(groups, out);
  return WriteBase85GroupsPortable(groups, out);
}

#else

std::uint8_t* WriteBase85Groups(std::span<const std::uint8_t> groups, std::uint8_t* out) {
  return WriteBase85GroupsPortable(groups, out);
}

#endif

}  // namespace vellumark::encoding
