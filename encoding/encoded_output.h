// SPDX-License-Identifier: MIT
//
// EncodedOutput: fills the string that an encoder returns.
//
// A string of the final size would first be zeroed in memory and then written again. Encoders fill
// a small block instead, which stays in the cache, and append it when it is full; the string is
// allocated once, with room for a line end behind the encoded data.
//
//     EncodedOutput out(output, final_size);
//     while (...) {
//       std::uint8_t* const end = Write(..., out.Block());   // at most kBlockSize bytes
//       out.Append(end);
//     }
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace vellumark::encoding {

/// Bytes that may be appended to any encoded string without a reallocation.
inline constexpr std::size_t kLineEndRoom = 2;

/// Whether an encoder can return an output of this size: at most 2^31 - 1 bytes.
constexpr bool FitsOutputSize(std::uint64_t size) {
  return size <= std::numeric_limits<std::int32_t>::max();
}

/// Gives back the memory beyond the string and its line end.
inline void CutToSize(std::string& output) {
  std::string cut;
  cut.reserve(output.size() + kLineEndRoom);
  cut = output;
  output = std::move(cut);
}

class EncodedOutput {
 public:
  static constexpr std::size_t kBlockSize = 8192;

  EncodedOutput(std::string& output, std::size_t final_size) : output_(output) {
    output_.reserve(final_size + kLineEndRoom);
  }

  [[nodiscard]] std::uint8_t* Block() { return block_.data(); }

  /// Takes over the bytes from Block() to `end`.
  void Append(const std::uint8_t* end) {
    output_.append(reinterpret_cast<const char*>(block_.data()),
                   static_cast<std::size_t>(end - block_.data()));
  }

 private:
  std::string& output_;
  std::array<std::uint8_t, kBlockSize> block_;
};

}  // namespace vellumark::encoding
