// SPDX-License-Identifier: MIT
#include "automation/server/guid.h"

#include <charconv>

namespace vellumark::automation {
namespace {

template <class T>
T Hexadecimal(std::string_view digits) noexcept {
  T number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  return number;
}

}  // namespace

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

const ClassInfo* FindClass(REFCLSID id) noexcept {
  for (const ClassInfo& info : Classes()) {
    if (IsEqualGUID(id, ToGuid(info.class_id))) return &info;
  }
  return nullptr;
}

}  // namespace vellumark::automation
