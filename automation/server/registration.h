// SPDX-License-Identifier: MIT
//
// The entries of the registry by which Windows finds the classes and their type library, below
// Software\Classes of the machine or of the user:
//
//     CLSID\{class}            ProgID, VersionIndependentProgID, Programmable, TypeLib, Version,
//                              InprocServer32 with the DLL's path, ThreadingModel Apartment
//     Vellumark.PDF ...        CLSID, CurVer
//     Vellumark.PDF.1 ...      CLSID
//     Interface\{interface}    ProxyStubClsid, ProxyStubClsid32, TypeLib with the version
//     TypeLib\{library}\1.0    0\win64 (or win32) with the DLL's path, FLAGS, HELPDIR
//
// A DLL of 32 bits and one of 64 may be registered beside each other: Windows keeps CLSID and
// Interface apart for them, and what they share stays until both are unregistered.
#pragma once

#include <windows.h>

namespace vellumark::automation::server {

enum class Scope { Machine, User };

/// Writes the entries. If a step fails, all of them are removed, those of an earlier registration
/// too. Throws std::bad_alloc.
[[nodiscard]] HRESULT Register(Scope scope);

/// Removes what Register wrote, as far as it is there, and nothing else. Goes on past a key that
/// cannot be removed, and returns the first error. Throws std::bad_alloc.
[[nodiscard]] HRESULT Unregister(Scope scope);

}  // namespace vellumark::automation::server
