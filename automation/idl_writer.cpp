// SPDX-License-Identifier: MIT
#include "automation/idl_writer.h"

#include <string_view>

#include "automation/class_table.h"
#include "automation/enumeration_table.h"

namespace vellumark::automation {
namespace {

class IdlText {
 public:
  IdlText& operator<<(std::string_view text) {
    text_ += text;
    return *this;
  }
  IdlText& operator<<(std::int32_t number) {
    text_ += std::to_string(number);
    return *this;
  }
  /// A string literal.
  IdlText& Quote(std::string_view text) {
    text_ += '"';
    for (const char letter : text) {
      if (letter == '"' || letter == '\\') text_ += '\\';
      text_ += letter;
    }
    text_ += '"';
    return *this;
  }

  std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

std::string TypeName(const ValueType& type) {
  switch (type.type) {
    case Type::None: return "void";
    case Type::Integer: return "short";
    case Type::Byte: return "unsigned char";
    case Type::Boolean: return "VARIANT_BOOL";
    case Type::Single: return "float";
    case Type::String: return "BSTR";
    case Type::Enumeration: break;
  }
  if (type.enumeration == nullptr) return "long";
  return std::string("enum ").append(type.enumeration->name);
}

/// No typedef: widl would give the members to a nameless enumeration and add an alias of the name.
void WriteEnumeration(IdlText& idl, const Enumeration& enumeration) {
  idl << "  [helpstring(";
  idl.Quote(enumeration.help) << ")]\n  enum " << enumeration.name << " {\n";
  bool first = true;
  for (const EnumerationMember& member : enumeration.members) {
    idl << (first ? "" : ",\n") << "    " << member.name << " = " << member.value;
    first = false;
  }
  idl << "\n  };\n\n";
}

/// True and False of automation are -1 and 0.
void WriteDefault(IdlText& idl, const Parameter& parameter) {
  idl << ", optional, defaultvalue(";
  if (const auto* text = std::get_if<std::string_view>(&parameter.default_value)) {
    idl.Quote(*text);
  } else {
    const std::int32_t number = std::get<std::int32_t>(parameter.default_value);
    idl << (parameter.type.type == Type::Boolean && number != 0 ? -1 : number);
  }
  idl << ")";
}

void WriteParameter(IdlText& idl, const Parameter& parameter) {
  idl << (parameter.in_out ? "[in, out" : "[in");
  if (parameter.optional()) WriteDefault(idl, parameter);
  idl << "] " << TypeName(parameter.type) << (parameter.in_out ? " *" : " ") << parameter.name;
}

void WriteHead(IdlText& idl, const Member& member, std::string_view kind) {
  idl << "    [id(" << member.id << ")" << kind << ", helpstring(";
  idl.Quote(member.help) << ")]\n    ";
}

void WriteMethod(IdlText& idl, const Member& member) {
  WriteHead(idl, member, "");
  idl << TypeName(member.result) << " " << member.name << "(";
  bool first = true;
  for (const Parameter& parameter : member.parameters()) {
    idl << (first ? "\n        " : ",\n        ");
    WriteParameter(idl, parameter);
    first = false;
  }
  idl << ");\n";
}

void WriteProperty(IdlText& idl, const Member& member) {
  WriteHead(idl, member, ", propget");
  idl << TypeName(member.result) << " " << member.name << "();\n";
  if (!member.Has(Kind::Let)) return;
  WriteHead(idl, member, ", propput");
  idl << "void " << member.name << "([in] " << TypeName(member.result) << " value);\n";
}

void WriteInterface(IdlText& idl, const ClassInfo& info) {
  idl << "  [uuid(" << info.interface_id << "), helpstring(";
  idl.Quote(info.help) << ")]\n  dispinterface " << info.dispatch_interface << " {\n";
  idl << "    properties:\n    methods:\n";
  if (info.members) {
    for (const Member* member : ClassMembers(*info.members)) {
      if (member->property) {
        WriteProperty(idl, *member);
      } else {
        WriteMethod(idl, *member);
      }
    }
  }
  idl << "  };\n\n";
}

void WriteClass(IdlText& idl, const ClassInfo& info) {
  idl << "  [uuid(" << info.class_id << "), helpstring(";
  idl.Quote(info.help) << ")]\n  coclass " << info.name << " {\n";
  idl << "    [default] dispinterface " << info.dispatch_interface << ";\n  };\n\n";
}

}  // namespace

std::string WriteIdl() {
  IdlText idl;
  idl << "// Made from the member table (automation/member_table.h).\n";
  idl << "import \"oaidl.idl\";\n\n[uuid(" << kLibraryId << "), version(" << kLibraryMajor << "."
      << kLibraryMinor << "), helpstring(";
  idl.Quote(kLibraryHelp) << ")]\nlibrary " << kLibraryName << " {\n";
  idl << "  importlib(\"stdole2.tlb\");\n\n";
  for (const Enumeration& enumeration : EnumerationTable()) WriteEnumeration(idl, enumeration);
  for (const ClassInfo& info : Classes()) WriteInterface(idl, info);
  for (const ClassInfo& info : Classes()) WriteClass(idl, info);
  idl << "};\n";
  return idl.Take();
}

}  // namespace vellumark::automation
