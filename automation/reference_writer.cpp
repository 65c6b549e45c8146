// SPDX-License-Identifier: MIT
#include "automation/reference_writer.h"

#include <algorithm>
#include <string_view>

#include "automation/class_table.h"
#include "automation/enumeration_table.h"

namespace vellumark::automation {
namespace {

constexpr std::string_view kIntroduction = R"(# Reference

<!-- Made from the member table; ./dev reference writes it anew. -->

Every member of `PDF` and `PS`, as automation clients and Python programs see it. C++ hosts use the
same names; see `include/vellumark/vellumark.h`. Parameters in brackets may be omitted and then have the
value shown.

| Type | Windows | Python | Range |
|---|---|---|---|
| Integer | Integer, 16 bits | `int` | -32768 to 32767, points |
| Byte | Byte | `int` | 0 to 255 |
| Boolean | Boolean, -1 and 0 | `bool` | |
| Single | Single | `float` | degrees |
| String | String | `str` | |
| ... or bytes | array of Byte | any bytes-like object | the content of the file |
| ...Constants | Long, 32 bits | `int` or `IntEnum` | any; see each member |

`out` marks a parameter that returns a value: through a variable on Windows, as an element of the
result in Python. What the variable held before is ignored.

A drawing or writing method returns True when it wrote something, and False when it refused an
argument or met a run-time error; `LastRefusal` then says why.
)";

std::string_view ReferenceTypeName(const ValueType& type) {
  switch (type.type) {
    case Type::None: return "";
    case Type::Integer: return "Integer";
    case Type::Byte: return "Byte";
    case Type::Boolean: return "Boolean";
    case Type::Single: return "Single";
    case Type::String: return "String";
    case Type::Enumeration: return type.enumeration != nullptr ? type.enumeration->name : "Long";
  }
  return {};
}

std::string DefaultText(const Parameter& parameter) {
  if (const auto* text = std::get_if<std::string_view>(&parameter.default_value)) {
    std::string quoted = "\"";
    quoted += *text;
    return quoted += '"';
  }
  const std::int32_t number = std::get<std::int32_t>(parameter.default_value);
  if (parameter.type.type == Type::Boolean) return number != 0 ? "True" : "False";
  if (parameter.type.type == Type::Enumeration) {
    const EnumerationMember* const member = FindMember(*parameter.type.enumeration, number);
    if (member != nullptr) return std::string(member->name);
  }
  return std::to_string(number);
}

std::string ParameterText(const Parameter& parameter) {
  std::string text;
  if (parameter.in_out) text += "out ";
  text += parameter.name;
  text += " As ";
  text += ReferenceTypeName(parameter.type);
  if (parameter.bytes) text += " or bytes";
  if (!parameter.optional()) return text;
  text += " = ";
  text += DefaultText(parameter);
  text.insert(text.begin(), '[');
  return text += ']';
}

std::string Signature(const Member& member) {
  std::string text(member.name);
  if (!member.property) {
    text += '(';
    bool first = true;
    for (const Parameter& parameter : member.parameters()) {
      if (!first) text += ", ";
      text += ParameterText(parameter);
      first = false;
    }
    text += ')';
  }
  if (member.result.type != Type::None) {
    text += " As ";
    text += ReferenceTypeName(member.result);
  }
  if (member.property && !member.Has(Kind::Let)) text += "   (read-only)";
  return text;
}

/// The class that has a row, if only one does.
std::string_view OnlyClass(const Member& member) {
  if (member.of_pdf && member.of_ps) return "";
  return member.of_pdf ? "PDF: " : "PS: ";
}

/// The rows of one name, which have the same help and remarks.
void AppendEntry(std::string& page, std::span<const Member> rows) {
  page += "\n### ";
  page += rows.front().name;
  page += "\n\n```\n";
  for (const Member& row : rows) {
    page += OnlyClass(row);
    page += Signature(row);
    page += '\n';
  }
  page += "```\n\n";
  page += rows.front().help;
  if (!rows.front().remarks.empty()) {
    page += ' ';
    page += rows.front().remarks;
  }
  page += '\n';
}

void AppendMembers(std::string& page, bool properties) {
  const auto table = MemberTable();
  for (auto row = table.begin(); row != table.end();) {
    const auto last =
        std::find_if(row, table.end(), [&](const Member& m) { return m.id != row->id; });
    if (row->property == properties) AppendEntry(page, {row, last});
    row = last;
  }
}

void AppendEnumeration(std::string& page, const Enumeration& enumeration) {
  page += "\n### ";
  page += enumeration.name;
  page += "\n\n";
  page += enumeration.help;
  page += "\n\n| Member | Value |\n|---|---|\n";
  for (const EnumerationMember& member : enumeration.members) {
    page += "| ";
    page += member.name;
    page += " | ";
    page += std::to_string(member.value);
    page += " |\n";
  }
}

}  // namespace

std::string WriteReference() {
  std::string page(kIntroduction);
  page += "\n## Classes\n\n| Class | Program identifier | |\n|---|---|---|\n";
  for (const ClassInfo& info : Classes()) {
    page += "| ";
    page += info.name;
    page += " | ";
    page += info.program_id;
    page += " | ";
    page += info.help;
    page += " |\n";
  }
  page += "\n## Properties\n";
  AppendMembers(page, true);
  page += "\n## Methods\n";
  AppendMembers(page, false);
  page += "\n## Enumerations\n";
  for (const Enumeration& enumeration : EnumerationTable()) AppendEnumeration(page, enumeration);
  return page;
}

}  // namespace vellumark::automation
