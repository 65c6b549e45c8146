// SPDX-License-Identifier: MIT
#include <algorithm>

#include "automation/member_table.h"

namespace vellumark::automation {
namespace {

constexpr char Lower(char letter) noexcept {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool SameName(std::string_view a, std::string_view b) noexcept {
  return std::ranges::equal(a, b, {}, Lower, Lower);
}

}  // namespace

ClassMembers::ClassMembers(Class document_class) {
  for (const Member& member : MemberTable()) {
    if (document_class == Class::PDF ? member.of_pdf : member.of_ps) members_.push_back(&member);
  }
}

const Member* ClassMembers::Find(std::string_view name) const noexcept {
  const auto found = std::ranges::find_if(
      members_, [&](const Member* member) { return SameName(member->name, name); });
  return found == members_.end() ? nullptr : *found;
}

const Member* ClassMembers::Find(std::int32_t id) const noexcept {
  const auto found = std::ranges::lower_bound(members_, id, {}, &Member::id);
  return found == members_.end() || (*found)->id != id ? nullptr : *found;
}

int FindParameter(const Member& member, std::string_view name) noexcept {
  const auto parameters = member.parameters();
  const auto found = std::ranges::find_if(
      parameters, [&](const Parameter& parameter) { return SameName(parameter.name, name); });
  return found == parameters.end() ? -1 : static_cast<int>(found - parameters.begin());
}

}  // namespace vellumark::automation
