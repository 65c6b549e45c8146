// SPDX-License-Identifier: MIT
#include "api/document_parts.h"
#include "pdf/pdf_writer.h"

namespace vellumark {

namespace {

std::unique_ptr<document::Writer> MakePdfWriter(const document::State& state,
                                                document::LineBuffer& lines) {
  return std::make_unique<pdf::PdfWriter>(state, lines);
}

pdf::PdfWriter::Properties& PropertiesOf(document::Writer& writer) {
  return static_cast<pdf::PdfWriter&>(writer).properties;
}

}  // namespace

PDF::PDF() : PDF(NativePlatform()) {}

PDF::PDF(std::shared_ptr<Platform> platform)
    : Document(std::make_unique<Parts>(std::move(platform), "1.2", MakePdfWriter)) {}

PDF::PDF(PDF&& other) noexcept = default;
PDF& PDF::operator=(PDF&& other) noexcept = default;
PDF::~PDF() = default;

std::string PDF::Keywords() const { return PropertiesOf(*parts().writer).keywords.utf8; }
void PDF::Keywords(std::string_view keywords) {
  PropertiesOf(*parts().writer).keywords = parts().Keep(keywords);
}
std::string PDF::Producer() const { return PropertiesOf(*parts().writer).producer.utf8; }
void PDF::Producer(std::string_view producer) {
  PropertiesOf(*parts().writer).producer = parts().Keep(producer);
}
std::string PDF::Subject() const { return PropertiesOf(*parts().writer).subject.utf8; }
void PDF::Subject(std::string_view subject) {
  PropertiesOf(*parts().writer).subject = parts().Keep(subject);
}

bool PDF::Compressed() const { return parts().state.compressed; }
void PDF::Compressed(bool compressed) { parts().state.compressed = compressed; }

bool PDF::WriteBookmark(std::string_view text, Int16 level) noexcept {
  return parts().Run([&] { return parts().model.WriteBookmark(text, level.value()); });
}

bool PDF::SetAnchor(std::string_view name) noexcept {
  return parts().Run([&] { return parts().model.SetAnchor(name); });
}

bool PDF::WriteText(std::string_view text, bool carriagereturn, Byte dy,
                    AlignmentConstants alignment, std::string_view hyperlink) noexcept {
  return parts().WriteText(text, carriagereturn, dy, alignment, hyperlink);
}

bool PDF::WriteTitle(std::string_view text, AlignmentConstants alignment, BulletConstants bullet,
                     std::string_view hyperlink) noexcept {
  return parts().WriteTitle(text, alignment, bullet, hyperlink);
}

bool PDF::DrawPicture(std::string_view file, AlignmentConstants alignment,
                      std::string_view hyperlink, EncodingConstants encoding) noexcept {
  return parts().DrawPicture(file, alignment, hyperlink, encoding);
}

bool PDF::DrawPicture(std::span<const std::uint8_t> bytes, AlignmentConstants alignment,
                      std::string_view hyperlink, EncodingConstants encoding) noexcept {
  return parts().DrawPicture(bytes, alignment, hyperlink, encoding);
}

}  // namespace vellumark
