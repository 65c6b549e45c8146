// SPDX-License-Identifier: MIT
//
// Documents with loaded fonts. The widths of the test font are those of make_fonts.py.
#include "document/glyph_use.h"
#include "platform/utf8.h"
#include "tests/document_fixture.h"
#include "tests/fonts/test_font.h"

namespace vellumark::tests {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using enum FontNumberConstants;

class FontsTest : public ConformingPdfTest {
 protected:
  FontNumberConstants Load(const FontBytes& font = TestFont()) { return doc.LoadFont(font); }

  /// A page in the test font.
  void BeginAt(std::uint8_t height) {
    const FontNumberConstants number = Load();
    Start();
    Font(number, height);
  }

  /// The one text of the page, of which nothing else is expected.
  std::string ShownAs(std::string_view text) {
    EXPECT_TRUE(doc.WriteText(text)) << doc.LastRefusal().sentence;
    std::string shown;
    for (const std::string& line : Marks()) {
      if (line.ends_with("TJ") || line.ends_with("Ts") || line.ends_with("C")) shown += line + '\n';
    }
    return shown;
  }

  [[nodiscard]] bool FileHas(std::string_view text) {
    return memory->File("doc")->find(text) != std::string::npos;
  }
};

class PsFontsTest : public DocumentTest<PS> {};

TEST_F(FontsTest, NumbersCountFrom101AndStayOverCreateInConformingDocumentsOnly) {
  EXPECT_EQ(static_cast<int>(Load()), 101);
  EXPECT_EQ(static_cast<int>(Load(TestFont("boxes.otf"))), 102);
  for (const bool conforming : {true, false, true}) {
    doc.Conforming(conforming);
    ASSERT_TRUE(doc.Create("doc"));
    FontNumberConstants number{};
    std::uint8_t height = 0;
    FontStyleConstants style{};
    FontEffectConstants effect{};
    Font(static_cast<FontNumberConstants>(102), 12, FontStyleConstants::Bold);
    doc.GetFont(number, height, style, effect);
    EXPECT_EQ(static_cast<int>(number), conforming ? 102 : 1);
    EXPECT_EQ(style, FontStyleConstants::Regular);
    Font(static_cast<FontNumberConstants>(103), 12);
    doc.GetFont(number, height, style, effect);
    EXPECT_EQ(number, Courier);
    doc.Flush();
  }
}

TEST_F(FontsTest, WhatIsNotTakenIsToldWhy) {
  const auto expect = [&](const FontBytes& font, int index, const std::string& reason) {
    EXPECT_EQ(static_cast<int>(doc.LoadFont(font, static_cast<std::int16_t>(index))), 0);
    EXPECT_EQ(Why(), RefusalReason::FontNotLoaded);
    const std::string sentence = doc.LastRefusal().sentence;
    EXPECT_TRUE(sentence.ends_with(": " + reason)) << sentence;
  };
  expect({}, 0, "it is not a TrueType or OpenType font");
  expect(FontBytes(5000, 'x'), 0, "it is not a TrueType or OpenType font");
  expect(TestFont(), 1, "it has 1 face, so the index must be 0");
  expect(TestFont(), -1, "it has 1 face, so the index must be 0");
  FontBytes cut = TestFont();
  cut.resize(TableAt(cut, "glyf") + 10);
  expect(cut, 0, "it is damaged: its outlines are cut off");
  const auto with_license = [](int bits) {
    FontBytes font = TestFont();
    font[TableAt(font, "OS/2") + 8] = static_cast<std::uint8_t>(bits >> 8);
    font[TableAt(font, "OS/2") + 9] = static_cast<std::uint8_t>(bits & 0xFF);
    return font;
  };
  expect(with_license(0x002), 0, "its license bits forbid embedding");
  expect(with_license(0x204), 0, "its license bits forbid embedding");
  expect(with_license(0x108), 0, "its license bits forbid to embed a part of it");
  for (const int bits : {0x004, 0x008, 0x006}) EXPECT_NE(int(Load(with_license(bits))), 0) << bits;
  EXPECT_EQ(static_cast<int>(doc.LoadFont("missing.ttf")), 0);
  EXPECT_EQ(doc.LastRefusal().sentence,
            "the font cannot be loaded: missing.ttf: No such file or directory");
  EXPECT_FALSE(doc.AddFallbackFont(Times));
  EXPECT_EQ(Why(), RefusalReason::FontUnknown);
}

TEST_F(FontsTest, WidthsAreThoseOfTheShapedText) {
  BeginAt(20);
  EXPECT_EQ(doc.TextWidth("AB"), 20);
  EXPECT_EQ(doc.TextWidth("AV"), 18);       // kerned
  EXPECT_EQ(doc.TextWidth("fi"), 16);       // a ligature
  EXPECT_EQ(doc.TextWidth("A\u0301"), 10);  // a mark
  EXPECT_EQ(doc.TextWidth("A\tB"), 25);
  EXPECT_TRUE(doc.WriteText("AV"));
  EXPECT_EQ(At(), (Position{18, 0}));
  EXPECT_FALSE(doc.WriteText(std::string(100, 'A')));
  EXPECT_EQ(Why(), RefusalReason::TextTooWide);
  // From the current position, lower by the heights of three lines.
  EXPECT_EQ(doc.TextHeight("A B A B A B", 0, 25), 60);
  Font(static_cast<FontNumberConstants>(101), 10);
  EXPECT_EQ(doc.TextHeight("A A A A A A", 0, 12), 30) << "12.5 points are rounded to even";
}

TEST_F(FontsTest, KerningMarksAndLigaturesAreCodesAndMoves) {
  BeginAt(10);
  // A, V, blank, A, and the mark 200 to the left of where A ends and 100 higher, fi.
  EXPECT_EQ(ShownAs("AV A\u0301 fi"),
            "[(\0\1)100(\0\2\0\3)]TJ\n/Span<</ActualText(\xFE\xFF\0A\3\1)>>BDC\n[(\0\1)]TJ\n1 Ts\n"
            "[500(\0\4)]TJ\nEMC\n0 Ts\n[-500(\0\3\0\5)]TJ\n"sv);
}

TEST_F(FontsTest, AGlyphOfSeveralGivesBackItsOwnCharacter) {
  BeginAt(10);
  ShownAs("A\u0301");
  EXPECT_TRUE(FileHas("<0001> <0041>"));
  EXPECT_TRUE(FileHas("<0002> <0301>"));
}

TEST_F(FontsTest, TextIsGivenBackByCodesOrBySpans) {
  BeginAt(10);
  const std::string shown = ShownAs("fi A\u00A0B A B");
  // The blank stands for itself from its first use on; a word with another one is a span.
  EXPECT_NE(shown.find("/Span<</ActualText(\xFE\xFF\0A\0\xA0\0B)>>BDC"sv), std::string::npos)
      << shown;
  EXPECT_TRUE(FileHas("<0001> <00660069>"));
  EXPECT_TRUE(FileHas("<0002> <0020>"));
  EXPECT_TRUE(FileHas("%PDF-1.5"));
}

TEST_F(FontsTest, FallbacksShowWhatTheCurrentFontLacks) {
  const FontNumberConstants boxes = Load();
  Start();
  Font(Helvetica, 10);
  EXPECT_TRUE(doc.WriteText("\u0431", true));
  EXPECT_EQ(doc.LostCharacters(), "\u0431");
  ASSERT_TRUE(doc.AddFallbackFont(boxes));
  EXPECT_EQ(doc.TextWidth("\u0431\u0431"), 10);
  EXPECT_TRUE(doc.WriteText("a \u0431\u044B"));
  for (const FontNumberConstants built_in : {Symbol, ZapfDingbats}) {
    Font(built_in, 10);
    EXPECT_TRUE(doc.WriteText("\u0431\u2660"));
  }
  EXPECT_EQ(doc.LostCharacters(), "\u0431\u044B");  // the second one nobody has
  doc.Footer("\u0431 {page}");
  doc.Flush();
  EXPECT_EQ(Why(), RefusalReason::None);
  EXPECT_TRUE(FileHas("/F101 10 Tf\n[(\0\1)]TJ"sv));
  EXPECT_TRUE(FileHas("[( 1)]TJ"));
}

TEST_F(FontsTest, AnEmptyParagraphIsALine) {
  BeginAt(10);
  for (const char* const text : {"", " ", "A"}) {
    const int before = At().y;
    EXPECT_EQ(doc.TextHeight(text), 10) << text;
    EXPECT_TRUE(doc.WriteMultiText(text));
    EXPECT_EQ(At().y, before + 10) << text;
  }
}

TEST_F(FontsTest, WhatNoFontHasIsAQuestionMark) {
  BeginAt(10);
  EXPECT_EQ(ShownAs("\u044B"), "[(\0\1)]TJ\n"sv);
  EXPECT_TRUE(FileHas("<0001> <003F>")) << "and is given back as one";
  EXPECT_EQ(doc.LostCharacters(), "\u044B");
  BeginAt(10);
  EXPECT_EQ(ShownAs("\u044B\u044D"), "[(\0\1\0\1)]TJ\n"sv);
}

TEST_F(FontsTest, RightToLeftTextIsShownFromItsEndAndStandsAtTheRight) {
  BeginAt(10);
  EXPECT_TRUE(doc.WriteMultiText("\u05D0\u05D1 (\u05D0) \u05D0\u05D1", 0, kNoAlignment, false, 50));
  const Lines marks = Marks();
  // bet alef, (alef), bet alef: 12, 16 and 12 points, and two blanks of 2.5 between them.
  EXPECT_TRUE(Has(marks, "[(\0\1\0\2\0\3\0\4\0\2\0\5\0\3\0\1\0\2)]TJ"sv)) << marks.back();
  EXPECT_TRUE(Has(marks, "55 782 TD")) << marks.back();
}

TEST_F(FontsTest, WordsOfBothDirectionsStandInTheirOrder) {
  BeginAt(10);
  // From the left: A, bet alef, alef, B.
  EXPECT_EQ(ShownAs("A \u05D0 \u05D0\u05D1 B "),
            "[(\0\1\0\2)]TJ\n[(\0\3\0\4\0\2\0\4)]TJ\n[(\0\2)]TJ\n[(\0\5\0\2)]TJ\n"sv);
  BeginAt(10);
  // The first letter is one from right to left: A, alef, bet alef.
  EXPECT_EQ(ShownAs("\u05D0\u05D1 \u05D0 A"), "[(\0\1)]TJ\n[(\0\2\0\3\0\2\0\4\0\3)]TJ\n"sv);
}

TEST_F(FontsTest, SignsThatOnlyAStandardFontHasAreTurnedAroundToo) {
  const FontNumberConstants boxes = Load();
  Start();
  Font(Times, 10);
  ASSERT_TRUE(doc.AddFallbackFont(boxes));
  EXPECT_TRUE(doc.WriteText("\u05D0\u00AB\u05D1", true));
  // The blanks of 2.5 points grow.
  ASSERT_TRUE(doc.WriteMultiText("\u05D0 \u00AB \u05D0 \u05D0 \u05D0", 0, kNoAlignment, true, 30));
  const Lines marks = Marks();
  EXPECT_EQ(std::count(marks.begin(), marks.end(), "[(\xBB)]TJ"), 2) << "the sign is mirrored";
}

TEST_F(FontsTest, ALineFromRightToLeftWithoutABlankGrowsWhereItCouldEnd) {
  const FontNumberConstants boxes = Load();
  Start();
  Font(Times, 10);
  ASSERT_TRUE(doc.AddFallbackFont(boxes));
  // Three letters of 6 and two dashes of 10 points; lines may end on both sides of a dash.
  ASSERT_TRUE(
      doc.WriteMultiText("\u05D0\u2014\u05D0\u2014\u05D0\u2014\u05D0", 0, kNoAlignment, true, 42));
  const Lines marks = Marks();
  const auto letter = std::find(marks.begin(), marks.end(), "[(\0\1)]TJ"sv);
  EXPECT_EQ(Lines(letter, letter + 9),
            (Lines{"[(\0\1)]TJ"s, "/F8 10 Tf", "[-100(\x97)]TJ", "/F101 10 Tf", "[-100(\0\1)]TJ"s,
                   "/F8 10 Tf", "[-100(\x97)]TJ", "/F101 10 Tf", "[-100(\0\1)]TJ"s}));
}

TEST_F(FontsTest, ALetterOfEachScriptFromRightToLeftDecidesTheDirection) {
  const FontNumberConstants boxes = Load();
  for (const std::string letter :
       {"\u05D0", "\u07C0", "\uFB1D", "\uFE8D", "\U00010800", "\U0001E900"}) {
    Start();
    Font(boxes, 10);
    EXPECT_TRUE(doc.WriteMultiText(letter + " A", 0, kNoAlignment, false, 100));
    const Lines marks = Marks();
    // A, the blank and the letter, which but for alef is "?", end at the right edge.
    EXPECT_TRUE(Has(marks, letter == "\u05D0" ? "136 782 TD" : "138 782 TD"))
        << letter << marks.back();
  }
}

TEST_F(FontsTest, InvisibleCharactersBelongToTheLettersBeforeThem) {
  BeginAt(11);
  EXPECT_EQ(doc.TextWidth("A"), 6) << "5.5 points, to even";
  doc.Flush();
  BeginAt(10);
  EXPECT_EQ(doc.TextWidth("\u200DA\u00ADB\u200C\u044B"), 15);
  EXPECT_EQ(ShownAs("A\u00ADB"), "[(\0\1\0\2)]TJ\n"sv);
  EXPECT_EQ(doc.LostCharacters(), "");
  BeginAt(10);
  EXPECT_EQ(ShownAs("A\u200B A"), "[(\0\1\0\2\0\1)]TJ\n"sv) << "both are the text A";
  BeginAt(10);
  EXPECT_EQ(ShownAs("A\u200B A\u200CB \u044B\u200D"),
            "[(\0\1\0\2)]TJ\n/Span<</ActualText(\xFE\xFF\0A\x20\x0C\0B)>>BDC\n[(\0\1\0\3)]TJ\nEMC\n"
            "[(\0\2)]TJ\n[(\0\4)]TJ\n"sv);
  EXPECT_EQ(doc.LostCharacters(), "\u044B");
}

TEST_F(FontsTest, MoreWordsThanAreRememberedAreMeasuredAlike) {
  BeginAt(10);
  for (int round = 0; round < 2; ++round) {
    for (int word = 10000; word < 30000; ++word) {
      ASSERT_EQ(doc.TextWidth(std::to_string(word)), 25) << word;
    }
  }
}

TEST_F(FontsTest, EveryCharacterOfUnicodeIsShapedAndBroken) {
  BeginAt(10);
  constexpr char32_t kPiece = 512;
  for (char32_t first = 0; first < 0x110000; first += kPiece) {
    std::string text = "A ";
    for (char32_t c = first; c < first + kPiece; ++c) {
      if (c % 32 == 0) text += ' ';
      platform::AppendUtf8(c < 0xD800 || c > 0xDFFF ? c : U'B', text);
    }
    EXPECT_GT(doc.TextHeight(text, 0, 400), 0) << std::hex << static_cast<std::uint32_t>(first);
  }
  // Two letters of a flag stay together, and a line may end between flags.
  EXPECT_EQ(doc.TextHeight("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7", 0, 10), 20);
}

TEST_F(FontsTest, AnObjectHas1000FontsAtMost) {
  const FontBytes font = TestFont();
  for (int i = 0; i < 1000; ++i) ASSERT_NE(static_cast<int>(Load(font)), 0);
  EXPECT_EQ(static_cast<int>(Load(font)), 0);
  EXPECT_NE(doc.LastRefusal().sentence.find("1000 fonts"), std::string::npos);
  ASSERT_TRUE(doc.AddFallbackFont(static_cast<FontNumberConstants>(1100)));
  EXPECT_FALSE(doc.AddFallbackFont(static_cast<FontNumberConstants>(1101)));
}

TEST_F(FontsTest, ChineseLinesEndBetweenCharactersButNotBeforeAFullStop) {
  BeginAt(10);
  EXPECT_EQ(doc.TextHeight("\u6F22\u5B57\u6F22\u5B57\u6F22", 0, 20), 30);
  EXPECT_EQ(doc.TextHeight("\u6F22\u5B57\u3002\u6F22", 0, 20), 30);
  EXPECT_EQ(doc.TextHeight("\u6F22\u5B57\u3002", 0, 20), 20);
  EXPECT_EQ(doc.TextHeight("", 0, 20), 10);
  EXPECT_EQ(doc.TextHeight("\u6F22\u5B57", 0, 9), 0);
  EXPECT_EQ(Why(), RefusalReason::WordTooWide);
}

TEST_F(FontsTest, JustifiedLinesFillTheirWidthByTheBlanks) {
  BeginAt(10);
  ASSERT_TRUE(doc.WriteMultiText("A A A A A", 0, kNoAlignment, true, 30));
  const Lines marks = Marks();
  // 4 letters and 3 blanks are 2,750 of 3,000 thousandths.
  EXPECT_TRUE(Has(marks, "[(\0\1\0\2)-83(\0\1\0\2)-83(\0\1\0\2)-84(\0\1)]TJ"sv));
  EXPECT_TRUE(Has(marks, "[(\0\1)]TJ"sv));
}

TEST_F(FontsTest, JustifiedLinesWithoutABlankGrowBetweenCharacters) {
  BeginAt(10);
  ASSERT_TRUE(doc.WriteMultiText("\u6F22\u5B57\u6F22\u5B57", 0, kNoAlignment, true, 36));
  // Three characters are 3,000 of 3,600 thousandths, with two gaps between them.
  EXPECT_TRUE(Has(Marks(), "[(\0\1)-300(\0\2)-300(\0\1)]TJ"sv)) << Marks().back();
  doc.Flush();
  BeginAt(10);
  ASSERT_TRUE(doc.WriteMultiText("\u6F23\u6F24\u6F25\u6F26", 0, kNoAlignment, true, 17));
  EXPECT_EQ(doc.LostCharacters(), "\u6F23\u6F24\u6F25\u6F26");
  EXPECT_TRUE(Has(Marks(), "[(\0\1)-100(\0\1)-100(\0\1)]TJ"sv)) << "what is lost, too";
}

TEST_F(FontsTest, ARefusedTextLeavesNoGlyph) {
  std::string files[2];
  const FontNumberConstants boxes = Load();
  for (const bool refused : {false, true}) {
    Start();
    Font(boxes, 10);
    EXPECT_TRUE(doc.WriteText("AB", true));
    if (refused) {
      EXPECT_FALSE(doc.WriteMultiText("XYZ " + std::string(200, 'W')));
    }
    doc.Flush();
    files[refused ? 1 : 0] = *memory->File("doc");
  }
  EXPECT_EQ(files[0], files[1]);
}

TEST_F(FontsTest, BothKindsOfOutlinesAreEmbedded) {
  doc.Compressed(true);
  const FontNumberConstants fonts[] = {Load(), Load(TestFont("boxes.otf"))};
  std::string first;
  for (int round = 0; round < 2; ++round) {
    Start();
    for (const FontNumberConstants font : fonts) {
      Font(font, 12);
      EXPECT_TRUE(doc.WriteText("BOX fi", true));
    }
    doc.Flush();
    EXPECT_EQ(Why(), RefusalReason::None) << doc.LastRefusal().sentence;
    if (round == 0) first = *memory->File("doc");
  }
  EXPECT_EQ(*memory->File("doc"), first);
  for (const char* const part :
       {"/FontFile2 ", "/FontFile3 ", "/Length1 ", "/Subtype /CIDFontType0C", "/CIDToGIDMap ",
        "+Boxes-Regular", "/W [ 0 [ 500", "%PDF-1.4\n"}) {
    EXPECT_TRUE(FileHas(part)) << part;
  }
}

TEST_F(FontsTest, TheDescriptorSaysWhatTheFontSays) {
  struct Change {
    std::string_view table;
    std::size_t at;
    int value;  // 16 bits
    const char* expected;
  };
  for (const Change& change : {
           Change{"post", 12, 0,
                  "/Flags 4\n/FontBBox [ 50 0 950 839 ]\n/ItalicAngle 0\n/Ascent 800\n"},
           Change{"post", 12, 1, "/Flags 5\n"},
           Change{"post", 4, -12, "/Flags 68\n"},
           Change{"post", 4, 1, "/Flags 68\n"},
           Change{"post", 4, -12, "/ItalicAngle -12\n"},
           Change{"post", 4, -46, "/ItalicAngle -45\n"},
           Change{"hhea", 6, -250, "/Ascent 800\n/Descent -250\n/CapHeight 700\n/StemV 87\n"},
           Change{"OS/2", 0, 1, "/CapHeight 600\n"},
           Change{"OS/2", 88, 0, "/CapHeight 600\n"},
           Change{"OS/2", 4, 700, "/StemV 165\n"},
           Change{"OS/2", 4, 1, "/StemV 52\n"},
       }) {
    FontBytes font = TestFont();
    const std::size_t at = TableAt(font, change.table) + change.at;
    font[at] = static_cast<std::uint8_t>(change.value >> 8);
    font[at + 1] = static_cast<std::uint8_t>(change.value);
    const FontNumberConstants number = Load(font);
    Start();
    Font(number, 12);
    EXPECT_TRUE(doc.WriteText("BOX"));
    doc.Flush();
    EXPECT_TRUE(FileHas(change.expected)) << change.expected;
    const std::string& file = *memory->File("doc");
    const std::size_t tag_end = file.find("+Boxes-Regular");
    EXPECT_EQ(tag_end - file.rfind('/', tag_end), 1U + 6) << "a tag has six letters";
  }
}

/// 300 letters of a font with many.
template <class AnyDocument>
std::string FileOfManyLetters() {
  const auto memory = std::make_shared<MemoryPlatform>();
  AnyDocument doc(memory);
  doc.Conforming(true);
  if constexpr (std::is_same_v<AnyDocument, PDF>) doc.Compressed(false);
  doc.Create("doc");
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  doc.SetFont(doc.LoadFont(TestFont("DejaVuSans.ttf", "/usr/share/fonts/truetype/dejavu/")), 10,
              FontStyleConstants::Regular, FontEffectConstants::NoFontEffect);
  for (char32_t letter = 0x100; letter < 0x100 + 300; ++letter) {
    std::string text;
    platform::AppendUtf8(letter, text);
    doc.SetPosition(0, 0);
    EXPECT_TRUE(doc.WriteText(text)) << doc.LastRefusal().sentence;
  }
  doc.Flush();
  EXPECT_EQ(doc.LostCharacters(), "");
  return *memory->File("doc");
}

TEST(ManyGlyphs, CodesAndGlyphNumbersHaveTwoBytes) {
  EXPECT_EQ(document::GlyphNumbers({.bytes = {}, .glyph_of_code = {0, 1, 0x1FF, 0xABCD}}),
            (std::vector<std::uint8_t>{0, 0, 0, 1, 1, 0xFF, 0xAB, 0xCD}));
  const std::string pdf = FileOfManyLetters<PDF>();
  EXPECT_NE(pdf.find("[(\x01\x2C)]TJ"), std::string::npos) << "the three hundredth";
  EXPECT_NE(pdf.find("<012C> <022B>"), std::string::npos);
  EXPECT_NE(pdf.find(std::string("\nstream\n\0\0\0", 11)), std::string::npos)
      << "code 0 is the glyph of no character, 0";
  const std::string ps = FileOfManyLetters<PS>();
  EXPECT_NE(ps.find("<012C>"), std::string::npos);
}

TEST_F(PsFontsTest, TheFontsAreDeclaredInTheSetup) {
  doc.Conforming(true);
  const FontNumberConstants number = doc.LoadFont(TestFont());
  ASSERT_TRUE(doc.AddFallbackFont(doc.LoadFont(TestFont("boxes.otf"))));
  Start();
  Font(number, 10);
  EXPECT_TRUE(doc.WriteText("AV", true));
  EXPECT_TRUE(doc.WriteText("A\u0301 fi", true));
  doc.Flush();
  const Lines lines = SplitLines(*memory->File("doc"), "\n");
  EXPECT_TRUE(Has(lines, "%%LanguageLevel: 3"));
  const auto kerned = std::find(lines.begin(), lines.end(), "[<0001>-1<0002>]K");
  ASSERT_NE(kerned, lines.end());
  // The mark is 200 to the left of where its letter ends, and 100 higher.
  EXPECT_EQ(Lines(kerned + 1, kerned + 7),
            (Lines{"50 772 moveto", "[<0001>]K", "0 1 rmoveto", "[-5<0003>]K", "0 -1 rmoveto",
                   "[5<00040005>]K"}));
  const auto map = std::find(lines.begin(), lines.end(), "/CIDMap[");
  ASSERT_NE(map, lines.end());
  EXPECT_EQ(Lines(map + 1, map + 3), (Lines{"<~!!!!#!!<3)!!*'&~>", "]def"}))
      << "A, V, mark, blank and fi are 2, 3, 5, 1 and 4 in the font's order";
  EXPECT_EQ(
      std::count_if(lines.begin(), lines.end(),
                    [](const std::string& line) { return line.starts_with("%%BeginResource: "); }),
      1);  // the fallback shows nothing
}

TEST(DamagedFonts, CutAndTurnedBitsDoNoHarm) {
  for (const char* const name : {"boxes.ttf", "boxes.otf"}) {
    const FontBytes whole = TestFont(name);
    const auto try_it = [](const FontBytes& font) {
      PDF doc(std::make_shared<MemoryPlatform>());
      doc.Conforming(true);
      const FontNumberConstants number = doc.LoadFont(font);
      doc.AddFallbackFont(number);
      doc.Create("doc");
      doc.NewPage(50, 50, 50, 50, 255, 255, 255);
      doc.SetFont(number, 12, {}, {});
      doc.WriteText("AV fi A\u0301 \u05D0\u05D1 \u6F22 \u0915\u093F");
      doc.Flush();
      return static_cast<int>(number) != 0;
    };
    EXPECT_TRUE(try_it(whole));
    for (std::size_t size = 0; size < whole.size(); size += 7) {
      try_it({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)});
    }
    int taken = 0;
    for (std::size_t i = 0; i < whole.size(); ++i) {
      FontBytes turned = whole;
      turned[i] = static_cast<std::uint8_t>(turned[i] ^ 1U << i % 8);
      taken += try_it(turned) ? 1 : 0;
    }
    EXPECT_LT(taken, static_cast<int>(whole.size())) << name;
  }
}

}  // namespace
}  // namespace vellumark::tests
