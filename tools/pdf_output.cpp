// SPDX-License-Identifier: MIT
#include "tools/pdf_output.h"

namespace vellumark::tools {

void PdfOutput::SetProperties(const Properties& properties) {
  pdf_.Title(properties.title);
  pdf_.Author(properties.author);
  pdf_.Creator(properties.creator);
  pdf_.Producer(properties.producer);
  pdf_.Subject(properties.subject);
  pdf_.Keywords(properties.keywords);
}

bool PdfOutput::WriteText(std::string_view text, std::string_view link) {
  return pdf_.WriteText(text, false, 0, AlignmentConstants::NoAlignment, link);
}

bool PdfOutput::WriteTitle(std::string_view text, BulletConstants bullet, std::string_view link) {
  return pdf_.WriteTitle(text, AlignmentConstants::NoAlignment, bullet, link);
}

bool PdfOutput::DrawPicture(std::string_view file, EncodingConstants encoding,
                            std::string_view link) {
  return pdf_.DrawPicture(file, AlignmentConstants::NoAlignment, link, encoding);
}

}  // namespace vellumark::tools
