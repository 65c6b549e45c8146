// SPDX-License-Identifier: MIT
//
// MayOutliveInterpreter: for a thread that may still run when the interpreter ends.
//
//     return MayOutliveInterpreter([&] { return member.Call(document, arguments); });
//
// The interpreter ends such a thread where it next wants the interpreter lock, also in the Python
// code of an argument's __index__: it unwinds the thread's stack, through destructors that need the
// lock or may not throw. Within `work` the thread waits for the end of the process instead. Objects
// that hold Python references and live in `work` itself are still destroyed without the lock: keep
// none across what may run Python code.
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
