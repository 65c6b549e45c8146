// SPDX-License-Identifier: MIT
#include "layout/jpeg_header.h"

#include <algorithm>
#include <limits>
#include <string_view>

namespace vellumark::layout {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::uint8_t kStartOfImage = 0xD8;
constexpr std::uint8_t kEndOfImage = 0xD9;
constexpr std::uint8_t kStartOfScan = 0xDA;
constexpr std::uint8_t kAdobe = 0xEE;
constexpr std::uint8_t kBaseline = 0xC0;
constexpr std::uint8_t kExtended = 0xC1;
constexpr std::uint8_t kProgressive = 0xC2;

int Word(Bytes bytes, std::size_t at) { return bytes[at] << 8 | bytes[at + 1]; }

bool HasNoLength(std::uint8_t marker) {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

bool IsFrame(std::uint8_t marker) {
  // 0xC4, 0xC8 and 0xCC stand between the frames and are tables.
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

/// Walks over the segments.
class Segments {
 public:
  explicit Segments(Bytes bytes) : bytes_(bytes) {}

  /// Goes to the next segment; false at the end of the bytes, or if there is none.
  bool Next() {
    // Behind a scan's header lie its data, in which 0xFF is followed by 0 or a restart marker.
    while (at_ + 1 < bytes_.size()) {
      const std::uint8_t code = bytes_[at_ + 1];
      const bool restart = code >= 0xD0 && code <= 0xD7;
      if (bytes_[at_] == 0xFF && code != 0xFF && code != 0 && !(in_scan_ && restart)) break;
      if (!in_scan_ && bytes_[at_] != 0xFF) return false;
      ++at_;
    }
    if (at_ + 1 >= bytes_.size()) return false;
    marker_ = bytes_[at_ + 1];
    at_ += 2;
    in_scan_ = false;
    data_ = {};
    if (HasNoLength(marker_) || marker_ == kEndOfImage) return true;
    if (at_ + 2 > bytes_.size()) return false;
    const auto length = static_cast<std::size_t>(Word(bytes_, at_));
    if (length < 2 || at_ + length > bytes_.size()) return false;
    data_ = bytes_.subspan(at_ + 2, length - 2);
    at_ += length;
    in_scan_ = marker_ == kStartOfScan;
    return true;
  }

  [[nodiscard]] std::uint8_t Marker() const noexcept { return marker_; }
  [[nodiscard]] Bytes Data() const noexcept { return data_; }

 private:
  Bytes bytes_;
  std::size_t at_ = 0;
  bool in_scan_ = false;
  std::uint8_t marker_ = 0;
  Bytes data_;
};

/// The header from the data of a frame; false if readers do not take such a frame.
bool TakeFrame(std::uint8_t marker, Bytes data, JpegHeader& header, bool& named_rgb) {
  if (marker != kBaseline && marker != kExtended && marker != kProgressive) return false;
  if (data.size() < 6 || data[0] != 8 || header.components != 0) return false;
  const int height = Word(data, 1);
  const int width = Word(data, 3);
  const std::uint8_t components = data[5];
  constexpr int kMost = std::numeric_limits<std::int16_t>::max();
  if (width < 1 || height < 1 || width > kMost || height > kMost) return false;
  if (components != 1 && components != 3 && components != 4) return false;
  if (data.size() < 6 + std::size_t{3} * components) return false;
  header.width = static_cast<std::int16_t>(width);
  header.height = static_cast<std::int16_t>(height);
  header.components = components;
  header.progressive = marker == kProgressive;
  named_rgb = components == 3 && data[6] == 'R' && data[9] == 'G' && data[12] == 'B';
  return true;
}

bool IsAdobe(Bytes data) {
  constexpr std::string_view kName = "Adobe";
  return data.size() >= 12 && std::equal(kName.begin(), kName.end(), data.begin());
}

}  // namespace

std::optional<JpegHeader> ReadJpegHeader(Bytes bytes) {
  JpegHeader header;
  bool named_rgb = false;
  bool adobe = false;
  bool scan = false;
  Segments segments(bytes);
  if (!segments.Next() || segments.Marker() != kStartOfImage) return std::nullopt;
  while (segments.Next()) {
    const std::uint8_t marker = segments.Marker();
    if (IsFrame(marker) && !TakeFrame(marker, segments.Data(), header, named_rgb)) break;
    if (marker == kAdobe && IsAdobe(segments.Data())) adobe = true;
    if (marker == kStartOfScan) scan = header.components != 0;
    if (marker != kEndOfImage) continue;
    if (!scan || (named_rgb && !adobe)) break;
    header.inverted = header.components == 4 && adobe;
    return header;
  }
  return std::nullopt;
}

}  // namespace vellumark::layout
