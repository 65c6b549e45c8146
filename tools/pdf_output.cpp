// SPDX-License-Identifier: MIT
#include "tools/pdf_output.h"

#include "tools/pdf_escapes.h"

namespace vellumark::tools {

void PdfOutput::SetProperties(const Properties& properties) {
  pdf_.Title(EscapePdfProperty(properties.title));
  pdf_.Author(EscapePdfProperty(properties.author));
  pdf_.Creator(EscapePdfProperty(properties.creator));
  pdf_.Producer(EscapePdfProperty(properties.producer));
  pdf_.Subject(EscapePdfProperty(properties.subject));
  pdf_.Keywords(EscapePdfProperty(properties.keywords));
}

bool PdfOutput::WriteText(std::string_view codes, std::string_view link) {
  return pdf_.WriteText(EscapePdfPageText(codes), false, 0, AlignmentConstants::NoAlignment,
                        EscapePdfLink(link));
}

bool PdfOutput::WriteTitle(std::string_view codes, BulletConstants bullet, std::string_view link) {
  return pdf_.WriteTitle(EscapePdfPageText(codes), AlignmentConstants::NoAlignment, bullet,
                         EscapePdfLink(link));
}

bool PdfOutput::DrawPicture(std::string_view file, EncodingConstants encoding,
                            std::string_view link) {
  return pdf_.DrawPicture(file, AlignmentConstants::NoAlignment, EscapePdfLink(link), encoding);
}

}  // namespace vellumark::tools
