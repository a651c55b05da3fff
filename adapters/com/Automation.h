// Late-bound calls on an automation object, by name or by dispatch id.
//
// Everything that fails raises a RuntimeError: a call on "Nothing" 91, a member that the object does not have 438, the
// rest as Failures.h says. When the connection has ended, Connection.h says what is raised. An object is used on the
// thread that it was got on.
#pragma once

#include "adapters/com/Connection.h"
#include "adapters/com/Value.h"

#include <array>
#include <memory>
#include <span>
#include <utility>

namespace formwizard::adapters::com {

class Object {
 public:
  Object() = default;  // Nothing
  // What it hands out belongs to its connection, too.
  explicit Object(ComPtr<IDispatch> dispatch, std::shared_ptr<Connection> connection = std::make_shared<Connection>())
      : Object(std::move(dispatch), std::move(connection), false) {}

  explicit operator bool() const { return static_cast<bool>(reference_); }
  // Null for Nothing.
  ComPtr<IDispatch> Dispatch() const { return reference_ ? reference_->Get() : ComPtr<IDispatch>(); }
  // The same object; neither it nor what it hands out takes member ids from other objects of its type.
  Object WithOwnIds() const {
    Object same = *this;
    same.ids_ = nullptr;
    same.hasOwnIds_ = true;
    return same;
  }

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
    const Object origin = *this;  // the call may be the end of this one
    return origin.Adopt(Get(name, std::forward<Arguments>(arguments)...));
  }
  template <typename... Arguments>
  Object ChildId(DISPID id, Arguments&&... arguments) const {
    const Object origin = *this;
    return origin.Adopt(GetId(id, std::forward<Arguments>(arguments)...));
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
    Invoke(IdOf(name), DISPATCH_PROPERTYPUTREF, Values(object.Dispatch()));
  }

 private:
  Object(ComPtr<IDispatch> dispatch, std::shared_ptr<Connection> connection, bool hasOwnIds) : hasOwnIds_(hasOwnIds) {
    if (dispatch) reference_ = std::make_shared<Reference>(std::move(dispatch), std::move(connection));
  }

  template <typename... Arguments>
  static std::array<Value, sizeof...(Arguments)> Values(Arguments&&... arguments) {
    return {Value(std::forward<Arguments>(arguments))...};
  }

  Object Adopt(const Value& value) const { return Object(value.ToDispatch(), reference_->From(), hasOwnIds_); }
  ComPtr<IDispatch> Required() const;
  DISPID IdOf(const wchar_t* name) const;
  Value Invoke(DISPID id, int flags, std::span<const Value> arguments) const;

  std::shared_ptr<Reference> reference_;
  bool hasOwnIds_ = false;
  mutable std::shared_ptr<MemberIds> ids_;
};

}  // namespace formwizard::adapters::com
