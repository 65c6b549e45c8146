// SPDX-License-Identifier: MIT
//
// Pictures of a conforming document: a file's own bytes, predictors, and each picture once.
#include <algorithm>

#include "encoding/encode_stream.h"
#include "encoding/png_predictor.h"
#include "tests/bmp_file.h"
#include "tests/document_fixture.h"
#include "tests/png_file.h"
#include "tests/sample_picture.h"

namespace vellumark::tests {
namespace {

using enum EncodingConstants;

class ConformingPictures : public ConformingPdfTest {
 protected:
  bool Draw(const std::string& file, EncodingConstants encoding = Original) {
    return doc.DrawPicture(file, kNoAlignment, "", encoding);
  }

  /// The file of a document with one picture.
  std::string FileWith(const std::string& bytes, EncodingConstants encoding = Original) {
    memory->PutFile("picture", bytes);
    Start();
    EXPECT_TRUE(Draw("picture", encoding)) << doc.LastRefusal().sentence;
    doc.Flush();
    return *memory->File("doc");
  }

  static bool Holds(const std::string& file, std::string_view text) {
    return file.find(text) != std::string::npos;
  }
};

TEST_F(ConformingPictures, OriginalIsTheFileUnchanged) {
  const std::string jpg = Sample("landscape.jpg");
  ASSERT_FALSE(jpg.empty());
  const std::string file = FileWith(jpg);
  EXPECT_TRUE(Holds(file, "/Filter /DCTDecode\n/Length " + std::to_string(jpg.size()) +
                              "\n>>\nstream\n" + jpg + "\nendstream\n"));
  EXPECT_TRUE(Holds(file, "/ColorSpace /DeviceRGB\n"));
  EXPECT_TRUE(file.starts_with("%PDF-1.2\n"));
}

TEST_F(ConformingPictures, AProgressiveOriginalNeedsALaterVersion) {
  const std::string jpg = Sample("landscape_progressive.jpg");
  const std::string file = FileWith(jpg);
  EXPECT_TRUE(Holds(file, jpg));
  EXPECT_TRUE(file.starts_with("%PDF-1.3\n"));
  EXPECT_TRUE(FileWith(Sample("landscape.jpg")).starts_with("%PDF-1.2\n")) << "the next document";
}

TEST_F(ConformingPictures, FourInksAreInverted) {
  const std::string file = FileWith(Sample("landscape_cmyk.jpg"));
  EXPECT_TRUE(Holds(file, "/ColorSpace /DeviceCMYK\n/Decode [1 0 1 0 1 0 1 0]\n"));
}

TEST_F(ConformingPictures, OtherKindsAreDeflated) {
  for (const char* const name : {"landscape.gif", "landscape_24.bmp"}) {
    EXPECT_TRUE(Holds(FileWith(Sample(name)), "/Filter /FlateDecode\n")) << name;
  }
}

TEST_F(ConformingPictures, AJpgThatReadersMayNotTakeIsDecodedOrRefused) {
  // Extended sequential with 8 bits is taken; a frame of another kind, of which the decoder makes
  // what it can, is not copied.
  std::string jpg = Sample("landscape.jpg");
  const std::size_t frame = jpg.find("\xFF\xC0");
  ASSERT_NE(frame, jpg.npos);
  std::string other = jpg;
  other[frame + 1] = '\xC1';
  EXPECT_TRUE(Holds(FileWith(other), "/Filter /DCTDecode\n"));
  for (const std::string& broken :
       {jpg.substr(0, frame), jpg.substr(0, jpg.size() / 2), jpg.substr(0, 3)}) {
    memory->PutFile("broken", broken);
    Start();
    EXPECT_FALSE(Draw("broken"));
    EXPECT_EQ(Why(), RefusalReason::PictureNotLoaded);
    doc.Flush();
    EXPECT_FALSE(Holds(*memory->File("doc"), "/Subtype /Image"));
  }
  // Three components that are colors themselves: copied, readers would take them for luminance.
  std::string named = jpg;
  for (std::size_t i = 0; i < 3; ++i) named[frame + 10 + 3 * i] = "RGB"[i];
  const std::size_t scan = named.find("\xFF\xDA");
  for (std::size_t i = 0; i < 3; ++i) named[scan + 5 + 2 * i] = "RGB"[i];
  const std::size_t jfif = named.find("JFIF");
  if (jfif != std::string::npos) named.replace(jfif, 4, "none");
  EXPECT_TRUE(Holds(FileWith(named), "/Filter /FlateDecode\n"));
}

TEST_F(ConformingPictures, AnOriginalThatIsNotThereIsRefused) {
  Start();
  EXPECT_FALSE(Draw("missing.jpg"));
  EXPECT_NE(Why(), RefusalReason::None);
}

TEST_F(ConformingPictures, OriginalIsForConformingDocumentsOnly) {
  doc.Conforming(false);
  Start();
  EXPECT_FALSE(Draw(VELLUMARK_PICTURES "/landscape.jpg"));
  EXPECT_EQ(Why(), RefusalReason::InvalidEncoding);
  doc.Conforming(true);
  EXPECT_FALSE(Draw(VELLUMARK_PICTURES "/landscape.jpg")) << "read by Create";
  doc.Flush();
  Start();
  EXPECT_TRUE(Draw(VELLUMARK_PICTURES "/landscape.jpg"));
  EXPECT_FALSE(Draw(VELLUMARK_PICTURES "/landscape.jpg", static_cast<EncodingConstants>(6)));
}

TEST_F(ConformingPictures, TheSamePictureIsStoredOnce) {
  memory->PutFile("a.bmp", PlainBmp(9, 9, 0x010203));
  memory->PutFile("same.bmp", PlainBmp(9, 9, 0x010203));
  memory->PutFile("other.bmp", PlainBmp(9, 9, 0x010204));
  Start();
  for (const char* const file : {"a.bmp", "same.bmp", "other.bmp", "a.bmp"}) Draw(file, Flate);
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  Draw("a.bmp", Flate);
  Draw("a.bmp", RunLength);
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Subtype /Image"), 3);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/I0 Do"), 4);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/I2 Do"), 1);
}

TEST_F(ConformingPictures, APaletteStandsInTheImage) {
  const BmpFile bits{.bits = 1, .palette = {0x28295C, 0x0A0D41}, .pixels = {0x80, 0, 0, 0}};
  const std::string file = FileWith(bits.Bytes(), ASCIIHex);
  EXPECT_TRUE(Holds(file,
                    "/BitsPerComponent 1\n/ColorSpace [ /Indexed /DeviceRGB 1 "
                    "(\\(\\)\\\\\\n\\rA) ]\n"));
  EXPECT_TRUE(Holds(file, "\nstream\n80>\nendstream\n"));
}

TEST_F(ConformingPictures, APredictorIsTakenWhereItMakesThemSmaller) {
  for (const int side : {64, 300}) {  // the second is judged by some of its rows
    BmpFile noise{.width = side, .height = side};
    std::uint32_t random = 1;
    for (int i = 0; i < 3 * side * side; ++i) {
      random = random * 1664525 + 1013904223;
      noise.pixels.push_back(static_cast<std::uint8_t>(random >> 24));
    }
    for (const int bits : {8, 24}) {
      const std::string file = FileWith(SlopedBmp(side, bits).Bytes(), Flate);
      std::string parameters = "/DecodeParms << /Predictor 15 /Colors ";
      parameters += std::to_string(bits / 8) + " /BitsPerComponent 8 /Columns ";
      parameters += std::to_string(side) + " >>";
      EXPECT_TRUE(Holds(file, parameters)) << bits;
    }
    EXPECT_FALSE(Holds(FileWith(noise.Bytes(), Flate), "/Predictor"));
    if (side == 64) continue;
    BmpFile framed = SlopedBmp(side, 24);
    const auto row = static_cast<std::ptrdiff_t>(3) * side;
    std::copy_n(noise.pixels.begin(), 160 * row, framed.pixels.begin() + 70 * row);
    EXPECT_FALSE(Holds(FileWith(framed.Bytes(), Flate), "/Predictor")) << "rows from the middle";
  }
  PngFile glass{.width = 64, .height = 64, .colors = 6};
  std::vector<std::uint8_t> mask(std::size_t{64} * 64);  // from the bottom
  for (int y = 0; y < 64; ++y) {
    for (int x = 0; x < 64; ++x) {
      const int alpha = 2 * x + y % 8 * x + 3 * y;
      for (const int part : {9, 9, 9, alpha}) glass.rows.push_back(static_cast<std::uint8_t>(part));
      mask[static_cast<std::size_t>(64 * (63 - y) + x)] = static_cast<std::uint8_t>(alpha);
    }
  }
  const std::string file = FileWith(glass.Bytes(), Flate);
  EXPECT_TRUE(
      Holds(file, "/DecodeParms << /Predictor 15 /Colors 1 /BitsPerComponent 8 /Columns 64 >>"));
  EXPECT_TRUE(
      Holds(file, encoding::EncodeStream(encoding::PredictedRows(mask, 64, 1).Bytes(), Flate)));
}

}  // namespace
}  // namespace vellumark::tests
