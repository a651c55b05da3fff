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

ComPtr<IDispatch> Object::Required() const {
  if (!reference_) runtime::Raise(runtime::ObjectVariableNotSet);
  return reference_->Get();
}

DISPID Object::IdOf(const wchar_t* name) const {
  const ComPtr<IDispatch> object = Required();
  if (!ids_) ids_ = hasOwnIds_ ? std::make_shared<MemberIds>() : reference_->From()->Types.For(*object);
  return ids_->Of(name, *object);
}

Value Object::Invoke(DISPID id, int flags, std::span<const Value> arguments) const {
  const ComPtr<IDispatch> object = Required();
  const std::shared_ptr<Connection> connection = reference_->From();
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
    return object->Invoke(id, IID_NULL, locale, static_cast<WORD>(flags), &parameters,
                          isPut ? nullptr : result.Receive(), exception.Receive(), &wrongArgument);
  };
  HRESULT outcome = invoke(English);
  connection->Require();
  if (outcome == DISP_E_UNKNOWNLCID) outcome = invoke(LOCALE_USER_DEFAULT);
  connection->Require();
  if (outcome == DISP_E_EXCEPTION) exception.Raise();
  Check(outcome);
  return result;
}

}  // namespace formwizard::adapters::com
