// SPDX-License-Identifier: MIT
#include "encoding/png_predictor.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/encoding/generated_input.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

// The rows that a decoder makes of the predicted ones.
Bytes Decode(std::span<const std::uint8_t> predicted, std::size_t row_size, std::size_t pixel) {
  Bytes rows;
  for (std::size_t at = 0; at + row_size < predicted.size(); at += row_size + 1) {
    for (std::size_t i = 0; i < row_size; ++i) {
      const bool has_above = rows.size() >= row_size + i % row_size && at > 0;
      const int a = i >= pixel ? rows[rows.size() - pixel] : 0;
      const int b = has_above ? rows[rows.size() - row_size] : 0;
      const int c = has_above && i >= pixel ? rows[rows.size() - row_size - pixel] : 0;
      const int p = a + b - c;
      const int pa = std::abs(p - a);
      const int pb = std::abs(p - b);
      const int pc = std::abs(p - c);
      const int paeth = pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
      const int predictions[] = {0, a, b, (a + b) / 2, paeth};
      rows.push_back(static_cast<std::uint8_t>(predictions[predicted[at]] + predicted[at + 1 + i]));
    }
  }
  return rows;
}

Bytes Predicted(const Bytes& samples, std::size_t row_size, std::size_t pixel) {
  const testing::GuardedBytes guarded(samples);
  const PredictedRows rows(guarded.Get(), row_size, pixel);
  return {rows.Bytes().begin(), rows.Bytes().end()};
}

TEST(PngPredictor, ARowTakesTheSmallestDifferences) {
  EXPECT_EQ(Predicted({1, 255, 1, 255}, 4, 1), (Bytes{0, 1, 255, 1, 255}));
  EXPECT_EQ(Predicted({10, 20, 30, 11, 21, 31}, 6, 3), (Bytes{1, 10, 20, 30, 1, 1, 1}));
  EXPECT_EQ(Predicted({7, 7, 7, 9, 100, 50, 9, 101, 50}, 3, 1),
            (Bytes{1, 7, 0, 0, 3, 6, 92, 253, 2, 0, 1, 0}));
  EXPECT_EQ(Predicted({20, 60, 40, 10, 35, 37}, 3, 1), (Bytes{1, 20, 40, 236, 3, 0, 0, 0}));
  // Above the same at first, then to the left.
  const Bytes corner = Predicted({40, 80, 80, 80, 80, 40, 80, 200, 200, 200}, 5, 1);
  EXPECT_EQ(Bytes(corner.begin() + 6, corner.end()), (Bytes{4, 0, 0, 120, 0, 0}));
}

TEST(PngPredictor, AnyRowsComeBack) {
  for (const std::size_t pixel : {1U, 3U, 4U}) {
    for (const std::size_t row_size : {1U, 2U, 3U, 5U, 36U, 157U}) {
      Bytes samples = testing::GeneratedInput(row_size * 40, 7);
      for (std::size_t i = row_size; i < samples.size() / 2; ++i) {
        samples[i] = static_cast<std::uint8_t>(samples[i - row_size] + samples[i] % 5 + i % 3);
      }
      ASSERT_EQ(Decode(Predicted(samples, row_size, pixel), row_size, pixel), samples)
          << pixel << ' ' << row_size;
      Bytes few = testing::Noise(row_size * 200);
      for (std::uint8_t& sample : few) sample %= 4;
      ASSERT_EQ(Decode(Predicted(few, row_size, pixel), row_size, pixel), few) << row_size;
    }
  }
  EXPECT_EQ(Predicted({}, 7, 3), Bytes());
}

}  // namespace
}  // namespace vellumark::encoding
