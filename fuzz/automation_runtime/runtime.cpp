// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <windows.h>

namespace {

/// The length stands before the text, as the runtime has it.
constexpr std::size_t kHead = sizeof(std::uint64_t);

template <class T>
T Referred(const VARIANT& source) {
  T value{};
  const void* const at = V_ISBYREF(&source) ? V_BYREF(&source) : &source.value.cVal;
  std::memcpy(&value, at, sizeof value);
  return value;
}

HRESULT NumberOfText(const OLECHAR* text, double& number) {
  if (text == nullptr || *text == 0) return DISP_E_TYPEMISMATCH;
  wchar_t* end = nullptr;
  number = std::wcstod(text, &end);
  return end == text + SysStringLen(text) ? S_OK : DISP_E_TYPEMISMATCH;
}

HRESULT NumberOf(const VARIANT& source, double& number) {
  switch (V_VT(&source) & ~VT_BYREF) {
    case VT_EMPTY: number = 0; return S_OK;
    case VT_I1: number = Referred<std::int8_t>(source); return S_OK;
    case VT_UI1: number = Referred<std::uint8_t>(source); return S_OK;
    case VT_BOOL:
    case VT_I2: number = Referred<std::int16_t>(source); return S_OK;
    case VT_UI2: number = Referred<std::uint16_t>(source); return S_OK;
    case VT_INT:
    case VT_I4: number = Referred<std::int32_t>(source); return S_OK;
    case VT_UINT:
    case VT_UI4: number = Referred<std::uint32_t>(source); return S_OK;
    case VT_I8: number = static_cast<double>(Referred<std::int64_t>(source)); return S_OK;
    case VT_UI8: number = static_cast<double>(Referred<std::uint64_t>(source)); return S_OK;
    case VT_R4: number = Referred<float>(source); return S_OK;
    case VT_DATE:
    case VT_R8: number = Referred<double>(source); return S_OK;
    case VT_CY: number = static_cast<double>(Referred<CY>(source).int64) / 10000; return S_OK;
    case VT_BSTR: return NumberOfText(Referred<BSTR>(source), number);
    default: return DISP_E_TYPEMISMATCH;
  }
}

template <class T>
HRESULT Round(double number, T& to) {
  const double whole = std::nearbyint(number);
  const bool fits = whole >= static_cast<double>(std::numeric_limits<T>::lowest()) &&
                    whole < std::ldexp(1.0, std::numeric_limits<T>::digits);
  if (!fits) return DISP_E_OVERFLOW;
  to = static_cast<T>(whole);
  return S_OK;
}

HRESULT TextOf(const VARIANT& source, BSTR& to) {
  std::wstring text;
  if ((V_VT(&source) & ~VT_BYREF) == VT_BSTR) {
    const BSTR given = Referred<BSTR>(source);
    if (given != nullptr) text.assign(given, SysStringLen(given));
  } else if (V_VT(&source) != VT_EMPTY) {
    double number = 0;
    const HRESULT result = NumberOf(source, number);
    if (FAILED(result)) return result;
    text = std::to_wstring(number);
  }
  to = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  return S_OK;
}

HRESULT NumberTo(double number, VARTYPE type, VARIANT& to) {
  switch (type) {
    case VT_I1: return Round(number, V_I1(&to));
    case VT_UI1: return Round(number, V_UI1(&to));
    case VT_I2: return Round(number, V_I2(&to));
    case VT_UI2: return Round(number, V_UI2(&to));
    case VT_INT:
    case VT_I4: return Round(number, V_I4(&to));
    case VT_UINT:
    case VT_UI4: return Round(number, V_UI4(&to));
    case VT_I8: return Round(number, V_I8(&to));
    case VT_UI8: return Round(number, V_UI8(&to));
    case VT_CY: return Round(number * 10000, V_CY(&to).int64);
    case VT_BOOL: V_BOOL(&to) = number != 0 ? VARIANT_TRUE : VARIANT_FALSE; return S_OK;
    case VT_DATE:
    case VT_R8: V_R8(&to) = number; return S_OK;
    case VT_R4:
      if (std::fabs(number) > std::numeric_limits<float>::max()) return DISP_E_OVERFLOW;
      V_R4(&to) = static_cast<float>(number);
      return S_OK;
    case VT_DECIMAL: return Round(std::fabs(number), to.decVal.Lo64);
    default: return DISP_E_TYPEMISMATCH;
  }
}

/// One character of malformed UTF-8 is U+FFFD.
wchar_t NextCharacter(const unsigned char*& at, const unsigned char* end) {
  const unsigned first = *at++;
  if (first < 0x80) return static_cast<wchar_t>(first);
  const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC2 ? 1 : 0;
  unsigned character = first & (0x3FU >> static_cast<unsigned>(more));
  for (int i = 0; i < more; ++i) {
    if (at == end || (*at & 0xC0U) != 0x80) return 0xFFFD;
    character = character << 6U | (*at++ & 0x3FU);
  }
  return more == 0 || character > 0x10FFFF ? 0xFFFD : static_cast<wchar_t>(character);
}

std::string Utf8Of(wchar_t character) {
  auto code = static_cast<std::uint32_t>(character);
  if (code > 0x10FFFF || (code >= 0xD800 && code < 0xE000)) code = 0xFFFD;
  if (code < 0x80) return {static_cast<char>(code)};
  std::string bytes;
  const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
  bytes += static_cast<char>((0xF00U >> static_cast<unsigned>(more) & 0xFFU) |
                             code >> static_cast<unsigned>(6 * more));
  for (int i = more - 1; i >= 0; --i) {
    bytes += static_cast<char>(0x80U | (code >> static_cast<unsigned>(6 * i) & 0x3FU));
  }
  return bytes;
}

}  // namespace

void VariantInit(VARIANT* variant) noexcept { std::memset(variant, 0, sizeof *variant); }

HRESULT VariantClear(VARIANT* variant) noexcept {
  if (V_VT(variant) == VT_BSTR) SysFreeString(V_BSTR(variant));
  VariantInit(variant);
  return S_OK;
}

HRESULT VariantChangeTypeEx(VARIANT* to, VARIANT* from, LCID /*lcid*/, WORD /*flags*/,
                            VARTYPE type) {
  VARIANT made;
  VariantInit(&made);
  double number = 0;
  HRESULT result = S_OK;
  if (type == VT_BSTR) {
    result = TextOf(*from, V_BSTR(&made));
  } else {
    result = NumberOf(*from, number);
    if (SUCCEEDED(result)) result = NumberTo(number, type, made);
  }
  if (FAILED(result)) return result;
  VariantClear(to);
  *to = made;
  V_VT(to) = type;
  return S_OK;
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) noexcept {
  const std::size_t size = length * sizeof(OLECHAR);
  auto* const memory = static_cast<char*>(std::malloc(kHead + size + sizeof(OLECHAR)));  // NOLINT
  if (memory == nullptr) return nullptr;
  const std::uint64_t head = length;
  std::memcpy(memory, &head, kHead);
  auto* const result = reinterpret_cast<BSTR>(memory + kHead);
  if (length > 0) std::memcpy(result, text, size);
  result[length] = 0;
  return result;
}

void SysFreeString(BSTR text) noexcept {
  if (text != nullptr) std::free(reinterpret_cast<char*>(text) - kHead);  // NOLINT
}

UINT SysStringLen(const OLECHAR* text) noexcept {
  if (text == nullptr) return 0;
  std::uint64_t length = 0;
  std::memcpy(&length, reinterpret_cast<const char*>(text) - kHead, kHead);
  return static_cast<UINT>(length);
}

UINT SafeArrayGetDim(SAFEARRAY* array) noexcept { return array->cDims; }
HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT /*dimension*/, LONG* bound) noexcept {
  *bound = array->first;
  return S_OK;
}
HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT /*dimension*/, LONG* bound) noexcept {
  *bound = array->first + array->count - 1;
  return S_OK;
}
HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) noexcept {
  ++array->cLocks;
  *data = array->pvData;
  return S_OK;
}
HRESULT SafeArrayUnaccessData(SAFEARRAY* array) noexcept {
  --array->cLocks;
  return S_OK;
}

int WideCharToMultiByte(UINT /*page*/, unsigned /*flags*/, const wchar_t* text, int length,
                        char* to, int room, const char* /*missing*/,
                        int* /*used_missing*/) noexcept {
  std::string bytes;
  for (int i = 0; i < length; ++i) bytes += Utf8Of(text[i]);
  const int size = static_cast<int>(bytes.size());
  if (room == 0) return size;
  if (size > room) return 0;
  std::memcpy(to, bytes.data(), bytes.size());
  return size;
}

int MultiByteToWideChar(UINT /*page*/, unsigned /*flags*/, const char* text, int length,
                        wchar_t* to, int room) noexcept {
  const auto* at = reinterpret_cast<const unsigned char*>(text);
  const auto* const end = at + length;
  int count = 0;
  for (; at != end; ++count) {
    const wchar_t character = NextCharacter(at, end);
    if (room == 0) continue;
    if (count == room) return 0;
    to[count] = character;
  }
  return count;
}
