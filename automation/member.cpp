// SPDX-License-Identifier: MIT
#include "automation/member.h"

namespace vellumark::automation {
namespace {

Value NumberAs(Type type, std::int32_t number) {
  switch (type) {
    case Type::None: return {};
    case Type::Integer: return static_cast<std::int16_t>(number);
    case Type::Byte: return static_cast<std::uint8_t>(number);
    case Type::Boolean: return number != 0;
    case Type::Single: return static_cast<float>(number);
    case Type::String: return std::string();
    case Type::Enumeration: return number;
  }
  return {};
}

}  // namespace

Value DefaultOf(const Parameter& parameter) {
  if (const auto* text = std::get_if<std::string_view>(&parameter.default_value)) {
    return std::string(*text);
  }
  return NumberAs(parameter.type.type, std::get<std::int32_t>(parameter.default_value));
}

Value ZeroOf(Type type) { return NumberAs(type, 0); }

}  // namespace vellumark::automation
