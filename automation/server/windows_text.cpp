// SPDX-License-Identifier: MIT
#include "automation/server/windows_text.h"

#include <charconv>
#include <limits>
#include <new>

namespace vellumark::automation::server {
namespace {

/// A length as the system takes it.
int Length(std::size_t length) {
  if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  return static_cast<int>(length);
}

/// The length that a conversion returned, which is 0 if the result is too long for it.
std::size_t Converted(int length) {
  if (length <= 0) throw std::bad_alloc();
  return static_cast<std::size_t>(length);
}

template <class T>
T Hexadecimal(std::string_view digits) noexcept {
  T number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return number;
}

}  // namespace

std::string Utf8(std::wstring_view text) {
  if (text.empty()) return {};
  const int length = Length(text.size());
  const auto convert = [&](char* to, int room) {
    return WideCharToMultiByte(CP_UTF8, 0, text.data(), length, to, room, nullptr, nullptr);
  };
  std::string result(Converted(convert(nullptr, 0)), '\0');
  Converted(convert(result.data(), Length(result.size())));
  return result;
}

std::wstring Wide(std::string_view utf8) {
  if (utf8.empty()) return {};
  const int length = Length(utf8.size());
  const auto convert = [&](wchar_t* to, int room) {
    return MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, to, room);
  };
  std::wstring result(Converted(convert(nullptr, 0)), L'\0');
  Converted(convert(result.data(), Length(result.size())));
  return result;
}

std::string Utf8(BSTR text) {
  return text == nullptr ? std::string() : Utf8(std::wstring_view(text, SysStringLen(text)));
}

BSTR NewBstr(std::string_view utf8) {
  const std::wstring wide = Wide(utf8);
  const BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (text == nullptr) throw std::bad_alloc();
  return text;
}

GUID ToGuid(std::string_view text) noexcept {
  GUID id{};
  id.Data1 = Hexadecimal<unsigned long>(text.substr(0, 8));
  id.Data2 = Hexadecimal<unsigned short>(text.substr(9, 4));
  id.Data3 = Hexadecimal<unsigned short>(text.substr(14, 4));
  std::size_t at = 19;
  for (unsigned char& byte : id.Data4) {
    if (text[at] == '-') ++at;
    byte = Hexadecimal<unsigned char>(text.substr(at, 2));
    at += 2;
  }
  return id;
}

}  // namespace vellumark::automation::server
