// SPDX-License-Identifier: MIT
#include "fonts/font_libraries.h"

#if VELLUMARK_FONTS_LINKED

namespace vellumark::fonts {

std::string LoadFontLibraries() { return {}; }

}  // namespace vellumark::fonts

#else

#include <dlfcn.h>
#include <stdexcept>

namespace vellumark::fonts {
namespace {

/// A library of the system, by the name under which those who are linked with it find it.
class Library {
 public:
  explicit Library(const char* name) : handle_(dlopen(name, RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) throw std::runtime_error(Reason(name));
  }

  template <class Function>
  void Find(const char* name, Function*& function) const {
    function = reinterpret_cast<Function*>(dlsym(handle_, name));
    if (function == nullptr) throw std::runtime_error(Reason(name));
  }

 private:
  static std::string Reason(const char* name) {
    const char* const reason = dlerror();
    return reason != nullptr ? reason : std::string(name) + " cannot be loaded";
  }

  void* handle_;  // kept until the process ends, as the functions are
};

FontFunctions FindFunctions() {
  FontFunctions functions;
#define VELLUMARK_FIND(name) library.Find(#name, functions.name);
  {
    const Library library(VELLUMARK_SONAME_HARFBUZZ);
    VELLUMARK_HARFBUZZ_FUNCTIONS(VELLUMARK_FIND)
  }
  {
    const Library library(VELLUMARK_SONAME_HARFBUZZ_SUBSET);
    VELLUMARK_SUBSETTER_FUNCTIONS(VELLUMARK_FIND)
  }
  {
    const Library library(VELLUMARK_SONAME_FRIBIDI);
    VELLUMARK_FRIBIDI_FUNCTIONS(VELLUMARK_FIND)
  }
  {
    const Library library(VELLUMARK_SONAME_UNIBREAK);
    VELLUMARK_UNIBREAK_FUNCTIONS(VELLUMARK_FIND)
  }
  {
    const Library library(VELLUMARK_SONAME_THAI);
    VELLUMARK_THAI_FUNCTIONS(VELLUMARK_FIND)
  }
#undef VELLUMARK_FIND
  return functions;
}

}  // namespace

const FontFunctions& LoadedFunctions() {
  // If a library is missing, nothing is kept, and the next font asks again.
  static const FontFunctions functions = FindFunctions();
  return functions;
}

std::string LoadFontLibraries() {
  try {
    LoadedFunctions();
    return {};
  } catch (const std::runtime_error& missing) {
    return missing.what();
  }
}

}  // namespace vellumark::fonts

#endif
