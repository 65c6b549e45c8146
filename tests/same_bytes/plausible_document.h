// SPDX-License-Identifier: MIT
//
// PlausibleDocument: a document such as hosts write, of pages with text, shapes and pictures that
// mostly fit; the same for a number wherever it runs.
//
//     PlausibleDocument<PDF>(17, true).Bytes()         // conforming, with calls that follow from
//     17
//
// Arguments are drawn one by one into variables and lists: compilers differ in the order in which
// they work out the arguments of a call.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include <vellumark/vellumark.h>

#include "tests/bmp_file.h"
#include "tests/encoding/generated_input.h"
#include "tests/png_file.h"

namespace vellumark::tests {

template <class AnyDocument>
class PlausibleDocument {
 public:
  PlausibleDocument(std::uint32_t number, bool conforming, std::vector<std::uint8_t> font = {})
      : random_(number * 2654435761U), conforming_(conforming) {
    memory_->SetTime({2026, 11, 22, 19, 5, 9, 0});
    doc_.Conforming(conforming);
    if (!font.empty()) {
      loaded_ = static_cast<int>(doc_.LoadFont(font));
      doc_.AddFallbackFont(static_cast<FontNumberConstants>(loaded_));
    }
    for (int file = 0; file < 2; ++file) Make();  // the second one begins with what was set
  }

  /// How many texts, shapes and pictures were drawn.
  [[nodiscard]] int drawn() const { return drawn_; }

  [[nodiscard]] const std::string& Bytes() const { return *memory_->File("doc"); }

 private:
  static constexpr bool kPdf = std::is_same_v<AnyDocument, PDF>;

  int Between(int least, int most) {
    return least + static_cast<int>(random_.Next() % static_cast<unsigned>(most - least + 1));
  }
  float Angle() { return static_cast<float>(Between(-400, 800)) / 4; }
  bool Seldom() { return Between(0, 5) == 0; }
  std::uint8_t Tint() { return static_cast<std::uint8_t>(Between(0, 3) * 85); }
  template <class Constant>
  Constant Any(int least, int most) {
    return static_cast<Constant>(Between(least, most));
  }
  AlignmentConstants Alignment() { return Any<AlignmentConstants>(0, 3); }
  std::string Link() {
    static constexpr std::array<const char*, 4> kLinks = {"", "https://a.b/(c)", "#here",
                                                          "mailto:x"};
    return kLinks[static_cast<std::size_t>(Between(0, 3))];
  }

  std::string Words(int most) {
    static constexpr std::array<const char*, 16> kWords = {
        "a",      "the",      "(round)", "back\\slash",
        "AVATAR", "50%",      "Größe",   "naïve",
        "Žižkov", "–",        "“quote”", "e\u0301t\u0301",
        "don't",  "tab\tbed", "Ωμέγα",   "incomprehensible"};
    std::string text;
    for (int i = Between(1, most); i > 0; --i) {
      text += kWords[static_cast<std::size_t>(Between(0, conforming_ ? 15 : 12))];
      if (i > 1) text += Seldom() ? "  " : " ";
    }
    return text;
  }

  void Make() {
    doc_.Orientation(Any<OrientationConstants>(1, 2));
    static constexpr std::array<int, 9> kPaper = {1, 3, 4, 5, 7, 8, 9, 11, 14};
    doc_.PaperSize(
        static_cast<PaperSizeConstants>(kPaper[static_cast<std::size_t>(Between(0, 8))]));
    doc_.Rotated(Seldom());
    doc_.PicturesEnlarged(Seldom());
    doc_.Title(Words(3));
    doc_.Author(Words(2));
    doc_.Header(Seldom() ? "{title} {page} of {pages}" : "");
    doc_.Footer(Seldom() ? "" : "page {page}");
    if constexpr (kPdf) {
      doc_.Compressed(Seldom());
      doc_.Subject(Words(2));
      doc_.Keywords(Words(4));
    }
    doc_.Create("doc");
    Page();
    for (int calls = Between(20, 200); calls > 0; --calls) Call();
    doc_.Flush();
  }

  void Page() {
    const std::array margins = {Between(0, 70), Between(0, 70), Between(0, 70), Between(0, 70)};
    doc_.NewPage(margins[0], margins[1], margins[2], margins[3], Tint(), 255, 255);
    doc_.GetPageDimensions(width_, height_);
  }
  int X() { return Between(0, width_); }
  int Y() { return Between(0, height_); }

  void Call() {
    switch (Between(0, 11)) {
      case 0: return Set();
      case 1: return Shape();
      case 2:
        if (Seldom()) Page();
        return;
      case 3:
        if (Seldom()) Picture();
        return;
      case 4:
      case 5: {
        const int x = Seldom() ? -1 : X();
        return doc_.SetPosition(x, Seldom() ? -1 : Y());
      }
      case 6: return Title();
      case 7: return Measure();
      case 8: return Paragraph();
      default: return Text();
    }
  }

  void Set() {
    const std::array color = {Tint(), Tint(), Tint()};
    switch (Between(0, 6)) {
      case 0: return doc_.SetColor(color[0], color[1], color[2]);
      case 1: return doc_.SetFillColor(color[0], color[1], color[2]);
      case 2: return doc_.SetFillStyle(Seldom());
      case 3: return doc_.SetThickness(Byte(Between(0, 9)));
      case 4: return doc_.SetDash(Seldom() ? "3 1" : Seldom() ? "4 2 1" : "");
      default: {
        const int number = loaded_ != 0 && Between(0, 1) == 0 ? loaded_ : Between(1, 5);
        const int size = Seldom() ? Between(8, 72) : Between(8, 14);
        const auto style = Any<FontStyleConstants>(1, 4);
        return doc_.SetFont(static_cast<FontNumberConstants>(number), size, style,
                            Any<FontEffectConstants>(0, 2));
      }
    }
  }

  void Shape() {
    const std::array at = {X(), Y(), X(), Y(), X(), Y()};
    const std::array side = {Between(0, 200), Between(0, 200)};
    const std::array r = {Between(0, 90), Between(0, 90)};
    const std::array angle = {Angle(), Angle()};
    switch (Between(0, 5)) {
      case 0: return Draw(doc_.DrawLine(at[0], at[1], at[2], at[3]));
      case 1: return Draw(doc_.DrawRectangle(at[0], at[1], side[0], side[1]));
      case 2: return Draw(doc_.DrawCurve(at[0], at[1], at[2], at[3], at[4], at[5]));
      case 3: return Draw(doc_.DrawCircle(at[0], at[1], r[0]));
      case 4: return Draw(doc_.DrawEllipse(at[0], at[1], r[0], r[1]));
      default: return Draw(doc_.DrawArc(at[0], at[1], r[0], angle[0], angle[1]));
    }
  }
  void Draw(bool drawn) { drawn_ += drawn ? 1 : 0; }

  void Measure() {
    const int width = doc_.TextWidth(Words(3));
    const int height = doc_.TextHeight(Words(40), 2, 100);
    doc_.SetPosition(width % 100, height % 100);
  }

  void Paragraph() {
    const std::string text = Words(60);
    const int dy = Between(0, 9);
    const AlignmentConstants alignment = Alignment();
    const bool justified = Between(0, 1) == 0;
    Draw(doc_.WriteMultiText(text, dy, alignment, justified, Seldom() ? 0 : Between(20, 500)));
  }

  void Text() {
    const std::string text = Words(8);
    const bool ends = Between(0, 2) != 0;
    const int dy = Between(0, 9);
    const AlignmentConstants alignment = Alignment();
    if constexpr (kPdf) {
      if (Seldom()) doc_.SetAnchor("here");
      Draw(doc_.WriteText(text, ends, dy, alignment, Link()));
    } else {
      Draw(doc_.WriteText(text, ends, dy, alignment));
    }
  }

  void Title() {
    const std::string text = Words(5);
    const AlignmentConstants alignment = Alignment();
    const auto bullet = Any<BulletConstants>(1, 2);
    if constexpr (kPdf) {
      Draw(doc_.WriteBookmark(text, Between(1, 4)));
      Draw(doc_.WriteTitle(text, alignment, bullet, Link()));
    } else {
      Draw(doc_.WriteTitle(text, alignment, bullet));
    }
  }

  std::string PictureFile() {
    const int width = Between(1, 40);
    const int height = Between(1, 20);
    const auto samples = [&](int row) {
      return encoding::testing::GeneratedInput(static_cast<std::size_t>(row * height),
                                               random_.Next());
    };
    if (conforming_ && Between(0, 1) == 0) {
      static constexpr std::array<int, 4> kColors = {0, 2, 4, 6};
      const auto kind = static_cast<std::size_t>(Between(0, 3));
      PngFile png{.width = static_cast<std::uint32_t>(width),
                  .height = static_cast<std::uint32_t>(height),
                  .colors = kColors[kind]};
      png.rows = samples(width * std::array{1, 3, 2, 4}[kind]);
      return png.Bytes();
    }
    static constexpr std::array<int, 4> kBits = {1, 4, 8, 24};
    BmpFile bmp{.width = width, .height = Seldom() ? -height : height};
    bmp.bits = kBits[static_cast<std::size_t>(Between(0, 3))];
    for (unsigned i = 0; bmp.bits < 24 && i < 1U << bmp.bits; ++i) {
      bmp.palette.push_back(0x1F3D57 * i % 0x1000000);
    }
    bmp.pixels = samples((width * bmp.bits + 31) / 32 * 4);
    return bmp.Bytes();
  }

  void Picture() {
    const std::string file = PictureFile();
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
    const std::array size = {Between(0, 200), Between(0, 200)};
    if (Between(0, 1) == 0) doc_.SetPictureDimensions(size[0], size[1]);
    const AlignmentConstants alignment = Alignment();
    const auto encoding = Any<EncodingConstants>(1, conforming_ ? 5 : 4);
    if constexpr (kPdf) {
      Draw(doc_.DrawPicture(bytes, alignment, Link(), encoding));
    } else {
      Draw(doc_.DrawPicture(bytes, alignment, encoding));
    }
  }

  encoding::testing::Random random_;
  bool conforming_;
  int loaded_ = 0;
  int drawn_ = 0;
  std::int16_t width_ = 0;
  std::int16_t height_ = 0;
  std::shared_ptr<MemoryPlatform> memory_ = std::make_shared<MemoryPlatform>();
  AnyDocument doc_{memory_};
};

}  // namespace vellumark::tests
