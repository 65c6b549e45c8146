// SPDX-License-Identifier: MIT
#include "tools/classic/ps_escapes.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

TEST(PsEscapes, PageTextEscapesParenthesesAndBackslashes) {
  EXPECT_EQ(EscapePsPageText(R"(a\b(c))"), R"(a\\b\(c\))");
  EXPECT_EQ(EscapePsPageText("\xD0"), "\u00D0");
}

TEST(PsEscapes, PropertiesStayInTheirLine) {
  EXPECT_EQ(EscapePsProperty("a\r\nb (c) é"), "a  b (c) é");
}

}  // namespace
}  // namespace vellumark::tools
