// SPDX-License-Identifier: MIT
//
// As much of the automation runtime as the server's calls need, for a system that has none: the
// types, and in runtime.cpp the functions. Names, numbers and layouts are those of the runtime, so
// that automation/server compiles as it is and a fuzzer reaches it.
//
// What differs: wide characters have 32 bits, objects and dates as texts are not known, and
// conversions follow the C locale.
#pragma once

#include <cstddef>
#include <cstdint>

using HRESULT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using WORD = std::uint16_t;
using LCID = std::uint32_t;
using DISPID = std::int32_t;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using OLECHAR = wchar_t;
using BSTR = OLECHAR*;

// NOLINTBEGIN(cppcoreguidelines-macro-usage,cppcoreguidelines-avoid-c-arrays)
constexpr HRESULT ResultOf(std::uint32_t bits) { return static_cast<HRESULT>(bits); }
inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT E_INVALIDARG = ResultOf(0x80070057);
inline constexpr HRESULT E_OUTOFMEMORY = ResultOf(0x8007000E);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = ResultOf(0x80020004);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = ResultOf(0x80020005);
inline constexpr HRESULT DISP_E_OVERFLOW = ResultOf(0x8002000A);
inline constexpr HRESULT DISP_E_ARRAYISLOCKED = ResultOf(0x8002000D);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = ResultOf(0x8002000E);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = ResultOf(0x8002000F);
inline constexpr DISPID DISPID_PROPERTYPUT = -3;
inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;
inline constexpr UINT CP_UTF8 = 65001;

constexpr bool FAILED(HRESULT result) { return result < 0; }
constexpr bool SUCCEEDED(HRESULT result) { return result >= 0; }

enum : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000
};

struct GUID {
  unsigned long Data1;
  unsigned short Data2;
  unsigned short Data3;
  unsigned char Data4[8];
};

struct SAFEARRAY {
  std::uint16_t cDims;
  std::uint32_t cLocks;
  void* pvData;
  LONG first;
  LONG count;
};

struct CY {
  std::int64_t int64;
};

struct DECIMAL {
  std::uint16_t wReserved;
  std::uint8_t scale;
  std::uint8_t sign;
  std::uint32_t Hi32;
  std::uint64_t Lo64;
};

struct VARIANT {
  union {
    struct {
      VARTYPE vt;
      union {
        std::int8_t cVal;
        std::uint8_t bVal;
        std::int16_t iVal;
        std::uint16_t uiVal;
        std::int32_t lVal;
        std::uint32_t ulVal;
        std::int64_t llVal;
        std::uint64_t ullVal;
        float fltVal;
        double dblVal;
        CY cyVal;
        BSTR bstrVal;
        SAFEARRAY* parray;
        void* byref;
      };
    } value;
    DECIMAL decVal;
  };
};

struct DISPPARAMS {
  VARIANT* rgvarg;
  DISPID* rgdispidNamedArgs;
  UINT cArgs;
  UINT cNamedArgs;
};

#define V_VT(v) ((v)->value.vt)
#define V_ISBYREF(v) ((V_VT(v) & VT_BYREF) != 0)
#define V_ISARRAY(v) ((V_VT(v) & VT_ARRAY) != 0)
#define V_I1(v) ((v)->value.cVal)
#define V_UI1(v) ((v)->value.bVal)
#define V_I2(v) ((v)->value.iVal)
#define V_UI2(v) ((v)->value.uiVal)
#define V_I4(v) ((v)->value.lVal)
#define V_UI4(v) ((v)->value.ulVal)
#define V_I8(v) ((v)->value.llVal)
#define V_UI8(v) ((v)->value.ullVal)
#define V_R4(v) ((v)->value.fltVal)
#define V_R8(v) ((v)->value.dblVal)
#define V_CY(v) ((v)->value.cyVal)
#define V_BOOL(v) ((v)->value.iVal)
#define V_ERROR(v) ((v)->value.lVal)
#define V_BSTR(v) ((v)->value.bstrVal)
#define V_ARRAY(v) ((v)->value.parray)
#define V_DECIMAL(v) ((v)->decVal)
#define V_BYREF(v) ((v)->value.byref)
#define V_VARIANTREF(v) (static_cast<VARIANT*>(V_BYREF(v)))
#define V_UI1REF(v) (static_cast<std::uint8_t*>(V_BYREF(v)))
#define V_I2REF(v) (static_cast<std::int16_t*>(V_BYREF(v)))
#define V_I4REF(v) (static_cast<std::int32_t*>(V_BYREF(v)))
#define V_I8REF(v) (static_cast<std::int64_t*>(V_BYREF(v)))
#define V_R4REF(v) (static_cast<float*>(V_BYREF(v)))
#define V_R8REF(v) (static_cast<double*>(V_BYREF(v)))
#define V_CYREF(v) (static_cast<CY*>(V_BYREF(v)))
#define V_BSTRREF(v) (static_cast<BSTR*>(V_BYREF(v)))
#define V_DECIMALREF(v) (static_cast<DECIMAL*>(V_BYREF(v)))
#define V_ARRAYREF(v) (static_cast<SAFEARRAY**>(V_BYREF(v)))
// NOLINTEND(cppcoreguidelines-macro-usage,cppcoreguidelines-avoid-c-arrays)

void VariantInit(VARIANT* variant) noexcept;
HRESULT VariantClear(VARIANT* variant) noexcept;
HRESULT VariantChangeTypeEx(VARIANT* to, VARIANT* from, LCID lcid, WORD flags, VARTYPE type);
BSTR SysAllocStringLen(const OLECHAR* text, UINT length) noexcept;
void SysFreeString(BSTR text) noexcept;
UINT SysStringLen(const OLECHAR* text) noexcept;
UINT SafeArrayGetDim(SAFEARRAY* array) noexcept;
HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound) noexcept;
HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound) noexcept;
HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data) noexcept;
HRESULT SafeArrayUnaccessData(SAFEARRAY* array) noexcept;
int WideCharToMultiByte(UINT page, unsigned flags, const wchar_t* text, int length, char* to,
                        int room, const char* missing, int* used_missing) noexcept;
int MultiByteToWideChar(UINT page, unsigned flags, const char* text, int length, wchar_t* to,
                        int room) noexcept;
