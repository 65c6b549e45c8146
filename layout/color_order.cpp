// SPDX-License-Identifier: MIT
#include "layout/color_order.h"

#include <utility>

#include "encoding/byte_access.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vellumark::layout {
namespace {

/// Eight bytes are two pixels, and at three bytes a pixel two bytes that stay for now.
void ExchangeByEight(std::span<std::uint8_t> row, std::size_t bytes_per_pixel) noexcept {
  const std::uint64_t blue = bytes_per_pixel == 3 ? 0x00000000FF0000FF : 0x000000FF000000FF;
  const std::uint64_t red = blue << 16;
  const std::size_t step = 2 * bytes_per_pixel;
  const auto load = [&](std::size_t at) {
    return encoding::LoadLittleEndian<std::uint64_t>(row.data() + at);
  };
  std::size_t at = 0;
  for (std::uint64_t next = row.size() < 8 ? 0 : load(0); at + 8 <= row.size(); at += step) {
    const std::uint64_t eight = next;
    // Before this one is stored: a load waits for a store that has a part of its bytes.
    if (at + step + 8 <= row.size()) next = load(at + step);
    const std::uint64_t exchanged = (eight & blue) << 16 | (eight & red) >> 16;
    encoding::StoreLittleEndian(row.data() + at, (eight & ~(blue | red)) | exchanged);
  }
  for (; at < row.size(); at += bytes_per_pixel) std::swap(row[at], row[at + 2]);
}

#if defined(__SSE2__)

/// Sixteen pixels of three bytes: three vectors, each put together from its own bytes and from
/// those that lie two further on and two before.
void ExchangeSixteen(std::uint8_t* pixels) noexcept {
  const auto load = [pixels](std::size_t at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(pixels + at));
  };
  // Every third byte, from the first, the second and the third on.
  const __m128i first = _mm_setr_epi8(-1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1);
  const __m128i second = _mm_setr_epi8(0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0);
  const __m128i third = _mm_setr_epi8(0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0, 0, -1, 0);
  const auto choose = [](__m128i after, __m128i of_after, __m128i own, __m128i of_own,
                         __m128i before, __m128i of_before) {
    return _mm_or_si128(_mm_or_si128(_mm_and_si128(after, of_after), _mm_and_si128(own, of_own)),
                        _mm_and_si128(before, of_before));
  };
  const __m128i a = load(0);
  const __m128i b = load(16);
  const __m128i c = load(32);
  const __m128i new_a = choose(load(2), first, a, second, _mm_slli_si128(a, 2), third);
  const __m128i new_b = choose(load(18), third, b, first, load(14), second);
  const __m128i new_c = choose(_mm_srli_si128(c, 2), second, c, third, load(30), first);
  const auto store = [pixels](std::size_t at, __m128i bytes) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels + at), bytes);
  };
  store(0, new_a);
  store(16, new_b);
  store(32, new_c);
}

#endif

}  // namespace

void ExchangeBlueAndRed(std::span<std::uint8_t> row, std::size_t bytes_per_pixel) noexcept {
#if defined(__SSE2__)
  constexpr std::size_t kSixteen = 48;  // bytes
  for (; bytes_per_pixel == 3 && row.size() >= kSixteen; row = row.subspan(kSixteen)) {
    ExchangeSixteen(row.data());
  }
#endif
  ExchangeByEight(row, bytes_per_pixel);
}

}  // namespace vellumark::layout
