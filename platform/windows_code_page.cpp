// SPDX-License-Identifier: MIT
#include "platform/windows_code_page.h"

#include <array>
#include <windows.h>

#include "platform/utf8.h"
#include "platform/windows_1252.h"

namespace vellumark::platform {
namespace {

bool IsSingleByte(unsigned code_page) {
  CPINFO info{};
  return GetCPInfo(code_page, &info) != 0 && info.MaxCharSize == 1;
}

/// Appends `count` characters, each of one UTF-16 unit, as one byte each. Returns false if the code
/// page cannot do that.
bool AppendBytes(unsigned code_page, const wchar_t* characters, int count, std::string& bytes) {
  std::array<char, 256> piece{};
  const int size = WideCharToMultiByte(code_page, WC_NO_BEST_FIT_CHARS, characters, count,
                                       piece.data(), static_cast<int>(piece.size()), "?", nullptr);
  if (size != count) return false;
  bytes.append(piece.data(), static_cast<std::size_t>(size));
  return true;
}

std::wstring ToUtf16(std::string_view utf8) {
  std::wstring text;
  for (Utf8Reader reader(utf8); !reader.AtEnd();) {
    const char32_t character = reader.Next();
    if (character > 0xFFFF) {
      text.push_back(static_cast<wchar_t>(0xD7C0 + (character >> 10)));
      text.push_back(static_cast<wchar_t>(0xDC00 + (character & 0x3FF)));
    } else {
      text.push_back(static_cast<wchar_t>(character));
    }
  }
  return text;
}

}  // namespace

std::string_view ToCodePage(unsigned code_page, std::string_view utf8, std::string& storage) {
  if (IsAscii(utf8)) return utf8;
  if (!IsSingleByte(code_page)) return ToWindows1252(utf8, storage);
  storage.clear();
  for (Utf8Reader reader(utf8); !reader.AtEnd();) {
    std::array<wchar_t, 256> piece{};
    std::size_t count = 0;
    while (count < piece.size() && !reader.AtEnd()) {
      const char32_t character = reader.Next();
      // Two units would become two "?"; no single-byte code page has any of these characters.
      piece[count++] = static_cast<wchar_t>(character > 0xFFFF ? kReplacementCharacter : character);
    }
    if (!AppendBytes(code_page, piece.data(), static_cast<int>(count), storage)) {
      return ToWindows1252(utf8, storage);
    }
  }
  return storage;
}

std::string_view ToAnsiCodePage(std::string_view utf8, std::string& storage) {
  return ToCodePage(GetACP(), utf8, storage);
}

std::string ToSystemText(std::string_view utf8) {
  const unsigned code_page = GetACP();
  if (IsAscii(utf8) || code_page == CP_UTF8) return std::string(utf8);
  std::string bytes;
  if (IsSingleByte(code_page)) return std::string(ToCodePage(code_page, utf8, bytes));
  const std::wstring text = ToUtf16(utf8);
  const auto convert = [&](char* to, int room) {
    return WideCharToMultiByte(code_page, WC_NO_BEST_FIT_CHARS, text.data(),
                               static_cast<int>(text.size()), to, room, "?", nullptr);
  };
  bytes.resize(static_cast<std::size_t>(convert(nullptr, 0)));
  convert(bytes.data(), static_cast<int>(bytes.size()));
  return bytes;
}

}  // namespace vellumark::platform
