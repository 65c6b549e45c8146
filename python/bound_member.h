// SPDX-License-Identifier: MIT
//
// BoundMember: a row of the member table as the Python part of the module sees it. The classes PDF
// and PS get one function or property for each:
//
//     for member in _vellumark.members("PDF"):
//         member.name, member.doc, member.parameters
//         member.call(document, 0, 0, 100, 100)
#pragma once

#include <pybind11/pybind11.h>
#include <string>

#include "automation/member_table.h"
#include "python/live_document.h"

namespace vellumark::python {

class BoundMember {
 public:
  BoundMember(const automation::Member& member, automation::Class owner) noexcept
      : member_(member), owner_(owner) {}

  [[nodiscard]] const automation::Member& member() const noexcept { return member_; }

  /// The parameters that a caller passes: a tuple (name,) or (name, default) for each one that is
  /// not in/out.
  [[nodiscard]] pybind11::list Parameters() const;

  /// Calls the method or reads the property. Every argument is converted before the document is
  /// touched. Returns the value of a single in/out parameter, or a tuple of several in declared
  /// order; without such parameters, the result of the member. Throws what the conversions throw,
  /// and RunTimeError.
  pybind11::object Call(LiveDocument& document, const pybind11::args& arguments) const;

  /// Assigns the property.
  void Let(LiveDocument& document, pybind11::handle value) const;

 private:
  void CheckOwner(const LiveDocument& document) const;
  [[nodiscard]] std::string QualifiedName() const;

  const automation::Member& member_;
  automation::Class owner_;
};

}  // namespace vellumark::python
