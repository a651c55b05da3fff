#include "runtime/RuntimeError.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace formwizard::runtime {
namespace {

struct Description {
  int Number;
  std::string_view Text;
};

constexpr std::array Descriptions{
    Description{InvalidProcedureCall, "Invalid procedure call or argument"},
    Description{Overflow, "Overflow"},
    Description{SubscriptOutOfRange, "Subscript out of range"},
    Description{DivisionByZero, "Division by zero"},
    Description{TypeMismatch, "Type mismatch"},
    Description{PathFileAccessError, "Path/File access error"},
    Description{ObjectVariableNotSet, "Object variable or With block variable not set"},
    Description{InvalidUseOfNull, "Invalid use of Null"},
    Description{ResourceNotFound, "Resource not found"},
    Description{ControlNotFound, "ActiveX control not found"},
    Description{InvalidPropertyValue, "Invalid property value"},
    Description{InvalidPropertyArrayIndex, "Invalid property array index"},
    Description{PropertyReadOnly, "Property is read-only"},
    Description{PropertyNotFound, "Property not found"},
    Description{CannotCreateObject, "ActiveX component can't create object"},
    Description{AutomationError, "Automation error"},
    Description{NameConflict, "Name conflicts with existing module, project, or object library"},
    Description{ElementNotFound, "Element not found"},
    Description{KeyNotUnique, "Key is not unique in collection"},
    Description{NotALegalObjectName, "Not a legal object name"},
    Description{EventHandlerInvalid, "Event handler is invalid"},
};

}  // namespace

std::string DescriptionOf(int number) {
  const auto found = std::ranges::find(Descriptions, number, &Description::Number);
  return std::string(found != Descriptions.end() ? found->Text : "Application-defined or object-defined error");
}

RuntimeError::RuntimeError(int number) : RuntimeError(number, DescriptionOf(number)) {}

RuntimeError::RuntimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

void Raise(int number) { throw RuntimeError(number); }

void Raise(int number, std::string description) { throw RuntimeError(number, std::move(description)); }

}  // namespace formwizard::runtime
