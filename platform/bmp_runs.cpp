// SPDX-License-Identifier: MIT
#include "platform/bmp_runs.h"

#include <cstddef>

namespace vellumark::platform {
namespace {

class RunExpander {
 public:
  RunExpander(std::span<const std::uint8_t> data, Bitmap& bitmap)
      : data_(data), bitmap_(bitmap), row_size_(bitmap.RowSize()) {}

  bool Expand() {
    while (y_ < bitmap_.height) {
      if (data_.size() - at_ < 2) return AtLastPixel();
      const std::uint8_t count = data_[at_++];
      const std::uint8_t value = data_[at_++];
      if (count > 0) {
        Repeat(count, value);
      } else if (value == kEndOfPicture) {
        return true;
      } else if (!Escape(value)) {
        return false;
      }
    }
    return true;
  }

 private:
  enum : std::uint8_t { kEndOfRow = 0, kEndOfPicture = 1, kMove = 2 };

  [[nodiscard]] bool AtLastPixel() const { return y_ == bitmap_.height - 1 && x_ >= bitmap_.width; }

  bool Escape(std::uint8_t value) {
    switch (value) {
      case kEndOfRow:
        x_ = 0;
        ++y_;
        return true;
      case kMove:
        if (data_.size() - at_ < 2) return false;
        x_ += data_[at_++];
        y_ += data_[at_++];
        return true;
      default: return Copy(value);
    }
  }

  void Repeat(std::uint8_t count, std::uint8_t value) {
    for (unsigned i = 0; i < count; ++i) Put(Index(value, i));
  }

  bool Copy(std::uint8_t count) {
    const std::size_t bytes = bitmap_.bits_per_pixel == 8 ? count : (count + 1U) / 2;
    if (data_.size() - at_ < bytes) return false;
    for (unsigned i = 0; i < count; ++i) {
      Put(Index(data_[at_ + (bitmap_.bits_per_pixel == 8 ? i : i / 2)], i));
    }
    at_ += bytes + bytes % 2;
    if (at_ > data_.size()) at_ = data_.size();  // the pad may be missing
    return true;
  }

  /// Pixel `i` of a run whose byte is `value`.
  [[nodiscard]] std::uint8_t Index(std::uint8_t value, unsigned i) const {
    if (bitmap_.bits_per_pixel == 8) return value;
    return i % 2 == 0 ? value >> 4 : value & 15;
  }

  void Put(std::uint8_t index) {
    const auto x = static_cast<std::size_t>(x_++);
    if (x >= static_cast<std::size_t>(bitmap_.width)) return;
    std::uint8_t* const row = bitmap_.pixels.data() + static_cast<std::size_t>(y_) * row_size_;
    if (bitmap_.bits_per_pixel == 8) {
      row[x] = index;
    } else {
      const int shift = x % 2 == 0 ? 4 : 0;
      row[x / 2] = static_cast<std::uint8_t>((row[x / 2] & (0xF0 >> shift)) | index << shift);
    }
  }

  std::span<const std::uint8_t> data_;
  Bitmap& bitmap_;
  std::size_t row_size_;
  std::size_t at_ = 0;
  std::int64_t x_ = 0;
  std::int64_t y_ = 0;
};

}  // namespace

bool ExpandRuns(std::span<const std::uint8_t> data, Bitmap& bitmap) {
  return RunExpander(data, bitmap).Expand();
}

}  // namespace vellumark::platform
