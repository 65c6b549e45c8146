// SPDX-License-Identifier: MIT
//
// A library of the system that is loaded when it is first needed. Most documents have no PNG
// picture and no font of their own: their programs start as fast, and take as little memory, as if
// the libraries for them did not exist. A program also runs where one of them is missing, until it
// asks for what only that library can do.
//
//     #define VELLUMARK_GIF_FUNCTIONS(X, Table) X(Table, DGifOpen) X(Table, DGifCloseFile)
//     VELLUMARK_LOADED_LIBRARY(GifLibrary, VELLUMARK_SONAME_GIF, VELLUMARK_GIF_FUNCTIONS)
//     ...
//     std::string reason = GifLibrary::Load();    // "libgif.so.7: cannot open ...", or nothing
//     if (reason.empty()) DGifOpen(...);          // as in any other user of the library
//
// The macro makes, for each function, an object of its name, which stands before the library's own
// declaration in the namespace. In a build that is linked with the libraries
// (VELLUMARK_LINK_LIBRARIES) the names are the functions themselves, and Load has nothing to do.
#pragma once

#include <stdexcept>
#include <string>

namespace vellumark::platform {

#if VELLUMARK_LINK_LIBRARIES

#define VELLUMARK_LOADED_LIBRARY(Table, soname, FUNCTIONS) \
  struct Table {                                           \
    static std::string Load() { return {}; }               \
  };

#else

class LoadedLibrary {
 public:
  /// `soname` is the name under which programs that are linked with the library find it. It stays
  /// loaded until the process ends. Throws std::runtime_error with the system's words, which name
  /// the library.
  explicit LoadedLibrary(const char* soname);

  /// Finds the function `name`. Throws likewise.
  template <class Function>
  void Find(const char* name, Function*& function) const {
    function = reinterpret_cast<Function*>(Find(name));
  }

 private:
  [[nodiscard]] void* Find(const char* name) const;

  void* handle_;
};

/// Calls a function of a table, with the arguments that the library's own declaration asks for.
template <auto Function>
struct LoadedFunction;
template <class Table, class Returned, class... Arguments,
          Returned (*Table::*Function)(Arguments...)>
struct LoadedFunction<Function> {
  Returned operator()(Arguments... arguments) const {
    return (Table::Loaded().*Function)(arguments...);
  }
};

// What is made of each function: where it is, how it is found, and what is called.
// NOLINTNEXTLINE(bugprone-macro-parentheses): a name is declared
#define VELLUMARK_LOADED_MEMBER(Table, name) decltype(&::name) name = nullptr;
#define VELLUMARK_LOADED_FIND(Table, name) library.Find(#name, table.name);
#define VELLUMARK_LOADED_OBJECT(Table, name) \
  inline constexpr ::vellumark::platform::LoadedFunction<&Table::name> name;

/// `Table::Load` loads the library, if it is not loaded yet, from any thread; it returns why it
/// cannot be loaded, or an empty text. After a failure nothing is kept, and the next call tries
/// again. None of the functions may be called before it returned an empty text.
#define VELLUMARK_LOADED_LIBRARY(Table, soname, FUNCTIONS)        \
  struct Table {                                                  \
    FUNCTIONS(VELLUMARK_LOADED_MEMBER, Table)                     \
                                                                  \
    static std::string Load() {                                   \
      try {                                                       \
        Loaded();                                                 \
        return {};                                                \
      } catch (const std::runtime_error& missing) {               \
        return missing.what();                                    \
      }                                                           \
    }                                                             \
    static const Table& Loaded() {                                \
      static const Table table = Find();                          \
      return table;                                               \
    }                                                             \
                                                                  \
   private:                                                       \
    static Table Find() {                                         \
      Table table;                                                \
      const ::vellumark::platform::LoadedLibrary library(soname); \
      FUNCTIONS(VELLUMARK_LOADED_FIND, Table)                     \
      return table;                                               \
    }                                                             \
  };                                                              \
  FUNCTIONS(VELLUMARK_LOADED_OBJECT, Table)

#endif

}  // namespace vellumark::platform
