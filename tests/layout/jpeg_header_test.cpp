// SPDX-License-Identifier: MIT
#include "layout/jpeg_header.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace vellumark::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

void AddTo(Bytes& bytes, const Bytes& more) {
  for (const std::uint8_t byte : more) bytes.push_back(byte);
}

/// A segment: marker and data, with the length that it says to have unless another is given.
Bytes Segment(std::uint8_t marker, const Bytes& data, int length = -1) {
  const int said = length >= 0 ? length : static_cast<int>(data.size()) + 2;
  Bytes bytes = {0xFF, marker, static_cast<std::uint8_t>(said >> 8),
                 static_cast<std::uint8_t>(said)};
  AddTo(bytes, data);
  return bytes;
}

Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) AddTo(all, part);
  return all;
}

/// The data of a frame of 8 bits: 300 x 200 pixels, components named 1, 2, ...
Bytes Frame(std::uint8_t components, std::string_view names = "\1\2\3\4") {
  Bytes frame = {8, 0, 200, 1, 44, components};
  for (std::size_t i = 0; i < components; ++i) {
    AddTo(frame, {static_cast<std::uint8_t>(names[i % names.size()]), 0x11, 0});
  }
  return frame;
}

const Bytes start_of_file = {0xFF, 0xD8};
const Bytes end_of_file = {0xFF, 0xD9};
const Bytes a_scan = Joined({Segment(0xDA, {1, 1, 0, 0, 63, 0}), {12, 0xFF, 0, 0xFF, 0xD3, 34}});
const Bytes adobe_marker = Segment(0xEE, {'A', 'd', 'o', 'b', 'e', 0, 100, 0, 0, 0, 0, 2});

Bytes File(const Bytes& frame, const Bytes& before = {}) {
  return Joined({start_of_file, before, frame, a_scan, end_of_file});
}

TEST(JpegHeader, SaysWhatAReaderMustKnow) {
  struct Case {
    const char* what;
    Bytes file;
    int components;
    bool progressive;
    bool inverted;
  };
  const Case cases[] = {
      {"gray", File(Segment(0xC0, Frame(1))), 1, false, false},
      {"extended", File(Segment(0xC1, Frame(3))), 3, false, false},
      {"progressive", File(Segment(0xC2, Frame(3))), 3, true, false},
      {"four inks", File(Segment(0xC0, Frame(4))), 4, false, false},
      {"four inks, inverted", File(Segment(0xC0, Frame(4)), adobe_marker), 4, false, true},
      {"another program's marker", File(Segment(0xC0, Frame(4)), Segment(0xEE, Bytes(12, 'x'))), 4,
       false, false},
      {"RGB, said by a marker", File(Segment(0xC0, Frame(3, "RGB")), adobe_marker), 3, false,
       false},
      {"names that begin as RGB", File(Segment(0xC0, Frame(3, "RG3"))), 3, false, false},
      {"names that begin as RGB less", File(Segment(0xC0, Frame(3, "R2B"))), 3, false, false},
      {"a marker of Adobe's that is cut off",
       File(Segment(0xC0, Frame(4)), Segment(0xEE, {'A', 'd', 'o', 'b', 'e', 0, 100, 0, 0, 0, 0})),
       4, false, false},
      {"fill bytes, and markers without length",
       Joined({start_of_file,
               {0xFF, 0xFF, 0xFF, 0x01},
               Segment(0xC0, Frame(1)),
               {0xFF, 0xD0},
               a_scan,
               end_of_file}),
       1, false, false},
      {"an empty comment", File(Segment(0xC0, Frame(1)), Segment(0xFE, {})), 1, false, false},
      {"two scans", Joined({start_of_file, Segment(0xC2, Frame(3)), a_scan, a_scan, end_of_file}),
       3, true, false},
  };
  for (const Case& one : cases) {
    const auto header = layout::ReadJpegHeader(one.file);
    ASSERT_TRUE(header) << one.what;
    EXPECT_EQ(header->width, 300) << one.what;
    EXPECT_EQ(header->height, 200) << one.what;
    EXPECT_EQ(header->components, one.components) << one.what;
    EXPECT_EQ(header->progressive, one.progressive) << one.what;
    EXPECT_EQ(header->inverted, one.inverted) << one.what;
  }
}

TEST(JpegHeader, TakesSidesOf1To32767Pixels) {
  for (const int side : {0, 1, 32767, 32768}) {
    for (const std::size_t place : {1U, 3U}) {
      Bytes frame = Frame(3);
      frame[place] = static_cast<std::uint8_t>(side >> 8);
      frame[place + 1] = static_cast<std::uint8_t>(side);
      const auto header = layout::ReadJpegHeader(File(Segment(0xC0, frame)));
      ASSERT_EQ(header.has_value(), side == 1 || side == 32767) << side;
      if (!header) continue;
      EXPECT_EQ(place == 1 ? header->height : header->width, side);
    }
  }
}

TEST(JpegHeader, RefusesWhatReadersWouldNotShow) {
  const auto changed = [](std::size_t at, std::uint8_t byte) {
    Bytes frame = Frame(3);
    frame[at] = byte;
    return frame;
  };
  const std::pair<const char*, Bytes> cases[] = {
      {"nothing", {}},
      {"no start", Joined({Segment(0xC0, Frame(1)), a_scan, end_of_file})},
      {"no frame", Joined({start_of_file, a_scan, end_of_file})},
      {"no scan", Joined({start_of_file, Segment(0xC0, Frame(1)), end_of_file})},
      {"the scan before the frame",
       Joined({start_of_file, a_scan, Segment(0xC0, Frame(1)), end_of_file})},
      {"a length beyond the end that looks like an end",
       Joined({start_of_file, Segment(0xC0, Frame(1)), a_scan, {0xFF, 0xE1, 0xFF, 0xD9}})},
      {"no end", Joined({start_of_file, Segment(0xC0, Frame(1)), a_scan})},
      {"two frames", File(Segment(0xC0, Frame(1)), Segment(0xC0, Frame(1)))},
      {"lossless", File(Segment(0xC3, Frame(3)))},
      {"arithmetic", File(Segment(0xC9, Frame(3)))},
      {"12 bits", File(Segment(0xC1, changed(0, 12)))},
      {"2 components", File(Segment(0xC0, changed(5, 2)))},
      {"more components than are described", File(Segment(0xC0, changed(5, 4)))},
      {"a frame of 5 bytes", File(Segment(0xC0, {8, 0, 1, 0, 1}))},
      {"RGB by its names only", File(Segment(0xC0, Frame(3, "RGB")))},
      {"a length below its own two bytes",
       Joined({start_of_file, Segment(0xE0, {}, 1), a_scan, end_of_file})},
      {"a length beyond the file", Joined({start_of_file, Segment(0xE0, {}, 999)})},
      {"a marker without its length", Joined({start_of_file, {0xFF, 0xE0}})},
      {"half a length", Joined({start_of_file, {0xFF, 0xE0, 0}})},
      {"bytes between segments",
       Joined({start_of_file, {7}, Segment(0xC0, Frame(1)), a_scan, end_of_file})},
  };
  for (const auto& [what, file] : cases) {
    EXPECT_FALSE(layout::ReadJpegHeader(file)) << what;
  }
}

}  // namespace
}  // namespace vellumark::tests
