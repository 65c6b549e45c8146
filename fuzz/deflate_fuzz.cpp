// SPDX-License-Identifier: MIT
//
// Compresses any bytes at any level, inflates them with zlib and compares.
//
//     input = level:1 repeats:1 bytes
//
// The bytes are repeated, each time with one of them changed, so that small inputs fill the window.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>
#include <zlib.h>

#include "encoding/deflate.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes Repeat(std::span<const std::uint8_t> part, std::size_t repeats) {
  Bytes bytes(part.begin(), part.end());
  for (std::size_t i = 1; i <= repeats && !part.empty(); ++i) {
    bytes.insert(bytes.end(), part.begin(), part.end());
    const std::size_t changed = i * 31 % part.size();
    bytes[bytes.size() - part.size() + changed] ^= static_cast<std::uint8_t>(i);
  }
  return bytes;
}

bool InflatesTo(const std::string& compressed, const Bytes& expected) {
  Bytes bytes(expected.size() + 1);
  z_stream stream{};
  inflateInit2(&stream, -15);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.data()));
  stream.avail_in = static_cast<uInt>(compressed.size());
  stream.next_out = bytes.data();
  stream.avail_out = static_cast<uInt>(bytes.size());
  const bool ended = inflate(&stream, Z_FINISH) == Z_STREAM_END && stream.avail_in == 0;
  bytes.resize(stream.total_out);
  inflateEnd(&stream);
  return ended && bytes == expected;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using vellumark::encoding::Deflate;
  if (size < 2) return 0;
  const auto level = static_cast<std::uint8_t>(data[0] % 9 + 1);
  const Bytes input = Repeat({data + 2, size - 2}, data[1]);
  std::string compressed;
  std::int32_t compressed_size = 0;
  const bool encoded = Deflate::Encode(static_cast<std::int32_t>(input.size()), input,
                                       compressed_size, compressed, level);
  if (!encoded || !InflatesTo(compressed, input) ||
      compressed.size() > Deflate::GreatestSize(input.size())) {
    std::abort();
  }
  return 0;
}
