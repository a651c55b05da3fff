#include "adapters/com/Automation.h"

#include "adapters/com/Failures.h"

#include <vector>

namespace formwizard::adapters::com {
namespace {

// The last argument comes first. The values stay with their owners.
std::vector<VARIANTARG> Reversed(std::span<const Value> arguments) {
  std::vector<VARIANTARG> reversed;
  reversed.reserve(arguments.size());
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
    reversed.push_back(argument->Raw());
  }
  return reversed;
}

}  // namespace

IDispatch& Object::Required() const {
  if (!dispatch_) runtime::Raise(runtime::ObjectVariableNotSet);
  return *dispatch_;
}

DISPID Object::IdOf(const wchar_t* name) const {
  IDispatch& object = Required();
  if (!ids_) ids_ = types_ ? types_->For(object) : std::make_shared<MemberIds>();
  return ids_->Of(name, object);
}

Value Object::Invoke(DISPID id, int flags, std::span<const Value> arguments) const {
  const ComPtr<IDispatch> kept(&Required());  // the call may be the end of this object
  std::vector<VARIANTARG> reversed = Reversed(arguments);
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  DISPID assigned = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  if (isPut) {
    parameters.rgdispidNamedArgs = &assigned;
    parameters.cNamedArgs = 1;
  }
  Value result;
  ExceptionInfo exception;
  const auto invoke = [&](LCID locale) {
    UINT wrongArgument = 0;
    return kept->Invoke(id, IID_NULL, locale, static_cast<WORD>(flags), &parameters, isPut ? nullptr : result.Receive(),
                        exception.Receive(), &wrongArgument);
  };
  HRESULT outcome = invoke(English);
  if (outcome == DISP_E_UNKNOWNLCID) outcome = invoke(LOCALE_USER_DEFAULT);
  if (outcome == DISP_E_EXCEPTION) exception.Raise();
  Check(outcome);
  return result;
}

}  // namespace formwizard::adapters::com
