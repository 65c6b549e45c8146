// SPDX-License-Identifier: MIT
#include "pdf/pdf_writer.h"
#include "vellumark/document_parts.h"

namespace vellumark {

/// A document's parts, with the writer's own properties at hand.
class PDF::PdfParts final : public Document::Parts {
 public:
  explicit PdfParts(std::shared_ptr<Platform> used_platform)
      : Parts(std::move(used_platform), "1.2",
              [](const document::State& state, document::LineBuffer& lines)
                  -> std::unique_ptr<document::Writer> {
                return std::make_unique<pdf::PdfWriter>(state, lines);
              }) {}

  static pdf::PdfWriter::Properties& Properties(const Parts& parts) {
    return static_cast<pdf::PdfWriter&>(*parts.writer).properties;
  }
};

PDF::PDF() : PDF(NativePlatform()) {}

PDF::PDF(std::shared_ptr<Platform> platform)
    : Document(std::make_unique<PdfParts>(std::move(platform))) {}

PDF::PDF(PDF&& other) noexcept = default;
PDF& PDF::operator=(PDF&& other) noexcept = default;
PDF::~PDF() = default;

std::string PDF::Keywords() const { return PdfParts::Properties(parts()).keywords.utf8; }
void PDF::Keywords(std::string_view keywords) {
  PdfParts::Properties(parts()).keywords = parts().Keep(keywords);
}
std::string PDF::Producer() const { return PdfParts::Properties(parts()).producer.utf8; }
void PDF::Producer(std::string_view producer) {
  PdfParts::Properties(parts()).producer = parts().Keep(producer);
}
std::string PDF::Subject() const { return PdfParts::Properties(parts()).subject.utf8; }
void PDF::Subject(std::string_view subject) {
  PdfParts::Properties(parts()).subject = parts().Keep(subject);
}

bool PDF::WriteText(std::string_view text, bool carriagereturn, std::uint8_t dy,
                    AlignmentConstants alignment, std::string_view hyperlink) noexcept {
  return parts().WriteText(text, carriagereturn, dy, alignment, hyperlink);
}

bool PDF::WriteTitle(std::string_view text, AlignmentConstants alignment, BulletConstants bullet,
                     std::string_view hyperlink) noexcept {
  return parts().WriteTitle(text, alignment, bullet, hyperlink);
}

}  // namespace vellumark
