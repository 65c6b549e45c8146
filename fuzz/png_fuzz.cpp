// SPDX-License-Identifier: MIT
//
// Reads any bytes as a PNG file whose checksums are right: each chunk's is computed here, since no
// fuzzer guesses them. The pixels of IDAT are the input's, compressed here.
//
//     input = width:1 height:1 depth:1 colors:1 interlaced:1 { chunk:1 size:1 data } pixels
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <zlib.h>

#include "fuzz/fuzzed_bytes.h"
#include "platform/picture_decoder.h"

namespace {

using vellumark::fuzz::FuzzedBytes;

void AppendNumber(std::string& to, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) to += static_cast<char>(number >> shift & 255U);
}

void AppendChunk(std::string& to, std::string_view name, std::string_view data) {
  AppendNumber(to, static_cast<std::uint32_t>(data.size()));
  const std::size_t begin = to.size();
  to.append(name).append(data);
  const auto* const bytes = reinterpret_cast<const Bytef*>(to.data() + begin);
  AppendNumber(to,
               static_cast<std::uint32_t>(crc32(0, bytes, static_cast<uInt>(to.size() - begin))));
}

std::string Compressed(std::span<const std::uint8_t> bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string result(size, '\0');
  auto* const to = reinterpret_cast<Bytef*>(result.data());
  compress(to, &size, bytes.data(), static_cast<uLong>(bytes.size()));
  result.resize(size);
  return result;
}

std::string FileOf(FuzzedBytes& bytes) {
  std::string header;
  AppendNumber(header, bytes.Byte());
  AppendNumber(header, bytes.Byte());
  header += static_cast<char>(1U << bytes.Byte() % 6);
  header += static_cast<char>(bytes.Byte() % 8);
  header.append(2, '\0');
  header += static_cast<char>(bytes.Byte() % 3);
  std::string file = "\x89PNG\r\n\x1A\n";
  AppendChunk(file, "IHDR", header);
  constexpr std::array<std::string_view, 8> kNames = {"PLTE", "tRNS", "gAMA", "iCCP",
                                                      "sBIT", "bKGD", "tEXt", "IDAT"};
  for (std::uint8_t kind = bytes.Byte(); kind < 128 && !bytes.Empty(); kind = bytes.Byte()) {
    const auto data = bytes.Take(std::size_t{3} * bytes.Byte());
    AppendChunk(file, kNames[kind % kNames.size()], std::string(data.begin(), data.end()));
  }
  AppendChunk(file, "IDAT", Compressed(bytes.Take(1U << 20U)));
  AppendChunk(file, "IEND", {});
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedBytes bytes({data, size});
  const std::string file = FileOf(bytes);
  vellumark::Bitmap bitmap;
  const std::string why_not = vellumark::platform::DecodePicture(
      {reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}, 1 << 22, bitmap);
  if (!why_not.empty()) {
    if (!bitmap.pixels.empty()) std::abort();
    return 0;
  }
  const auto height = static_cast<std::size_t>(bitmap.height);
  const std::size_t pixels = static_cast<std::size_t>(bitmap.width) * height;
  if (bitmap.pixels.size() != bitmap.RowSize() * height) std::abort();
  if (!bitmap.alpha.empty() && bitmap.alpha.size() != pixels) std::abort();
  std::uint32_t sum = 0;  // a sanitizer finds a byte that was never written
  for (const std::uint8_t byte : bitmap.pixels) sum = sum * 31 + byte;
  for (const std::uint8_t byte : bitmap.alpha) sum = sum * 31 + byte;
  return sum == 1 && pixels == 0 ? -1 : 0;
}
