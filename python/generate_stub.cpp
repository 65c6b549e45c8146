// SPDX-License-Identifier: MIT
//
// Writes the Python module's stub at build time:
//
//     vellumark_stub FILE
#include <cstdio>
#include <string>

#include "python/stub_writer.h"

int main(int argument_count, char** arguments) {
  if (argument_count != 2) {
    (void)std::fputs("usage: vellumark_stub FILE\n", stderr);
    return 2;
  }
  std::FILE* file = std::fopen(arguments[1], "wb");
  if (file == nullptr) {
    std::perror(arguments[1]);
    return 1;
  }
  const std::string stub = vellumark::python::WriteStub();
  const bool written = std::fwrite(stub.data(), 1, stub.size(), file) == stub.size();
  const bool closed = std::fclose(file) == 0;
  return written && closed ? 0 : 1;
}
