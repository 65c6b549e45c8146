// SPDX-License-Identifier: MIT
//
// What automation clients pass and get back: names, coercion, references, texts.
#include <cstdio>
#include <cstring>

#include "tests/bmp_file.h"
#include "tests/windows/automation_object.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

void CheckNames(Facts& facts, IDispatch* pdf) {
  wchar_t member[] = L"setcolor", blue[] = L"BLUE", no_name[] = L"violet", green[] = L"green";
  wchar_t* names[] = {member, blue, no_name, green};
  DISPID ids[4];
  const HRESULT found = pdf->GetIDsOfNames(IID_NULL, names, 4, LOCALE_NEUTRAL, ids);
  facts.Check("known names are found beside an unknown one, in either case",
              found == DISP_E_UNKNOWNNAME && ids[0] == IdOf(pdf, L"SetColor") && ids[1] == 2 &&
                  ids[2] == DISPID_UNKNOWN && ids[3] == 1,
              Hexadecimal(found));
  names[0] = no_name;
  facts.Check("the parameters of an unknown member are unknown",
              pdf->GetIDsOfNames(IID_NULL, names, 2, LOCALE_NEUTRAL, ids) == DISP_E_UNKNOWNNAME &&
                  ids[0] == DISPID_UNKNOWN && ids[1] == DISPID_UNKNOWN);
  facts.Check(
      "names are asked of no other interface",
      pdf->GetIDsOfNames(IID_IDispatch, names, 1, LOCALE_NEUTRAL, ids) == DISP_E_UNKNOWNINTERFACE);
}

void CheckNamedArguments(Facts& facts, IDispatch* pdf) {
  const DISPID set = IdOf(pdf, L"SetColor"), get = IdOf(pdf, L"GetColor");
  std::uint8_t red = 0, green = 0, blue = 0;
  const auto color_is = [&](int r, int g, int b) {
    Invoke(pdf, get,
           {Reference(VT_UI1, &blue), Reference(VT_UI1, &green), Reference(VT_UI1, &red)});
    return red == r && green == g && blue == b;
  };
  Invoke(pdf, set, {Number(3), Number(2), Number(1)}, {2, 1});
  facts.Check("named arguments stand beside a positional one", color_is(1, 2, 3));
  Invoke(pdf, set, {Number(5), Number(6), Number(4)}, {1, 2, 0});
  facts.Check("named arguments come in any order", color_is(4, 5, 6));
}

void CheckOmittedArguments(Facts& facts, IDispatch* pdf) {
  const DISPID set = IdOf(pdf, L"SetPosition");
  std::int16_t x = 0, y = 0;
  const auto position_is = [&](int there, int below) {
    Invoke(pdf, IdOf(pdf, L"GetPosition"), {Reference(VT_I2, &y), Reference(VT_I2, &x)});
    return x == there && y == below;
  };
  Invoke(pdf, set, {Number(20), Number(10)});
  Invoke(pdf, set, {Number(50)}, {1});
  facts.Check("a named argument leaves the one before to its default", position_is(10, 50));
  Invoke(pdf, set, {Number(60), Omitted()});
  facts.Check("so does an error variant", position_is(10, 60));
  Omitted missing;
  Invoke(pdf, set, {Reference(VT_VARIANT, &missing), Number(30)});
  facts.Check("and one in a variable", position_is(30, 60));
  Invoke(pdf, set, {Number(40)});
  facts.Check("an argument may be missing at the end", position_is(40, 60));
}

void CheckCoercion(Facts& facts, IDispatch* pdf) {
  const DISPID set = IdOf(pdf, L"SetThickness"), get = IdOf(pdf, L"GetThickness");
  constexpr LCID kGerman = 0x0407;
  const auto thickness_after = [&](const VARIANT& argument, LCID lcid) {
    Invoke(pdf, set, {argument}, {}, DISPATCH_METHOD, lcid);
    const Outcome got = Invoke(pdf, get, {}, {}, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
    return V_VT(&got.value) == VT_UI1 ? int{V_UI1(&got.value)} : -1;
  };
  facts.Check("numbers are rounded to even", thickness_after(Number(2.5), 0) == 2);
  facts.Check("texts are numbers", thickness_after(Text(L" 7 "), 0) == 7);
  facts.Check("in the client's language", thickness_after(Text(L"8,5"), kGerman) == 8);
  const int after_empty = thickness_after(Bare(VT_EMPTY), 0);
  facts.Check("Empty is 0, which is ignored here", after_empty == 8, std::to_string(after_empty));
  std::int32_t number = 9;
  Reference inner(VT_I4, &number);
  facts.Check("a variable may refer to a typed one",
              thickness_after(Reference(VT_VARIANT, &inner), 0) == 9);
  const DISPID rotated = IdOf(pdf, L"Rotated");
  Let(pdf, rotated, Number(1));
  const Outcome got = Get(pdf, rotated);
  facts.Check("True is -1", V_VT(&got.value) == VT_BOOL && V_BOOL(&got.value) == VARIANT_TRUE);
}

void CheckTexts(Facts& facts, IDispatch* pdf) {
  const DISPID title = IdOf(pdf, L"Title");
  const auto title_after = [&](const VARIANT& text) {
    Let(pdf, title, text);
    const Outcome got = Get(pdf, title);
    if (V_VT(&got.value) != VT_BSTR) return std::wstring(L"no text");
    return std::wstring(V_BSTR(&got.value), SysStringLen(V_BSTR(&got.value)));
  };
  const std::wstring mixed(L"a\0\u20AC\xD83D\xDE00z", 6);
  facts.Check("NULs and pairs of surrogates stay", title_after(Text(mixed)) == mixed);
  facts.Check("a lone surrogate becomes U+FFFD",
              title_after(Text(L"a\xDE00\xD83Dz")) == L"a\xFFFD\xFFFDz");
  facts.Check("an empty text stays", title_after(Text(L"")).empty());
  Let(pdf, title, Text(L"b"));
  facts.Check("a null BSTR is empty", title_after(Bare(VT_BSTR)).empty());
  facts.Check("a number becomes a text", title_after(Number(12)) == L"12");
}

/// An array of bytes as a stream object gives it.
struct ByteArray : ClientVariant {
  explicit ByteArray(std::string_view bytes, LONG first = 0) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(bytes.size()), first};
    vt = VT_ARRAY | VT_UI1;
    parray = SafeArrayCreate(VT_UI1, 1, &bound);
    std::memcpy(parray->pvData, bytes.data(), bytes.size());
  }
};

void CheckBytes(Facts& facts, IDispatch* pdf) {
  const DISPID draw = IdOf(pdf, L"DrawPicture");
  const auto drawn = [&](const VARIANT& picture) {
    const Outcome got = Invoke(pdf, draw, {picture});
    return got.result == S_OK && V_BOOL(&got.value) == VARIANT_TRUE;
  };
  Invoke(pdf, IdOf(pdf, L"SetPosition"), {Number(0), Number(0)});
  ByteArray picture(PlainBmp(3, 2), 5);
  facts.Check("a picture is an array of bytes", drawn(picture));
  facts.Check("in a variable", drawn(Reference(VT_VARIANT, &picture)));
  facts.Check("or by reference", drawn(Reference(VT_ARRAY | VT_UI1, &picture.parray)));
  ByteArray unknown("x");
  const Outcome refused = Invoke(pdf, draw, {unknown});
  facts.Check("bytes that are not a picture are refused",
              refused.result == S_OK && V_BOOL(&refused.value) == VARIANT_FALSE);

  SAFEARRAY* none = nullptr;
  const Outcome empty = Invoke(pdf, draw, {Reference(VT_ARRAY | VT_UI1, &none)});
  facts.Check("an array without a size is a type mismatch", empty.result == DISP_E_TYPEMISMATCH);
  ClientVariant table;
  SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
  table.vt = VT_ARRAY | VT_UI1;
  table.parray = SafeArrayCreate(VT_UI1, 2, bounds);
  const Outcome square = Invoke(pdf, draw, {table});
  facts.Check("and so is one of two dimensions", square.result == DISP_E_TYPEMISMATCH);
}

}  // namespace

void CheckArguments(Facts& facts, IDispatch* pdf) {
  CheckNames(facts, pdf);
  CheckNamedArguments(facts, pdf);
  CheckCoercion(facts, pdf);
  CheckTexts(facts, pdf);
  const TemporaryFile file("arguments.pdf");
  const std::string name = file.Name();
  const Outcome created =
      Invoke(pdf, IdOf(pdf, L"Create"), {Text(std::wstring(name.begin(), name.end()))});
  facts.Check("a document is created", V_BOOL(&created.value) == VARIANT_TRUE);
  CheckOmittedArguments(facts, pdf);
  CheckBytes(facts, pdf);
  Invoke(pdf, IdOf(pdf, L"Flush"));
}

void CheckOutArguments(Facts& facts, IDispatch* pdf) {
  const DISPID get = IdOf(pdf, L"GetColor");
  Invoke(pdf, IdOf(pdf, L"SetColor"), {Number(1), Number(20), Number(200)});

  Text text(L"before");
  std::int32_t wide = -1;
  std::int16_t yes = 5;
  Outcome got = Invoke(
      pdf, get,
      {Reference(VT_BOOL, &yes), Reference(VT_I4, &wide), Reference(VT_BSTR, &text.bstrVal)});
  facts.Check("typed references receive converted values",
              got.result == S_OK && std::wstring_view(text.bstrVal) == L"200" && wide == 20 &&
                  yes == VARIANT_TRUE,
              Hexadecimal(got.result));

  ClientVariant null;
  null.vt = VT_NULL;
  Reference inner(VT_I4, &wide);
  wide = -1;
  const Outcome variants =
      Invoke(pdf, get, {Reference(VT_VARIANT, &null), Reference(VT_VARIANT, &text), Number(5)});
  facts.Check("variables receive them whatever they held; an argument by value receives nothing",
              variants.result == S_OK && V_VT(&null) == VT_UI1 && V_UI1(&null) == 1 &&
                  V_VT(&text) == VT_UI1 && V_UI1(&text) == 20,
              Hexadecimal(variants.result));
  Invoke(pdf, get, {Reference(VT_VARIANT, &inner), Number(0), Number(0)});
  facts.Check("a variable that refers to a typed one passes them on",
              wide == 1 && V_VT(&inner) == (VT_BYREF | VT_I4));

  std::int8_t narrow = 7;
  wide = -1;
  const Outcome mixed = Invoke(
      pdf, get, {Reference(VT_I4, &wide), Reference(VT_VARIANT, &null), Reference(VT_I1, &narrow)});
  facts.Check("if one cannot hold its value, none is written",
              mixed.result == DISP_E_TYPEMISMATCH && mixed.wrong == 2 && narrow == 7 &&
                  wide == -1 && V_UI1(&null) == 1,
              Hexadecimal(mixed.result));
  IUnknown* object = nullptr;
  const Outcome wrong_kind =
      Invoke(pdf, get, {Number(0), Reference(VT_UNKNOWN, &object), Number(0)});
  facts.Check("a reference to an object is a type mismatch",
              wrong_kind.result == DISP_E_TYPEMISMATCH && wrong_kind.wrong == 1);
}

}  // namespace vellumark::tests
