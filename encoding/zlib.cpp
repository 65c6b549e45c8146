// SPDX-License-Identifier: MIT
#include "encoding/zlib.h"

#include <algorithm>
#include <cstddef>

#include "encoding/adler32.h"
#include "encoding/deflate.h"
#include "encoding/encoded_output.h"

namespace vellumark::encoding {
namespace {

constexpr std::uint8_t kMethod = 7 * 16 + 8;  // a history of 2^(7 + 8) bytes; deflate

constexpr std::uint8_t Flags(std::uint8_t level) {
  const int level_class = std::min((level - 1) / 2, 3);
  const int flags = level_class * 64;
  return static_cast<std::uint8_t>(flags + 31 - (kMethod * 256 + flags) % 31);
}

}  // namespace

bool Zlib::Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                  std::int32_t& output_size, std::string& output, std::uint8_t level) {
  output_size = 0;
  output.clear();
  if (input_size < 0 || static_cast<std::size_t>(input_size) > input.size()) return false;
  const auto bytes = input.first(static_cast<std::size_t>(input_size));

  constexpr std::size_t kHeaderAndChecksum = 2 + 4;
  output.reserve(Deflate::GreatestSize(bytes.size()) + kHeaderAndChecksum);
  output += static_cast<char>(kMethod);
  output += static_cast<char>(Flags(level));
  if (Deflate::Append(bytes, level, output)) {
    const std::uint32_t checksum = Adler32::Calculate(bytes);
    for (int shift = 24; shift >= 0; shift -= 8) output += static_cast<char>(checksum >> shift);
    if (FitsOutputSize(output.size())) {
      CutToSize(output);
      output_size = static_cast<std::int32_t>(output.size());
      return true;
    }
  }
  output.clear();
  return false;
}

}  // namespace vellumark::encoding
