// SPDX-License-Identifier: MIT
#include "tools/ps_output.h"

namespace vellumark::tools {

void PsOutput::SetProperties(const Properties& properties) {
  ps_.Title(properties.title);
  ps_.Author(properties.author);
  ps_.Creator(properties.creator);
}

bool PsOutput::WriteText(std::string_view text, std::string_view /*link*/) {
  return ps_.WriteText(text);
}

bool PsOutput::WriteTitle(std::string_view text, BulletConstants bullet,
                          std::string_view /*link*/) {
  return ps_.WriteTitle(text, AlignmentConstants::NoAlignment, bullet);
}

bool PsOutput::DrawPicture(std::string_view file, EncodingConstants encoding,
                           std::string_view /*link*/) {
  return ps_.DrawPicture(file, AlignmentConstants::NoAlignment, encoding);
}

}  // namespace vellumark::tools
