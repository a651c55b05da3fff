#include "tests/apps/addin-dll/HostObject.h"

#include "adapters/com/Failures.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

namespace formwizard::tests::host {
namespace {

// The failure that is due at this call, if there is one.
std::optional<Failure> TakeFailure(const std::string& member) {
  const auto found = PlannedFailures.find(member);
  if (found == PlannedFailures.end() || found->second.Skip-- > 0) return {};
  const Failure failure = found->second.How;
  PlannedFailures.erase(found);
  return failure;
}

bool IsMissing(const std::string& member) {
  const auto found = PlannedFailures.find(member);
  if (found == PlannedFailures.end() || found->second.How != Failure::MissingName || found->second.Skip > 0) {
    return false;
  }
  PlannedFailures.erase(found);
  return true;
}

HRESULT Fail(Failure failure, VARIANT* result) {
  switch (failure) {
    case Failure::MissingName:
      return DISP_E_MEMBERNOTFOUND;
    case Failure::Hresult:
      return E_ACCESSDENIED;
    case Failure::Exception:
      runtime::Raise(1234, "The host refuses");
    case Failure::WrongType:
      if (result) result->vt = VT_ERROR;
      return S_OK;
    case Failure::Null:
      break;  // is about the result
  }
  return E_UNEXPECTED;
}

}  // namespace

com::Value Call::Value(std::size_t index) const {
  com::Value value;
  if (index >= Arguments.size()) com::Check(DISP_E_PARAMNOTOPTIONAL);
  com::Check(::VariantCopyInd(value.Receive(), const_cast<VARIANT*>(Arguments[index])));  // reads it only
  return value;
}

HostObject& HostObject::On(const std::string& name, Handler handler) {
  const auto next = static_cast<DISPID>(1000 + 10 * members_.size() + kind_.size());
  return OnId(next, name, std::move(handler));
}

HostObject& HostObject::OnId(DISPID id, const std::string& name, Handler handler) {
  members_.push_back({id, name, std::move(handler)});
  return *this;
}

HRESULT HostObject::GetTypeInfoCount(UINT* count) {
  *count = 1;
  return S_OK;
}

// Objects of one kind are of one type.
HRESULT HostObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  GUID id{0x5B1F0000, 0x0000, 0x4000, {}};
  const std::size_t hash = std::hash<std::string>()(kind_);
  std::memcpy(id.Data4, &hash, sizeof(hash));
  com::ComPtr<ITypeInfo> type(new FakeType(id));
  *info = type.Detach();
  return S_OK;
}

HRESULT HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  std::fill_n(ids, count, DISPID_UNKNOWN);
  const auto found = std::ranges::find_if(
      members_, [&](const Member& member) { return ::lstrcmpiW(com::Wide(member.Name).c_str(), names[0]) == 0; });
  if (found == members_.end() || IsMissing(kind_ + "." + found->Name)) return DISP_E_UNKNOWNNAME;
  ids[0] = found->Id;
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT HostObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
  const com::ComPtr<HostObject> kept(this);
  const auto found = std::ranges::find(members_, id, &Member::Id);
  if (found == members_.end()) return DISP_E_MEMBERNOTFOUND;
  Call call{flags, {}};
  for (UINT i = parameters->cArgs; i > 0; --i) call.Arguments.push_back(&parameters->rgvarg[i - 1]);
  if (call.IsPut() != (parameters->cNamedArgs == 1 && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT)) {
    return DISP_E_PARAMNOTFOUND;
  }
  const Handler handler = found->Handle;
  const std::string member = kind_ + "." + found->Name;
  return com::WithoutExceptions(exception, [&] {
    const auto failure = TakeFailure(member);
    if (failure && *failure != Failure::Null) return Fail(*failure, result);
    const com::Value value = handler(call);
    if (!result) return S_OK;
    if (failure) {
      result->vt = value.Raw().vt == VT_DISPATCH ? VT_DISPATCH : VT_NULL;
      result->pdispVal = nullptr;
      return S_OK;
    }
    VARIANT raw = value.Raw();
    return ::VariantCopy(result, &raw);
  });
}

com::ComPtr<HostObject> NewCollection(const std::string& kind, std::function<runtime::Int32()> count,
                                      std::function<com::ComPtr<HostObject>(const Call&)> item) {
  auto collection = NewObject(kind);
  collection->On("Count", [count = std::move(count)](const Call&) { return com::Value(count()); });
  collection->OnId(DISPID_VALUE, "Item", [item = std::move(item)](const Call& call) {
    const com::ComPtr<HostObject> found = item(call);
    if (!found) runtime::Raise(runtime::SubscriptOutOfRange);
    return ValueOf(found);
  });
  return collection;
}

}  // namespace formwizard::tests::host
