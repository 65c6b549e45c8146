// SPDX-License-Identifier: MIT
#include "encoding/encode_stream.h"

#include <limits>

#include "encoding/ascii85.h"
#include "encoding/ascii_hex.h"
#include "encoding/run_length.h"
#include "encoding/zlib.h"

namespace vellumark::encoding {
namespace {

constexpr std::uint8_t kStreamLevel = 6;

}  // namespace

std::string EncodeStream(std::span<const std::uint8_t> data, EncodingConstants encoding) {
  std::string encoded;
  if (data.size() > std::numeric_limits<std::int32_t>::max()) return encoded;
  const auto size = static_cast<std::int32_t>(data.size());
  std::int32_t encoded_size = 0;
  switch (encoding) {
    case EncodingConstants::ASCII85: Ascii85::Encode(size, data, encoded_size, encoded); break;
    case EncodingConstants::ASCIIHex: AsciiHex::Encode(size, data, encoded_size, encoded); break;
    case EncodingConstants::RunLength: encoded = EncodeRunLength(data); break;
    case EncodingConstants::Flate:
      Zlib::Encode(size, data, encoded_size, encoded, kStreamLevel);
      break;
    case EncodingConstants::Original: break;  // not an encoding of samples
  }
  return encoded;
}

std::uint64_t TextSize(std::span<const std::uint8_t> data, EncodingConstants encoding) noexcept {
  return encoding == EncodingConstants::ASCIIHex ? AsciiHex::TextSize(data)
                                                 : Ascii85::TextSize(data);
}

void EncodeTo(const PieceSink& sink, std::span<const std::uint8_t> data,
              EncodingConstants encoding) {
  encoding == EncodingConstants::ASCIIHex ? AsciiHex::EncodeTo(sink, data)
                                          : Ascii85::EncodeTo(sink, data);
}

}  // namespace vellumark::encoding
