// SPDX-License-Identifier: MIT
//
// vellumark._vellumark: the C++ part of the Python module. It provides the member table and the
// documents; python/vellumark/_documents.py makes the public classes from them.
#include <memory>
#include <pybind11/pybind11.h>
#include <string_view>

#include <vellumark/version.h>

#include "automation/class_table.h"
#include "python/bound_member.h"
#include "python/interpreter_end.h"
#include "python/live_document.h"
#include "python/python_value.h"
#include "python/python_words.h"

namespace vellumark::python {
namespace {

namespace py = pybind11;
using automation::Class;

Class ClassOf(std::string_view name) {
  for (const automation::ClassInfo& info : automation::Classes()) {
    if (info.name == name && info.members) return *info.members;
  }
  throw py::value_error("not a class of documents");
}

py::list Members(std::string_view class_name) {
  const Class owner = ClassOf(class_name);
  py::list members;
  for (const automation::Member* member : automation::ClassMembers(owner)) {
    members.append(BoundMember(*member, owner));
  }
  return members;
}

py::dict ClassHelp() {
  py::dict help;
  for (const automation::ClassInfo& info : automation::Classes()) {
    help[py::str(info.name)] = info.help;
  }
  return help;
}

py::list EnumerationClasses() {
  py::list classes;
  for (const automation::Enumeration& enumeration : automation::EnumerationTable()) {
    classes.append(EnumerationClass(enumeration));
  }
  return classes;
}

/// vellumark.RunTimeError, a RuntimeError with the error's number.
void DefineRunTimeError(py::module_& module) {
  static PyObject* error_class = PyErr_NewExceptionWithDoc(
      "vellumark.RunTimeError", kRunTimeErrorDocstring.data(), PyExc_RuntimeError, nullptr);
  if (error_class == nullptr) throw py::error_already_set();
  module.attr("RunTimeError") = py::reinterpret_borrow<py::object>(error_class);
  py::register_exception_translator([](std::exception_ptr thrown) {
    try {
      std::rethrow_exception(std::move(thrown));
    } catch (const RunTimeError& error) {
      const py::object instance = py::handle(error_class)(error.what());
      instance.attr("number") = static_cast<int>(error.number());
      PyErr_SetObject(error_class, instance.ptr());
    }
  });
}

PyObject* RefuseNew(PyTypeObject* type, PyObject* /*arguments*/, PyObject* /*named*/) {
  PyErr_Format(PyExc_TypeError, "cannot create '%s' instances", type->tp_name);
  return nullptr;
}

/// For a class whose objects only this file makes. Without it, its __new__ would make an object
/// without a C++ object inside, and the first use of that would crash.
py::custom_type_setup MadeHereOnly() {
  return py::custom_type_setup([](PyHeapTypeObject* type) { type->ht_type.tp_new = &RefuseNew; });
}

std::unique_ptr<LiveDocument> NewDocument(std::string_view class_name, bool in_memory) {
  using enum LiveDocument::Output;
  return std::make_unique<LiveDocument>(ClassOf(class_name), in_memory ? Memory : Files);
}

void DefineDocument(py::module_& module) {
  py::class_<LiveDocument>(module, "Document", MadeHereOnly())
      .def_property_readonly("unflushed", &LiveDocument::unflushed)
      .def_property_readonly("create_refusal", &LiveDocument::create_refusal)
      .def_property("greatest_picture", &LiveDocument::greatest_picture,
                    &LiveDocument::set_greatest_picture)
      .def("give_up", &LiveDocument::GiveUp)
      .def("take_file", [](LiveDocument& document) -> py::object {
        const std::optional<std::string> bytes = document.TakeFile();
        if (!bytes) return py::none();
        return py::bytes(*bytes);
      });
}

void DefineMember(py::module_& module) {
  py::class_<BoundMember>(module, "Member", MadeHereOnly())
      .def_property_readonly("name", [](const BoundMember& self) { return self.member().name; })
      .def_property_readonly("doc",
                             [](const BoundMember& self) { return Docstring(self.member()); })
      .def_property_readonly("is_property",
                             [](const BoundMember& self) { return self.member().property; })
      .def_property_readonly("writable",
                             [](const BoundMember& self) { return self.member().let != nullptr; })
      .def_property_readonly("parameters", &BoundMember::Parameters)
      .def("call",
           [](const BoundMember& self, LiveDocument& document, const py::args& arguments) {
             return MayOutliveInterpreter([&] { return self.Call(document, arguments); });
           })
      .def("let", [](const BoundMember& self, LiveDocument& document, py::handle value) {
        MayOutliveInterpreter([&] { self.Let(document, value); });
      });
}

}  // namespace
}  // namespace vellumark::python

PYBIND11_MODULE(_vellumark, module) {
  using namespace vellumark::python;
  DefineRunTimeError(module);
  DefineDocument(module);
  DefineMember(module);
  module.def("new_document", &NewDocument, pybind11::arg("class_name"), pybind11::arg("in_memory"));
  module.def("members", &Members);
  module.attr("version") = VELLUMARK_VERSION_STRING;
  module.attr("class_help") = ClassHelp();
  module.attr("render_help") = kRenderDocstring;
  module.attr("greatest_picture_help") = kGreatestPictureDocstring;
  module.attr("enumerations") = EnumerationClasses();
}
