// Late-bound calls on an automation object, by name or by dispatch id.
//
// Everything that fails raises a RuntimeError: a call on "Nothing" 91, a member that the object does not have 438, the
// rest as Failures.h says. An object is used on the thread that it was got on.
#pragma once

#include "adapters/com/MemberIds.h"
#include "adapters/com/Value.h"

#include <array>
#include <memory>
#include <span>
#include <utility>

namespace formwizard::adapters::com {

class Object {
 public:
  Object() = default;  // Nothing
  explicit Object(ComPtr<IDispatch> dispatch) : Object(std::move(dispatch), std::make_shared<MemberIdsByType>()) {}

  explicit operator bool() const { return static_cast<bool>(dispatch_); }
  const ComPtr<IDispatch>& Dispatch() const { return dispatch_; }
  // The same object; neither it nor what it hands out takes member ids from other objects of its type.
  Object WithOwnIds() const { return Object(dispatch_, nullptr); }

  // A member in an expression: a property, or what a method returns. Arguments are whatever a Value is made of.
  template <typename... Arguments>
  Value Get(const wchar_t* name, Arguments&&... arguments) const {
    return Invoke(IdOf(name), DISPATCH_PROPERTYGET | DISPATCH_METHOD, Values(std::forward<Arguments>(arguments)...));
  }
  template <typename... Arguments>
  Value GetId(DISPID id, Arguments&&... arguments) const {
    return Invoke(id, DISPATCH_PROPERTYGET | DISPATCH_METHOD, Values(std::forward<Arguments>(arguments)...));
  }
  // The same for a member that yields an object.
  template <typename... Arguments>
  Object Child(const wchar_t* name, Arguments&&... arguments) const {
    return Adopt(Get(name, std::forward<Arguments>(arguments)...));
  }
  template <typename... Arguments>
  Object ChildId(DISPID id, Arguments&&... arguments) const {
    return Adopt(GetId(id, std::forward<Arguments>(arguments)...));
  }
  // An element of a collection.
  template <typename Index>
  Object Item(const Index& index) const {
    return ChildId(DISPID_VALUE, index);
  }

  // A method as a statement of its own.
  template <typename... Arguments>
  Value Call(const wchar_t* name, Arguments&&... arguments) const {
    return Invoke(IdOf(name), DISPATCH_METHOD, Values(std::forward<Arguments>(arguments)...));
  }
  template <typename... Arguments>
  Value CallId(DISPID id, Arguments&&... arguments) const {
    return Invoke(id, DISPATCH_METHOD, Values(std::forward<Arguments>(arguments)...));
  }
  // With as many arguments as there are.
  Value Call(const wchar_t* name, std::span<const Value> arguments) const {
    return Invoke(IdOf(name), DISPATCH_METHOD, arguments);
  }

  template <typename Argument>
  void Put(const wchar_t* name, Argument&& value) const {
    Invoke(IdOf(name), DISPATCH_PROPERTYPUT, Values(std::forward<Argument>(value)));
  }
  void PutRef(const wchar_t* name, const Object& object) const {
    Invoke(IdOf(name), DISPATCH_PROPERTYPUTREF, Values(object.dispatch_));
  }

 private:
  Object(ComPtr<IDispatch> dispatch, std::shared_ptr<MemberIdsByType> types)
      : dispatch_(std::move(dispatch)), types_(std::move(types)) {}

  template <typename... Arguments>
  static std::array<Value, sizeof...(Arguments)> Values(Arguments&&... arguments) {
    return {Value(std::forward<Arguments>(arguments))...};
  }

  Object Adopt(const Value& value) const { return Object(value.ToDispatch(), types_); }
  IDispatch& Required() const;
  DISPID IdOf(const wchar_t* name) const;
  Value Invoke(DISPID id, int flags, std::span<const Value> arguments) const;

  ComPtr<IDispatch> dispatch_;
  std::shared_ptr<MemberIdsByType> types_;
  mutable std::shared_ptr<MemberIds> ids_;
};

}  // namespace formwizard::adapters::com
