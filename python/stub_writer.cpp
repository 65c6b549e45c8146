// SPDX-License-Identifier: MIT
#include "python/stub_writer.h"

#include <string_view>
#include <vector>

#include "automation/class_table.h"
#include "automation/enumeration_table.h"
#include "automation/member_table.h"
#include "python/python_words.h"

namespace vellumark::python {
namespace {

using automation::ClassInfo;
using automation::Enumeration;
using automation::EnumerationMember;
using automation::Member;
using automation::Parameter;
using automation::Type;
using automation::ValueType;

constexpr std::string_view kHead = R"(# SPDX-License-Identifier: MIT
# Generated from the member table.
import enum
import os
import types
from collections.abc import Callable
from typing import overload

from _typeshed import ReadableBuffer
from typing_extensions import Self

__all__ = [
)";

constexpr std::string_view kRender = R"(]

__version__: str

_File = str | bytes | os.PathLike[str] | os.PathLike[bytes]
_FileOrBytes = str | os.PathLike[str] | os.PathLike[bytes] | ReadableBuffer

@overload
def render(document_class: type[PDF], function: Callable[[PDF], object]) -> bytes:
)";

constexpr std::string_view kRunTimeError = R"(@overload
def render(document_class: type[PS], function: Callable[[PS], object]) -> bytes: ...

class RunTimeError(RuntimeError):
)";

constexpr std::string_view kBlock = R"(    def __enter__(self) -> Self: ...
    def __exit__(
        self,
        error_class: type[BaseException] | None,
        error: BaseException | None,
        trace: types.TracebackType | None,
    ) -> None:
        """Flushes a created document, unless the block raised."""
    def __del__(self, warn: Callable[..., None] = ...) -> None: ...
)";

std::string TypeName(const ValueType& type) {
  switch (type.type) {
    case Type::None: return "None";
    case Type::Integer:
    case Type::Byte: return "int";
    case Type::Boolean: return "bool";
    case Type::Single: return "float";
    case Type::String: return "str";
    case Type::Enumeration: {
      if (type.enumeration == nullptr) return "int";
      std::string name(type.enumeration->name);
      return name += " | int";
    }
  }
  return {};
}

/// The text as a Python literal between these double quotes.
std::string Quoted(std::string_view text, std::string_view quotes) {
  std::string quoted(quotes);
  for (const char letter : text) {
    if (letter == '\\' || letter == '"') quoted += '\\';
    quoted += letter;
  }
  return quoted += quotes;
}

void AppendDocstring(std::string& stub, std::string_view text, std::string_view indent) {
  std::string quoted = Quoted(text, R"(""")");
  for (std::size_t end = 0; (end = quoted.find('\n', end)) != std::string::npos;) {
    ++end;
    if (quoted[end] != '\n') quoted.insert(end, indent);
  }
  stub += indent;
  stub += quoted;
  stub += '\n';
}

std::string DefaultText(const Parameter& parameter) {
  if (const auto* text = std::get_if<std::string_view>(&parameter.default_value)) {
    return Quoted(*text, "\"");
  }
  const std::int32_t number = std::get<std::int32_t>(parameter.default_value);
  if (parameter.type.type == Type::Boolean) return number != 0 ? "True" : "False";
  if (parameter.type.type != Type::Enumeration) return std::to_string(number);
  const EnumerationMember* const member = FindMember(*parameter.type.enumeration, number);
  if (member == nullptr) return std::to_string(number);
  std::string name(parameter.type.enumeration->name);
  name += '.';
  return name += member->name;
}

std::string ResultType(const Member& member) {
  std::vector<std::string> results;
  for (const Parameter& parameter : member.parameters()) {
    if (parameter.in_out) results.push_back(TypeName(parameter.type));
  }
  if (results.empty()) return TypeName(member.result);
  if (results.size() == 1) return results.front();
  std::string type = "tuple[";
  for (const std::string& result : results) {
    if (type.back() != '[') type += ", ";
    type += result;
  }
  return type += ']';
}

void AppendMethod(std::string& stub, const Member& member) {
  stub += "    def ";
  stub += member.name;
  stub += "(\n        self,\n";
  for (const Parameter& parameter : member.parameters()) {
    if (parameter.in_out) continue;
    stub += "        ";
    stub += parameter.name;
    stub += ": ";
    stub += parameter.bytes       ? "_FileOrBytes"
            : parameter.file_name ? "_File"
                                  : TypeName(parameter.type);
    if (parameter.optional()) {
      stub += " = ";
      stub += DefaultText(parameter);
    }
    stub += ",\n";
  }
  stub += "    ) -> ";
  stub += ResultType(member);
  stub += ":\n";
  AppendDocstring(stub, Docstring(member), "        ");
}

void AppendProperty(std::string& stub, const Member& member) {
  stub += "    @property\n    def ";
  stub += member.name;
  stub += "(self) -> ";
  stub += TypeName(member.result);
  stub += ":\n";
  AppendDocstring(stub, Docstring(member), "        ");
  if (member.let == nullptr) return;
  stub += "    @";
  stub += member.name;
  stub += ".setter\n    def ";
  stub += member.name;
  stub += "(self, value: ";
  stub += TypeName(member.result);
  stub += ") -> None: ...\n";
}

/// The constructor takes every property that can be set, by keyword.
void AppendConstructor(std::string& stub, const ClassInfo& info) {
  stub += "\n    def __init__(\n        self,\n        *,\n";
  for (const Member* member : automation::ClassMembers(*info.members)) {
    if (!member->property || member->let == nullptr) continue;
    stub += "        ";
    stub += member->name;
    stub += ": ";
    stub += TypeName(member->result);
    stub += " = ...,\n";
  }
  stub += "        greatest_picture: int = ...,\n";
  stub += "    ) -> None:\n        \"\"\"Sets these properties of the new document.\"\"\"\n";
}

void AppendClass(std::string& stub, const ClassInfo& info) {
  stub += "\nclass ";
  stub += info.name;
  stub += ":\n";
  AppendDocstring(stub, info.help, "    ");
  if (!info.members) return;
  AppendConstructor(stub, info);
  stub += kBlock;
  stub += "    @property\n    def greatest_picture(self) -> int:\n";
  AppendDocstring(stub, kGreatestPictureDocstring, "        ");
  stub += "    @greatest_picture.setter\n    def greatest_picture(self, value: int) -> None: ...\n";
  for (const Member* member : automation::ClassMembers(*info.members)) {
    if (member->property) {
      AppendProperty(stub, *member);
    } else {
      AppendMethod(stub, *member);
    }
  }
}

void AppendEnumeration(std::string& stub, const Enumeration& enumeration) {
  stub += "\nclass ";
  stub += enumeration.name;
  stub += "(enum.IntEnum):\n";
  AppendDocstring(stub, enumeration.help, "    ");
  stub += '\n';
  for (const EnumerationMember& member : enumeration.members) {
    stub += "    ";
    stub += member.name;
    stub += " = ";
    stub += std::to_string(member.value);
    stub += '\n';
  }
}

void AppendExport(std::string& stub, std::string_view name) {
  stub += "    \"";
  stub += name;
  stub += "\",\n";
}

}  // namespace

std::string WriteStub() {
  std::string stub(kHead);
  for (const ClassInfo& info : automation::Classes()) AppendExport(stub, info.name);
  AppendExport(stub, "RunTimeError");
  AppendExport(stub, "render");
  for (const Enumeration& each : automation::EnumerationTable()) AppendExport(stub, each.name);
  stub += kRender;
  AppendDocstring(stub, kRenderDocstring, "    ");
  stub += kRunTimeError;
  AppendDocstring(stub, kRunTimeErrorDocstring, "    ");
  stub += "\n    number: int\n";
  for (const Enumeration& each : automation::EnumerationTable()) AppendEnumeration(stub, each);
  for (const ClassInfo& info : automation::Classes()) AppendClass(stub, info);
  return stub;
}

}  // namespace vellumark::python
