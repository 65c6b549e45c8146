// SPDX-License-Identifier: MIT
#include "platform/loaded_library.h"

#include <dlfcn.h>

namespace vellumark::platform {
namespace {

/// What the system says, which names the library or function; at least `name`.
std::string Reason(const char* name) {
  const char* const reason = ::dlerror();  // NOLINT(concurrency-mt-unsafe): the thread's own
  return reason != nullptr ? reason : name;
}

}  // namespace

LoadedLibrary::LoadedLibrary(const char* soname)
    : handle_(::dlopen(soname, RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) throw std::runtime_error(Reason(soname));
}

void* LoadedLibrary::Find(const char* name) const {
  void* const function = ::dlsym(handle_, name);
  if (function == nullptr) throw std::runtime_error(Reason(name));
  return function;
}

}  // namespace vellumark::platform
