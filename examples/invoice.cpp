// SPDX-License-Identifier: MIT
//
// invoice [FOLDER [CSV_FILE]]: writes FOLDER/invoice.pdf and FOLDER/invoice.ps from one function.
// The table has the columns quantity, description and unit price, in UTF-8. docs/python.md explains
// the program; invoice.py is the same one in Python.
#include <array>
#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <vellumark/vellumark.h>

#include "examples/invoice_rows.h"

namespace {

using namespace vellumark;
using vellumark::examples::Money;
using vellumark::examples::Row;

using Style = FontStyleConstants;
constexpr auto kNoAlignment = AlignmentConstants::NoAlignment;
constexpr auto kRightAlign = AlignmentConstants::RightAlign;

constexpr std::string_view kNumber = "2024-0117";
constexpr std::string_view kLink = "https://example.org/pay/2024-0117";
constexpr std::string_view kTerms =
    "Payment is due within fourteen days of the date of this invoice, without deduction. The goods "
    "remain our property until they are paid for in full. Colors of leather and linen may differ "
    "slightly from the samples, as hides and dye lots do; that is how they should be. Please tell "
    "us about damage in transit within three days, and keep the wrapping until the carrier has "
    "seen it.";

struct Color {
  int red, green, blue;
};
constexpr Color kInk = {38, 40, 46};
constexpr Color kFaint = {120, 124, 134};
constexpr Color kRule = {205, 208, 214};
constexpr Color kAccent = {122, 30, 44};
constexpr Color kBlue = {28, 70, 150};
constexpr Color kWhite = {255, 255, 255};

constexpr int kMargin = 56;
constexpr int kWidth = 595 - 2 * kMargin;
constexpr int kBottom = 842 - kMargin - 40 - 12;  // the footer is below
// The right edges of the columns of numbers, and the left edge of the texts.
constexpr int kCount = 40;
constexpr int kDescription = 56;
constexpr int kPrice = 398;
constexpr int kAmount = kWidth - 8;
constexpr int kDescriptionEnd = 328;
constexpr int kRowHeight = 24;
constexpr int kLastRow = 620;

/// What the document refused is an error here: nothing is missing in an invoice.
void Need(const Document& doc, bool done, std::string_view what = {}) {
  if (!done) throw std::runtime_error(std::string(what) + doc.LastRefusal().sentence);
}

void SetColor(Document& doc, Color color) { doc.SetColor(color.red, color.green, color.blue); }

void Pen(Document& doc, int size, Color color = kInk, Style style = Style::Regular) {
  doc.SetFont(FontNumberConstants::Helvetica, size, style, FontEffectConstants::NoFontEffect);
  SetColor(doc, color);
}

void Put(Document& doc, int x, int y, std::string_view text,
         AlignmentConstants alignment = kNoAlignment) {
  doc.SetPosition(x, y);
  Need(doc, doc.WriteText(text, false, 0, alignment), std::string(text) + ": ");
}

/// A text that ends at `right`.
void PutRight(Document& doc, int right, int y, std::string_view text) {
  Put(doc, right - doc.TextWidth(text), y, text);
}

void Rule(Document& doc, int y, Color color = kRule, int left = 0) {
  SetColor(doc, color);
  doc.DrawLine(left, y, kWidth, y);
}

std::vector<std::uint8_t> BytesOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The logo is a picture out of memory, as it would come from a database.
template <class AnyDocument>
void DrawLetterhead(AnyDocument& doc) {
  const std::vector<std::uint8_t> logo = BytesOf(VELLUMARK_PICTURES "/logo.png");
  doc.SetPictureDimensions(52, 52);
  doc.SetPosition(0, 0);
  if constexpr (std::is_same_v<AnyDocument, PDF>) {
    Need(doc, doc.DrawPicture(logo, kNoAlignment, "", EncodingConstants::Flate));
  } else {
    Need(doc, doc.DrawPicture(logo, kNoAlignment, EncodingConstants::Flate));
  }
  Pen(doc, 20, kInk, Style::Bold);
  Put(doc, 66, 4, "Lindenhof Bindery");
  Pen(doc, 9, kFaint);
  Put(doc, 66, 32, "Books bound by hand since 1911 – à la main");
  int y = 6;
  for (const char* const line : {"Sülzgasse 4", "8302 Kirchberg", "office@example.org"}) {
    Put(doc, 0, y, line, kRightAlign);
    y += 13;
  }
  Rule(doc, 66, kAccent);
}

void DrawAddress(Document& doc) {
  Pen(doc, 8, kFaint);
  Put(doc, 0, 96, "Billed to");
  Pen(doc, 11);
  int y = 112;
  for (const char* const line :
       {"Bücherei Kirchberg", "z. H. Frau Dvořáková", "Marktplatz 1", "8300 Kirchberg"}) {
    Put(doc, 0, y, line);
    y += 15;
  }
  Pen(doc, 26, kAccent, Style::Bold);
  Put(doc, 0, 88, "Invoice", kRightAlign);
  y = 127;
  constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kFacts = {
      {{"Number", kNumber}, {"Date", "2024-05-31"}, {"Due", "2024-06-14"}}};
  for (const auto& [name, value] : kFacts) {
    Pen(doc, 10, kFaint);
    Put(doc, 350, y, name);
    Pen(doc, 10);
    Put(doc, 0, y, value, kRightAlign);
    y += 15;
  }
}

int DrawTableHead(Document& doc, int y) {
  SetColor(doc, kAccent);
  doc.SetFillColor(kAccent.red, kAccent.green, kAccent.blue);
  doc.SetFillStyle(true);
  doc.DrawRectangle(0, y, kWidth, 22);
  doc.SetFillStyle(false);
  Pen(doc, 9, kWhite, Style::Bold);
  PutRight(doc, kCount, y + 5, "Count");
  Put(doc, kDescription, y + 5, "Description");
  PutRight(doc, kPrice, y + 5, "Unit €");
  PutRight(doc, kAmount, y + 5, "Amount €");
  return y + 22;
}

void StartPage(Document& doc) {
  doc.NewPage(kMargin, kMargin, kMargin, 40, kWhite.red, kWhite.green, kWhite.blue);
}

/// The rows, on as many pages as they need. Returns the y of their end.
int DrawTable(Document& doc, const std::vector<Row>& rows, int y) {
  y = DrawTableHead(doc, y);
  for (const Row& row : rows) {
    if (y > kLastRow) {
      StartPage(doc);
      y = DrawTableHead(doc, 0);
    }
    Pen(doc, 10);
    PutRight(doc, kCount, y + 6, std::to_string(row.count));
    Put(doc, kDescription, y + 6, row.description);
    if (kDescription + doc.TextWidth(row.description) > kDescriptionEnd) {
      throw std::runtime_error("'" + row.description + "' is too long for its column");
    }
    PutRight(doc, kPrice, y + 6, Money(row.cents));
    PutRight(doc, kAmount, y + 6, Money(row.Amount()));
    y += kRowHeight;
    Rule(doc, y);
  }
  return y;
}

int DrawTotals(Document& doc, const std::vector<Row>& rows, int y) {
  std::int64_t net = 0;
  for (const Row& row : rows) net += row.Amount();
  const std::int64_t tax = examples::Tenth(net);
  const auto line = [&](int size, Style style, std::string_view name, std::int64_t cents) {
    Pen(doc, size, kInk, style);
    Put(doc, 300, y + 8, name);
    PutRight(doc, kAmount, y + 8, Money(cents));
    y += 20;
  };
  line(10, Style::Regular, "Net", net);
  line(10, Style::Regular, "Tax 10 %", tax);
  line(11, Style::Bold, "To pay, €", net + tax);
  Rule(doc, y + 8, kAccent, 300);
  Rule(doc, y + 10, kAccent, 300);
  return y + 10;
}

template <class AnyDocument>
void DrawTerms(AnyDocument& doc, int y) {
  doc.SetFont(FontNumberConstants::Times, 10, Style::Regular, FontEffectConstants::NoFontEffect);
  if (y + doc.TextHeight(kTerms, 3) + 18 > kBottom) {
    StartPage(doc);
    y = 0;
  }
  SetColor(doc, kInk);
  doc.SetPosition(0, y);
  Need(doc, doc.WriteMultiText(kTerms, 3, kNoAlignment, true));
  std::int16_t x = 0;
  std::int16_t end = 0;
  doc.GetPosition(x, end);
  doc.SetFont(FontNumberConstants::Helvetica, 10, Style::Regular, FontEffectConstants::Underline);
  SetColor(doc, kBlue);
  doc.SetPosition(0, end + 8);
  if constexpr (std::is_same_v<AnyDocument, PDF>) {
    Need(doc, doc.WriteText("Pay this invoice online", false, 0, kNoAlignment, kLink));
  } else {  // PostScript has no links
    Need(doc, doc.WriteText("Pay online: " + std::string(kLink)));
  }
}

template <class AnyDocument>
void WriteInvoice(const std::string& file, const std::vector<Row>& rows) {
  AnyDocument doc;
  doc.Conforming(true);
  doc.Title("Invoice " + std::string(kNumber));
  doc.Author("Lindenhof Bindery");
  doc.Footer("Invoice " + std::string(kNumber) + " – Page {page} of {pages}");
  Need(doc, doc.Create(file));
  StartPage(doc);
  DrawLetterhead(doc);
  DrawAddress(doc);
  const int y = DrawTotals(doc, rows, DrawTable(doc, rows, 200));
  DrawTerms(doc, y + 28);
  if (!doc.LostCharacters().empty()) {
    throw std::runtime_error("the fonts have no letters for " + doc.LostCharacters());
  }
  doc.Flush();
  Need(doc, doc.LastRefusal().reason == RefusalReason::None);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 3) {
    std::cerr << "usage: invoice [FOLDER [CSV_FILE]]\n";
    return 2;
  }
  try {
    const std::string folder = argc > 1 ? argv[1] : ".";
    const std::vector<Row> rows =
        vellumark::examples::ReadRows(argc > 2 ? argv[2] : VELLUMARK_EXAMPLES "/invoice.csv");
    WriteInvoice<PDF>(folder + "/invoice.pdf", rows);
    WriteInvoice<PS>(folder + "/invoice.ps", rows);
  } catch (const std::exception& error) {
    std::cerr << "invoice: " << error.what() << '\n';
    return 1;
  }
}
