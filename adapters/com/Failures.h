// Failures of automation as run-time errors, and run-time errors as failures of automation.
//
// The number is the one that the language shows. A code 0x800Axxxx carries it in its low word; the codes of automation
// with a meaning in the language have that one's number (DISP_E_TYPEMISMATCH is 13); any other code is shown as it is,
// as a negative number (E_FAIL is -2147467259). An exception that names no code at all is 440, "Automation error". The
// description is the one that the object gave, otherwise the language's, otherwise the system's text for the code.
#pragma once

#include "runtime/RuntimeError.h"

#include <windows.h>

#include <oleauto.h>

#include <utility>

namespace formwizard::adapters::com {

constexpr int MemberNotSupported = 438;

[[noreturn]] void RaiseFailure(HRESULT failure);

inline void Check(HRESULT result) {
  if (FAILED(result)) RaiseFailure(result);
}

// What an object said about its exception; owns the texts.
class ExceptionInfo {
 public:
  ExceptionInfo() = default;
  ExceptionInfo(const ExceptionInfo&) = delete;
  ExceptionInfo& operator=(const ExceptionInfo&) = delete;
  ~ExceptionInfo();

  EXCEPINFO* Receive() { return &raw_; }
  // Asks the object for what it put off.
  [[noreturn]] void Raise();

 private:
  EXCEPINFO raw_{};
};

// Runs what COM calls here. No exception leaves it: a run-time error becomes DISP_E_EXCEPTION with its number and
// description in `info`, which may be null.
HRESULT FailureOf(EXCEPINFO* info) noexcept;

template <typename Call>
HRESULT WithoutExceptions(EXCEPINFO* info, Call&& call) noexcept {
  try {
    return std::forward<Call>(call)();
  } catch (...) {  // the caller is not this program
    return FailureOf(info);
  }
}

}  // namespace formwizard::adapters::com
