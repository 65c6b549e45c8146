// SPDX-License-Identifier: MIT
#include "automation/server/bstr.h"

#include <limits>
#include <new>

namespace vellumark::automation {
namespace {

/// A length as the system takes it.
int Length(std::size_t length) {
  if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  return static_cast<int>(length);
}

/// What a conversion answers, which is 0 where the result is too long for it.
std::size_t Converted(int length) {
  if (length <= 0) throw std::bad_alloc();
  return static_cast<std::size_t>(length);
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

std::string TextOf(BSTR text) {
  return text == nullptr ? std::string() : Utf8({text, SysStringLen(text)});
}

BSTR NewBstr(std::string_view utf8) {
  const std::wstring wide = Wide(utf8);
  const BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (text == nullptr) throw std::bad_alloc();
  return text;
}

}  // namespace vellumark::automation
