// SPDX-License-Identifier: MIT
//
// A sample picture of the examples, as the bytes of its file.
//
//     Sample("landscape.jpg")
#pragma once

#include <string>

namespace vellumark::tests {

/// A test fails if there is none of this name.
std::string Sample(const std::string& name);

}  // namespace vellumark::tests
