// SPDX-License-Identifier: MIT
#include "tests/sample_picture.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace vellumark::tests {

std::string Sample(const std::string& name) {
  std::ifstream file(VELLUMARK_PICTURES "/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace vellumark::tests
