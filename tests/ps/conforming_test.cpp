// SPDX-License-Identifier: MIT
//
// What a conforming PostScript document does where a classic one has an oddity
// (oddities_test.cpp).
#include "platform/utf8.h"
#include "tests/bmp_file.h"
#include "tests/document_fixture.h"
#include "tests/png_file.h"
#include "tests/sample_picture.h"

namespace vellumark::tests {
namespace {

using enum OrientationConstants;

class ConformingPs : public PsTest {
 protected:
  ConformingPs() { doc.Conforming(true); }

  /// The lines of the last page between its setup and its footer or its end.
  Lines Marks() {
    const Lines lines = FlushedLines();
    const auto setup = std::find(lines.rbegin(), lines.rend(), "%%EndPageSetup");
    const auto end = std::find_if(setup.base(), lines.end(), [](const std::string& line) {
      return line.starts_with("F8 10 f") || line == "%%PageTrailer";
    });
    return {setup.base(), end};
  }

  /// What is between two comments.
  static Lines Between(const Lines& lines, std::string_view first, std::string_view last) {
    const auto begin = std::find(lines.begin(), lines.end(), first);
    const auto end = std::find(begin, lines.end(), last);
    return begin == end ? Lines() : Lines(begin + 1, end);
  }
};

TEST_F(ConformingPs, ConformingOnePageOfEverything) {
  doc.Author("Ada");
  doc.Title("Bücherei");
  Start(20);
  doc.DrawLine(0, 0, 100, 50);
  Font(FontNumberConstants::Times, 12);
  EXPECT_TRUE(doc.WriteText("a) Dvořák", true));
  ExpectFile("one_line_conforming_ps");
}

TEST_F(ConformingPs, ConformingAPageOpensWithItsNumberTwiceAndPutsBackWhatItSets) {
  Start(0);
  doc.NewPage(0, 0, 0, 0, 255, 0, 0);
  const Lines lines = FlushedLines();
  const auto second = std::find(lines.begin(), lines.end(), "%%Page: 2 2");
  ASSERT_NE(second, lines.end());
  EXPECT_EQ(Lines(second - 3, second), (Lines{"%%PageTrailer", "pgsave restore end", "showpage"}));
  EXPECT_EQ(Lines(second + 1, second + 8),
            (Lines{"%%BeginPageSetup", "Vellumark begin", "/pgsave save def", "%%EndPageSetup",
                   "1 0 0 C", "0 842 595 842 R", "fill"}));
  EXPECT_TRUE(Has(lines, "%%Pages: 2"));
}

TEST_F(ConformingPs, ConformingEveryPageTurnsItselfOnPaperThatFits) {
  struct Case {
    OrientationConstants orientation;
    bool rotated;
    const char* paper;
    const char* feature;
    const char* orientation_comment;
    const char* turn;
  };
  constexpr const char* kNamed = "%%BeginFeature: *PageSize A4";
  constexpr const char* kTurned = "%%BeginNonPPDFeature: PageSize";
  constexpr Case kCases[] = {
      {Portrait, false, "595 842", kNamed, "Portrait", "/pgsave save def"},
      {Portrait, true, "842 595", kTurned, "Landscape", "90 rotate 0 -842 translate"},
      {Landscape, false, "595 842", kNamed, "Landscape", "90 rotate 0 -595 translate"},
      {Landscape, true, "842 595", kTurned, "Portrait", "180 rotate -842 -595 translate"}};
  for (const Case& one : kCases) {
    doc.Orientation(one.orientation);
    doc.Rotated(one.rotated);
    Start(0);
    doc.NewPage(0, 0, 0, 0, 255, 255, 255);
    doc.Rotated(!one.rotated);  // fixed by Create
    const Lines lines = FlushedLines();
    const std::string paper = one.paper;
    EXPECT_TRUE(Has(lines, "%%BoundingBox: 0 0 " + paper));
    EXPECT_TRUE(Has(lines, "%%DocumentMedia: A4 " + paper + " 0 () ()"));
    EXPECT_TRUE(Has(lines, std::string("%%Orientation: ") + one.orientation_comment));
    EXPECT_TRUE(Has(lines, one.feature));
    EXPECT_TRUE(Has(lines, "<</PageSize[" + paper + "]>>setpagedevice"));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), one.turn), 2);
  }
}

TEST_F(ConformingPs, ConformingTextAndPropertiesAreLiteralAndADashIsNumbers) {
  doc.Title("a (b \\ éÿ");

  Start(0);
  EXPECT_TRUE(doc.WriteText(R"(\(x) \101)"));
  doc.SetDash("] 0 setdash quit");
  doc.DrawLine(0, 0, 10, 0);
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, R"(%%Title: (a \(b \\ \351\377))"));

  EXPECT_FALSE(Has(lines, "%%For: "));
  EXPECT_TRUE(Has(lines, R"((\\\(x\) \\101)0 834 T)"));
  EXPECT_TRUE(Has(lines, "[]D"));
  for (const char* const dash : {"1.2.3", "1234567890", ".", "0 0.0", "3 -1"}) {
    Start(0);
    doc.SetDash("3 2");
    doc.DrawLine(0, 0, 10, 0);
    doc.SetDash(dash);
    doc.DrawLine(0, 0, 10, 0);
    EXPECT_TRUE(Has(FlushedLines(), "[]D")) << dash << " is not a dash, so the line is solid";
  }
  doc.Title("a\tb\u200Bc \u015E\u4E2D");
  Start(0);
  EXPECT_TRUE(Has(FlushedLines(), "%%Title: a bc S?")) << "without what comments cannot have";
}

TEST_F(ConformingPs, ConformingWhatIsInForceIsNotWrittenAgainAndASolidLineIsSolid) {
  Start(0);
  doc.SetDash("3 2");
  doc.SetThickness(2);
  doc.DrawLine(0, 0, 10, 0);
  doc.SetFillStyle(true);
  doc.SetFillColor(255, 0, 0);
  doc.DrawRectangle(0, 0, 10, 20);
  doc.DrawCircle(50, 50, 9);
  doc.SetDash("");
  doc.SetColor(128, 128, 128);
  doc.SetFillStyle(false);
  doc.DrawCurve(10, 20, 30, 40, 50, 60);
  doc.DrawEllipse(50, 60, 0, 20);
  EXPECT_EQ(Marks(), (Lines{"2 W", "[3 2]D", "0 842 10 842 L", "1 0 0 H", "0 842 10 20 R", "B",
                            "50 792 9 O", "B", "0.502 G", "[]D", "30 802 50 782 10 822 V", "S",
                            "50 782 0 20 E", "S", "0 G"}));
}

TEST_F(ConformingPs, ConformingAnArcTurnsOnceMoreAtMost) {
  const auto angles = [&](float th1, float th2) {
    Start(0);
    EXPECT_TRUE(doc.DrawArc(100, 100, 50, th1, th2));
    return Marks().at(0);
  };
  EXPECT_EQ(angles(0, 90), "100 742 50 0 90 A");
  EXPECT_EQ(angles(90, 0), "100 742 50 90 360 A");
  EXPECT_EQ(angles(90.5F, 90), "100 742 50 90.5 450 A");
  EXPECT_EQ(angles(0, 360), "100 742 50 0 360 A");
  EXPECT_EQ(angles(360, 0), "100 742 50 0 0 A");
  EXPECT_EQ(angles(-22.25F, 45.5F), "100 742 50 337.75 405.5 A");
  EXPECT_EQ(angles(-3600, 1e9F), "100 742 50 0 640 A");
  EXPECT_EQ(angles(1e9F, -3600), "100 742 50 280 360 A");
  EXPECT_FALSE(doc.DrawArc(100, 100, 50, 0, std::numeric_limits<float>::infinity()));
}

TEST_F(ConformingPs, ConformingFontsAreDeclaredWithTheCodesThatAreUsed) {
  Start(0);
  Font(FontNumberConstants::Helvetica, 9, FontStyleConstants::Bold);
  EXPECT_TRUE(doc.WriteText("été Größe", true));
  EXPECT_TRUE(doc.WriteText("Łódź", true));
  EXPECT_TRUE(doc.WriteMultiText("a (\u00FC) a", 0, kNoAlignment, true, 25));  // two lines
  Font(FontNumberConstants::Symbol, 9);
  EXPECT_TRUE(doc.WriteText("abc", true));
  const Lines lines = FlushedLines();
  const auto needed = std::find(lines.begin(), lines.end(), "%%EndComments") - 3;
  EXPECT_EQ(Lines(needed, needed + 3), (Lines{"%%DocumentNeededResources: font Helvetica-Bold",
                                              "%%+ font Times-Roman", "%%+ font Symbol"}));
  const Lines setup = Between(lines, "%%EndFeature", "%%EndSetup");
  EXPECT_EQ(
      setup,
      (Lines{"Vellumark begin", "%%IncludeResource: font Helvetica-Bold",
             "/F5/Vellumark-F5/Helvetica-Bold StandardEncoding",
             "{39/quotesingle 238 96/grave 333 223/germandbls 611 233/eacute 556",
             "246/odieresis 611 252/udieresis 611}N",
             "/F19/Vellumark-F19/Helvetica-Bold StandardEncoding",
             "{39/quotesingle 238 96/grave 333 159/zacute 500 163/Lslash 611 243/oacute 611}N",
             "%%IncludeResource: font Times-Roman", "/F8/Vellumark-F8/Times-Roman StandardEncoding",
             "{39/quotesingle 180 96/grave 333}N", "%%IncludeResource: font Symbol",
             "/F12/Vellumark-F12/Symbol null", "{}N", "end"}));
}

TEST_F(ConformingPs, ConformingTheCodesOfAFontFillLinesOf80Characters) {
  Start(0);
  Font(FontNumberConstants::Helvetica, 9);
  std::string letters;
  for (char32_t letter = 0xA1; letter < 0x100; ++letter) platform::AppendUtf8(letter, letters);
  EXPECT_TRUE(doc.WriteText(letters, true));
  const Lines setup = Between(FlushedLines(), "/F4/Vellumark-F4/Helvetica StandardEncoding",
                              "/F18/Vellumark-F18/Helvetica StandardEncoding");
  ASSERT_GT(setup.size(), 15U);
  for (std::size_t i = 0; i + 1 < setup.size(); ++i) {
    const std::string& next = setup[i + 1];
    const std::size_t word = next.find_first_of(" }", next.find(' ') + 1);  // "161/exclamdown 333"
    EXPECT_LE(setup[i].size(), 80U);
    EXPECT_GT(setup[i].size() + 1 + word, 80U) << setup[i];
  }
}

TEST_F(ConformingPs, ConformingTheWordsOfAJustifiedLineAreOneCall) {
  Start(0);
  Font(FontNumberConstants::Courier, 10);
  EXPECT_TRUE(doc.WriteMultiText("aa bb cc dddd", 0, kNoAlignment, true, 55));
  EXPECT_EQ(Marks(), (Lines{"F0 10 f", "{0(aa )22(bb )43(cc)}832 J", "(dddd)0 822 T"}));
}

TEST_F(ConformingPs, ConformingNoLineIsLongHoweverManyWordsItHas) {
  Start(0);
  Font(FontNumberConstants::Times, 8);
  std::string text;
  for (int i = 0; i < 500; ++i) text += i % 7 == 0 ? "\xC3\xA9( " : "i ";
  EXPECT_TRUE(doc.WriteMultiText(text, 0, kNoAlignment, true));
  std::string escaped;
  for (int i = 0; i < 200; ++i) escaped += "(i) ";
  EXPECT_TRUE(doc.WriteMultiText(escaped, 0, kNoAlignment, true));
  EXPECT_TRUE(doc.WriteText(std::string(250, '|'), true));
  for (const std::string& line : FlushedLines()) EXPECT_LE(line.size(), 250U) << line;
}

TEST_F(ConformingPs, ConformingALineOfWordsIsAsLongAsItMayBe) {
  Start(0);
  Font(FontNumberConstants::Times, 8);
  std::string text;
  for (std::size_t i = 0; i < 2000; ++i) text += std::string(1 + i * i % 3, 'i') + " ";
  // A string of several lines, behind which the words go on.
  for (int i = 0; i < 60; ++i) text += "\u00E9";
  for (int i = 0; i < 200; ++i) text += " i";
  EXPECT_TRUE(doc.WriteMultiText(text, 0, kNoAlignment, true));
  const auto string_size = [](const std::string& line, std::size_t at) {
    return line.find(')', at) + 1 - line.find('(', at);
  };
  const Lines lines = Marks();
  int ends = 0;
  for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
    if (!lines[i].ends_with(')') || lines[i + 1].ends_with('\\')) continue;
    ++ends;
    // A place may take 6 bytes.
    EXPECT_GT(lines[i].size() + 6 + string_size(lines[i + 1], 0), 240U) << lines[i];
    const std::size_t last = lines[i].find_last_of(')', lines[i].size() - 2) + 1;
    EXPECT_LE(last + 6 + string_size(lines[i], last), 240U) << lines[i];
  }
  EXPECT_GT(ends, 20);
}

TEST_F(ConformingPs, ConformingPictureDataAreLinesOfTextReadToTheirEnd) {
  const BmpFile gray{.width = 4, .bits = 8, .pixels = {7, 7, 7, 7}};
  memory->PutFile("picture", gray.Bytes());
  const auto end_of = [&](EncodingConstants encoding) {
    Start(20);
    EXPECT_TRUE(doc.DrawPicture("picture", kNoAlignment, encoding));
    const Lines lines = Marks();
    return Lines(lines.end() - 2, lines.end());
  };
  using enum EncodingConstants;
  EXPECT_EQ(end_of(ASCIIHex), (Lines{">>{}/ASCIIHexDecode I", "07070707>"}));
  EXPECT_EQ(end_of(ASCII85), (Lines{">>{}/ASCII85Decode I", "#6tJ=~>"}));
  EXPECT_EQ(end_of(RunLength).front(), ">>{/RunLengthDecode filter}/ASCII85Decode I");
  EXPECT_TRUE(Has(FlushedLines(), "%%LanguageLevel: 2"));
  EXPECT_EQ(end_of(Flate).front(), ">>{/FlateDecode filter}/ASCII85Decode I");
  EXPECT_TRUE(Has(SplitLines(*memory->File("doc"), "\n"), "%%LanguageLevel: 3"));
  for (const int bits : {8, 24}) {
    memory->PutFile("picture", SlopedBmp(64, bits).Bytes());
    Start(20);
    EXPECT_TRUE(doc.DrawPicture("picture", kNoAlignment, Flate));
    EXPECT_TRUE(Has(Marks(), ">>{<</Predictor 15/Colors " + std::to_string(bits / 8) +
                                 "/BitsPerComponent 8/Columns 64>>/FlateDecode filter}"
                                 "/ASCII85Decode I"))
        << bits;
  }
  for (const auto& [name, decode] :
       {std::pair("landscape_cmyk.jpg", "[1 0 1 0 1 0 1 0]"),
        std::pair("landscape_gray.jpg", "[0 1]"), std::pair("landscape.jpg", "[0 1 0 1 0 1]")}) {
    memory->PutFile("picture", Sample(name));
    Start(20);
    EXPECT_TRUE(doc.DrawPicture("picture", kNoAlignment, Original));
    EXPECT_TRUE(Has(Marks(), std::string("  /Decode ") + decode)) << name;
  }
  memory->PutFile("deep", BmpFile{.bits = 32, .pixels = {1, 2, 3, 4}}.Bytes());
  Start(20);
  EXPECT_TRUE(doc.DrawPicture("deep", kNoAlignment, ASCIIHex));
  EXPECT_EQ(Marks().back(), "030201>");
  const PngFile glass{.width = 2, .colors = 4, .rows = {100, 255, 100, 0}};
  memory->PutFile("glass", glass.Bytes());
  Start(20);
  EXPECT_TRUE(doc.DrawPicture("glass", kNoAlignment, ASCIIHex));
  EXPECT_EQ(Marks().back(), "646464FFFFFF>") << "the page shows through";
}

TEST_F(ConformingPs, ConformingAShapeBeforeTheFirstPageIsRefused) {
  ASSERT_TRUE(doc.Create("doc"));
  EXPECT_FALSE(doc.DrawLine(0, 0, 1, 1));
  EXPECT_EQ(Why(), RefusalReason::NoPage);
  EXPECT_FALSE(doc.DrawRectangle(0, 0, 1, 1));
  EXPECT_FALSE(doc.DrawCircle(1, 1, 1));
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "%%Pages: 1")) << "an empty one";
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "%%Page: 1 1"), 1);
}

TEST_F(ConformingPs, ConformingACallThatIsTakenBackLeavesNothingInForce) {
  const auto written = [&](bool refused) {
    Start();
    Font(FontNumberConstants::Times, 12);
    doc.SetColor(255, 0, 0);
    doc.SetDash("4 1");
    if (refused) {
      Font(FontNumberConstants::Helvetica, 40);
      doc.SetColor(0, 0, 255);
      doc.SetDash("9 9");
      EXPECT_FALSE(doc.WriteMultiText("ě" + std::string(20, 'x') + " " + std::string(90, 'x')));
      Font(FontNumberConstants::Times, 12);
      doc.SetColor(255, 0, 0);
      doc.SetDash("4 1");
    }
    doc.WriteText("text", true);
    doc.DrawLine(0, 0, 1, 1);
    doc.Flush();
    return *memory->File("doc");
  };
  EXPECT_EQ(written(true), written(false));
}

TEST_F(ConformingPs, ConformingACreateThatFailsLeavesTheOpenFile) {
  Start(0);
  EXPECT_FALSE(doc.Create("doc"));
  EXPECT_TRUE(Has(FlushedLines(), "%%Pages: 1"));
}

}  // namespace
}  // namespace vellumark::tests
