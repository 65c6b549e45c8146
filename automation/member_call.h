// SPDX-License-Identifier: MIT
//
// Makes rows of the member table from C++ members. Types, directions and result of a row come from
// the C++ signature, so they cannot differ from it:
//
//     Method<&Document::GetDash>({"GetDash", 29, "Returns the dash pattern.", ""})
//     Method<&Document::SetPosition>({"SetPosition", 42, "Sets ...", ""}, {{"x", -1}, {"y", -1}})
//     Method<&Document::WriteText, PS>(...)                    // a row of PS alone
//     Method<&Document::Flush>({"Flush", 13, "Ends ...", "", {.takes_long = true}})
//     Method<&Document::Create>({"Create", 11, "Creates ...", ""}, {FileName("file")})
//     Property<Document, std::string, &Document::Author, &Document::Author>({...})
//
//     Method<&DrawPlainPicture, PS>(...)              // a function that takes the document first
//
// A parameter of type T& is in/out. A C++ member takes a text as std::string_view and returns it as
// std::string.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

#include "automation/enumeration_table.h"
#include "automation/member.h"

namespace vellumark::automation {

/// The words and facts of a row.
struct Caption {
  std::string_view name;
  std::int32_t id;
  std::string_view help;
  std::string_view remarks;
  MemberFacts facts = {};
};

/// The name of a parameter and, if it may be omitted, its default.
struct ParameterName {
  constexpr ParameterName() = default;
  constexpr ParameterName(const char* text) : name(text) {}
  constexpr ParameterName(const char* text, const char* value)
      : name(text), default_value(std::string_view(value)) {}
  template <class T>
  constexpr ParameterName(const char* text, T value)
      : name(text), default_value(static_cast<std::int32_t>(value)) {}

  std::string_view name;
  Default default_value;
  bool file_name = false;
};

/// A text parameter that names a file.
constexpr ParameterName FileName(const char* name) {
  ParameterName parameter(name);
  parameter.file_name = true;
  return parameter;
}

/// The type of a parameter that takes a file by its name or as bytes. Both lie in the Value.
using FileOrBytes = std::variant<std::string_view, std::span<const std::uint8_t>>;

using ParameterNames = std::array<ParameterName, Member::kMostParameters>;

namespace detail {

/// A Number is passed in its own width, which it always fits.
template <class T>
struct Plain {
  using Type = T;
};
template <class Narrow>
struct Plain<Number<Narrow>> {
  using Type = Narrow;
};
template <class A>
using Taken = typename Plain<std::remove_cvref_t<A>>::Type;

template <class T>
constexpr ValueType TypeOf() noexcept {
  if constexpr (std::is_void_v<T>) {
    return {Type::None};
  } else if constexpr (std::is_same_v<T, std::int16_t>) {
    return {Type::Integer};
  } else if constexpr (std::is_same_v<T, std::uint8_t>) {
    return {Type::Byte};
  } else if constexpr (std::is_same_v<T, bool>) {
    return {Type::Boolean};
  } else if constexpr (std::is_same_v<T, float>) {
    return {Type::Single};
  } else if constexpr (std::is_same_v<T, std::int32_t>) {
    return {Type::Enumeration, nullptr};
  } else if constexpr (std::is_same_v<T, std::string_view> || std::is_same_v<T, std::string> ||
                       std::is_same_v<T, FileOrBytes>) {
    return {Type::String};
  } else {
    return {Type::Enumeration, Describe<T>()};
  }
}

/// The argument as the C++ member takes it. A text points into `value`.
template <class T>
T Take(const Value& value) {
  if constexpr (std::is_same_v<T, std::string_view>) {
    return std::get<std::string>(value);
  } else if constexpr (std::is_same_v<T, FileOrBytes>) {
    if (const auto* const bytes = std::get_if<Bytes>(&value)) return std::span(*bytes);
    return std::string_view(std::get<std::string>(value));
  } else if constexpr (std::is_enum_v<T>) {
    return static_cast<T>(std::get<std::int32_t>(value));
  } else {
    return std::get<T>(value);
  }
}

template <class T>
Value Give(T&& result) {
  if constexpr (std::is_enum_v<std::remove_cvref_t<T>>) {
    return static_cast<std::int32_t>(result);
  } else {
    return std::forward<T>(result);
  }
}

template <class A, class T>
void GiveBack(Value& argument, const T& result) {
  if constexpr (std::is_lvalue_reference_v<A>) argument = Give(result);
}

/// Calls `kCall`, a member or a function whose first parameter is the document.
template <auto kCall, class D, class R, class... A, std::size_t... kIndex>
Value CallWith(D& document, [[maybe_unused]] std::span<Value> arguments,
               std::index_sequence<kIndex...> /*of the arguments*/) {
  std::tuple<Taken<A>...> taken{Take<Taken<A>>(arguments[kIndex])...};
  const auto call = [&] { return std::invoke(kCall, document, std::get<kIndex>(taken)...); };
  Value result;
  if constexpr (std::is_void_v<R>) {
    call();
  } else {
    result = Give(call());
  }
  (GiveBack<A>(arguments[kIndex], std::get<kIndex>(taken)), ...);
  return result;
}

template <auto kCall, class D, class R, class... A>
Value Thunk(Document& document, std::span<Value> arguments) {
  return CallWith<kCall, D, R, A...>(static_cast<D&>(document), arguments,
                                     std::index_sequence_for<A...>());
}

template <auto kCall, class D, class R, class... A>
constexpr Member Row(const Caption& caption, const ParameterNames& names) {
  static_assert(sizeof...(A) <= Member::kMostParameters);
  Member row;
  row.name = caption.name;
  row.id = caption.id;
  row.help = caption.help;
  row.remarks = caption.remarks;
  row.facts = caption.facts;
  row.of_pdf = std::is_base_of_v<D, PDF>;
  row.of_ps = std::is_base_of_v<D, PS>;
  row.result = TypeOf<R>();
  row.call = &Thunk<kCall, D, R, A...>;
  row.parameter_count = sizeof...(A);
  std::size_t i = 0;
  ((row.all_parameters[i] = {names[i].name, TypeOf<Taken<A>>(), std::is_lvalue_reference_v<A>,
                             names[i].default_value, names[i].file_name,
                             std::is_same_v<Taken<A>, FileOrBytes>},
    ++i),
   ...);
  return row;
}

template <auto kCall, class Only, class D, class R, class... A>
constexpr Member RowOf(const Caption& caption, const ParameterNames& names,
                       R (D::* /*member*/)(A...)) {
  return Row<kCall, std::conditional_t<std::is_void_v<Only>, D, Only>, R, A...>(caption, names);
}

template <auto kCall, class Only, class D, class R, class... A>
constexpr Member RowOf(const Caption& caption, const ParameterNames& names,
                       R (D::* /*member*/)(A...) const) {
  return Row<kCall, std::conditional_t<std::is_void_v<Only>, D, Only>, R, A...>(caption, names);
}

template <auto kCall, class Only, class D, class R, class... A>
constexpr Member RowOf(const Caption& caption, const ParameterNames& names,
                       R (* /*function*/)(D&, A...)) {
  return Row<kCall, std::conditional_t<std::is_void_v<Only>, D, Only>, R, A...>(caption, names);
}

}  // namespace detail

/// A method: of the class that declares it and those derived from it, or of `Only` alone.
template <auto kCall, class Only = void>
constexpr Member Method(const Caption& caption, const ParameterNames& names = {}) {
  return detail::RowOf<kCall, Only>(caption, names, kCall);
}

/// A property of class `D` and type T that cannot be assigned. `kGet` is a member, or a function
/// that takes the document.
template <class D, class T, auto kGet>
constexpr Member ReadOnlyProperty(const Caption& caption) {
  Member row = detail::Row<kGet, D, T>(caption, {});
  row.property = true;
  return row;
}

/// The type of the argument that assigns a property of type T.
template <class T>
using Assigned = std::conditional_t<std::is_same_v<T, std::string>, std::string_view, T>;

/// A property of class `D` and type T.
template <class D, class T, T (D::*kGet)() const, void (D::*kLet)(Assigned<T>)>
constexpr Member Property(const Caption& caption) {
  Member row = ReadOnlyProperty<D, T, kGet>(caption);
  row.let = &detail::Thunk<kLet, D, void, Assigned<T>>;
  return row;
}

}  // namespace vellumark::automation
