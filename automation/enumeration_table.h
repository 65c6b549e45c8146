// SPDX-License-Identifier: MIT
//
// The eight public enumerations by name, for hosts of other languages: the type library and the
// Python module are made from them.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include <vellumark/enumerations.h>

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

/// The member with that value; null if there is none.
[[nodiscard]] const EnumerationMember* FindMember(const Enumeration& enumeration,
                                                  std::int32_t value) noexcept;

/// All of them, in alphabetical order.
[[nodiscard]] std::span<const Enumeration> EnumerationTable() noexcept;

namespace detail {

/// The place of `E` among the types `All`; -1 if it is not one of them.
template <class E, class... All>
constexpr int PlaceAmong() noexcept {
  int place = 0;
  const bool found = ((std::is_same_v<E, All> || (++place, false)) || ...);
  return found ? place : -1;
}

/// The place of a C++ enumeration in EnumerationTable().
template <class E>
inline constexpr int kPlace =
    PlaceAmong<E, AlignmentConstants, BulletConstants, EncodingConstants, FontEffectConstants,
               FontNumberConstants, FontStyleConstants, OrientationConstants, PaperSizeConstants>();

extern const Enumeration enumerations[8];

}  // namespace detail

/// The description of the C++ enumeration `E`.
template <class E>
[[nodiscard]] constexpr const Enumeration* Describe() noexcept {
  static_assert(detail::kPlace<E> >= 0, "not a public enumeration");
  return &detail::enumerations[detail::kPlace<E>];
}

}  // namespace vellumark::automation
