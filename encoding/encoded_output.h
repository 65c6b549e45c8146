// SPDX-License-Identifier: MIT
//
// EncodedOutput: hands on what an encoder writes, piece by piece.
//
// A string of the final size would first be zeroed in memory and then written again. Encoders fill
// a small block instead, which stays in the cache, and hand it on when it is full: to a string that
// was allocated once, with room for a line end behind the encoded data, or to the file.
//
//     const PieceSink sink = [&](std::string_view piece) { output += piece; };
//     EncodedOutput out(sink);
//     while (...) {
//       std::uint8_t* const end = Write(..., out.Block());   // at most kBlockSize bytes
//       out.Append(end);
//     }
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
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

/// Takes encoded bytes, in order.
using PieceSink = std::function<void(std::string_view piece)>;

class EncodedOutput {
 public:
  static constexpr std::size_t kBlockSize = 8192;

  /// `sink` must exist as long as this does.
  explicit EncodedOutput(const PieceSink& sink) : sink_(sink) {}

  [[nodiscard]] std::uint8_t* Block() { return block_.data(); }

  /// Hands on the bytes from Block() to `end`.
  void Append(const std::uint8_t* end) {
    sink_({reinterpret_cast<const char*>(block_.data()),
           static_cast<std::size_t>(end - block_.data())});
  }

 private:
  const PieceSink& sink_;
  std::array<std::uint8_t, kBlockSize> block_;
};

}  // namespace vellumark::encoding
