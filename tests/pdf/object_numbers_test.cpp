// SPDX-License-Identifier: MIT
//
// Conforming documents that run out of object numbers, of which they have few here.
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <span>
#include <string>

#include "api/document_parts.h"
#include "fuzz/written_file.h"
#include "pdf/pdf_writer.h"
#include "tests/bmp_file.h"
#include "tests/fonts/test_font.h"
#include "tests/png_file.h"

namespace vellumark::tests {
namespace {

constexpr int kHighest = 9000;

class ShortPdf : public Document {
 public:
  explicit ShortPdf(std::shared_ptr<Platform> platform)
      : Document(std::make_unique<Parts>(std::move(platform), "1.2", MakeWriter)) {
    Conforming(true);
    Create("doc");
    NewPage(10, 10, 10, 10, 255, 255, 255);
  }

  bool WriteBookmark(std::string_view text) {
    return parts().Run([&] { return parts().model.WriteBookmark(text, 1); });
  }
  bool WriteLink(std::string_view address) {
    return parts().WriteText("a", true, 0, AlignmentConstants::NoAlignment, address);
  }
  bool DrawBytes(const std::string& file, std::string_view link) {
    SetPosition(0, 0);
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
    return parts().DrawPicture(bytes, AlignmentConstants::NoAlignment, link,
                               EncodingConstants::Flate);
  }
  bool AddPage() {
    NewPage(10, 10, 10, 10, 255, 255, 255);
    return LastRefusal().reason == RefusalReason::None;
  }

 private:
  static std::unique_ptr<document::Writer> MakeWriter(const document::State& state,
                                                      document::LineBuffer& lines) {
    return std::make_unique<pdf::PdfWriter>(state, lines, kHighest);
  }
};

/// Another picture with each number.
std::string Bmp(int number) {
  return BmpFile{
      .bits = 8, .palette = {static_cast<std::uint32_t>(number), 0x808080}, .pixels = {1, 0, 0, 0}}
      .Bytes();
}

std::string Glass(int number) {
  PngFile glass{.width = 3, .height = 1, .colors = 6};
  for (int i = 0; i < 12; ++i) glass.rows.push_back(static_cast<std::uint8_t>(number >> i % 4 * 8));
  return glass.Bytes();
}

class ObjectNumbers : public testing::Test {
 protected:
  using Step = std::function<bool(ShortPdf&, int)>;

  /// Repeats a step until it is refused, and expects a whole document that used nearly all of
  /// `numbers`.
  void Fill(const Step& step, int numbers) {
    int count = 0;
    while (step(doc_, count)) ASSERT_LT(++count, 2 * kHighest);
    EXPECT_EQ(doc_.LastRefusal().reason, RefusalReason::NoObjectNumbersLeft)
        << doc_.LastRefusal().sentence;
    doc_.Flush();
    EXPECT_EQ(doc_.LastRefusal().sentence, "");
    const std::string& file = *memory_->File("doc");
    EXPECT_EQ(fuzz::FaultOfPdf(file), "");
    const int used = std::stoi(file.substr(file.rfind("/Size ") + 6)) - 1;
    EXPECT_LE(used, kHighest);
    EXPECT_GE(used, numbers);
  }

  std::shared_ptr<MemoryPlatform> memory_ = std::make_shared<MemoryPlatform>();
  ShortPdf doc_{memory_};
};

constexpr int kNearlyAll = kHighest - kHighest / 10;
constexpr int kMostly = 7000;  // pictures take longer than bookmarks

TEST_F(ObjectNumbers, OfPages) {
  Fill([](ShortPdf& doc, int) { return doc.DrawLine(0, 0, 1, 1) && doc.AddPage(); }, kNearlyAll);
}

TEST_F(ObjectNumbers, OfLinksAndTheirPages) {
  Fill(
      [](ShortPdf& doc, int n) {
        if (n % 50 == 49) return doc.AddPage();
        doc.SetPosition(0, 0);
        return doc.WriteLink("https://a.b/" + std::to_string(n));
      },
      kNearlyAll);
}

TEST_F(ObjectNumbers, OfBookmarks) {
  Fill([](ShortPdf& doc, int) { return doc.WriteBookmark("a"); }, kNearlyAll);
}

TEST_F(ObjectNumbers, OfPicturesWithPalettes) {
  const auto fill = [](ShortPdf& doc, int n) {
    return n < kMostly ? doc.WriteBookmark("a") : doc.DrawBytes(Bmp(n), "");
  };
  Fill(fill, kNearlyAll);
}

TEST_F(ObjectNumbers, OfLinkedPicturesWithTransparency) {
  const auto fill = [](ShortPdf& doc, int n) {
    return n < kMostly ? doc.WriteBookmark("a") : doc.DrawBytes(Glass(n), "https://a.b/");
  };
  Fill(fill, kNearlyAll);
}

TEST_F(ObjectNumbers, OfParagraphsOverPages) {
  std::string words;
  for (int i = 0; i < 400; ++i) words += "words ";
  Fill(
      [&](ShortPdf& doc, int) {
        doc.SetPosition(0, 700);
        return doc.WriteMultiText(words);
      },
      kNearlyAll);
}

TEST_F(ObjectNumbers, OfAsManyFontsAsThereMayBe) {
  for (int i = 0; i < 1000; ++i) {
    const FontNumberConstants font = doc_.LoadFont(TestFont());
    doc_.SetFont(font, 10, FontStyleConstants::Regular, FontEffectConstants::NoFontEffect);
    doc_.SetPosition(0, 0);
    ASSERT_TRUE(doc_.WriteText("A"));
  }
  Fill([](ShortPdf& doc, int) { return doc.AddPage(); }, kNearlyAll);
}

TEST_F(ObjectNumbers, OfTheFourteenFontsInAllEncodings) {
  const auto use_all = [](ShortPdf& doc) {
    for (int font = 1; font <= 5; ++font) {
      for (int style = 1; style <= 4; ++style) {
        doc.SetPosition(0, 0);
        doc.SetFont(static_cast<FontNumberConstants>(font), 10,
                    static_cast<FontStyleConstants>(style), FontEffectConstants::NoFontEffect);
        if (!doc.WriteText("a\u00E9\u017E\u20AC\u03A9\u2713")) return false;
      }
    }
    return true;
  };
  Fill([&](ShortPdf& doc, int n) { return n == 0 ? use_all(doc) : doc.AddPage(); }, kNearlyAll);
}

}  // namespace
}  // namespace vellumark::tests
