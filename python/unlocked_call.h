// SPDX-License-Identifier: MIT
//
// UnlockedCall: calls `work` without the interpreter lock, so that other Python threads can run.
//
//     const Value written = UnlockedCall([&] { return call(document, arguments); });
//
// The caller must hold the lock, and `work` must not use Python.
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
