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
  const auto size = static_cast<std::size_t>(input_size);
  const std::uint64_t final_size = std::uint64_t{size} * 2 + 1;
  if (!FitsOutputSize(final_size)) return false;

  EncodedOutput out(output, static_cast<std::size_t>(final_size));
  constexpr std::size_t kStep = EncodedOutput::kBlockSize / 2;
  for (std::size_t i = 0; i < size; i += kStep) {
    const std::size_t step = std::min(kStep, size - i);
    WriteHexDigits(input.subspan(i, step), out.Block());
    out.Append(out.Block() + 2 * step);
  }
  output += '>';
  output_size = static_cast<std::int32_t>(output.size());
  return true;
}

}  // namespace vellumark::encoding
