// SPDX-License-Identifier: MIT
//
// A text run: font, color, place and string.
#include "layout/font.h"
#include "ps/oddities.h"
#include "ps/ps_writer.h"

namespace vellumark::ps {

void PsWriter::ShowText(std::span<const layout::EncodedRun> runs, document::PagePoint baseline) {
  lines_.Append('/', layout::FontName(state_.font), " findfont");
  lines_.Append(state_.font.height, " scalefont");
  lines_.Append("setfont");
  lines_.Append("newpath");
  lines_.Append(state_.color.view(), " setrgbcolor");
  MoveTo(baseline);
  lines_.Append(oddities::UnescapedText(runs.front().bytes), " show");
  lines_.Append("closepath");
}

}  // namespace vellumark::ps
