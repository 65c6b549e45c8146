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

void SetCode(std::string_view text, const BlockSetting& setting);

}  // namespace vellumark::tools
