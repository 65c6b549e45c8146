// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "tools/file_descriptor.h"
#include "tools/program_begin.h"

namespace vellumark::tools {
namespace {

std::string Utf8(const wchar_t* text) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
  if (size <= 1) return {};
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8.data(), size, nullptr, nullptr);
  utf8.pop_back();  // the NUL
  return utf8;
}

}  // namespace

/// The arguments that main gets are in the code page, which lacks most characters.
std::vector<std::string> BeginProgram(int /*argc*/, char** /*argv*/) {
  for (const int stream : {kStandardInput, kStandardOutput}) _setmode(stream, _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 0; i < count; ++i) arguments.push_back(Utf8(wide[i]));
  LocalFree(static_cast<HLOCAL>(wide));
  return arguments;
}

}  // namespace vellumark::tools
