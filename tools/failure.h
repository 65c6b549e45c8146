// SPDX-License-Identifier: MIT
//
// Failure: what ends the program with exit status 2.
//
// Its text is the one sentence that the user reads after "vellumark: ". It names the file, the
// option or the line of the input, and has no period.
#pragma once

#include <stdexcept>

namespace vellumark::tools {

class Failure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace vellumark::tools
