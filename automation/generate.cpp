// SPDX-License-Identifier: MIT
//
// What is made from the member table at build time, on standard output:
//
//     vellumark_generate idl          the type library's source
//     vellumark_generate reference    docs/reference.md
#include <cstdio>
#include <string>
#include <string_view>

#include "automation/idl_writer.h"
#include "automation/reference_writer.h"

int main(int argument_count, char** arguments) {
  const std::string_view what = argument_count == 2 ? arguments[1] : "";
  std::string text;
  if (what == "idl") {
    text = vellumark::automation::WriteIdl();
  } else if (what == "reference") {
    text = vellumark::automation::WriteReference();
  } else {
    (void)std::fputs("usage: vellumark_generate idl|reference\n", stderr);
    return 2;
  }
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  return written && std::fflush(stdout) == 0 ? 0 : 1;
}
