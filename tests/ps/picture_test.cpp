// SPDX-License-Identifier: MIT
#include "tests/bmp_file.h"
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

using enum EncodingConstants;

class PsPictures : public PsTest {
 protected:
  Lines Drawn(const BmpFile& file, EncodingConstants encoding) {
    memory->PutFile("picture", file.Bytes());
    Start(20);
    EXPECT_TRUE(doc.DrawPicture("picture", AlignmentConstants::NoAlignment, encoding));
    return MarksOfLastPage();
  }
};

TEST_F(PsPictures, APictureOf24BitsHasThreeComponents) {
  const BmpFile dots{.width = 2, .height = 1, .pixels = {0x43, 0x42, 0x41, 0, 0, 0, 0, 0}};
  EXPECT_EQ(
      Drawn(dots, ASCIIHex),
      (Lines{"gsave", "20 822 translate", "2 1 scale", "/DeviceRGB setcolorspace", "<<",
             "  /ImageType 1", "  /BitsPerComponent 8", "  /Width 2", "  /Height 1",
             "  /ImageMatrix [2 0 0 1 0 1]", "  /Decode [0 1 0 1 0 1]", "  /DataSource currentfile",
             "  /ASCIIHexDecode filter", ">>", "image", "414243000000>", "grestore"}));
}

TEST_F(PsPictures, APaletteIsAHexadecimalStringWhateverTheFilter) {
  const BmpFile bits{
      .width = 3, .bits = 1, .palette = {0x010203, 0xFFFEFD}, .pixels = {0xA0, 0, 0, 0}};
  const Lines lines = Drawn(bits, ASCII85);
  EXPECT_EQ(lines.at(3), "[ /Indexed /DeviceRGB 1 <010203FFFEFD> ] setcolorspace");
  EXPECT_EQ(lines.at(6), "  /BitsPerComponent 1");
  EXPECT_EQ(lines.at(10), "  /Decode [0 1]");
  EXPECT_EQ(lines.at(12), "  /ASCII85Decode filter");
  EXPECT_EQ(lines.at(15), "TE~>");
}

TEST_F(PsPictures, TheBoxScalesThePictureAndNotItsPixels) {
  memory->PutFile("wide.bmp", PlainBmp(100, 50));
  Start(20);
  doc.SetPictureDimensions(40, 40);
  doc.SetPosition(5, 7);
  EXPECT_TRUE(doc.DrawPicture("wide.bmp", AlignmentConstants::Center, Flate));
  EXPECT_EQ(At(), (Position{5, 27}));
  const Lines lines = MarksOfLastPage();
  EXPECT_EQ(lines.at(1), "277 815 translate");
  EXPECT_EQ(lines.at(2), "40 20 scale");
  EXPECT_EQ(lines.at(9), "  /ImageMatrix [100 0 0 50 0 50]");
  EXPECT_EQ(lines.at(12), "  /FlateDecode filter");
}

TEST_F(PsPictures, OddityEveryPictureWithoutAPaletteIsSaidToHaveEightBits) {
  const Lines lines = Drawn(BmpFile{.bits = 32, .pixels = {1, 2, 3, 4}}, ASCIIHex);
  EXPECT_EQ(lines.at(6), "  /BitsPerComponent 8");
  EXPECT_EQ(lines.at(15), "03020104>");
}

TEST_F(PsPictures, OddityRunLengthEndsWithAMarkerOfItsOwn) {
  const BmpFile gray{.width = 4, .bits = 8, .pixels = {7, 7, 7, 7}};
  EXPECT_EQ(Drawn(gray, RunLength).at(15), "\xFB\x07\xC7");
}

}  // namespace
}  // namespace vellumark::tests
