// SPDX-License-Identifier: MIT
//
// Member: one public member of a document as hosts of other languages see it, and the way to call
// it. The table of all of them is automation/member_table.h.
//
//     const Member& draw_line = *ClassMembers(Class::PDF).Find("DrawLine");
//     std::array<Value, 4> arguments = {Value(std::int16_t{0}), ...};
//     const Value drawn = draw_line.call(doc, arguments);        // a Boolean
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

#include <vellumark/vellumark.h>

#include "automation/value.h"

namespace vellumark::automation {

/// The value of an omitted argument: the number of any numeric type, a Boolean or an enumeration,
/// or a text. monostate if the argument must not be omitted.
using Default = std::variant<std::monostate, std::int32_t, std::string_view>;

struct Parameter {
  std::string_view name;  ///< lower case; named arguments use it
  ValueType type;
  bool in_out = false;  ///< the member stores a result here and never looks at what was passed
  Default default_value;
  bool file_name = false;  ///< a text that names a file; see MemberFacts
  bool bytes = false;      ///< or the content of that file, as Bytes

  [[nodiscard]] constexpr bool optional() const noexcept { return default_value.index() != 0; }
};

/// What a language with conventions of its own for files and threads wants to know about a member.
/// A host without such conventions ignores it, as it ignores Parameter::file_name.
struct MemberFacts {
  bool takes_long = false;      ///< reads a picture or writes the file: others should run meanwhile
  bool creates_file = false;    ///< if it returns True, the document has a file that is not written
  bool completes_file = false;  ///< afterwards the document has no such file
};

/// How a host uses a member: reads or assigns a property, or calls a method.
enum class Kind : std::uint8_t { Get, Let, Method };

struct Member {
  /// Calls the member. `arguments` has one Value of the type of each parameter; those of
  /// in/out parameters receive results. `document` must be of a class that has the member.
  /// Accessors throw RunTimeError; anything may throw std::bad_alloc.
  using Call = Value (*)(Document& document, std::span<Value> arguments);

  static constexpr std::size_t kMostParameters = 7;

  std::string_view name;
  std::string_view help;     ///< one sentence, for editors that show the type library
  std::string_view remarks;  ///< everything else that a caller must know; may be empty
  std::int32_t id = 0;       ///< dispatch id; the same in every class that has the name
  bool property = false;     ///< a property with a get and perhaps a let; otherwise a method
  bool of_pdf = true;        ///< PDF has it
  bool of_ps = true;         ///< PS has it
  MemberFacts facts;
  ValueType result;     ///< of the method; the type of the property
  Call call = nullptr;  ///< the method, or the property's get
  Call let = nullptr;   ///< the property's let, with one argument; null if it is read-only
  std::size_t parameter_count = 0;
  std::array<Parameter, kMostParameters> all_parameters;

  /// The parameters of the method, in declared order.
  [[nodiscard]] constexpr std::span<const Parameter> parameters() const noexcept {
    return {all_parameters.data(), parameter_count};
  }

  [[nodiscard]] constexpr bool Has(Kind kind) const noexcept {
    if (kind == Kind::Method) return !property;
    return property && (kind == Kind::Get || let != nullptr);
  }
};

/// The value of an omitted optional argument.
[[nodiscard]] Value DefaultOf(const Parameter& parameter);

/// The value of an in/out parameter before the call: 0, False or an empty text.
[[nodiscard]] Value ZeroOf(Type type);

}  // namespace vellumark::automation
