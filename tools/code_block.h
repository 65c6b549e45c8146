// SPDX-License-Identifier: MIT
//
// SetCode: a block of code in Courier on a background.
//
// Lines that are too long are broken, and continued with an indent. If the block is on more than
// one page, at least two of its lines are on each.
#pragma once

#include <string_view>

#include "tools/block_setting.h"

namespace vellumark::tools {

/// `position` is where the text begins in the input.
void SetCode(std::string_view text, SourcePosition position, const BlockSetting& setting);

}  // namespace vellumark::tools
