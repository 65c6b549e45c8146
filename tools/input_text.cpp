// SPDX-License-Identifier: MIT
#include "tools/input_text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <system_error>

#include "tools/failure.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

// A document of this format holds far less; the limit is there for /dev/zero and its like.
constexpr std::size_t kLargestInput = std::size_t{64} << 20U;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string ReadAll(std::istream& stream, const std::string& name) {
  std::string bytes;
  std::array<char, 65536> block{};
  while (stream) {
    stream.read(block.data(), block.size());
    bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > kLargestInput) throw Failure(name + " is longer than 64 MiB");
  }
  if (stream.bad()) throw Failure("cannot read " + name);
  return bytes;
}

/// "line 3, column 5" of a byte. The text before it is well-formed.
std::string PlaceText(std::string_view bytes, std::size_t at) {
  const std::string_view before = bytes.substr(0, at);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t line_start = before.rfind('\n') + 1;  // npos + 1 is 0
  const std::size_t column = CountCharacters(before.substr(line_start)) + 1;
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

std::string Hexadecimal(char byte) {
  std::array<char, 8> text{};
  const int size = std::snprintf(text.data(), text.size(), "0x%02X",
                                 static_cast<unsigned>(static_cast<unsigned char>(byte)));
  return {text.data(), static_cast<std::size_t>(std::max(size, 0))};
}

}  // namespace

std::string CheckedText(std::string bytes, std::string_view name) {
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  const std::string of_name = " of " + std::string(name);
  if (const std::optional<std::size_t> bad = FirstInvalidByte(bytes)) {
    throw Failure(PlaceText(bytes, *bad) + of_name + " is not UTF-8: byte " +
                  Hexadecimal(bytes[*bad]));
  }
  if (const std::size_t nul = bytes.find('\0'); nul != std::string::npos) {
    throw Failure(PlaceText(bytes, nul) + of_name + " is a NUL: this is no text file");
  }
  return bytes;
}

std::string ReadInput(const std::string& name) {
  if (name == "-") return CheckedText(ReadAll(std::cin, "standard input"), "standard input");
  std::error_code error;
  if (std::filesystem::is_directory(name, error)) throw Failure(name + " is a directory");
  errno = 0;
  std::ifstream file(name, std::ios::binary);
  if (!file) throw Failure("cannot read " + name + ": " + std::generic_category().message(errno));
  return CheckedText(ReadAll(file, name), name);
}

}  // namespace vellumark::tools
