// SPDX-License-Identifier: MIT
#include "encoding/deflate.h"

#include <memory>

#include "encoding/bit_writer.h"
#include "encoding/encoded_output.h"
#include "encoding/greedy_parser.h"
#include "encoding/lazy_parser.h"
#include "encoding/level_parameters.h"

namespace vellumark::encoding {
namespace {

constexpr std::size_t kMostMemory = std::size_t{460} * 1024;

}  // namespace

bool Deflate::Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                     std::int32_t& output_size, std::string& output, std::uint8_t level) {
  output_size = 0;
  output.clear();
  if (input_size < 0 || static_cast<std::size_t>(input_size) > input.size()) return false;
  const auto bytes = input.first(static_cast<std::size_t>(input_size));
  output.reserve(GreatestSize(bytes.size()));
  if (!Append(bytes, level, output) || !FitsOutputSize(output.size())) {
    output.clear();
    return false;
  }
  CutToSize(output);
  output_size = static_cast<std::int32_t>(output.size());
  return true;
}

bool Deflate::Append(std::span<const std::uint8_t> input, std::uint8_t level, std::string& output) {
  if (level < kFastestLevel || level > kSmallestLevel) return false;
  // Too large for the stack of some threads.
  static_assert(sizeof(GreedyParser) <= kMostMemory && sizeof(LazyParser) <= kMostMemory);
  if (level < kFirstLazyLevel) {
    std::make_unique<GreedyParser>(input, level, output)->Run();
  } else {
    std::make_unique<LazyParser>(input, level, output)->Run();
  }
  return true;
}

// The worst case of deflate data, and what the writer reserves beyond it.
std::size_t Deflate::GreatestSize(std::size_t input_size) {
  return input_size + (input_size + 7) / 8 + (input_size + 63) / 64 + 12 + BitWriter::kSlack;
}

}  // namespace vellumark::encoding
