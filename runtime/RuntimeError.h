// The run-time errors of the language the generated forms and the wizard live in: a number and a description.
#pragma once

#include <exception>
#include <string>

namespace formwizard::runtime {

// The numbers that this program raises or expects from its environment.
enum ErrorNumber : int {
  InvalidProcedureCall = 5,
  Overflow = 6,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  PathFileAccessError = 75,
  ObjectVariableNotSet = 91,
  InvalidUseOfNull = 94,
  ResourceNotFound = 326,
  ControlNotFound = 363,
  InvalidPropertyValue = 380,
  InvalidPropertyArrayIndex = 381,
  PropertyReadOnly = 383,
  PropertyNotFound = 422,
  CannotCreateObject = 429,
  AutomationError = 440,
  NameConflict = 32813,
  ElementNotFound = 35601,
  KeyNotUnique = 35602,
  NotALegalObjectName = 50132,
  EventHandlerInvalid = 57017,
};

// The language's own description of an error number; "Application-defined or object-defined error" for a
// number that has none.
std::string DescriptionOf(int number);

// Raised where a rule of the language, the environment or the server is broken. Mistakes of this program
// itself are std::logic_error and are never caught together with these.
class RuntimeError : public std::exception {
 public:
  explicit RuntimeError(int number);
  RuntimeError(int number, std::string description);

  int Number() const noexcept { return number_; }
  const std::string& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  int number_;
  std::string description_;
};

[[noreturn]] void Raise(int number);
[[noreturn]] void Raise(int number, std::string description);

}  // namespace formwizard::runtime
