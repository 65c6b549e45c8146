// SPDX-License-Identifier: MIT
//
// UnlockedCall: runs something without the interpreter lock, so that other Python threads go on.
//
//     const Value written = UnlockedCall([&] { return call(document, arguments); });
//
// The lock must be held; `work` must not touch Python.
#pragma once

#include <cxxabi.h>
#include <pybind11/pybind11.h>
#include <unistd.h>

namespace vellumark::python {

/// Takes the lock again. A thread that outlives the interpreter does not get it: the interpreter
/// then ends the thread by unwinding its stack, through destructors that need the lock or may not
/// throw. Such a thread waits here for the end of the process instead.
inline void Relock(PyThreadState* state) {
  try {
    PyEval_RestoreThread(state);
  } catch (abi::__forced_unwind&) {
    while (true) pause();
  }
}

template <class Work>
auto UnlockedCall(const Work& work) {
  PyThreadState* state = PyEval_SaveThread();
  try {
    auto result = work();
    Relock(state);
    return result;
  } catch (...) {
    Relock(state);
    throw;
  }
}

}  // namespace vellumark::python
