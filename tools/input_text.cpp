// SPDX-License-Identifier: MIT
#include "tools/input_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <system_error>
#include <utility>

#include "tools/failure.h"
#include "tools/file_descriptor.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

// More than a document holds; endless inputs such as /dev/zero end here.
constexpr std::size_t kLargestInput = std::size_t{64} << 20U;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string ReadAll(const std::string& name) {
  if (name == "-") return ReadUpTo(kStandardInput, kLargestInput);
  return ReadUpTo(FileDescriptor::OpenToRead(name).number(), kLargestInput);
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
    throw Failure(PlaceText(bytes, nul) + of_name + " is a NUL: this is not a text file");
  }
  return bytes;
}

std::string ReadInput(const std::string& name) {
  const std::string shown = name == "-" ? "standard input" : name;
  std::string bytes;
  try {
    bytes = ReadAll(name);
  } catch (const std::system_error& error) {
    throw Failure("cannot read " + shown + ": " + error.code().message());
  }
  if (bytes.size() > kLargestInput) throw Failure(shown + " is longer than 64 MiB");
  return CheckedText(std::move(bytes), shown);
}

}  // namespace vellumark::tools
