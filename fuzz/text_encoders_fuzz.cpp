// SPDX-License-Identifier: MIT
//
// Encodes any bytes as base-85 and hexadecimal text and decodes them back, as readers do.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "encoding/encode_stream.h"
#include "fuzz/base85_decoder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using vellumark::EncodingConstants;

void Require(bool holds) {
  if (!holds) std::abort();
}

Bytes DecodeHex(std::string_view text) {
  Require(text.size() % 2 == 1 && text.back() == '>');
  const auto value = [](char digit) {
    Require((digit >= '0' && digit <= '9') || (digit >= 'A' && digit <= 'F'));
    return digit <= '9' ? digit - '0' : digit - 'A' + 10;
  };
  Bytes bytes;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    bytes.push_back(static_cast<std::uint8_t>(value(text[i]) * 16 + value(text[i + 1])));
  }
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Bytes input(data, data + size);
  Require(vellumark::fuzz::DecodeBase85(
              vellumark::encoding::EncodeStream(input, EncodingConstants::ASCII85)) == input);
  Require(DecodeHex(vellumark::encoding::EncodeStream(input, EncodingConstants::ASCIIHex)) ==
          input);
  return 0;
}
