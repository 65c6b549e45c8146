// SPDX-License-Identifier: MIT
//
// UnlockedCall: runs something without the interpreter lock, so that other Python threads go on.
//
//     const Value written = UnlockedCall([&] { return call(document, arguments); });
//
// The lock must be held; `work` must not touch Python.
#pragma once

#include <pybind11/pybind11.h>

#include "python/interpreter_end.h"

namespace vellumark::python {

template <class Work>
auto UnlockedCall(const Work& work) {
  PyThreadState* state = PyEval_SaveThread();
  const auto relock = [&] { MayOutliveInterpreter([&] { PyEval_RestoreThread(state); }); };
  try {
    auto result = work();
    relock();
    return result;
  } catch (...) {
    relock();
    throw;
  }
}

}  // namespace vellumark::python
