// SPDX-License-Identifier: MIT
//
// conforming_documents FOLDER [COUNT]: conforming PDF documents full of hostile arguments, for
// conforming_test.py: some of a certain kind, and COUNT that are made at random.
//
// Beside each NAME.pdf stands NAME.record, what went into it and what was lost: a line a fact, its
// kind and the bytes in hexadecimal. Kinds: Latin, Symbol and ZapfDingbats, a text that was written
// in such a font; Head, "page text" of a header or footer; Bookmark, "page level text"; Anchor,
// "page name"; Link; Missing, that Flush missed an anchor; Lost; and the name of each property.
#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <vellumark/vellumark.h>

namespace {

using namespace vellumark;

constexpr std::array kPapers = {
    PaperSizeConstants::A3,        PaperSizeConstants::A4,     PaperSizeConstants::A5,
    PaperSizeConstants::Executive, PaperSizeConstants::Folio,  PaperSizeConstants::Ledger,
    PaperSizeConstants::Legal,     PaperSizeConstants::Letter, PaperSizeConstants::Tabloid};

/// The sample pictures, by their names.
const std::vector<std::string>& Pictures() {
  static const std::vector<std::string> pictures = [] {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(VELLUMARK_PICTURES)) {
      if (entry.path().extension() != ".py") found.push_back(entry.path().string());
    }
    std::sort(found.begin(), found.end());
    return found;
  }();
  return pictures;
}

/// The character in UTF-8; a surrogate too, which no reader of UTF-8 takes.
std::string Utf8(char32_t c) {
  if (c < 0x80) return {static_cast<char>(c)};
  std::string text;
  if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 63))};
  if (c >= 0x10000) text += static_cast<char>(0xF0 | c >> 18);
  text += static_cast<char>(c < 0x10000 ? 0xE0 | c >> 12 : 0x80 | (c >> 12 & 63));
  text += static_cast<char>(0x80 | (c >> 6 & 63));
  return text + static_cast<char>(0x80 | (c & 63));
}

/// A document that keeps a record.
class Recorded {
 public:
  Recorded(const std::string& folder, std::string name)
      : file_(folder + "/" + std::move(name)), record_(file_ + ".record") {
    doc.Conforming(true);
  }

  void Property(const char* name, void (PDF::*set)(std::string_view), const std::string& text) {
    (doc.*set)(text);
    Record(name, text);
  }
  void Property(const char* name, void (Document::*set)(std::string_view),
                const std::string& text) {
    (doc.*set)(text);
    Record(name, text);
  }

  void Create() {
    if (!doc.Create(file_ + ".pdf")) std::cerr << doc.LastRefusal().sentence << '\n';
  }

  void NewPage(std::int16_t margin = 20) {
    EndPages();
    doc.NewPage(margin, margin, margin, margin, 255, 255, 255);
  }

  /// Of the open page. Texts that are too wide for it become page numbers.
  void Heads(const std::string& header, const std::string& footer) {
    FontNumberConstants number{};
    FontStyleConstants style{};
    FontEffectConstants effect{};
    std::uint8_t height = 0;
    doc.GetFont(number, height, style, effect);
    doc.SetFont(FontNumberConstants::Times, 10, FontStyleConstants::Regular, {});
    const auto fitting = [&](const std::string& text) {
      return doc.TextWidth(text) <= 100 ? text : "{{{page}/{pages}}";
    };
    doc.Header(fitting(header));
    doc.Footer(fitting(footer));
    doc.SetFont(number, height, style, effect);
  }

  void Bookmark(const std::string& text, int level) {
    if (!doc.WriteBookmark(text, level)) return;
    Record("Bookmark", PageNumber() + std::to_string(level) + " " + text);
  }

  void Anchor(const std::string& name) {
    if (doc.SetAnchor(name)) Record("Anchor", PageNumber() + name);
  }

  /// `write` writes a text; if the page is full, on the next one.
  void Text(const std::string& text, const std::function<bool()>& write,
            const std::string& link = {}) {
    bool written = write();
    if (!written && doc.LastRefusal().reason == RefusalReason::BeyondBottomMargin) {
      NewPage();
      written = write();
    }
    if (!written) return;
    FontNumberConstants number{};
    FontStyleConstants style{};
    FontEffectConstants effect{};
    std::uint8_t height = 0;
    doc.GetFont(number, height, style, effect);
    Record(number == FontNumberConstants::Symbol         ? "Symbol"
           : number == FontNumberConstants::ZapfDingbats ? "ZapfDingbats"
                                                         : "Latin",
           text);
    if (!link.empty()) Record("Link", link);
  }
  void Line(const std::string& text) {
    Text(text, [&] { return doc.WriteText(text, true); });
  }

  void Finish() {
    EndPages();
    if (doc.PageNumber() == 0) Record("Head", "1 " + doc.Footer());
    doc.Flush();
    const Refusal refusal = doc.LastRefusal();
    if (refusal.reason == RefusalReason::AnchorMissing) {
      Record("Missing", refusal.sentence);
    } else if (refusal.reason != RefusalReason::None) {
      std::cerr << file_ << refusal.sentence << '\n';
    }
    Record("Lost", doc.LostCharacters());
  }

  PDF doc;

 private:
  [[nodiscard]] std::string PageNumber() const { return std::to_string(doc.PageNumber()) + " "; }

  /// Records the texts above and below the pages that end with what is set now; the header only if
  /// there is room for it.
  void EndPages() {
    std::array<std::int16_t, 4> margins{};
    doc.GetPageMargins(margins[0], margins[1], margins[2], margins[3]);
    while (ended_ < doc.PageNumber()) {
      const std::string page = std::to_string(++ended_) + " ";
      if (margins[1] >= 12) Record("Head", page + doc.Header());
      Record("Head", page + doc.Footer());
    }
  }

  void Record(const char* kind, const std::string& bytes) {
    record_ << kind << ' ';
    for (const char c : bytes) {
      const auto byte = static_cast<unsigned char>(c);
      record_ << "0123456789ABCDEF"[byte / 16] << "0123456789ABCDEF"[byte % 16];
    }
    record_ << '\n';
  }

  std::string file_;
  std::ofstream record_;
  int ended_ = 0;  // pages
};

/// Every character of the Basic Multilingual Plane and every byte, in a font of each kind.
void WriteEachCharacter(const std::string& folder) {
  using enum FontNumberConstants;
  constexpr std::array<std::pair<FontNumberConstants, const char*>, 5> kFonts = {
      {{Courier, "courier"},
       {Helvetica, "helvetica"},
       {Times, "times"},
       {Symbol, "symbol"},
       {ZapfDingbats, "dingbats"}}};
  for (const auto& [number, name] : kFonts) {
    Recorded recorded(folder, std::string("each_") + name);
    recorded.doc.PaperSize(PaperSizeConstants::A3);
    recorded.Create();
    recorded.NewPage();
    recorded.doc.SetFont(number, 8, FontStyleConstants::Regular, {});
    for (char32_t first = 0; first < 0x10000; first += 64) {
      std::string text;
      for (char32_t c = first; c < first + 64; ++c) text += Utf8(c);
      recorded.Line(text);
    }
    for (int byte = 0; byte < 256; ++byte) {
      const auto c = static_cast<char>(byte);
      recorded.Line(std::string("a") + c + "b" + c + c);
    }
    recorded.Finish();
  }
}

void WritePictures(const std::string& folder, bool compressed) {
  Recorded recorded(folder, compressed ? "pictures_compressed" : "pictures");
  recorded.doc.Compressed(compressed);
  recorded.Create();
  for (const std::string& file : Pictures()) {
    recorded.NewPage();
    for (int encoding = 1; encoding <= 5; ++encoding) {
      recorded.doc.SetPictureDimensions(100, 60);
      for (int twice = 0; twice < 2; ++twice) {
        recorded.doc.SetPosition(static_cast<std::int16_t>(200 * twice),
                                 static_cast<std::int16_t>(100 * encoding));
        const std::string link = "https://example.org/(" + std::to_string(encoding);
        recorded.Text(
            "",
            [&] {
              return recorded.doc.DrawPicture(file, {}, link,
                                              static_cast<EncodingConstants>(encoding));
            },
            link);
      }
    }
  }
  recorded.Finish();
}

void WriteManyPages(const std::string& folder) {
  Recorded recorded(folder, "many_pages");
  recorded.Create();
  for (int page = 0; page < 3000; ++page) {
    recorded.NewPage();
    recorded.Line("Page " + std::to_string(page));
  }
  recorded.Finish();
}

void WriteWithoutPages(const std::string& folder) {
  const Recorded never_created(folder, "no_document");  // no file either
  Recorded empty(folder, "no_page");
  empty.Create();
  empty.Finish();
}

/// Arguments of every kind, most of them strange.
class Chance {
 public:
  explicit Chance(unsigned seed) : engine_(seed) {}

  int Number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(engine_); }
  bool Once(int in) { return Number(1, in) == 1; }
  template <class Enumeration>
  Enumeration Member(int last) {
    return static_cast<Enumeration>(Once(20) ? Number(-9, 99) : Number(1, last));
  }

  std::string Text(int words) {
    std::string text;
    for (int i = 0; i < words; ++i) {
      if (i > 0) text += ' ';
      text += Word();
    }
    return text;
  }

  std::string Word() {
    static const std::vector<std::string> words = {"(",
                                                   ")",
                                                   "\\",
                                                   "))((",
                                                   "\\)",
                                                   "\\(",
                                                   "\\\\",
                                                   "C:\\temp\\new",
                                                   "%%EOF",
                                                   "endstream",
                                                   "Tj ET Q",
                                                   "]TJ",
                                                   "\\101",
                                                   "<<",
                                                   ">>",
                                                   "/F0",
                                                   "{}",
                                                   "\r",
                                                   "\n",
                                                   "\r\n",
                                                   "\t",
                                                   std::string(1, '\0'),
                                                   "stra\u00DFe",
                                                   "\u00E9t\u00E9",
                                                   "B\u00FCcherei",
                                                   "Dvo\u0159\u00E1k",
                                                   "\u0141\u00F3d\u017A",
                                                   "\u021Bar\u0103",
                                                   "\u0130stanbul",
                                                   "\uFB01nd \uFB02ow",
                                                   "e\u0301a\u0308\u0301",
                                                   "T\u0326",
                                                   "\u20AC 5\u00A0000",
                                                   "\u2211\u221A\u2260\u2264\u25CA",
                                                   "\u03B1\u2192\u2713",
                                                   "\U0001F600",
                                                   "\u200B\u200D",
                                                   "\u00AD",
                                                   "\u2028",
                                                   "\uFEFF",
                                                   "\xFF\xFE",
                                                   "\xC3",
                                                   "\xED\xA0\x80",
                                                   "\xF4\x90\x80\x80",
                                                   "'`\"",
                                                   "fi",
                                                   "plain",
                                                   "words",
                                                   "that",
                                                   "wrap",
                                                   "\u010F\u0165\u013E\u013D",
                                                   "\u2206\u0394\u00B5\u03BC"};
    if (Once(6)) return Characters(Number(1, 5));
    return words[static_cast<std::size_t>(Number(0, static_cast<int>(words.size()) - 1))];
  }

  /// From a page of 256 characters, half of the time among those that fonts have.
  std::string Characters(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      text += Utf8(static_cast<char32_t>(Once(2) ? Number(0, 0x24F) : Number(0, 0x10FFFF)));
    }
    return text;
  }

  std::string Bytes(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += static_cast<char>(Number(0, 255));
    return text;
  }

  /// So few that some are linked before they are set, some twice, and some never set.
  std::string AnchorName() {
    static const std::vector<std::string> names = {
        "plain", "with blank",         "(", ")(\\", "\\051",    "#",
        "\r\n",  std::string(3, '\0'), "%", "<AB>", "/Dests [", "\u011B",
        "\x1B",  std::string(300, 'x')};
    return Once(5) ? Bytes(Number(0, 3)) : names[static_cast<std::size_t>(Number(0, 13))];
  }

  /// For headers and footers.
  std::string Head() {
    static const std::vector<std::string> pieces = {
        "{page}", "{pages}", "{{", "{", "}", "{{page}", "{pages", "{PAGE}", "{pa{page}ge}"};
    std::string text;
    for (int i = Number(0, 4); i > 0; --i) {
      text += Once(2) ? Word() : pieces[static_cast<std::size_t>(Number(0, 8))];
    }
    return text;
  }

  std::string Hostile() { return Once(5) ? Bytes(Number(0, 40)) : Text(Number(0, 8)); }

 private:
  std::mt19937 engine_;
};

void DrawShapes(Document& doc, Chance& chance) {
  const auto point = [&] { return chance.Number(-5, 400); };
  static constexpr std::array kDashes = {"",    "3 2",  "1", "0 0",    "3 ] 0 d Q",
                                         "1e9", "-1 2", "(", "0.5 .25"};
  doc.SetDash(chance.Once(4) ? chance.Hostile()
                             : std::string(kDashes[static_cast<std::size_t>(chance.Number(0, 8))]));
  doc.SetFillStyle(chance.Once(2));
  doc.SetColor(chance.Number(0, 255), 0, chance.Once(2) ? 255 : 0);
  doc.SetFillColor(chance.Number(0, 255), 128, 128);
  doc.SetThickness(chance.Number(0, 9));
  doc.DrawLine(point(), point(), point(), point());
  doc.DrawRectangle(point(), point(), point(), point());
  doc.DrawCurve(point(), point(), point(), point(), point(), point());
  doc.DrawCircle(point(), point(), chance.Number(0, 60));
  doc.DrawEllipse(point(), point(), chance.Number(0, 60), chance.Number(0, 60));
  doc.DrawArc(point(), point(), chance.Number(0, 60), static_cast<float>(chance.Number(-900, 900)),
              static_cast<float>(chance.Number(-900, 900)));
}

void WriteTexts(Recorded& recorded, Chance& chance) {
  PDF& doc = recorded.doc;
  doc.SetFont(chance.Member<FontNumberConstants>(5), chance.Number(0, 30),
              chance.Member<FontStyleConstants>(4), chance.Member<FontEffectConstants>(2));
  const auto alignment =
      chance.Once(2) ? AlignmentConstants{} : chance.Member<AlignmentConstants>(3);
  const std::string link = !chance.Once(3)  ? std::string()
                           : chance.Once(2) ? chance.Hostile()
                                            : chance.AnchorName().insert(0, 1, '#');
  const std::string text = chance.Hostile();
  recorded.Text(
      text, [&] { return doc.WriteText(text, true, 3, alignment, link); }, link);
  const std::string title = chance.Text(2);
  const auto bullet = chance.Once(2) ? BulletConstants::Disc : BulletConstants::Square;
  recorded.Text(
      title, [&] { return doc.WriteTitle(title, alignment, bullet, link); }, link);
  const std::string words = chance.Text(chance.Number(0, 300));
  const bool justified = chance.Once(2);
  const int width = chance.Once(2) ? 0 : chance.Number(60, 400);
  recorded.Text(words, [&] {
    doc.SetPosition(chance.Number(0, 100), -1);
    return doc.WriteMultiText(words, chance.Number(0, 4), alignment, justified, width);
  });
  doc.SetPosition(0, -1);
}

void WriteAtRandom(const std::string& folder, unsigned seed) {
  Chance chance(seed);
  Recorded recorded(folder, "random_" + std::to_string(seed));
  PDF& doc = recorded.doc;
  recorded.Property("Author", &Document::Author, chance.Hostile());
  recorded.Property("Creator", &Document::Creator, chance.Hostile());
  recorded.Property("Title", &Document::Title, chance.Hostile());
  recorded.Property("Keywords", &PDF::Keywords, chance.Hostile());
  recorded.Property("Producer", &PDF::Producer, chance.Hostile());
  recorded.Property("Subject", &PDF::Subject, chance.Once(9) ? chance.Text(9000) : "");
  doc.PaperSize(kPapers[seed % kPapers.size()]);
  doc.Orientation(chance.Once(2) ? OrientationConstants::Portrait
                                 : OrientationConstants::Landscape);
  doc.Compressed(chance.Once(2));
  recorded.Create();
  const int pages = chance.Number(1, 5);
  for (int page = 0; page < pages; ++page) {
    doc.Rotated(chance.Once(2));
    recorded.NewPage(static_cast<std::int16_t>(chance.Number(-5, 120)));
    recorded.Heads(chance.Head(), chance.Head());
    for (int i = chance.Number(0, 3); i > 0; --i) {
      recorded.Anchor(chance.AnchorName());
      recorded.Bookmark(chance.Hostile(), chance.Number(0, 4));
      DrawShapes(doc, chance);
      WriteTexts(recorded, chance);
      if (!chance.Once(3)) continue;
      const int last = static_cast<int>(Pictures().size()) - 1;
      doc.DrawPicture(Pictures()[static_cast<std::size_t>(chance.Number(0, last))], {}, "",
                      chance.Member<EncodingConstants>(5));
    }
  }
  recorded.Finish();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const std::string folder = argv[1];
  WriteEachCharacter(folder);
  WritePictures(folder, false);
  WritePictures(folder, true);
  WriteManyPages(folder);
  WriteWithoutPages(folder);
  const int count = argc > 2 ? std::stoi(argv[2]) : 40;
  for (int seed = 0; seed < count; ++seed) WriteAtRandom(folder, static_cast<unsigned>(seed));
}
