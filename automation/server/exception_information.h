// SPDX-License-Identifier: MIT
//
// What a client is told about a run-time error: its number, "Vellumark" and a sentence. VBScript
// shows the number as Err.Number, JScript as the low 16 bits of error.number.
#pragma once

#include <windows.h>
#include <oaidl.h>

namespace vellumark::automation {

/// To be called in a catch block: describes the C++ exception in `information`, which may be null,
/// and answers the result of the call, DISP_E_EXCEPTION.
[[nodiscard]] HRESULT DescribeException(EXCEPINFO* information) noexcept;

}  // namespace vellumark::automation
