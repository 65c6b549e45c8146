// SPDX-License-Identifier: MIT
//
// What the type library says about a class agrees with what the server returns and does.
#include <windows.h>
#include <ocidl.h>

#include "automation/enumeration_table.h"
#include "automation/server/windows_text.h"
#include "tests/windows/automation_object.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

using automation::ClassInfo;
using automation::ClassMembers;
using automation::Kind;
using automation::Member;
using automation::Parameter;
using automation::Type;
using automation::ValueType;

std::string NameOf(BSTR name) { return automation::server::Utf8(name); }

/// The type attributes that matter here.
struct Attributes {
  explicit Attributes(ITypeInfo* type) {
    TYPEATTR* found = nullptr;
    if (FAILED(type->GetTypeAttr(&found))) return;
    kind = found->typekind;
    id = found->guid;
    functions = found->cFuncs;
    variables = found->cVars;
    type->ReleaseTypeAttr(found);
  }

  TYPEKIND kind = TKIND_MAX;
  GUID id{};
  UINT functions = 0;
  UINT variables = 0;
};

bool SameDefault(const Parameter& parameter, const PARAMDESC& described) {
  const bool has_one = (described.wParamFlags & PARAMFLAG_FHASDEFAULT) != 0;
  if (has_one != parameter.optional()) return false;
  if (!has_one) return true;
  VARIANT& value = described.pparamdescex->varDefaultValue;
  if (parameter.type.type == Type::String) {
    return V_VT(&value) == VT_BSTR && NameOf(V_BSTR(&value)).empty();
  }
  ClientVariant number;
  const auto expected = std::get<std::int32_t>(parameter.default_value);
  return SUCCEEDED(VariantChangeType(&number, &value, 0, VT_I4)) && V_I4(&number) == expected;
}

VARTYPE DescribedType(Type type) {
  switch (type) {
    case Type::None: return VT_VOID;
    case Type::Integer: return VT_I2;
    case Type::Byte: return VT_UI1;
    case Type::Boolean: return VT_BOOL;
    case Type::Single: return VT_R4;
    case Type::String: return VT_BSTR;
    case Type::Enumeration: return VT_USERDEFINED;
  }
  return VT_EMPTY;
}

bool SameType(const ValueType& value, ITypeInfo* type, const TYPEDESC& described) {
  const bool plain = value.type == Type::Enumeration && value.enumeration == nullptr;
  const VARTYPE expected = plain ? VARTYPE{VT_I4} : DescribedType(value.type);
  if (described.vt != expected) return false;
  if (value.enumeration == nullptr) return true;
  ComPointer<ITypeInfo> enumeration;
  if (FAILED(type->GetRefTypeInfo(described.hreftype, enumeration.Receive()))) return false;
  BSTR name = nullptr;
  enumeration->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr);
  const bool same = NameOf(name) == value.enumeration->name;
  SysFreeString(name);
  return same;
}

bool SameParameter(const Parameter& parameter, ITypeInfo* type, const ELEMDESC& described) {
  const bool out = (described.paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0;
  if (out != parameter.in_out || (described.tdesc.vt == VT_PTR) != out) return false;
  const TYPEDESC& value = out ? *described.tdesc.lptdesc : described.tdesc;
  return SameType(parameter.type, type, value) && SameDefault(parameter, described.paramdesc);
}

/// Whether the names of a described function lead to the ids that it has itself.
bool SameIds(IDispatch* object, ITypeInfo* type, const FUNCDESC& function) {
  BSTR names[Member::kMostParameters + 1] = {};
  UINT count = 0;
  type->GetNames(function.memid, names, static_cast<UINT>(std::size(names)), &count);
  DISPID ids[Member::kMostParameters + 1];
  bool same =
      object->GetIDsOfNames(IID_NULL, names, count, 0, ids) == S_OK && ids[0] == function.memid;
  for (UINT i = 1; i < count; ++i) same = same && ids[i] == static_cast<DISPID>(i - 1);
  if (function.invkind == INVOKE_FUNC) {
    same = same && static_cast<SHORT>(count) == function.cParams + 1;
  }
  for (const BSTR name : names) SysFreeString(name);
  return same;
}

bool SameFunction(const ClassMembers& members, ITypeInfo* type, const FUNCDESC& function) {
  const Member* const member = members.Find(static_cast<std::int32_t>(function.memid));
  if (member == nullptr) return false;
  if (function.invkind == INVOKE_PROPERTYPUT) {
    return member->Has(Kind::Let) && function.cParams == 1 &&
           SameType(member->result, type, function.lprgelemdescParam[0].tdesc);
  }
  if (!member->Has(function.invkind == INVOKE_FUNC ? Kind::Method : Kind::Get)) return false;
  if (!SameType(member->result, type, function.elemdescFunc.tdesc)) return false;
  const auto parameters = member->parameters();
  bool same = static_cast<std::size_t>(function.cParams) == parameters.size();
  for (std::size_t i = 0; same && i < parameters.size(); ++i) {
    same = SameParameter(parameters[i], type, function.lprgelemdescParam[i]);
  }
  return same;
}

std::size_t CountKinds(const ClassMembers& members) {
  std::size_t kinds = 0;
  for (const Member* member : members) kinds += member->Has(Kind::Let) ? 2 : 1;
  return kinds;
}

void CheckFunctions(Facts& facts, IDispatch* object, ITypeInfo* type, const ClassMembers& members) {
  std::size_t described = 0;
  std::string different;
  FUNCDESC* function = nullptr;
  // Some systems list the functions of IDispatch in front; those have ids of their own.
  for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function)); ++i) {
    if (function->memid < 0x60000000) {
      ++described;
      if (!SameFunction(members, type, *function) || !SameIds(object, type, *function)) {
        different += std::to_string(function->memid);
        different += ' ';
      }
    }
    type->ReleaseFuncDesc(function);
  }
  facts.Check("every member is described", described == CountKinds(members),
              std::to_string(described));
  facts.Check("ids, kinds, names, types, directions and defaults are those of the server",
              different.empty(), different);
}

bool SameEnumeration(ITypeInfo* type, const automation::Enumeration& enumeration) {
  bool same = Attributes(type).variables == enumeration.members.size();
  for (UINT i = 0; same && i < enumeration.members.size(); ++i) {
    VARDESC* variable = nullptr;
    if (FAILED(type->GetVarDesc(i, &variable))) return false;
    BSTR name = nullptr;
    BSTR help = nullptr;
    type->GetDocumentation(variable->memid, &name, &help, nullptr, nullptr);
    same = NameOf(name) == enumeration.members[i].name && NameOf(help) == NameOf(name) &&
           V_I4(variable->lpvarValue) == enumeration.members[i].value;
    SysFreeString(name);
    SysFreeString(help);
    type->ReleaseVarDesc(variable);
  }
  return same;
}

/// How many types of the library are the enumerations, one after the other, with their own help.
std::size_t CountEnumerations(ITypeLib* library) {
  const auto table = automation::EnumerationTable();
  std::size_t same = 0;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPointer<ITypeInfo> listed;
    library->GetTypeInfo(i, listed.Receive());
    if (Attributes(listed.Get()).kind != TKIND_ENUM) continue;
    BSTR name = nullptr;
    BSTR help = nullptr;
    library->GetDocumentation(static_cast<INT>(i), &name, &help, nullptr, nullptr);
    if (same < table.size() && NameOf(name) == table[same].name &&
        NameOf(help) == table[same].help && SameEnumeration(listed.Get(), table[same])) {
      ++same;
    }
    SysFreeString(name);
    SysFreeString(help);
  }
  return same;
}

void CheckEnumerations(Facts& facts, ITypeInfo* type) {
  ComPointer<ITypeLib> library;
  UINT index = 0;
  type->GetContainingTypeLib(library.Receive(), &index);
  const std::size_t same = CountEnumerations(library.Get());
  facts.Check("the enumerations have their values in order, each with its name as help string",
              same == automation::EnumerationTable().size(), std::to_string(same));
}

/// The names of the members whose help string is not the table's.
std::string MembersWithoutHelp(ITypeInfo* type) {
  std::string names;
  FUNCDESC* function = nullptr;
  for (UINT i = 0; SUCCEEDED(type->GetFuncDesc(i, &function)); ++i) {
    BSTR name = nullptr;
    BSTR help = nullptr;
    type->GetDocumentation(function->memid, &name, &help, nullptr, nullptr);
    for (const Member& member : automation::MemberTable()) {
      if (member.id != function->memid || member.help == NameOf(help)) continue;
      names += NameOf(name);
      names += ' ';
    }
    SysFreeString(name);
    SysFreeString(help);
    type->ReleaseFuncDesc(function);
  }
  return names;
}

}  // namespace

void CheckTypeLibrary(Facts& facts, const wchar_t* file, SYSKIND system) {
  ComPointer<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(file, REGKIND_NONE, library.Receive());
  TLIBATTR* attributes = nullptr;
  const bool found = SUCCEEDED(loaded) && SUCCEEDED(library->GetLibAttr(&attributes));
  facts.Check("a DLL carries the type library of its own bitness",
              found && attributes->syskind == system, Hexadecimal(loaded));
  if (!found) return;
  library->ReleaseTLibAttr(attributes);
  const std::size_t same = CountEnumerations(library.Get());
  facts.Check("in which each enumeration value has its name as help string",
              same == automation::EnumerationTable().size(), std::to_string(same));
  std::string without_help;
  for (UINT i = 0; i < library->GetTypeInfoCount(); ++i) {
    ComPointer<ITypeInfo> type;
    library->GetTypeInfo(i, type.Receive());
    without_help += MembersWithoutHelp(type.Get());
  }
  facts.Check("and each member its sentence", without_help.empty(), without_help);
}

void CheckTypes(Facts& facts, IDispatch* object, const ClassInfo& info) {
  UINT count = 0;
  ComPointer<ITypeInfo> type, nothing, class_type;
  object->GetTypeInfoCount(&count);
  const HRESULT got = object->GetTypeInfo(0, LOCALE_NEUTRAL, type.Receive());
  facts.Check("there is one type description", count == 1 && got == S_OK, Hexadecimal(got));
  facts.Check("and no second", object->GetTypeInfo(1, 0, nothing.Receive()) == DISP_E_BADINDEX);
  if (FAILED(got)) return;
  const Attributes attributes(type.Get());
  facts.Check("it is that of the class's dispatch interface",
              attributes.kind == TKIND_DISPATCH &&
                  attributes.id == automation::server::ToGuid(info.interface_id));
  if (info.members) CheckFunctions(facts, object, type.Get(), ClassMembers(*info.members));
  CheckEnumerations(facts, type.Get());

  ComPointer<IProvideClassInfo> provider;
  object->QueryInterface(IID_IProvideClassInfo, provider.ReceiveAny());
  const bool provided =
      provider.Get() != nullptr && SUCCEEDED(provider->GetClassInfo(class_type.Receive()));
  facts.Check("the class is described", provided);
  if (!provided) return;
  const Attributes described(class_type.Get());
  facts.Check("as what it is", described.kind == TKIND_COCLASS &&
                                   described.id == automation::server::ToGuid(info.class_id));
}

}  // namespace vellumark::tests
