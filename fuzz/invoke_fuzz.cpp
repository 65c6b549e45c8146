// SPDX-License-Identifier: MIT
//
// The automation server's calls with any arguments: of every type, by value and by reference, to
// variants within variants, named, left out, in the wrong number. A call that fails has written to
// none of the client's variables, one that succeeds has a result of the type it says, and nothing
// is leaked.
//
//     input = kind:1 { member:1 flags:1 count:1 { argument } }
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <vector>
#include <windows.h>

#include <vellumark/vellumark.h>

#include "automation/member_table.h"
#include "automation/server/argument_binding.h"
#include "automation/server/invocation.h"
#include "fuzz/fuzzed_bytes.h"

namespace {

using namespace vellumark;
using automation::Member;
using automation::server::Invocation;

constexpr int kMostCalls = 60;
constexpr std::int32_t kGreatestPicture = 1 << 16;

void Require(bool right) {
  if (!right) std::abort();
}

/// The arguments of one call, with all that they refer to.
class Client {
 public:
  explicit Client(fuzz::FuzzedBytes& bytes) : bytes_(bytes) {
    const std::size_t count = bytes.Byte() % (Member::kMostParameters + 2U);
    for (std::size_t i = 0; i < count; ++i) arguments_.push_back(Argument(0));
    const std::size_t named = bytes.Byte() < 200 ? 0 : bytes.Byte() % (count + 1);
    for (std::size_t i = 0; i < named; ++i) names_.push_back(bytes.Byte() % 9 - 1);
    if (bytes.Byte() < 40) names_.assign(arguments_.empty() ? 0 : 1, DISPID_PROPERTYPUT);
    before_ = Contents();
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  Client(Client&&) = delete;
  Client& operator=(Client&&) = delete;
  ~Client() {
    for (VARIANT& argument : arguments_) VariantClear(&argument);
    for (VARIANT& variant : variants_) VariantClear(&variant);
    for (BSTR& text : texts_) SysFreeString(text);
  }

  [[nodiscard]] DISPPARAMS Arguments() {
    return {arguments_.data(), names_.data(), static_cast<UINT>(arguments_.size()),
            static_cast<UINT>(names_.size())};
  }

  /// Whether every variable is as it was.
  [[nodiscard]] bool Unchanged() const { return Contents() == before_; }

  void ForgetLocks() {
    for (const SAFEARRAY& array : arrays_) Require(array.cLocks <= 1);
  }

 private:
  static constexpr VARTYPE kTypes[] = {VT_EMPTY, VT_NULL,    VT_I2,      VT_I4,    VT_R4,   VT_R8,
                                       VT_CY,    VT_DATE,    VT_BSTR,    VT_ERROR, VT_BOOL, VT_I1,
                                       VT_UI1,   VT_UI2,     VT_UI4,     VT_I8,    VT_UI8,  VT_INT,
                                       VT_UINT,  VT_DECIMAL, VT_DISPATCH};

  VARIANT Argument(int depth) {
    VARIANT made;
    VariantInit(&made);
    const std::uint8_t kind = bytes_.Byte();
    if (kind < 120) return Plain();
    if (kind < 140) {  // left out
      V_VT(&made) = VT_ERROR;
      V_ERROR(&made) = DISP_E_PARAMNOTFOUND;
    } else if (kind < 190) {  // a reference to a variable of a type
      V_VT(&made) = static_cast<VARTYPE>(kTypes[bytes_.Byte() % std::size(kTypes)] | VT_BYREF);
      V_BYREF(&made) = kind < 142 ? nullptr : Variable(V_VT(&made));
    } else if (kind < 230) {  // a variable of any type
      V_VT(&made) = VT_BYREF | VT_VARIANT;
      VARIANT inner = depth < 9 ? Argument(depth + 1) : Plain();
      variants_.push_back(inner);
      V_BYREF(&made) = kind < 192 ? nullptr : &variants_.back();
    } else {
      V_VT(&made) = VT_ARRAY | VT_UI1;
      V_ARRAY(&made) = kind < 232 ? nullptr : Array();
    }
    return made;
  }

  VARIANT Plain() {
    VARIANT made;
    VariantInit(&made);
    const VARTYPE type = kTypes[bytes_.Byte() % std::size(kTypes)];
    if (type == VT_BSTR) {
      V_BSTR(&made) = bytes_.Byte() == 255 ? nullptr : Text();
    } else if (type == VT_R4) {
      V_R4(&made) = static_cast<float>(bytes_.Number()) / 4;
    } else if (type == VT_R8 || type == VT_DATE) {
      V_R8(&made) = bytes_.Byte() == 255 ? 1e300 : bytes_.Number() / 4.0;
    } else if (type != VT_EMPTY && type != VT_NULL && type != VT_DISPATCH) {
      V_I8(&made) = bytes_.Number();
    }
    V_VT(&made) = type;
    return made;
  }

  BSTR Text() {
    std::wstring text;
    for (const char c : bytes_.Text()) text += static_cast<wchar_t>(static_cast<unsigned char>(c));
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }

  void* Variable(VARTYPE type) {
    if (type == (VT_BSTR | VT_BYREF)) return &texts_.emplace_back(Text());
    auto& number = numbers_.emplace_back();
    number.fill(bytes_.Byte());
    return number.data();
  }

  SAFEARRAY* Array() {
    const auto taken = bytes_.Take(bytes_.Byte() * std::size_t{2});
    auto& data = data_.emplace_back(taken.begin(), taken.end());
    return &arrays_.emplace_back(SAFEARRAY{static_cast<std::uint16_t>(bytes_.Byte() < 250 ? 1 : 2),
                                           bytes_.Byte() < 250 ? 0U : 1U, data.data(),
                                           bytes_.Byte() - 100, static_cast<LONG>(data.size())});
  }

  /// What every variable holds, byte by byte.
  [[nodiscard]] std::string Contents() const {
    std::string all;
    const auto add = [&all](const void* at, std::size_t size) {
      all.append(static_cast<const char*>(at), size);
    };
    for (const VARIANT& variant : variants_) add(&variant, sizeof variant);
    for (const auto& number : numbers_) add(number.data(), number.size());
    for (const BSTR& text : texts_) {
      add(&text, sizeof text);
      add(text, SysStringLen(text) * sizeof(OLECHAR));
    }
    return all;
  }

  fuzz::FuzzedBytes& bytes_;
  std::vector<VARIANT> arguments_;
  std::vector<DISPID> names_;
  std::deque<VARIANT> variants_;  // which do not move
  std::deque<BSTR> texts_;
  std::deque<std::array<std::uint8_t, 16>> numbers_;
  std::deque<std::vector<std::uint8_t>> data_;
  std::deque<SAFEARRAY> arrays_;
  std::string before_;
};

void Call(Document& document, const automation::ClassMembers& members, fuzz::FuzzedBytes& bytes) {
  const auto count = members.end() - members.begin();
  const Member& member = **(members.begin() + bytes.Byte() % count);
  const bool assigns = bytes.Byte() < 60;
  Client client(bytes);
  const DISPPARAMS arguments = client.Arguments();
  if (!automation::server::IsSound(arguments)) return;
  VARIANT returned;
  VariantInit(&returned);
  UINT wrong = 0;
  HRESULT result = S_OK;
  Invocation invocation(document, member, 0);
  try {
    if (!assigns) result = invocation.Call(arguments, &returned, wrong);
    if (assigns && member.let != nullptr) result = invocation.Let(arguments, wrong);
  } catch (const RunTimeError&) {
    result = E_INVALIDARG;
  }
  if (FAILED(result)) {
    Require(client.Unchanged());
    Require(V_VT(&returned) == VT_EMPTY);
    Require(wrong == 0 || wrong < arguments.cArgs || wrong < arguments.cNamedArgs);
  } else if (!assigns) {
    const bool has_result = member.result.type != automation::Type::None;
    Require((V_VT(&returned) != VT_EMPTY) == has_result);
  }
  client.ForgetLocks();
  VariantClear(&returned);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzedBytes bytes({data, size});
  const std::uint8_t kind = bytes.Byte();
  const auto memory = std::make_shared<MemoryPlatform>();
  memory->SetGreatestPicture(kGreatestPicture);
  std::shared_ptr<Document> document;
  if ((kind & 1U) != 0) {
    document = std::make_shared<PS>(memory);
  } else {
    document = std::make_shared<PDF>(memory);
  }
  document->Conforming((kind & 2U) == 0);
  if ((kind & 4U) == 0) {
    document->Create("doc");
    document->NewPage(0, 0, 0, 0, 255, 255, 255);
  }
  const automation::ClassMembers members((kind & 1U) != 0 ? automation::Class::PS
                                                          : automation::Class::PDF);
  for (int i = 0; i < kMostCalls && !bytes.Empty(); ++i) Call(*document, members, bytes);
  return 0;
}
