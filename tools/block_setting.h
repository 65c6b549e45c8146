// SPDX-License-Identifier: MIT
//
// BlockSetting: what the setters of paragraphs, code and tables have in common.
#pragma once

#include "tools/line_composer.h"
#include "tools/page_writer.h"
#include "tools/text_flow.h"
#include "tools/text_style.h"

namespace vellumark::tools {

struct BlockSetting {
  PageWriter& pages;
  TextFlow& flow;
  TextMeasure& measure;
  const TextStyle& style;
};

}  // namespace vellumark::tools
