// Automation objects of a host that is played: members by name under ids that no real object has for them, counted
// while they live, and made to fail where a test wants it.
#pragma once

#include "tests/support/FakeDispatch.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace formwizard::tests::host {

// What can be wrong with a member.
enum class Failure {
  MissingName,  // the object does not have it
  Hresult,      // E_ACCESSDENIED
  Exception,    // 0x800A0000 + 1234, "The host refuses"
  WrongType,    // an error value instead of its result
  Null,         // Nothing or Null instead of its result
};
inline constexpr std::array AllFailures{Failure::MissingName, Failure::Hresult, Failure::Exception, Failure::WrongType,
                                        Failure::Null};

// Once, at a call of a member after `Skip` calls that succeed.
struct PlannedFailure {
  Failure How;
  int Skip = 0;
};
// By "Kind.Member". What has happened is taken out.
inline std::map<std::string, PlannedFailure> PlannedFailures;

// The call of a member. A missing argument is an error.
struct Call {
  WORD Flags;
  std::vector<const VARIANT*> Arguments;  // the first one first; an assigned value last

  std::size_t Count() const { return Arguments.size(); }
  com::Value Value(std::size_t index) const;
  std::string Text(std::size_t index) const { return Value(index).ToText(); }
  runtime::Int32 Number(std::size_t index) const { return Value(index).ToInt32(); }
  bool IsPut() const { return (Flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
};

class HostObject : public FakeObject<IDispatch> {
 public:
  // A run-time error becomes an exception of automation.
  using Handler = std::function<com::Value(const Call&)>;

  explicit HostObject(std::string kind) : kind_(std::move(kind)) {}

  HostObject& On(const std::string& name, Handler handler);
  // Under an id by which it is called without its name.
  HostObject& OnId(DISPID id, const std::string& name, Handler handler);

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

 private:
  struct Member {
    DISPID Id;
    std::string Name;
    Handler Handle;
  };

  std::string kind_;
  std::vector<Member> members_;
};

inline com::ComPtr<HostObject> NewObject(const std::string& kind) {
  return com::ComPtr<HostObject>(new HostObject(kind));
}
inline com::Value ValueOf(const com::ComPtr<HostObject>& object) {
  return com::Value(com::ComPtr<IDispatch>(object.Get()));
}

// `item` gets what is between the brackets; null is a member that is missing.
com::ComPtr<HostObject> NewCollection(const std::string& kind, std::function<runtime::Int32()> count,
                                      std::function<com::ComPtr<HostObject>(const Call&)> item);

}  // namespace formwizard::tests::host
