// SPDX-License-Identifier: MIT
#include "encoding/ascii_hex.h"

#include <algorithm>
#include <cstddef>

#include "encoding/encoded_output.h"
#include "encoding/hex_digits.h"

namespace vellumark::encoding {

bool AsciiHex::Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                      std::int32_t& output_size, std::string& output) {
  output_size = 0;
  output.clear();
  if (input_size < 0 || static_cast<std::size_t>(input_size) > input.size()) return false;
  const auto bytes = input.first(static_cast<std::size_t>(input_size));
  const std::uint64_t size = TextSize(bytes);
  if (!FitsOutputSize(size)) return false;
  output.reserve(static_cast<std::size_t>(size) + kLineEndRoom);
  EncodeTo([&output](std::string_view piece) { output += piece; }, bytes);
  output_size = static_cast<std::int32_t>(output.size());
  return true;
}

std::uint64_t AsciiHex::TextSize(std::span<const std::uint8_t> input) noexcept {
  return std::uint64_t{2} * input.size() + 1;
}

void AsciiHex::EncodeTo(const PieceSink& sink, std::span<const std::uint8_t> input) {
  EncodedOutput out(sink);
  constexpr std::size_t kStep = EncodedOutput::kBlockSize / 2;
  for (std::size_t i = 0; i < input.size(); i += kStep) {
    const std::size_t step = std::min(kStep, input.size() - i);
    WriteHexDigits(input.subspan(i, step), out.Block());
    out.Append(out.Block() + 2 * step);
  }
  sink(">");
}

}  // namespace vellumark::encoding
