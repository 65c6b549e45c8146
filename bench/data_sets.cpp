// SPDX-License-Identifier: MIT
#include "bench/data_sets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace vellumark::bench {
namespace {

// Not a standard distribution, because these differ between C++ libraries.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint32_t Next() {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>(state_ >> 33);
  }
  std::uint32_t Below(std::uint32_t limit) { return Next() % limit; }
  std::uint32_t Between(std::uint32_t low, std::uint32_t high) {
    return low + Below(high - low + 1);
  }

 private:
  std::uint64_t state_;
};

std::vector<std::string> MakeWords(Random& random, std::size_t count) {
  constexpr std::array<std::string_view, 20> kOnsets = {"b", "br", "c",  "d", "f", "g", "h",
                                                        "l", "m",  "n",  "p", "r", "s", "st",
                                                        "t", "th", "tr", "v", "w", "wh"};
  constexpr std::array<std::string_view, 8> kVowels = {"a", "e", "i", "o", "u", "ea", "ou", "e"};
  constexpr std::array<std::string_view, 10> kCodas = {"",  "n", "r", "s",  "t",
                                                       "d", "l", "",  "ng", "st"};
  std::vector<std::string> words;
  for (std::size_t i = 0; i < count; ++i) {
    std::string word;
    const std::uint32_t syllables = i < 60 ? 1 : random.Between(1, 4);
    for (std::uint32_t k = 0; k < syllables; ++k) {
      word += kOnsets[random.Below(kOnsets.size())];
      word += kVowels[random.Below(kVowels.size())];
      word += kCodas[random.Below(kCodas.size())];
    }
    words.push_back(word);
  }
  return words;
}

// Rank r with a probability of about 1 / r, as the words of a language have.
std::size_t PickRank(Random& random, std::size_t count) {
  std::uint32_t bits = 1;
  while ((std::size_t{2} << bits) < count) ++bits;
  const std::uint32_t octave = random.Below(bits + 1);
  const std::size_t first = (std::size_t{1} << octave) - 1;
  return std::min(first + random.Below(1U << octave), count - 1);
}

std::uint8_t Clamp(double value) {
  return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
}

// Fills a rectangle with one palette index.
struct Canvas {
  std::size_t width;
  std::size_t height;
  std::vector<std::uint8_t> pixels;

  void Fill(std::size_t x, std::size_t y, std::size_t w, std::size_t h, std::uint8_t index) {
    for (std::size_t row = y; row < std::min(y + h, height); ++row) {
      for (std::size_t column = x; column < std::min(x + w, width); ++column) {
        pixels[row * width + column] = index;
      }
    }
  }
};

using Glyph = std::array<std::uint8_t, 10>;  // rows of 6 pixels

void DrawTextLine(Canvas& canvas, Random& random, const std::vector<Glyph>& font, std::size_t x,
                  std::size_t y, std::size_t end, std::uint8_t index) {
  for (; x + 6 < end; x += 7) {
    if (random.Below(6) == 0) continue;  // a blank
    const Glyph& glyph = font[PickRank(random, font.size())];
    for (std::size_t row = 0; row < glyph.size(); ++row) {
      for (std::size_t column = 0; column < 6; ++column) {
        if ((glyph[row] >> column & 1U) != 0) canvas.Fill(x + column, y + row, 1, 1, index);
      }
    }
  }
}

void DrawWindow(Canvas& canvas, Random& random, const std::vector<Glyph>& font) {
  const std::size_t width = random.Between(200, 700);
  const std::size_t height = random.Between(120, 500);
  const std::size_t x = random.Below(static_cast<std::uint32_t>(canvas.width - 200));
  const std::size_t y = random.Below(static_cast<std::uint32_t>(canvas.height - 120));
  const std::size_t right = std::min(x + width, canvas.width);
  const std::size_t bottom = std::min(y + height, canvas.height);
  canvas.Fill(x, y, width, height, 1);
  canvas.Fill(x + 2, y + 2, width - 4, height - 4, static_cast<std::uint8_t>(random.Between(2, 5)));
  canvas.Fill(x + 2, y + 2, width - 4, 18, static_cast<std::uint8_t>(random.Between(6, 12)));
  DrawTextLine(canvas, random, font, x + 6, y + 6, std::min(x + 150, right), 15);
  const bool striped = random.Below(3) == 0;
  for (std::size_t line = y + 26; line + 14 < bottom; line += 14) {
    if (striped && (line / 14) % 2 == 0) canvas.Fill(x + 2, line - 2, width - 4, 14, 13);
    if (random.Below(8) == 0) continue;
    const auto text_width = static_cast<std::uint32_t>(right - x);
    DrawTextLine(canvas, random, font, x + 8, line, x + random.Between(text_width / 3, text_width),
                 0);
  }
}

}  // namespace

DataSet Prose(std::size_t size) {
  Random random(11);
  const std::vector<std::string> words = MakeWords(random, 12000);
  std::string text;
  text.reserve(size + 1000);
  while (text.size() < size) {
    const std::uint32_t sentences = random.Between(2, 8);
    for (std::uint32_t sentence = 0; sentence < sentences; ++sentence) {
      const std::uint32_t length = random.Between(4, 22);
      for (std::uint32_t i = 0; i < length; ++i) {
        std::string word = words[PickRank(random, words.size())];
        if (i == 0) word[0] = static_cast<char>(word[0] - 'a' + 'A');
        text += word;
        if (i + 1 == length) {
          text += random.Below(9) == 0 ? "? " : ". ";
        } else {
          text += random.Below(12) == 0 ? ", " : " ";
        }
      }
    }
    text += "\r\n\r\n";
  }
  return {"prose", {text.begin(), text.begin() + static_cast<std::ptrdiff_t>(size)}};
}

DataSet Photo(std::size_t size) {
  Random random(22);
  constexpr std::size_t kWidth = 1600;
  struct Blob {
    double x, y, radius;
    std::array<double, 3> color;
  };
  std::vector<Blob> blobs;
  blobs.reserve(40);
  const double height = static_cast<double>(size) / 3 / kWidth;
  for (int i = 0; i < 40; ++i) {
    blobs.push_back(
        {static_cast<double>(random.Below(kWidth)),
         random.Below(1000) * height / 1000,
         static_cast<double>(random.Between(40, 400)),
         {random.Below(256) - 128.0, random.Below(256) - 128.0, random.Below(256) - 128.0}});
  }
  std::vector<std::uint8_t> bytes;
  bytes.reserve(size + 3);
  for (std::size_t pixel = 0; bytes.size() < size; ++pixel) {
    const auto x = static_cast<double>(pixel % kWidth);
    const std::size_t row = pixel / kWidth;
    const auto y = static_cast<double>(row);
    std::array<double, 3> color = {110 + 90 * y / height, 120 + 60 * x / kWidth, 150};
    for (const Blob& blob : blobs) {
      const double dx = (x - blob.x) / blob.radius;
      const double dy = (y - blob.y) / blob.radius;
      const double square = dx * dx + dy * dy;
      if (square >= 1) continue;
      for (std::size_t c = 0; c < 3; ++c) color[c] += blob.color[c] * (1 - square);
    }
    const double light =
        static_cast<double>(random.Below(3)) - 1;  // the same noise in all channels
    for (std::size_t c = 0; c < 3; ++c) {
      const double noise = static_cast<double>(random.Below(3)) - 1;
      bytes.push_back(Clamp(color[c] + light + noise));
    }
  }
  bytes.resize(size);
  return {"photo", std::move(bytes)};
}

DataSet Screens(std::size_t size) {
  Random random(33);
  std::vector<Glyph> font(80);
  for (Glyph& glyph : font) {
    for (std::uint8_t& row : glyph) {
      row = static_cast<std::uint8_t>(random.Below(64) & random.Below(64));
    }
    glyph[0] = glyph[9] = 0;
  }
  DataSet set{"screens", {}};
  constexpr std::size_t kWidth = 1280;
  constexpr std::size_t kHeight = 1024;
  while (set.bytes.size() < size) {
    Canvas canvas{kWidth, kHeight, std::vector<std::uint8_t>(kWidth * kHeight, 14)};
    const std::uint32_t windows = random.Between(4, 9);
    for (std::uint32_t i = 0; i < windows; ++i) DrawWindow(canvas, random, font);
    set.bytes.insert(set.bytes.end(), canvas.pixels.begin(), canvas.pixels.end());
  }
  set.bytes.resize(size);
  return set;
}

}  // namespace vellumark::bench
