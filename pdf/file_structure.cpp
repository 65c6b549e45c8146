// SPDX-License-Identifier: MIT
//
// The head of a file, and what Flush puts behind its last page:
//
//     17 0 obj << /Font << /F0 3 0 R ... >> /XObject << ... >> >> endobj
//     2 0 obj << /Type /Pages ... >> endobj
//     25 0 obj << /Type /Catalog /Pages 2 0 R >> endobj
//     xref
//     0 26
//     0000000000 65535 f
//     0000000018 00000 n             one line for each object
//     trailer << /Size 26 /Info 1 0 R /Root 25 0 R /ID [ ... ] >>
//     startxref
//     1234
//     %%EOF
#include <limits>
#include <string>

#include "document/pasted_string.h"
#include "document/resume_next.h"
#include "encoding/content_hash.h"
#include "encoding/encode_stream.h"
#include "pdf/content_stream.h"
#include "pdf/syntax.h"
#include "pdf/text_string.h"

namespace vellumark::pdf {
namespace {

/// "/I0 3 0 R /I1 4 0 R "
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
  const bool narrow = state_.oddities.ObjectNumbersHave16Bits();
  objects_.table = ObjectTable(narrow ? ObjectTable::kHighest16Bits : highest_number_);
  objects_.pages.clear();
  objects_.images.clear();
  objects_.page_nodes.clear();
  objects_.fonts_used = {};
  glyphs_.Clear();
  objects_.codes_beyond_ascii = false;
  objects_.image_keys.clear();
  image_indices_.clear();
  least_version_ = 2;
  objects_.held_places.clear();
  objects_.bookmarks.clear();
  anchors_.clear();
  linked_names_.clear();
  filled_place_ = nullptr;
  mark_ = {};
  header_ = lines_.Append("%PDF-1.2");
  lines_.Append("%\xE2\xE3\xCF\xD3");  // four bytes above 127 tell transfer programs: binary
  WriteInformation(now);
  objects_.page_nodes.push_back(objects_.table.Reserve());
  if (state_.oddities.FontsNameABaseEncoding()) WriteClassicFonts();
  objects_.resources = objects_.table.Reserve();
}

/// The header's version, if the document uses what came with a later one.
void PdfWriter::WriteVersion() {
  constexpr int kVersionAsBegun = 2;
  if (least_version_ > kVersionAsBegun) {
    lines_.Replace(header_, "%PDF-1." + std::to_string(least_version_));
  }
}

void PdfWriter::WriteInformation(const LocalTime& now) {
  objects_.info = BeginObject();
  lines_.Append("<<");
  WriteProperty("/Author ", state_.author);
  lines_.Append("/CreationDate (D:", Padded<4>{now.year}, Padded<2>{now.month}, Padded<2>{now.day},
                Padded<2>{now.hour}, Padded<2>{now.minute}, Padded<2>{now.second}, ')');
  WriteProperty("/Creator ", state_.creator);
  WriteProperty("/Producer ", properties.producer);
  WriteProperty("/Title ", state_.title);
  WriteProperty("/Subject ", properties.subject);
  WriteProperty("/Keywords ", properties.keywords);
  lines_.Append(">>");
  lines_.Append("endobj");
}

void PdfWriter::WriteProperty(std::string_view key, const document::HostText& text) {
  if (state_.oddities.PropertiesAreUnescaped()) {
    lines_.Append(key, document::PastedString{text.bytes});
  } else if (!text.utf8.empty()) {
    lines_.Append(key, TextString{text.utf8});
  }
}

document::RefusalNote PdfWriter::EndDocument() {
  int page_tree = 0;
  int outlines = 0;
  int catalog = 0;
  std::int64_t cross_references = 0;
  return document::ResumeNext(
      [&] { WriteVersion(); }, [&] { WriteResources(); },  //
      [&] { page_tree = WritePageTree(); }, [&] { outlines = WriteOutlines(); },
      [&] { catalog = WriteCatalog(page_tree, outlines); },
      [&] { cross_references = Position(); },  //
      [&] { WriteCrossReferences(); }, [&] { WriteTrailer(catalog, cross_references); });
}

void PdfWriter::WriteResources() {
  const bool classic = state_.oddities.FontsNameABaseEncoding();
  const std::string fonts = classic ? NamedReferences("/F", objects_.fonts) : WriteUsedFonts();
  BeginReservedObject(objects_.resources);
  lines_.Append("<<");
  if (!fonts.empty()) {
    lines_.Append("/Font << ", fonts, ">>");
    if (classic) lines_.Append("/ProcSet [ /PDF /Text /ImageC /ImageI ]");
  }
  if (!objects_.images.empty()) {
    lines_.Append("/XObject << ", NamedReferences("/I", objects_.images), ">>");
  }
  lines_.Append(">>");
  lines_.Append("endobj");
}

int PdfWriter::WriteCatalog(int page_tree, int outlines) {
  const int catalog = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /Catalog");
  lines_.Append("/Pages ", Reference{page_tree});
  if (outlines != 0) {
    lines_.Append("/Outlines ", Reference{outlines});
    lines_.Append("/PageMode /UseOutlines");
  }
  WriteAnchors();
  lines_.Append(">>");
  lines_.Append("endobj");
  return catalog;
}

void PdfWriter::WriteCrossReferences() {
  // With its line end an entry has 20 bytes: CR LF in the classic output, which makes 21, or LF.
  const int count = objects_.table.Count();
  lines_.Append("xref");
  lines_.Append("0 ", count + 1);
  lines_.Append("0000000000 65535 f ");
  for (int number = 1; number <= count; ++number) {
    lines_.Append(Padded<10>{objects_.table.Offset(number)}, " 00000 n ");
  }
}

void PdfWriter::WriteTrailer(int catalog, std::int64_t cross_references) {
  lines_.Append("trailer");
  lines_.Append("<<");
  lines_.Append("/Size ", objects_.table.Count() + 1);
  lines_.Append("/Info ", Reference{objects_.info});
  lines_.Append("/Root ", Reference{catalog});
  if (!state_.oddities.PositionsLeaveOutLineEnds()) {
    encoding::ContentHash hash;
    lines_.ForEachPiece([&](std::string_view piece) { hash.Add(piece); });
    const std::string id = encoding::EncodeStream(hash.Value(), EncodingConstants::ASCIIHex);
    lines_.Append("/ID [ <", id, " <", id, " ]");  // the encoder's end marker closes each
  }
  lines_.Append(">>");
  lines_.Append("startxref");
  lines_.Append(cross_references);
  lines_.Append("%%EOF");
}

}  // namespace vellumark::pdf
