// SPDX-License-Identifier: MIT
//
// The three classes that a host of another language creates, and the identifiers by which Windows
// knows them and their type library.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "automation/member_table.h"

namespace vellumark::automation {

struct ClassInfo {
  std::string_view name;                ///< such as "PDF"
  std::string_view dispatch_interface;  ///< its dispatch interface, such as "_PDF"
  std::string_view help;
  std::optional<Class> members;   ///< none for Enumerations
  std::string_view class_id;      ///< CLSID, without braces
  std::string_view interface_id;  ///< IID of the dispatch interface, without braces
  std::string_view program_id;    ///< version-independent ProgID
  std::string_view versioned_program_id;
};

/// PDF, PS and Enumerations.
[[nodiscard]] std::span<const ClassInfo> Classes() noexcept;

inline constexpr std::string_view kLibraryName = "Vellumark";
inline constexpr std::string_view kLibraryHelp = "Vellumark 1.0 Type Library";
inline constexpr std::string_view kLibraryId = "26FA760F-475E-47DB-A28F-E675FC3BE490";
inline constexpr std::uint16_t kLibraryMajor = 1;
inline constexpr std::uint16_t kLibraryMinor = 0;

}  // namespace vellumark::automation
