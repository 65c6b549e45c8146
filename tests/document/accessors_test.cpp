// SPDX-License-Identifier: MIT
#include <tuple>

#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class Accessors : public PdfTest {
 protected:
  using Font4 = std::tuple<int, int, int, int>;

  /// The font after SetFont with these four numbers.
  Font4 FontAfter(int number, int height, int style, int effect) {
    doc.SetFont(static_cast<FontNumberConstants>(number), static_cast<std::uint8_t>(height),
                static_cast<FontStyleConstants>(style), static_cast<FontEffectConstants>(effect));
    FontNumberConstants n{};
    std::uint8_t h = 0;
    FontStyleConstants s{};
    FontEffectConstants e{};
    doc.GetFont(n, h, s, e);
    return {static_cast<int>(n), h, static_cast<int>(s), static_cast<int>(e)};
  }
};

TEST_F(Accessors, TheNoticeIsShownOnConstruction) {
  EXPECT_EQ(memory->Notices(), std::vector<std::string>{"Vellumark: Initialize()"});
}

TEST_F(Accessors, APropertyGivesBackTheVeryTextThatWasSet) {
  const std::string text("日本 é €\0\xFF tail", 20);
  doc.Author(text);
  doc.Keywords(text);
  doc.SetDash(text);
  EXPECT_EQ(doc.Author(), text);
  EXPECT_EQ(doc.Keywords(), text);
  EXPECT_EQ(doc.GetDash(), text);
  EXPECT_EQ(doc.Version(), "1.2");
}

TEST_F(Accessors, SetFontReplacesWhatIsOutOfRange) {
  EXPECT_EQ(FontAfter(3, 100, 4, 5), Font4(3, 8, 4, 0));
  EXPECT_EQ(FontAfter(4, 12, 2, 0), Font4(4, 12, 1, 0));
  EXPECT_EQ(FontAfter(9, 12, 3, 1), Font4(1, 12, 1, 1)) << "the number as passed forces Regular";
  EXPECT_EQ(FontAfter(0, 12, 3, 1), Font4(1, 12, 3, 1)) << "one below Courier keeps the style";
  EXPECT_EQ(FontAfter(2, 7, 0, -1), Font4(2, 8, 1, 0));
  EXPECT_EQ(FontAfter(2, 72, 5, 2), Font4(2, 72, 1, 2));
}

TEST_F(Accessors, SettersIgnoreWhatTheyCannotTake) {
  Start(0);
  doc.SetThickness(7);
  doc.SetThickness(0);
  EXPECT_EQ(doc.GetThickness(), 7);

  doc.SetPictureDimensions(40, 30);
  doc.SetPictureDimensions(100, 0);
  doc.SetPictureDimensions(-1, 100);
  std::int16_t width = 0;
  std::int16_t height = 0;
  doc.GetPictureDimensions(width, height);
  EXPECT_EQ(std::tuple(width, height), std::tuple(40, 30));

  doc.SetPosition(100, 200);
  doc.SetPosition(-1, 50);
  EXPECT_EQ(At(), (Position{100, 50}));
  doc.SetPosition(596, 843);
  EXPECT_EQ(At(), (Position{100, 50})) << "one point beyond the page either way";
  doc.SetPosition(595, 842);
  EXPECT_EQ(At(), (Position{595, 842}));
}

TEST_F(Accessors, ANumberThatDoesNotFitIsRefusedWithItsRange) {
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  EXPECT_EQ(doc.LastRefusal().sentence,
            "no document is open, so there is no page; call Create first");
  Start();
  EXPECT_FALSE(doc.DrawLine(0, 0, 70000, 1));
  EXPECT_EQ(doc.LastRefusal().sentence, "a number is 70000, but it must be -32768 to 32767");
  EXPECT_FALSE(doc.WriteText("x", true, 300));
  EXPECT_EQ(doc.LastRefusal().sentence, "a number is 300, but it must be 0 to 255");
}

TEST_F(Accessors, AColorComesBackByteForByte) {
  Start();
  for (int byte = 0; byte < 256; ++byte) {
    const auto b = static_cast<std::uint8_t>(byte);
    doc.SetColor(b, 0, 255);
    std::uint8_t red = 1;
    std::uint8_t green = 1;
    std::uint8_t blue = 1;
    doc.GetColor(red, green, blue);
    ASSERT_EQ(std::tuple(red, green, blue), std::tuple(b, 0, 255));
  }
}

TEST_F(Accessors, BeforeCreateThereIsNoColorToRead) {
  std::uint8_t byte = 9;
  for (const auto read : {&Document::GetColor, &Document::GetFillColor, &Document::GetPageColor}) {
    try {
      (doc.*read)(byte, byte, byte);
      ADD_FAILURE() << "nothing was thrown";
    } catch (const RunTimeError& error) {
      EXPECT_EQ(error.number(), RunTimeError::SubscriptOutOfRange);
    }
  }
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  std::uint8_t green = 9;
  std::uint8_t blue = 9;
  doc.GetColor(byte, green, blue);
  EXPECT_TRUE(byte == 0 && green == 0 && blue == 0) << "the end of a page leaves a color: black";
}

TEST_F(Accessors, CreateResetsThePenButNotTheProperties) {
  Start();
  doc.Title("kept");
  doc.SetColor(1, 2, 3);
  doc.SetDash("3 2");
  doc.SetFillStyle(true);
  doc.SetThickness(9);
  doc.SetPictureDimensions(10, 10);
  doc.Flush();
  ASSERT_TRUE(doc.Create("doc"));
  std::uint8_t red = 9;
  std::uint8_t green = 9;
  std::uint8_t blue = 9;
  doc.GetColor(red, green, blue);
  std::int16_t box = 9;
  doc.GetPictureDimensions(box, box);
  EXPECT_EQ(std::tuple(red, green, blue, box), std::tuple(0, 0, 0, 0));
  EXPECT_EQ(std::tuple(doc.GetDash(), doc.GetFillStyle(), doc.GetThickness()),
            std::tuple("", false, 1));
  EXPECT_EQ(doc.Title(), "kept");
}

}  // namespace
}  // namespace vellumark::tests
