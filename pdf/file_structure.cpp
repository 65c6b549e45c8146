// SPDX-License-Identifier: MIT
//
// The fixed head of a file, and what Flush puts behind its last page:
//
//     17 0 obj << /Font << /F0 3 0 R ... >> /ProcSet [ ... ] /XObject << ... >> >> endobj
//     2 0 obj << /Type /Pages ... >> endobj
//     25 0 obj << /Type /Catalog /Pages 2 0 R >> endobj
//     xref
//     0 26
//     0000000000 65535 f
//     0000000018 00000 n             one line for each object
//     trailer << /Size 26 /Info 1 0 R /Root 25 0 R >>
//     startxref
//     1234
//     %%EOF
#include <string>

#include "document/resume_next.h"
#include "layout/font.h"
#include "pdf/oddities.h"
#include "pdf/pdf_writer.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {
namespace {

/// "/F0 3 0 R /F1 4 0 R "
std::string NamedReferences(std::string_view prefix, const std::vector<int>& numbers) {
  std::string references;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    references.append(prefix).append(std::to_string(i)).append(" ");
    references.append(std::to_string(numbers[i])).append(" 0 R ");
  }
  return references;
}

}  // namespace

void PdfWriter::BeginDocument(const LocalTime& now) {
  objects_.table = {};
  lines_.Append("%PDF-1.2");
  lines_.Append("%\xE2\xE3\xCF\xD3");  // four bytes above 127 tell transfer programs: binary
  WriteInformation(now);
  objects_.page_tree = objects_.table.Reserve();
  WriteFonts();
  objects_.resources = objects_.table.Reserve();
  objects_.pages.clear();
  objects_.images.clear();
}

void PdfWriter::WriteInformation(const LocalTime& now) {
  objects_.info = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Author ", oddities::UnescapedText(state_.author.bytes));
  lines_.Append("/CreationDate (D:", Padded<4>{now.year}, Padded<2>{now.month}, Padded<2>{now.day},
                Padded<2>{now.hour}, Padded<2>{now.minute}, Padded<2>{now.second}, ')');
  lines_.Append("/Creator ", oddities::UnescapedText(state_.creator.bytes));
  lines_.Append("/Producer ", oddities::UnescapedText(properties.producer.bytes));
  lines_.Append("/Title ", oddities::UnescapedText(state_.title.bytes));
  lines_.Append("/Subject ", oddities::UnescapedText(properties.subject.bytes));
  lines_.Append("/Keywords ", oddities::UnescapedText(properties.keywords.bytes));
  lines_.Append(">>");
  lines_.Append("endobj");
}

void PdfWriter::WriteFonts() {
  objects_.fonts.clear();
  for (const std::string_view name : layout::kFontNames) {
    const auto index = objects_.fonts.size();
    objects_.fonts.push_back(BeginObject());
    lines_.Append("<<");
    lines_.Append("/Type /Font");
    lines_.Append("/Subtype /Type1");
    lines_.Append("/BaseFont /", name);
    lines_.Append(oddities::kFontEncoding);
    lines_.Append("/Name /F", index);
    lines_.Append(">>");
    lines_.Append("endobj");
  }
}

document::RefusalNote PdfWriter::EndDocument() {
  int catalog = 0;
  std::int32_t cross_references = 0;
  return document::ResumeNext([&] { WriteResources(); },          //
                              [&] { WritePageTree(); },           //
                              [&] { catalog = WriteCatalog(); },  //
                              [&] { cross_references = oddities::Position(lines_); },
                              [&] { WriteCrossReferences(); },  //
                              [&] { WriteTrailer(catalog, cross_references); });
}

void PdfWriter::WriteResources() {
  BeginReservedObject(objects_.resources);
  lines_.Append("<<");
  if (!objects_.fonts.empty()) {
    lines_.Append("/Font << ", NamedReferences("/F", objects_.fonts), ">>");
    lines_.Append("/ProcSet [ /PDF /Text /ImageC /ImageI ]");
  }
  if (!objects_.images.empty()) {
    lines_.Append("/XObject << ", NamedReferences("/I", objects_.images), ">>");
  }
  lines_.Append(">>");
  lines_.Append("endobj");
}

int PdfWriter::WriteCatalog() {
  const int catalog = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /Catalog");
  lines_.Append("/Pages ", Reference{objects_.page_tree});
  lines_.Append(">>");
  lines_.Append("endobj");
  return catalog;
}

void PdfWriter::WriteCrossReferences() {
  const int count = objects_.table.Count();
  lines_.Append("xref");
  lines_.Append("0 ", count + 1);
  lines_.Append("0000000000 65535 f ");
  for (int number = 1; number <= count; ++number) {
    lines_.Append(Padded<10>{objects_.table.Offset(number)}, " 00000 n ");
  }
}

void PdfWriter::WriteTrailer(int catalog, std::int32_t cross_references) {
  lines_.Append("trailer");
  lines_.Append("<<");
  lines_.Append("/Size ", objects_.table.Count() + 1);
  lines_.Append("/Info ", Reference{objects_.info});
  lines_.Append("/Root ", Reference{catalog});
  lines_.Append(">>");
  lines_.Append("startxref");
  lines_.Append(cross_references);
  lines_.Append("%%EOF");
}

}  // namespace vellumark::pdf
