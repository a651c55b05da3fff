#include "adapters/com/Failures.h"

#include "adapters/com/Text.h"

#include <algorithm>
#include <array>
#include <new>
#include <string>
#include <string_view>

namespace formwizard::adapters::com {
namespace {

constexpr int LanguageFailure = static_cast<int>(0x800A0000U);

// A failure with a meaning in the language. Without a text its number has a description of its own.
struct Meaning {
  HRESULT Failure;
  int Number;
  std::string_view Description = "";
};

constexpr std::string_view NoSuchMember = "Object doesn't support this property or method";

constexpr std::array Meanings{
    Meaning{E_INVALIDARG, runtime::InvalidProcedureCall},
    Meaning{DISP_E_OVERFLOW, runtime::Overflow},
    Meaning{E_OUTOFMEMORY, 7, "Out of memory"},
    Meaning{DISP_E_BADINDEX, runtime::SubscriptOutOfRange},
    Meaning{DISP_E_ARRAYISLOCKED, 10, "This array is fixed or temporarily locked"},
    Meaning{DISP_E_DIVBYZERO, runtime::DivisionByZero},
    Meaning{DISP_E_TYPEMISMATCH, runtime::TypeMismatch},
    Meaning{DISP_E_BADVARTYPE, runtime::TypeMismatch},
    Meaning{E_ACCESSDENIED, 70, "Permission denied"},
    Meaning{REGDB_E_CLASSNOTREG, runtime::CannotCreateObject},
    Meaning{CO_E_CLASSSTRING, runtime::CannotCreateObject},
    Meaning{E_NOINTERFACE, 430, "Class does not support Automation or does not support expected interface"},
    Meaning{DISP_E_MEMBERNOTFOUND, MemberNotSupported, NoSuchMember},
    Meaning{DISP_E_UNKNOWNNAME, MemberNotSupported, NoSuchMember},
    Meaning{E_NOTIMPL, 445, "Object doesn't support this action"},
    Meaning{DISP_E_NONAMEDARGS, 446, "Object doesn't support named arguments"},
    Meaning{DISP_E_UNKNOWNLCID, 447, "Object doesn't support current locale setting"},
    Meaning{DISP_E_PARAMNOTFOUND, 448, "Named argument not found"},
    Meaning{DISP_E_PARAMNOTOPTIONAL, 449, "Argument not optional"},
    Meaning{DISP_E_BADPARAMCOUNT, 450, "Wrong number of arguments or invalid property assignment"},
};

struct LocalMemory {
  ~LocalMemory() { ::LocalFree(Text); }
  wchar_t* Text = nullptr;
};

std::string SystemText(HRESULT failure) {
  LocalMemory memory;
  const DWORD length =
      ::FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(failure), 0, reinterpret_cast<wchar_t*>(&memory.Text), 0, nullptr);
  const std::string text = Readable(std::wstring_view(memory.Text, length));
  return text.empty() ? runtime::DescriptionOf(runtime::AutomationError) : text;
}

bool CarriesNumber(HRESULT failure) { return (failure & ~0xFFFF) == LanguageFailure; }

Meaning MeaningOf(HRESULT failure) {
  const auto found = std::ranges::find(Meanings, failure, &Meaning::Failure);
  if (found != Meanings.end()) return *found;
  return {failure, CarriesNumber(failure) ? failure & 0xFFFF : failure};
}

std::string DescriptionOf(const Meaning& meaning) {
  if (!meaning.Description.empty()) return std::string(meaning.Description);
  // Other objects raise numbers of which this program knows no text.
  const auto known = std::ranges::find(Meanings, meaning.Number, &Meaning::Number);
  if (known != Meanings.end() && !known->Description.empty()) return std::string(known->Description);
  return meaning.Number < 0 ? SystemText(meaning.Failure) : runtime::DescriptionOf(meaning.Number);
}

HRESULT Describe(EXCEPINFO* info, int number, std::string_view description) {
  if (!info) return DISP_E_EXCEPTION;
  *info = EXCEPINFO{};
  info->scode = number < 0 ? number : LanguageFailure | (number & 0xFFFF);
  info->bstrDescription = Bstr(description).Release();
  return DISP_E_EXCEPTION;
}

HRESULT DescribeCurrent(EXCEPINFO* info) {
  try {
    throw;
  } catch (const runtime::RuntimeError& error) {
    return Describe(info, error.Number(), error.Description());
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const std::exception& mistake) {
    return Describe(info, E_UNEXPECTED, mistake.what());
  }
}

}  // namespace

void RaiseFailure(HRESULT failure) {
  const Meaning meaning = MeaningOf(failure);
  runtime::Raise(meaning.Number, DescriptionOf(meaning));
}

ExceptionInfo::~ExceptionInfo() {
  ::SysFreeString(raw_.bstrSource);
  ::SysFreeString(raw_.bstrDescription);
  ::SysFreeString(raw_.bstrHelpFile);
}

void ExceptionInfo::Raise() {
  // When this fails there is what the object filled in before.
  if (raw_.pfnDeferredFillIn) raw_.pfnDeferredFillIn(&raw_);
  const std::string description = Readable(View(raw_.bstrDescription));
  Meaning meaning{raw_.scode, raw_.wCode};
  if (raw_.wCode == 0) meaning = FAILED(raw_.scode) ? MeaningOf(raw_.scode) : Meaning{E_FAIL, runtime::AutomationError};
  runtime::Raise(meaning.Number, description.empty() ? DescriptionOf(meaning) : description);
}

HRESULT FailureOf(EXCEPINFO* info) noexcept {
  try {
    return DescribeCurrent(info);
  } catch (...) {  // no memory for the description, or something that is no exception of this program
    return E_UNEXPECTED;
  }
}

}  // namespace formwizard::adapters::com
