// SPDX-License-Identifier: MIT
#include "encoding/png_predictor.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <vector>

namespace vellumark::encoding {
namespace {

// The neighbors of a byte. Functions of them have no branches and stay within bytes, so that loops
// over rows become instructions on sixteen bytes at a time.
struct Neighbors {
  std::uint8_t left = 0;
  std::uint8_t above = 0;
  std::uint8_t above_left = 0;
};

constexpr std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

struct None {
  static std::uint8_t Of(Neighbors) { return 0; }
};
struct Sub {
  static std::uint8_t Of(Neighbors at) { return at.left; }
};
struct Up {
  static std::uint8_t Of(Neighbors at) { return at.above; }
};
struct Average {
  static std::uint8_t Of(Neighbors at) { return Byte((at.left + at.above) / 2); }
};
struct Paeth {
  static std::uint8_t Of(Neighbors at) {
    const std::uint8_t to_left = Distance(at.above, at.above_left);
    const std::uint8_t to_above = Distance(at.left, at.above_left);
    // left + above - 2 * above_left, without its sign: the sum of the two distances if both go the
    // same way, which is never the nearest, else their difference.
    const bool same_way = (at.above > at.above_left) == (at.left > at.above_left);
    const std::uint8_t to_above_left = same_way ? Byte(255) : Distance(to_left, to_above);
    const std::uint8_t nearer = to_above < to_left ? at.above : at.left;
    return to_above_left < std::min(to_left, to_above) ? at.above_left : nearer;
  }

 private:
  static std::uint8_t Distance(std::uint8_t a, std::uint8_t b) {
    return Byte(std::max(a, b) - std::min(a, b));
  }
};

struct Row {
  const std::uint8_t* bytes;
  const std::uint8_t* above;
  std::size_t size;
  std::size_t pixel;
};

template <class Predictor>
std::uint8_t FirstPixel(const Row& row, std::size_t i) {
  return Byte(row.bytes[i] - Predictor::Of({0, row.above[i], 0}));
}

template <class Predictor>
void Write(const Row& row, std::uint8_t* __restrict to) {
  const std::size_t first = std::min(row.pixel, row.size);
  for (std::size_t i = 0; i < first; ++i) to[i] = FirstPixel<Predictor>(row, i);
  for (std::size_t i = first; i < row.size; ++i) {
    const std::size_t left = i - row.pixel;
    to[i] = Byte(row.bytes[i] - Predictor::Of({row.bytes[left], row.above[i], row.above[left]}));
  }
}

// The sum of the differences, each taken as a signed byte without its sign.
std::uint64_t SumOf(const std::uint8_t* differences, std::size_t size) {
  std::uint64_t sum = 0;
  constexpr std::size_t kBlock = 4096;
  for (std::size_t start = 0; start < size; start += kBlock) {
    std::uint32_t block = 0;
    const std::size_t end = std::min(start + kBlock, size);
    for (std::size_t i = start; i < end; ++i) {
      const std::uint8_t positive = differences[i];
      const std::uint8_t negative = Byte(-positive);
      block += std::min(positive, negative);
    }
    sum += block;
  }
  return sum;
}

using Writer = void (*)(const Row&, std::uint8_t*);
constexpr std::array<Writer, 5> kWriters = {Write<None>, Write<Sub>, Write<Up>, Write<Average>,
                                            Write<Paeth>};

}  // namespace

PredictedRows::PredictedRows(std::span<const std::uint8_t> samples, std::size_t row_size,
                             std::size_t pixel_size)
    : size_(samples.size() / row_size * (row_size + 1)), bytes_(new std::uint8_t[size_]) {
  const std::vector<std::uint8_t> nothing(row_size);
  std::vector<std::uint8_t> attempt(row_size);
  std::vector<std::uint8_t> best(row_size);
  Row row = {samples.data(), nothing.data(), row_size, pixel_size};
  for (std::uint8_t* to = bytes_.get(); to != bytes_.get() + size_; to += row_size + 1) {
    std::uint64_t smallest = std::numeric_limits<std::uint64_t>::max();
    for (std::size_t number = 0; number < kWriters.size(); ++number) {
      kWriters[number](row, attempt.data());
      const std::uint64_t sum = SumOf(attempt.data(), row_size);
      if (sum >= smallest) continue;
      smallest = sum;
      *to = static_cast<std::uint8_t>(number);
      best.swap(attempt);
    }
    std::memcpy(to + 1, best.data(), row_size);
    row.above = row.bytes;
    row.bytes += row_size;
  }
}

}  // namespace vellumark::encoding
