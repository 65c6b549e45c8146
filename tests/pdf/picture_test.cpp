// SPDX-License-Identifier: MIT
#include <algorithm>
#include <fstream>
#include <iterator>

#include "encoding/encode_stream.h"
#include "tests/bmp_file.h"
#include "tests/document_fixture.h"
#include "tests/encoding/generated_input.h"
#include "tests/png_file.h"

namespace vellumark::tests {
namespace {

using enum EncodingConstants;

class PdfPictures : public PdfTest {
 protected:
  PdfPictures() {
    memory->PutFile("wide.bmp", PlainBmp(100, 50));
    memory->PutFile("dot.bmp", PlainBmp(1, 1, 0x414243));
    const BmpFile bits{.width = 4, .bits = 8, .palette = {0x010203}, .pixels = {0, 0, 0, 1}};
    memory->PutFile("bits.bmp", bits.Bytes());
  }

  bool Draw(const std::string& file, EncodingConstants encoding = ASCII85) {
    return doc.DrawPicture(file, kNoAlignment, "", encoding);
  }

  /// The "cm" line of a picture drawn with an alignment.
  std::string Placed(const std::string& file, AlignmentConstants alignment) {
    EXPECT_TRUE(doc.DrawPicture(file, alignment));
    doc.Flush();
    const auto streams = Streams(SplitLines(*memory->File("doc")));
    return streams.at(1).at(0);
  }

  /// `count` lines of the flushed file from the first one that is `from`.
  Lines From(const std::string& from, int count) {
    const Lines lines = FlushedLines();
    const auto start = std::find(lines.begin(), lines.end(), from);
    EXPECT_LE(count, lines.end() - start) << from;
    return {start, start + std::min<std::ptrdiff_t>(count, lines.end() - start)};
  }
};

TEST_F(PdfPictures, OneThatDoesNotFitBeforeTheFirstPageIsToldToWantAPage) {
  ASSERT_TRUE(doc.Create("doc"));
  doc.SetPosition(0, 820);
  EXPECT_FALSE(Draw("wide.bmp"));
  EXPECT_EQ(Why(), RefusalReason::NoPage);
}

TEST_F(PdfPictures, APictureOf24BitsIsAPlacementAndAnImage) {
  Start();
  doc.SetPosition(10, 20);
  ASSERT_TRUE(Draw("dot.bmp", ASCIIHex));
  EXPECT_EQ(At(), (Position{10, 21})) << "below the picture, at the line's start";
  EXPECT_EQ(From("20 0 obj", 34), (Lines{"20 0 obj",
                                         "<<",
                                         "/Length 21 0 R",
                                         ">>",
                                         "stream",
                                         "Q",
                                         "q",
                                         "1 0 0 -1 60 772 cm",
                                         "/I0 Do",
                                         "endstream",
                                         "endobj",  //
                                         "21 0 obj",
                                         "26",
                                         "endobj",  //
                                         "22 0 obj",
                                         "<<",
                                         "/Type /XObject",
                                         "/Subtype /Image",
                                         "/Name /I0",
                                         "/Width 1",
                                         "/Height 1",
                                         "/BitsPerComponent 8",
                                         "/ColorSpace /DeviceRGB",
                                         "/Filter /ASCIIHexDecode",
                                         "/Length 23 0 R",
                                         ">>",
                                         "stream",
                                         "414243>",
                                         "endstream",
                                         "endobj",  //
                                         "23 0 obj",
                                         "7",
                                         "endobj",  //
                                         "24 0 obj"}));
}

TEST_F(PdfPictures, APaletteIsAStreamOfItsOwnUnderTheSameFilter) {
  Start();
  ASSERT_TRUE(Draw("bits.bmp"));
  const Lines lines = From("/BitsPerComponent 8", 23);
  EXPECT_EQ(Lines(lines.begin(), lines.begin() + 20),
            (Lines{"/BitsPerComponent 8",
                   "/ColorSpace [ /Indexed /DeviceRGB 255 24 0 R ]",
                   "/Filter /ASCII85Decode",
                   "/Length 23 0 R",
                   ">>",
                   "stream",
                   "!!!!\"~>",
                   "endstream",
                   "endobj",
                   "23 0 obj",
                   "7",
                   "endobj",
                   "24 0 obj",
                   "<<",
                   "/Length 25 0 R",
                   "/Filter /ASCII85Decode",
                   ">>",
                   "stream",
                   "!<N?'" + std::string(191, 'z') + "~>",
                   "endstream"}));
  EXPECT_EQ(lines[21], "25 0 obj");
}

TEST_F(PdfPictures, EveryImageIsListedInTheResourcesUntilTheNextCreate) {
  Start();
  for (const auto encoding : {ASCII85, RunLength, Flate}) ASSERT_TRUE(Draw("dot.bmp", encoding));
  Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "/XObject << /I0 22 0 R /I1 26 0 R /I2 30 0 R >>"));
  EXPECT_TRUE(Has(lines, "/Filter /RunLengthDecode"));
  EXPECT_TRUE(Has(lines, "/Filter /FlateDecode"));
  Start();
  lines = FlushedLines();
  EXPECT_TRUE(std::none_of(lines.begin(), lines.end(),
                           [](const auto& line) { return line.starts_with("/XObject"); }));
}

TEST_F(PdfPictures, APixelIsAPointUnlessTheBoxIsSmaller) {
  Start();
  EXPECT_EQ(Placed("wide.bmp", AlignmentConstants::NoAlignment), "100 0 0 -50 50 792 cm");
  Start();
  doc.SetPictureDimensions(40, 40);
  EXPECT_EQ(Placed("wide.bmp", AlignmentConstants::NoAlignment), "40 0 0 -20 50 792 cm");
  for (const auto& [width, height] : {std::pair(0, 40), std::pair(40, 0), std::pair(-1, 40)}) {
    Start();
    doc.SetPictureDimensions(static_cast<std::int16_t>(width), static_cast<std::int16_t>(height));
    EXPECT_EQ(Placed("wide.bmp", AlignmentConstants::NoAlignment), "100 0 0 -50 50 792 cm");
  }
  Start();
  EXPECT_EQ(Placed("wide.bmp", AlignmentConstants::Center), "100 0 0 -50 247 792 cm");
  Start();
  EXPECT_EQ(Placed("wide.bmp", AlignmentConstants::RightAlign), "100 0 0 -50 445 792 cm");
}

TEST_F(PdfPictures, ASmallPictureFillsItsBoxIfItIsToBeEnlarged) {
  const auto placed = [&](int width, int height) {
    Start();
    doc.SetPictureDimensions(width, height);
    return Placed("wide.bmp", AlignmentConstants::NoAlignment);
  };
  doc.PicturesEnlarged(true);
  EXPECT_EQ(placed(300, 300), "300 0 0 -150 50 792 cm");
  EXPECT_EQ(placed(300, 60), "120 0 0 -60 50 792 cm");
  EXPECT_EQ(placed(300, 50), "100 0 0 -50 50 792 cm") << "it is as high as its box";
  EXPECT_EQ(placed(50, 300), "50 0 0 -25 50 792 cm") << "a larger one is made smaller as ever";
  Start();
  EXPECT_EQ(Placed("wide.bmp", AlignmentConstants::NoAlignment), "100 0 0 -50 50 792 cm");
  memory->PutFile(
      "pole.bmp",
      BmpFile{.width = 1, .height = 700, .bits = 1, .pixels = std::vector<std::uint8_t>(2800)}
          .Bytes());
  Start();
  doc.SetPictureDimensions(400, 32767);
  EXPECT_FALSE(Draw("pole.bmp"));
  EXPECT_EQ(Why(), RefusalReason::PictureTooHigh);
  doc.Flush();
  doc.PicturesEnlarged(false);
  EXPECT_EQ(placed(300, 300), "100 0 0 -50 50 792 cm");
}

// Its samples become text when the file is written: lengths and offsets must be known before.
TEST_F(PdfPictures, TextOfManyBlocksHasTheLengthThatIsWritten) {
  std::vector<std::uint8_t> pixels = encoding::testing::Noise(std::size_t{3} * 100 * 64);
  std::fill(pixels.begin() + 9000, pixels.begin() + 12'000, std::uint8_t{0});  // zero groups
  const std::string file =
      BmpFile{.width = 100, .height = 64, .bits = 24, .pixels = pixels}.Bytes();
  for (std::size_t at = 0; at < pixels.size(); at += 3) std::swap(pixels[at], pixels[at + 2]);
  memory->PutFile("noise.bmp", file);
  doc.Compressed(false);
  for (const bool conforming : {false, true}) {
    doc.Conforming(conforming);
    for (const EncodingConstants encoding : {ASCII85, ASCIIHex}) {
      Start();
      ASSERT_TRUE(Draw("noise.bmp", encoding));
      const Lines lines = FlushedLines();
      const std::string text = encoding::EncodeStream(pixels, encoding);
      EXPECT_TRUE(Has(lines, text));
      const std::string length = std::to_string(text.size());
      EXPECT_TRUE(Has(lines, conforming ? "/Length " + length : length));
      const auto end = std::find(lines.begin(), lines.end(), "startxref");
      std::size_t before_xref = 0;
      for (auto line = lines.begin(); *line != "xref"; ++line) {
        before_xref += line->size() + (conforming ? 1 : 2);
      }
      EXPECT_TRUE(!conforming || *(end + 1) == std::to_string(before_xref));
    }
  }
}

TEST_F(PdfPictures, BytesAreDrawnAsTheirFileIs) {
  const std::string jpg = [] {
    std::ifstream file(VELLUMARK_PICTURES "/landscape.jpg", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  }();
  const std::vector<std::uint8_t> bytes(jpg.begin(), jpg.end());
  memory->PutFile("photo.jpg", jpg);
  for (const bool conforming : {false, true}) {
    doc.Conforming(conforming);
    const auto file_after = [&](const auto& picture) {
      Start();
      const auto encoding = conforming ? Original : Flate;
      EXPECT_TRUE(doc.DrawPicture(picture, AlignmentConstants::Center, "https://a.b/", encoding));
      return FlushedLines();
    };
    EXPECT_EQ(file_after(bytes), file_after("photo.jpg"));
    EXPECT_EQ(file_after(std::span<const std::uint8_t>(bytes)),
              file_after(std::string("photo.jpg")));
  }
  Start();
  Document& shared = doc;
  EXPECT_TRUE(shared.DrawPicture(bytes));
  const std::uint8_t nothing[] = {'B'};
  EXPECT_FALSE(shared.DrawPicture(nothing));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "the picture cannot be loaded: 1 byte in memory: not a BMP, GIF, JPG or PNG file");
  EXPECT_FALSE(doc.DrawPicture(std::vector<std::uint8_t>()));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "the picture cannot be loaded: 0 bytes in memory: not a BMP, GIF, JPG or PNG file");
}

TEST_F(PdfPictures, ALinkCoversThePictureExactly) {
  doc.Create("doc");
  doc.NewPage(50, 50, 50, 50, 255, 255, 255);
  ASSERT_TRUE(doc.DrawPicture("wide.bmp", AlignmentConstants::Center, "https://example.org/é"));
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "/A << /URI (https://example.org/\xE9) /S /URI >>"));
  EXPECT_TRUE(Has(lines, "/Rect [247 792 347 742]"));
}

TEST_F(PdfPictures, WhatIsRefusedLeavesNoTrace) {
  Start();
  memory->PutFile("broken.bmp", "BM");
  memory->PutFile("long.bmp", PlainBmp(10923, 1));
  doc.SetPosition(396, 0);
  struct Case {
    const char* file;
    int alignment;
    int encoding;
    RefusalReason reason;
  };
  for (const Case& c : {Case{"dot.bmp", 4, 1, RefusalReason::InvalidAlignment},
                        Case{"dot.bmp", -1, 1, RefusalReason::InvalidAlignment},
                        Case{"dot.bmp", 0, 5, RefusalReason::InvalidEncoding},
                        Case{"dot.bmp", 0, 0, RefusalReason::InvalidEncoding},
                        Case{"broken.bmp", 0, 1, RefusalReason::PictureNotLoaded},
                        Case{"", 0, 1, RefusalReason::PictureNotLoaded},
                        Case{"long.bmp", 0, 1, RefusalReason::RunTimeFault},
                        Case{"wide.bmp", 1, 1, RefusalReason::PictureTooWide}}) {
    EXPECT_FALSE(doc.DrawPicture(c.file, static_cast<AlignmentConstants>(c.alignment), "",
                                 static_cast<EncodingConstants>(c.encoding)));
    EXPECT_EQ(Why(), c.reason) << c.file;
    EXPECT_EQ(At(), (Position{396, 0}));
  }
  doc.SetPosition(395, 692);
  EXPECT_TRUE(Draw("wide.bmp")) << "up to both margins";
  doc.SetPosition(0, 693);
  EXPECT_FALSE(Draw("wide.bmp"));
  EXPECT_EQ(
      doc.LastRefusal().sentence,
      "picture would reach y = 743, but the usable area ends at y = 742; move the position or "
      "set a box with SetPictureDimensions");
  EXPECT_FALSE(Draw("no such file.bmp"));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "the picture cannot be loaded: no such file.bmp: No such file or directory");
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Subtype /Image"), 1);
}

TEST_F(PdfPictures, AllItsObjectsMustFindNumbers) {
  Start();
  // 17 fixed objects and the background's two; four are kept for footer, page and catalog.
  for (int left = 32767 - 19 - 4; left > 6; left -= 2) ASSERT_TRUE(doc.DrawLine(0, 0, 1, 1));
  EXPECT_FALSE(doc.DrawPicture("bits.bmp", kNoAlignment, "https://example.org/"));
  EXPECT_EQ(Why(), RefusalReason::NoObjectNumbersLeft);
  EXPECT_TRUE(Draw("bits.bmp"));
  EXPECT_FALSE(Draw("dot.bmp"));
  EXPECT_TRUE(Has(FlushedLines(), "/Size 32768"));
}

TEST_F(PdfPictures, OddityOnly24BitsAndPalettesDeclareTheirColors) {
  for (const int bits : {16, 32}) {
    Start();
    const BmpFile deep{.bits = bits, .pixels = {1, 2, 3, 4}};
    memory->PutFile("deep.bmp", deep.Bytes());
    ASSERT_TRUE(Draw("deep.bmp", ASCIIHex));
    EXPECT_EQ(From("/Height 1", 6), (Lines{"/Height 1", "/Filter /ASCIIHexDecode", "/Length 23 0 R",
                                           ">>", "stream", bits == 16 ? "0002>" : "03020104>"}));
  }
}

TEST_F(PdfPictures, APlatformFileIsTakenIfNoBufferHasItsName) {
  Start();
  EXPECT_TRUE(Draw(std::string(VELLUMARK_PICTURES) + "/landscape.gif"));
  EXPECT_FALSE(Draw(VELLUMARK_PICTURES));
  EXPECT_TRUE(doc.LastRefusal().sentence.ends_with("not a regular file"));
}

TEST_F(PdfPictures, TransparencyShowsThePageInClassicOutput) {
  const PngFile glass{.width = 2, .colors = 6, .rows = {200, 100, 0, 255, 200, 100, 0, 0}};
  memory->PutFile("glass.png", glass.Bytes());
  ASSERT_TRUE(doc.Create("doc"));
  doc.NewPage(50, 50, 50, 50, 1, 2, 3);
  ASSERT_TRUE(Draw("glass.png", ASCIIHex));
  EXPECT_EQ(From("/BitsPerComponent 8", 6),
            (Lines{"/BitsPerComponent 8", "/ColorSpace /DeviceRGB", "/Filter /ASCIIHexDecode",
                   "/Length 23 0 R", ">>", "stream"}));
  EXPECT_TRUE(Has(SplitLines(*memory->File("doc")), "C86400010203>"));
}

TEST_F(PdfPictures, TransparencyIsASoftMaskInConformingOutput) {
  const PngFile glass{.width = 2, .colors = 6, .rows = {200, 100, 0, 255, 200, 100, 0, 0}};
  PngFile other = glass;
  other.rows[3] = 254;
  memory->PutFile("glass.png", glass.Bytes());
  memory->PutFile("other.png", other.Bytes());
  const PngFile indexed{.width = 300,
                        .colors = 3,
                        .palette = {1, 2, 3, 4, 5, 6},
                        .transparent = "\x7F",
                        .rows = std::vector<std::uint8_t>(300, 0)};
  memory->PutFile("indexed.png", indexed.Bytes());
  doc.Conforming(true);
  Start();
  ASSERT_TRUE(Draw("dot.bmp"));
  EXPECT_EQ(FlushedLines().front(), "%PDF-1.2");
  Start();
  for (const char* const name : {"glass.png", "glass.png", "other.png", "indexed.png"}) {
    ASSERT_TRUE(Draw(name, ASCIIHex)) << name;
  }
  const Lines lines = FlushedLines();
  EXPECT_EQ(lines.front(), "%PDF-1.4");
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/ColorSpace /DeviceGray"), 3)
      << "one that was drawn before is there already, one with another alpha is not";
  const auto mask = std::find(lines.begin(), lines.end(), "/ColorSpace /DeviceGray");
  EXPECT_EQ(*(mask + 1), "/Filter /FlateDecode");
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "C86400C86400>"), 2) << "the colors stay";
  EXPECT_TRUE(Has(lines, "/SMask 4 0 R"));
  EXPECT_EQ(*(std::find(lines.begin(), lines.end(), "/SMask 4 0 R") - 1), "/ColorSpace /DeviceRGB");
  const auto palette = std::find(lines.begin(), lines.end(), "/SMask 8 0 R");
  ASSERT_NE(palette, lines.end());
  EXPECT_TRUE((palette - 1)->starts_with("/ColorSpace [ /Indexed /DeviceRGB 255"))
      << *(palette - 1);
}

}  // namespace
}  // namespace vellumark::tests
