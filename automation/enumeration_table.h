// SPDX-License-Identifier: MIT
//
// The eight public enumerations by name, for hosts of other languages: the type library and the
// Python module are made from them.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "vellumark/enumerations.h"

namespace vellumark::automation {

struct EnumerationMember {
  std::string_view name;
  std::int32_t value;
};

struct Enumeration {
  std::string_view name;                       ///< such as "AlignmentConstants"
  std::string_view help;                       ///< one sentence
  std::span<const EnumerationMember> members;  ///< in the order that editors list them
};

/// All of them, in alphabetical order.
[[nodiscard]] std::span<const Enumeration> EnumerationTable() noexcept;

namespace detail {

/// The place of a C++ enumeration in EnumerationTable().
template <class E>
inline constexpr int kPlace = -1;
template <>
inline constexpr int kPlace<AlignmentConstants> = 0;
template <>
inline constexpr int kPlace<BulletConstants> = 1;
template <>
inline constexpr int kPlace<EncodingConstants> = 2;
template <>
inline constexpr int kPlace<FontEffectConstants> = 3;
template <>
inline constexpr int kPlace<FontNumberConstants> = 4;
template <>
inline constexpr int kPlace<FontStyleConstants> = 5;
template <>
inline constexpr int kPlace<OrientationConstants> = 6;
template <>
inline constexpr int kPlace<PaperSizeConstants> = 7;

extern const Enumeration enumerations[8];

}  // namespace detail

/// The description of the C++ enumeration `E`.
template <class E>
[[nodiscard]] constexpr const Enumeration* Describe() noexcept {
  static_assert(detail::kPlace<E> >= 0, "no public enumeration");
  return &detail::enumerations[detail::kPlace<E>];
}

}  // namespace vellumark::automation
