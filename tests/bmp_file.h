// SPDX-License-Identifier: MIT
//
// BmpFile: a BMP file for a test, put together from its fields.
//
//     BmpFile{.width = 2, .height = 1, .bits = 8, .pixels = {1, 0, 0, 0}}.Bytes()
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vellumark::tests {

struct BmpFile {
  int width = 1;
  int height = 1;  ///< negative for rows from the top
  int bits = 24;
  std::uint32_t compression = 0;
  std::uint32_t header_size = 40;
  std::vector<std::uint32_t> masks = {};
  std::vector<std::uint32_t> palette = {};  ///< 0xRRGGBB
  std::uint32_t colors_used = 0;
  std::vector<std::uint8_t> pixels = {};

  [[nodiscard]] std::string Bytes() const {
    std::string header;
    Add(header, header_size, 4);
    const int side = header_size == 12 ? 2 : 4;
    Add(header, static_cast<std::uint32_t>(width), side);
    Add(header, static_cast<std::uint32_t>(height), side);
    Add(header, 1, 2);
    Add(header, static_cast<std::uint32_t>(bits), 2);
    if (header_size != 12) {
      Add(header, compression, 4);
      header.append(12, '\0');
      Add(header, colors_used, 4);
      Add(header, 0, 4);
    }
    for (const std::uint32_t mask : masks) Add(header, mask, 4);
    if (header.size() < header_size) header.resize(header_size);
    for (const std::uint32_t color : palette) Add(header, color, header_size == 12 ? 3 : 4);

    std::string file = "BM";
    Add(file, 0, 4);
    Add(file, 0, 4);
    Add(file, static_cast<std::uint32_t>(14 + header.size()), 4);
    return file.append(header).append(pixels.begin(), pixels.end());
  }

 private:
  static void Add(std::string& to, std::uint32_t number, int size) {
    for (int i = 0; i < size; ++i) to += static_cast<char>(number >> (8 * i));
  }
};

/// A 24-bit picture of one color, 0xRRGGBB.
inline std::string PlainBmp(int width, int height, std::uint32_t color = 0x102030) {
  BmpFile file{.width = width, .height = height};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (const int shift : {0, 8, 16}) {
        file.pixels.push_back(static_cast<std::uint8_t>(color >> shift));
      }
    }
    file.pixels.resize((file.pixels.size() + 3) / 4 * 4);
  }
  return file.Bytes();
}

/// A square that compresses well as differences of its 24 or 8 bits; `side` is a multiple of 4.
inline BmpFile SlopedBmp(int side, int bits) {
  BmpFile slope{.width = side, .height = side, .bits = bits};
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side * bits / 8; ++x) {
      slope.pixels.push_back(static_cast<std::uint8_t>(x * x / 100 + 7 * y));
    }
  }
  return slope;
}

}  // namespace vellumark::tests
