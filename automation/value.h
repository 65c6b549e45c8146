// SPDX-License-Identifier: MIT
//
// Value: an argument or result on its way between a host of another language and a document.
//
// A host finds the type that a member asks for in the member table (automation/member_table.h),
// converts what it holds by the rules of its own language into a Value of that type, and converts
// the result back. The types of the public surface:
//
//     Type         C++             automation       holds
//     None         -               -                nothing: the result of a member without one
//     Integer      std::int16_t    Short            points, -32768 to 32767
//     Byte         std::uint8_t    Byte             0 to 255
//     Boolean      bool            Boolean
//     Single       float           Single           degrees
//     String       std::string     String           UTF-8
//     Enumeration  std::int32_t    Long             any value, a member of the enumeration or not;
//                                                   a plain number if no enumeration is named
//
// A parameter that takes a picture's file by its name, a String, takes the file itself too:
//
//                  Bytes           array of Byte    the file's content
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vellumark::automation {

struct Enumeration;  // automation/enumeration_table.h

enum class Type : std::uint8_t { None, Integer, Byte, Boolean, Single, String, Enumeration };

using Bytes = std::vector<std::uint8_t>;

/// The alternatives are in the order of Type: `value.index()` is the type that it holds. Behind
/// them come Bytes, which no member returns.
using Value = std::variant<std::monostate, std::int16_t, std::uint8_t, bool, float, std::string,
                           std::int32_t, Bytes>;

struct ValueType {
  Type type = Type::None;
  const Enumeration* enumeration =
      nullptr;  ///< which one; null for a plain Long and for every other type
};

}  // namespace vellumark::automation
