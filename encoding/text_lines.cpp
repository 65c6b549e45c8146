// SPDX-License-Identifier: MIT
#include "encoding/text_lines.h"

#include <algorithm>
#include <cstddef>

#include "encoding/ascii85.h"
#include "encoding/ascii_hex.h"
#include "encoding/encoded_output.h"

namespace vellumark::encoding {
namespace {

constexpr std::size_t kLongestLine = 80;

// A multiple of four, so that base-85 groups do not cross pieces, and of a line in both encodings.
constexpr std::size_t kPiece = 6400;

class LineWriter {
 public:
  LineWriter(std::string& output, std::string_view line_end)
      : output_(output), line_end_(line_end) {}

  void Add(std::string_view text) {
    if (output_.empty() && !text.empty() && text.front() == '%') BeginWithBlank();
    while (!text.empty()) {
      if (column_ == kLongestLine) Break(text.front());
      const std::size_t size = std::min(kLongestLine - column_, text.size());
      output_.append(text.data(), size);
      column_ += size;
      text.remove_prefix(size);
    }
  }

  // Adds what must not be divided.
  void AddWhole(std::string_view text) {
    if (column_ + text.size() > kLongestLine) Break(text.front());
    output_ += text;
    column_ += text.size();
  }

 private:
  // Ends the line before `next`, or earlier where the new line would begin with "%". A line of
  // nothing but "%" ends where it is full, and a blank begins the next.
  void Break(char next) {
    std::size_t moved = 0;
    char first = next;
    while (first == '%' && moved + 1 < column_) first = output_[output_.size() - ++moved];
    if (first == '%') moved = 0;
    output_.insert(output_.size() - moved, line_end_);
    column_ = moved;
    if (first == '%') BeginWithBlank();
  }

  void BeginWithBlank() {
    output_ += ' ';
    column_ = 1;
  }

  std::string& output_;
  std::string_view line_end_;
  std::size_t column_ = 0;
};

// Encodes piece by piece, so that the text without line ends never lies in memory as a whole.
template <class Encoder>
std::string EncodeLines(std::span<const std::uint8_t> data, std::string_view line_end,
                        std::size_t greatest_size, std::string_view end_marker) {
  std::string output;
  const std::size_t lines = greatest_size / (kLongestLine - 1) + 1;
  output.reserve(greatest_size + lines * line_end.size() + kLineEndRoom);
  LineWriter writer(output, line_end);
  std::string text;
  while (!data.empty()) {
    const auto piece = data.first(std::min(kPiece, data.size()));
    std::int32_t size = 0;
    Encoder::Encode(static_cast<std::int32_t>(piece.size()), piece, size, text);
    writer.Add(std::string_view(text).substr(0, text.size() - end_marker.size()));
    data = data.subspan(piece.size());
  }
  writer.AddWhole(end_marker);
  output.reserve(output.size() + kLineEndRoom);  // lines may have become shorter than reckoned
  return output;
}

}  // namespace

std::string EncodeAscii85Lines(std::span<const std::uint8_t> data, std::string_view line_end) {
  return EncodeLines<Ascii85>(data, line_end, (data.size() + 3) / 4 * 5 + 2, "~>");
}

std::string EncodeAsciiHexLines(std::span<const std::uint8_t> data, std::string_view line_end) {
  return EncodeLines<AsciiHex>(data, line_end, 2 * data.size() + 1, ">");
}

}  // namespace vellumark::encoding
