// SPDX-License-Identifier: MIT
//
// FuzzedBytes: what a fuzz target takes its decisions from, byte by byte; 0 once they are used up.
//
//     FuzzedBytes bytes({data, size});
//     while (!bytes.Empty()) switch (bytes.Byte() % 4) ...
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

namespace vellumark::fuzz {

class FuzzedBytes {
 public:
  explicit FuzzedBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  [[nodiscard]] bool Empty() const { return bytes_.empty(); }

  std::uint8_t Byte() {
    if (bytes_.empty()) return 0;
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }

  /// Small numbers mostly, as pages have them, and any of 16 bits.
  std::int16_t Number() {
    const std::uint8_t size = Byte();
    if (size < 200) return size;
    if (size < 230) return static_cast<std::int16_t>(2 * Byte());
    const unsigned high = Byte();
    return static_cast<std::int16_t>(high << 8U | Byte());
  }

  std::span<const std::uint8_t> Take(std::size_t count) {
    const auto taken = bytes_.first(std::min(count, bytes_.size()));
    bytes_ = bytes_.subspan(taken.size());
    return taken;
  }

  /// A text of some bytes, now and then many times over.
  std::string Text() {
    const std::uint8_t size = Byte();
    const auto part = Take(size % 32U);
    std::string text;
    for (int i = size < 240 ? 0 : -24; i < 1; ++i) text.append(part.begin(), part.end());
    return text;
  }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace vellumark::fuzz
