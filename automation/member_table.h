// SPDX-License-Identifier: MIT
//
// The member table: every public member of PDF and PS, described once.
//
// Everything that hosts of other languages see comes from here: the automation server's dispatch
// and its type library, the Python module and its stub, and docs/reference.md. A member that is
// added to or deleted from the table is added to or deleted from all of them.
//
//     const ClassMembers members(Class::PS);
//     if (const Member* member = members.Find("writetext")) ...     // case does not matter
//     for (const Member* member : members) ...
//
// Rows are in the order of their dispatch ids. An id is never reused or changed, because compiled
// hosts contain it: new members get the next ids, at the end of the table.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "automation/member.h"

namespace vellumark::automation {

/// The classes that have members; Enumerations has none.
enum class Class : std::uint8_t { PDF, PS };

/// The rows of both classes. A name whose parameters differ between the classes has two rows with
/// the same id.
[[nodiscard]] std::span<const Member> MemberTable() noexcept;

/// The members of one class.
class ClassMembers {
 public:
  explicit ClassMembers(Class document_class);

  /// The member of that name, in upper or lower case; null if there is none.
  [[nodiscard]] const Member* Find(std::string_view name) const noexcept;

  /// The member with that dispatch id; null if there is none.
  [[nodiscard]] const Member* Find(std::int32_t id) const noexcept;

  [[nodiscard]] auto begin() const noexcept { return members_.begin(); }
  [[nodiscard]] auto end() const noexcept { return members_.end(); }

 private:
  std::vector<const Member*> members_;  // by id
};

/// The index of the parameter of that name, in upper or lower case; -1 if there is none.
[[nodiscard]] int FindParameter(const Member& member, std::string_view name) noexcept;

}  // namespace vellumark::automation
