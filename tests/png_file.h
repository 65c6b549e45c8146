// SPDX-License-Identifier: MIT
//
// PngFile: a PNG file for a test, put together from its fields.
//
//     PngFile{.width = 2, .depth = 8, .colors = 2, .rows = {1, 2, 3, 4, 5, 6}}.Bytes()
//
// The pixel data is stored, not compressed.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vellumark::tests {

struct PngFile {
  std::uint32_t width = 1;
  std::uint32_t height = 1;
  int depth = 8;
  int colors = 0;  ///< 0 gray, 2 true color, 3 indexed, 4 gray and alpha, 6 true color and alpha
  bool interlaced = false;
  std::vector<std::uint8_t> palette = {};  ///< red, green, blue, ...
  std::string transparent = {};            ///< the bytes of tRNS
  std::vector<std::uint8_t> rows = {};     ///< from the top, each in whole bytes
  std::string more = {};                   ///< chunks between the header and the rest

  [[nodiscard]] std::string Bytes() const {
    std::string header = Number(width) + Number(height);
    for (const int field : {depth, colors, 0, 0, interlaced ? 1 : 0}) {
      header += static_cast<char>(field);
    }
    std::string file = "\x89PNG\r\n\x1A\n" + Chunk("IHDR", header) + more;
    if (!palette.empty()) file += Chunk("PLTE", {palette.begin(), palette.end()});
    if (!transparent.empty()) file += Chunk("tRNS", transparent);
    return file + Chunk("IDAT", Stored(interlaced ? InterlacedRows() : FilteredRows())) +
           Chunk("IEND", "");
  }

  static std::string Chunk(const std::string& name, const std::string& data) {
    return Number(static_cast<std::uint32_t>(data.size())) + name + data + Number(Crc(name + data));
  }

 private:
  static std::string Number(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift);
    return bytes;
  }

  static std::uint32_t Crc(const std::string& bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
      crc ^= static_cast<std::uint8_t>(byte);
      for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc % 2 != 0 ? 0xEDB88320U : 0);
    }
    return ~crc;
  }

  /// A zlib stream with one stored block.
  static std::string Stored(const std::string& bytes) {
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char byte : bytes) {
      a = (a + static_cast<std::uint8_t>(byte)) % 65521;
      b = (b + a) % 65521;
    }
    const auto size = static_cast<std::uint16_t>(bytes.size());
    std::string stream = "\x78\x01\x01";
    for (const int part : {size & 255, size >> 8, ~size & 255, ~size >> 8 & 255}) {
      stream += static_cast<char>(part);
    }
    return stream + bytes + Number(b << 16 | a);
  }

  [[nodiscard]] std::uint32_t PixelBits() const {
    const int samples = colors == 2 ? 3 : colors == 4 ? 2 : colors == 6 ? 4 : 1;
    return static_cast<std::uint32_t>(samples * depth);
  }

  [[nodiscard]] std::string FilteredRows() const {
    const std::size_t size = (std::size_t{width} * PixelBits() + 7) / 8;
    std::string filtered;
    for (std::size_t at = 0; at < rows.size(); at += size) {
      filtered += '\0';  // no filter
      filtered.append(rows.begin() + static_cast<std::ptrdiff_t>(at),
                      rows.begin() + static_cast<std::ptrdiff_t>(std::min(at + size, rows.size())));
    }
    return filtered;
  }

  /// The seven passes, each a picture of every so many pixels.
  [[nodiscard]] std::string InterlacedRows() const {
    struct Pass {
      std::uint32_t x, y, across, down;
    };
    constexpr Pass kPasses[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
    std::string filtered;
    for (const Pass& pass : kPasses) {
      for (std::uint32_t y = pass.y; y < height && pass.x < width; y += pass.down) {
        std::vector<bool> bits;
        for (std::uint32_t x = pass.x; x < width; x += pass.across) AddPixel(x, y, bits);
        filtered += '\0';
        bits.resize((bits.size() + 7) / 8 * 8);
        for (std::size_t bit = 0; bit < bits.size(); bit += 8) {
          int byte = 0;
          for (std::size_t i = 0; i < 8; ++i) byte = 2 * byte + (bits[bit + i] ? 1 : 0);
          filtered += static_cast<char>(byte);
        }
      }
    }
    return filtered;
  }

  void AddPixel(std::uint32_t x, std::uint32_t y, std::vector<bool>& bits) const {
    const std::size_t row = (std::size_t{width} * PixelBits() + 7) / 8 * y;
    const std::size_t first = std::size_t{x} * PixelBits();
    for (std::size_t bit = first; bit < first + PixelBits(); ++bit) {
      bits.push_back((rows[row + bit / 8] >> (7 - bit % 8) & 1) != 0);
    }
  }
};

}  // namespace vellumark::tests
