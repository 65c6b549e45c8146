// SPDX-License-Identifier: MIT
#include "tools/program_begin.h"

#include <csignal>

namespace vellumark::tools {

std::vector<std::string> BeginProgram(int argc, char** argv) {
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
  return {argv, argv + argc};
}

}  // namespace vellumark::tools
