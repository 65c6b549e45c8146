// SPDX-License-Identifier: MIT
#include "encoding/deflate.h"

#include <memory>
#include <optional>

#include "encoding/block_writer.h"
#include "encoding/compressor.h"
#include "encoding/level_parameters.h"

namespace vellumark::encoding {
namespace {

// The worst case of deflate data.
constexpr std::size_t GreatestOutput(std::size_t input_size) {
  return input_size + (input_size + 7) / 8 + (input_size + 63) / 64 + 12;
}

}  // namespace

bool Deflate::Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                     std::int32_t& output_size, std::string& output, std::uint8_t level) {
  output_size = 0;
  output.clear();
  if (level < kFastestLevel || level > kSmallestLevel) return false;
  if (input_size < 0 || static_cast<std::size_t>(input_size) > input.size()) return false;

  const auto size = static_cast<std::size_t>(input_size);
  output.reserve(GreatestOutput(size) + 16);
  // Too large for the stack of some threads.
  const auto compressor = std::make_unique<Compressor>(input.first(size), level, output);
  compressor->Run();
  output_size = static_cast<std::int32_t>(output.size());
  return true;
}

}  // namespace vellumark::encoding
