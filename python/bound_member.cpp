// SPDX-License-Identifier: MIT
#include "python/bound_member.h"

#include <array>
#include <span>

#include "python/python_value.h"

namespace vellumark::python {
namespace {

namespace py = pybind11;
using automation::Class;
using automation::Member;
using automation::Parameter;
using automation::Value;

py::object Result(const Member& member, const Value& result, std::span<const Value> arguments) {
  py::list results;
  for (std::size_t i = 0; i < member.parameter_count; ++i) {
    const Parameter& parameter = member.all_parameters[i];
    if (parameter.in_out) results.append(ToPython(arguments[i], parameter.type));
  }
  if (results.empty()) return ToPython(result, member.result);
  if (results.size() == 1) return results[0];
  return py::tuple(results);
}

}  // namespace

py::list BoundMember::Parameters() const {
  py::list parameters;
  for (const Parameter& parameter : member_.parameters()) {
    if (parameter.in_out) continue;
    if (parameter.optional()) {
      const py::object value = ToPython(DefaultOf(parameter), parameter.type);
      parameters.append(py::make_tuple(parameter.name, value));
    } else {
      parameters.append(py::make_tuple(parameter.name));
    }
  }
  return parameters;
}

py::object BoundMember::Call(LiveDocument& document, const py::args& arguments) const {
  CheckOwner(document);
  std::array<Value, Member::kMostParameters> values;
  std::size_t taken = 0;
  for (std::size_t i = 0; i < member_.parameter_count; ++i) {
    const Parameter& parameter = member_.all_parameters[i];
    if (parameter.in_out) {
      values[i] = ZeroOf(parameter.type.type);
      continue;
    }
    if (taken == arguments.size()) throw py::type_error(QualifiedName() += "() lacks arguments");
    std::string place = QualifiedName();
    place += "() argument '";
    place += parameter.name;
    place += '\'';
    values[i] = FromPython(arguments[taken++], parameter, place);
  }
  const auto used = std::span(values).first(member_.parameter_count);
  const Value result = document.Call(member_, member_.call, used);
  return Result(member_, result, used);
}

void BoundMember::Let(LiveDocument& document, py::handle value) const {
  CheckOwner(document);
  if (member_.let == nullptr) throw py::type_error(QualifiedName() += " is read-only");
  const Parameter assigned = {.name = "value", .type = member_.result, .default_value = {}};
  std::array<Value, 1> values = {FromPython(value, assigned, QualifiedName())};
  document.Call(member_, member_.let, values);
}

void BoundMember::CheckOwner(const LiveDocument& document) const {
  if (document.document_class() == owner_) return;
  throw py::type_error(QualifiedName() += "() got a document of the other class");
}

std::string BoundMember::QualifiedName() const {
  std::string name = owner_ == Class::PDF ? "PDF." : "PS.";
  return name += member_.name;
}

}  // namespace vellumark::python
