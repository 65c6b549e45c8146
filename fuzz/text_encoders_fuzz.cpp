// SPDX-License-Identifier: MIT
//
// Encodes any bytes as base-85 and hexadecimal text and decodes them back, as readers do.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "encoding/encode_stream.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using vellumark::EncodingConstants;

void Require(bool holds) {
  if (!holds) std::abort();
}

// A rest is filled up with the greatest digit, and gives one byte less than it has digits.
Bytes DecodeBase85(std::string_view text) {
  Require(text.ends_with("~>"));
  text.remove_suffix(2);
  Bytes bytes;
  while (!text.empty()) {
    if (text.front() == 'z') {
      bytes.insert(bytes.end(), 4, 0);
      text.remove_prefix(1);
      continue;
    }
    const std::size_t count = std::min<std::size_t>(5, text.size());
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < 5; ++i) {
      const char digit = i < count ? text[i] : 'u';
      Require(digit >= '!' && digit <= 'u');
      value = value * 85 + static_cast<std::uint64_t>(digit - '!');
    }
    Require(count >= 2 && value <= UINT32_MAX);
    for (std::size_t i = 0; i + 1 < count; ++i) {
      bytes.push_back(static_cast<std::uint8_t>(value >> (24 - 8 * i) & 0xFFU));
    }
    text.remove_prefix(count);
  }
  return bytes;
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
  Require(DecodeBase85(vellumark::encoding::EncodeStream(input, EncodingConstants::ASCII85)) ==
          input);
  Require(DecodeHex(vellumark::encoding::EncodeStream(input, EncodingConstants::ASCIIHex)) ==
          input);
  return 0;
}
