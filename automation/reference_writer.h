// SPDX-License-Identifier: MIT
//
// Writes docs/reference.md: every member and every enumeration, for hosts of any language.
//
// The page is kept in the tree so that it can be read there. A test fails when it no longer says
// what the tables say, and `./dev reference` writes it anew.
#pragma once

#include <string>

namespace vellumark::automation {

[[nodiscard]] std::string WriteReference();

}  // namespace vellumark::automation
