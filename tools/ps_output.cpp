// SPDX-License-Identifier: MIT
#include "tools/ps_output.h"

namespace vellumark::tools {

void PsOutput::SetProperties(const Properties& properties) {
  ps_.Title(EscapePsProperty(properties.title));
  ps_.Author(EscapePsProperty(properties.author));
  ps_.Creator(EscapePsProperty(properties.creator));
}

bool PsOutput::WriteText(std::string_view codes, std::string_view /*link*/) {
  return ps_.WriteText(EscapePsPageText(codes));
}

bool PsOutput::WriteTitle(std::string_view codes, BulletConstants bullet,
                          std::string_view /*link*/) {
  return ps_.WriteTitle(EscapePsPageText(codes), AlignmentConstants::NoAlignment, bullet);
}

bool PsOutput::DrawPicture(std::string_view file, EncodingConstants encoding,
                           std::string_view /*link*/) {
  return ps_.DrawPicture(file, AlignmentConstants::NoAlignment, encoding);
}

}  // namespace vellumark::tools
