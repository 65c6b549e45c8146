// SPDX-License-Identifier: MIT
#include "automation/server/exception_information.h"

#include <new>
#include <stdexcept>
#include <string>

#include <vellumark/run_time_error.h>

#include "automation/class_table.h"
#include "automation/server/bstr.h"

namespace vellumark::automation {
namespace {

/// FACILITY_CONTROL, where automation has the numbers of run-time errors.
constexpr unsigned kRunTimeErrors = 0x800A0000;

/// Null where there is no memory for it: the number alone then has to do.
BSTR Sentence(std::string_view text) noexcept {
  try {
    std::string sentence(text);
    if (sentence.front() >= 'a' && sentence.front() <= 'z') {
      sentence.front() = static_cast<char>(sentence.front() - 'a' + 'A');
    }
    return NewBstr(sentence);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

HRESULT Describe(const RunTimeError& error, EXCEPINFO* information) noexcept {
  if (information != nullptr) {
    *information = EXCEPINFO{};
    information->bstrSource = Sentence(kLibraryName);
    information->bstrDescription = Sentence(error.what());
    information->scode = static_cast<SCODE>(kRunTimeErrors + static_cast<unsigned>(error.number()));
  }
  return DISP_E_EXCEPTION;
}

}  // namespace

HRESULT DescribeException(EXCEPINFO* information) noexcept {
  try {
    throw;
  } catch (const RunTimeError& error) {
    return Describe(error, information);
  } catch (const std::bad_alloc&) {
    return Describe(RunTimeError(RunTimeError::OutOfMemory), information);
  } catch (const std::length_error&) {  // a text longer than any memory
    return Describe(RunTimeError(RunTimeError::OutOfMemory), information);
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace vellumark::automation
