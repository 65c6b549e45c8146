// SPDX-License-Identifier: MIT
//
// MayOutliveInterpreter: calls `work` in a thread that may still run when the interpreter ends.
//
//     return MayOutliveInterpreter([&] { return member.Call(document, arguments); });
//
// The interpreter ends such a thread when it next asks for the interpreter lock, even in the Python
// code of an argument's __index__: it unwinds the stack of the thread, through destructors that
// need the lock or must not throw. This function stops the unwinding, and the thread waits for the
// end of the process instead. Objects inside `work` are still destroyed without the lock, so none
// of them may hold a Python reference while Python code can run.
#pragma once

#include <cxxabi.h>
#include <unistd.h>

namespace vellumark::python {

template <class Work>
auto MayOutliveInterpreter(const Work& work) {
  try {
    return work();
  } catch (abi::__forced_unwind&) {
    while (true) pause();
  }
}

}  // namespace vellumark::python
