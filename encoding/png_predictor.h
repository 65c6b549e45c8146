// SPDX-License-Identifier: MIT
//
// PngPredictor: the rows of a picture as differences from their neighbors, which deflate packs
// better (PDF: /Predictor 15).
//
//     const PredictedRows rows(samples, row_size, 3);      // 24 bits: three bytes a pixel
//     Zlib::Encode(..., rows.Bytes(), ...);
//
// Each row becomes one byte longer: first the number of its predictor, then each byte less what the
// predictor makes of the byte to the left (one pixel back), the one above and the one above to the
// left, where there are none 0:
//
//     0 None   1 Sub: left   2 Up: above   3 Average: (left + above) / 2
//     4 Paeth: which of left, above and above_left is nearest to left + above - above_left
//
// A row takes the predictor that gives the smallest sum of absolute differences, the first of
// several. Photos and drawings with shades gain; a picture with a palette or of one bit mostly does
// not: compress both and take the shorter.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace vellumark::encoding {

class PredictedRows {
 public:
  /// Predicts the whole rows of `row_size` bytes (1 or more) that `samples` has. `pixel_size` is
  /// the number of bytes in a pixel, 1 for pixels of 1 to 8 bits.
  PredictedRows(std::span<const std::uint8_t> samples, std::size_t row_size,
                std::size_t pixel_size);

  /// The rows, each with its predictor's number before it.
  [[nodiscard]] std::span<const std::uint8_t> Bytes() const noexcept {
    return {bytes_.get(), size_};
  }

 private:
  std::size_t size_;
  std::unique_ptr<std::uint8_t[]> bytes_;
};

}  // namespace vellumark::encoding
