// SPDX-License-Identifier: MIT
//
// How the server refuses a call, and what it says about a run-time error.
#include <cstdio>
#include <limits>
#include <vector>

#include "tests/windows/automation_object.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

struct Refusal {
  const char* fact;
  const wchar_t* member;
  int flags;
  HRESULT result;
  UINT wrong;  ///< kNone if the client is not told
};

void CheckRefusal(Facts& facts, IDispatch* pdf, const Refusal& expected,
                  std::initializer_list<VARIANT> arguments,
                  std::initializer_list<DISPID> names = {}) {
  const Outcome got = Invoke(pdf, IdOf(pdf, expected.member), arguments, names, expected.flags);
  const bool told = expected.wrong == Outcome::kNone || got.wrong == expected.wrong;
  std::string found = Hexadecimal(got.result);
  found += ", argument ";
  found += std::to_string(got.wrong);
  facts.Check(expected.fact, got.result == expected.result && told, found);
}

void CheckCounts(Facts& facts, IDispatch* pdf) {
  constexpr int kCall = DISPATCH_METHOD;
  constexpr UINT kNone = Outcome::kNone;
  const Number one(1);
  CheckRefusal(facts, pdf, {"too many", L"SetThickness", kCall, DISP_E_BADPARAMCOUNT, kNone},
               {one, one});
  CheckRefusal(facts, pdf, {"too few", L"SetColor", kCall, DISP_E_BADPARAMCOUNT, kNone},
               {one, one});
  CheckRefusal(facts, pdf, {"left out", L"SetColor", kCall, DISP_E_PARAMNOTOPTIONAL, 1},
               {one, Omitted(), one});
  CheckRefusal(facts, pdf, {"not named", L"WriteText", kCall, DISP_E_PARAMNOTOPTIONAL, kNone},
               {one}, {2});
  CheckRefusal(facts, pdf, {"no such name", L"SetColor", kCall, DISP_E_PARAMNOTFOUND, 1},
               {one, one, one}, {1, 3});
  CheckRefusal(facts, pdf, {"named twice", L"SetColor", kCall, DISP_E_PARAMNOTFOUND, 1},
               {one, one, one}, {1, 1});
  CheckRefusal(facts, pdf, {"given by place too", L"SetColor", kCall, DISP_E_PARAMNOTFOUND, 0},
               {one, one, one}, {0});
  CheckRefusal(facts, pdf,
               {"read with one", L"Title", DISPATCH_PROPERTYGET, DISP_E_BADPARAMCOUNT, kNone},
               {one});
}

void CheckKinds(Facts& facts, IDispatch* pdf) {
  constexpr UINT kNone = Outcome::kNone;
  constexpr int kLet = DISPATCH_PROPERTYPUT;
  const Number one(1);
  const auto missing = DISP_E_MEMBERNOTFOUND;
  CheckRefusal(facts, pdf, {"no such member", L"Nothing", DISPATCH_METHOD, missing, kNone}, {});
  CheckRefusal(facts, pdf, {"let of Version", L"Version", kLet, missing, kNone}, {one},
               {DISPID_PROPERTYPUT});
  CheckRefusal(facts, pdf, {"let of a method", L"SetThickness", kLet, missing, kNone}, {one},
               {DISPID_PROPERTYPUT});
  CheckRefusal(facts, pdf, {"let by reference", L"Title", DISPATCH_PROPERTYPUTREF, missing, kNone},
               {one}, {DISPID_PROPERTYPUT});
  CheckRefusal(facts, pdf, {"call of a property", L"Title", DISPATCH_METHOD, missing, kNone}, {});
  CheckRefusal(facts, pdf, {"read of a method", L"GetDash", DISPATCH_PROPERTYGET, missing, kNone},
               {});
  CheckRefusal(facts, pdf, {"let without its name", L"Title", kLet, DISP_E_PARAMNOTFOUND, 0},
               {one});
  CheckRefusal(facts, pdf, {"let of two", L"Title", kLet, DISP_E_BADPARAMCOUNT, kNone}, {one, one},
               {DISPID_PROPERTYPUT});
}

void CheckMismatches(Facts& facts, IDispatch* pdf) {
  constexpr int kCall = DISPATCH_METHOD;
  const Number one(1);
  CheckRefusal(facts, pdf, {"not a number at all", L"SetColor", kCall, DISP_E_TYPEMISMATCH, 1},
               {one, Text(L"red"), one});
  CheckRefusal(facts, pdf, {"Null", L"SetColor", kCall, DISP_E_TYPEMISMATCH, 2},
               {one, one, Bare(VT_NULL)});
  CheckRefusal(facts, pdf, {"too great", L"SetColor", kCall, DISP_E_OVERFLOW, 0},
               {Number(256), one, one});
  std::int16_t below = -1;
  CheckRefusal(facts, pdf, {"too small", L"SetColor", kCall, DISP_E_OVERFLOW, 0},
               {Reference(VT_I2, &below), one, one});
  std::int8_t negative = -1;
  CheckRefusal(facts, pdf, {"too small in as many bits", L"SetColor", kCall, DISP_E_OVERFLOW, 0},
               {Reference(VT_I1, &negative), one, one});
  std::uint16_t great = 40000;
  CheckRefusal(facts, pdf, {"too great in as many bits", L"SetPosition", kCall, DISP_E_OVERFLOW, 1},
               {one, Reference(VT_UI2, &great)});
  CheckRefusal(facts, pdf, {"NaN", L"SetColor", kCall, DISP_E_OVERFLOW, 0},
               {Number(std::numeric_limits<double>::quiet_NaN()), one, one});
  ClientVariant endless;
  endless.vt = VT_BYREF | VT_VARIANT;
  endless.pvarVal = &endless;
  CheckRefusal(facts, pdf, {"its own reference", L"SetColor", kCall, DISP_E_TYPEMISMATCH, 0},
               {endless, one, one});
  CheckRefusal(facts, pdf, {"an object", L"SetColor", kCall, DISP_E_TYPEMISMATCH, 0},
               {Bare(VT_DISPATCH), one, one});
  CheckRefusal(facts, pdf, {"a null reference", L"SetColor", kCall, DISP_E_TYPEMISMATCH, 0},
               {Reference(VT_I4, nullptr), one, one});
}

}  // namespace

void CheckRefusals(Facts& facts, IDispatch* pdf) {
  CheckCounts(facts, pdf);
  CheckKinds(facts, pdf);
  CheckMismatches(facts, pdf);

  DISPPARAMS none{};
  DISPPARAMS unsound{nullptr, nullptr, 1, 0};
  const DISPID version = IdOf(pdf, L"Version");
  const auto get = [&](REFIID riid, DISPPARAMS* arguments) {
    return pdf->Invoke(version, riid, 0, DISPATCH_PROPERTYGET, arguments, nullptr, nullptr,
                       nullptr);
  };
  facts.Check("an interface", get(IID_IDispatch, &none) == DISP_E_UNKNOWNINTERFACE);
  facts.Check("arguments without an array", get(IID_NULL, &unsound) == E_INVALIDARG);
  facts.Check("null pointers for what comes back are fine", get(IID_NULL, &none) == S_OK);
}

void CheckRunTimeErrors(Facts& facts, IDispatch* new_document) {
  std::int32_t red = -1;
  const DISPID get = IdOf(new_document, L"GetColor");
  const Outcome got = Invoke(new_document, get, {Number(0), Number(0), Reference(VT_I4, &red)});
  facts.Check("a run-time error has a number, a source and a description",
              got.result == DISP_E_EXCEPTION && got.exception.wCode == 0 &&
                  got.exception.scode == static_cast<SCODE>(0x800A0009) &&
                  got.exception.bstrSource != nullptr &&
                  std::wstring_view(got.exception.bstrSource) == L"Vellumark" &&
                  got.exception.bstrDescription != nullptr &&
                  std::wstring_view(got.exception.bstrDescription) == L"Subscript out of range",
              Hexadecimal(got.result));
  facts.Check("and writes nothing", red == -1);
  std::vector<VARIANT> arguments(3);
  DISPPARAMS list{arguments.data(), nullptr, 3, 0};
  facts.Check("a client that passes no place for them learns of the error too",
              new_document->Invoke(get, IID_NULL, 0, DISPATCH_METHOD, &list, nullptr, nullptr,
                                   nullptr) == DISP_E_EXCEPTION);
}

}  // namespace vellumark::tests
