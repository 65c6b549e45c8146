// SPDX-License-Identifier: MIT
#include "python/python_value.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace vellumark::python {
namespace {

namespace py = pybind11;
using automation::Enumeration;
using automation::EnumerationMember;
using automation::Parameter;
using automation::Type;
using automation::Value;
using automation::ValueType;

[[noreturn]] void RefuseType(const std::string& place, const char* wanted, py::handle object) {
  PyErr_Format(PyExc_TypeError, "%s must be %s, not %s", place.c_str(), wanted,
               Py_TYPE(object.ptr())->tp_name);
  throw py::error_already_set();
}

template <class T>
T Whole(py::handle object, const std::string& place) {
  if (PyIndex_Check(object.ptr()) == 0) RefuseType(place, "int", object);
  const auto number = py::reinterpret_steal<py::object>(PyNumber_Index(object.ptr()));
  if (!number) throw py::error_already_set();
  int overflow = 0;
  const long long value = PyLong_AsLongLongAndOverflow(number.ptr(), &overflow);
  constexpr long long kLeast = std::numeric_limits<T>::min();
  constexpr long long kMost = std::numeric_limits<T>::max();
  if (overflow != 0 || value < kLeast || value > kMost) {
    PyErr_Format(PyExc_OverflowError, "%s must be in %lld to %lld", place.c_str(), kLeast, kMost);
    throw py::error_already_set();
  }
  return static_cast<T>(value);
}

bool Truth(py::handle object, const std::string& place) {
  if (PyBool_Check(object.ptr())) return object.ptr() == Py_True;
  if (PyIndex_Check(object.ptr()) == 0) RefuseType(place, "bool", object);
  const auto number = py::reinterpret_steal<py::object>(PyNumber_Index(object.ptr()));
  const int truth = number ? PyObject_IsTrue(number.ptr()) : -1;
  if (truth < 0) throw py::error_already_set();
  return truth != 0;
}

float Single(py::handle object, const std::string& place) {
  const PyNumberMethods* numbers = Py_TYPE(object.ptr())->tp_as_number;
  if (numbers == nullptr || (numbers->nb_float == nullptr && numbers->nb_index == nullptr)) {
    RefuseType(place, "float", object);
  }
  const double value = PyFloat_AsDouble(object.ptr());
  const bool failed = value == -1.0 && PyErr_Occurred() != nullptr;
  if (failed && PyErr_ExceptionMatches(PyExc_OverflowError) == 0) throw py::error_already_set();
  if (failed || (std::isfinite(value) && std::abs(value) > std::numeric_limits<float>::max())) {
    PyErr_Clear();
    PyErr_Format(PyExc_OverflowError, "%s is too large for single precision", place.c_str());
    throw py::error_already_set();
  }
  return static_cast<float>(value);
}

std::string BytesOf(py::handle bytes) {
  return {PyBytes_AS_STRING(bytes.ptr()), static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.ptr()))};
}

/// A view of a bytes-like object, given back at the end of its block.
class BufferView {
 public:
  explicit BufferView(py::handle object) {
    if (PyObject_GetBuffer(object.ptr(), &view_, PyBUF_FULL_RO) != 0) {
      throw py::error_already_set();
    }
  }
  BufferView(const BufferView&) = delete;
  BufferView& operator=(const BufferView&) = delete;
  BufferView(BufferView&&) = delete;
  BufferView& operator=(BufferView&&) = delete;
  ~BufferView() { PyBuffer_Release(&view_); }

  /// A copy, so that others may change the object while the document uses it.
  [[nodiscard]] automation::Bytes Bytes() {
    automation::Bytes bytes(static_cast<std::size_t>(view_.len));
    if (PyBuffer_ToContiguous(bytes.data(), &view_, view_.len, 'C') != 0) {
      throw py::error_already_set();
    }
    return bytes;
  }

 private:
  Py_buffer view_{};
};

std::string Text(py::handle object, const std::string& place) {
  if (PyUnicode_Check(object.ptr()) == 0) RefuseType(place, "str", object);
  const auto bytes = py::reinterpret_steal<py::object>(
      PyUnicode_AsEncodedString(object.ptr(), "utf-8", "replace"));
  if (!bytes) throw py::error_already_set();
  return BytesOf(bytes);
}

bool IsPathLike(py::handle object) {
  return py::hasattr(py::type::handle_of(object), "__fspath__");
}

/// The bytes of a file name, as open() would pass them to the system.
std::string FileName(py::handle object, const std::string& place) {
  const bool is_name = PyUnicode_Check(object.ptr()) != 0 || PyBytes_Check(object.ptr()) != 0;
  if (!is_name && !IsPathLike(object)) RefuseType(place, "str, bytes or os.PathLike", object);
  auto path = py::reinterpret_steal<py::object>(PyOS_FSPath(object.ptr()));
  if (!path) throw py::error_already_set();
  if (PyUnicode_Check(path.ptr()) != 0) {
    path = py::reinterpret_steal<py::object>(PyUnicode_EncodeFSDefault(path.ptr()));
    if (!path) throw py::error_already_set();
  }
  return BytesOf(path);
}

Value FileOrBytes(py::handle object, const std::string& place) {
  if (PyUnicode_Check(object.ptr()) != 0 || IsPathLike(object)) return FileName(object, place);
  if (PyObject_CheckBuffer(object.ptr()) == 0) {
    RefuseType(place, "str, os.PathLike or a bytes-like object", object);
  }
  return BufferView(object).Bytes();
}

}  // namespace

Value FromPython(py::handle object, const Parameter& parameter, const std::string& place) {
  switch (parameter.type.type) {
    case Type::None: return {};
    case Type::Integer: return Whole<std::int16_t>(object, place);
    case Type::Byte: return Whole<std::uint8_t>(object, place);
    case Type::Boolean: return Truth(object, place);
    case Type::Single: return Single(object, place);
    case Type::String:
      if (parameter.bytes) return FileOrBytes(object, place);
      return parameter.file_name ? FileName(object, place) : Text(object, place);
    case Type::Enumeration: return Whole<std::int32_t>(object, place);
  }
  return {};
}

py::object ToPython(const Value& value, const ValueType& type) {
  switch (type.type) {
    case Type::None: return py::none();
    case Type::Integer: return py::int_(std::get<std::int16_t>(value));
    case Type::Byte: return py::int_(std::get<std::uint8_t>(value));
    case Type::Boolean: return py::bool_(std::get<bool>(value));
    case Type::Single: return py::float_(std::get<float>(value));
    case Type::String: {
      // LastRefusal may contain a file name that is not UTF-8.
      const auto& text = std::get<std::string>(value);
      auto decoded = py::reinterpret_steal<py::object>(
          PyUnicode_DecodeUTF8(text.data(), static_cast<py::ssize_t>(text.size()), "replace"));
      if (!decoded) throw py::error_already_set();
      return decoded;
    }
    case Type::Enumeration: {
      if (type.enumeration == nullptr) return py::int_(std::get<std::int32_t>(value));
      // A call of the class would run Python code; see interpreter_end.h.
      const py::dict members = EnumerationClass(*type.enumeration).attr("_value2member_map_");
      py::int_ number(std::get<std::int32_t>(value));
      PyObject* const member = PyDict_GetItemWithError(members.ptr(), number.ptr());
      if (member != nullptr) return py::reinterpret_borrow<py::object>(member);
      return number;
    }
  }
  return py::none();
}

py::object EnumerationClass(const Enumeration& enumeration) {
  // Never destroyed: the interpreter ends before static objects are destroyed.
  static auto& classes = *new py::dict([] {
    const auto int_enum = py::module_::import("enum").attr("IntEnum");
    py::dict made;
    for (const Enumeration& each : automation::EnumerationTable()) {
      py::list members;
      for (const EnumerationMember& member : each.members) {
        members.append(py::make_tuple(member.name, member.value));
      }
      py::object enum_class = int_enum(each.name, members, py::arg("module") = "vellumark");
      enum_class.attr("__doc__") = each.help;
      made[py::str(each.name)] = enum_class;
    }
    return made;
  }());
  return classes[py::str(enumeration.name)];
}

}  // namespace vellumark::python
