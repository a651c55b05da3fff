#include "adapters/com/MemberIds.h"

#include "adapters/com/ComPtr.h"
#include "adapters/com/Failures.h"

namespace formwizard::adapters::com {
namespace {

// All zero when the object does not say.
GUID TypeOf(IDispatch& object) {
  ComPtr<ITypeInfo> description;
  TYPEATTR* attributes = nullptr;
  if (FAILED(object.GetTypeInfo(0, English, description.Receive())) || !description) return GUID_NULL;
  if (FAILED(description->GetTypeAttr(&attributes)) || !attributes) return GUID_NULL;
  const GUID type = attributes->guid;
  description->ReleaseTypeAttr(attributes);
  return type;
}

DISPID Ask(IDispatch& object, std::wstring name) {
  DISPID id = DISPID_UNKNOWN;
  wchar_t* text = name.data();
  HRESULT result = object.GetIDsOfNames(IID_NULL, &text, 1, English, &id);
  if (result == DISP_E_UNKNOWNLCID) result = object.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  Check(result);
  if (id == DISPID_UNKNOWN) RaiseFailure(DISP_E_UNKNOWNNAME);
  return id;
}

}  // namespace

DISPID MemberIds::Of(const wchar_t* name, IDispatch& object) {
  const auto known = ids_.find(std::wstring_view(name));
  if (known != ids_.end()) return known->second;
  const DISPID id = Ask(object, name);
  ids_.emplace(name, id);
  return id;
}

std::shared_ptr<MemberIds> MemberIdsByType::For(IDispatch& object) {
  const GUID type = TypeOf(object);
  if (type == GUID_NULL) return std::make_shared<MemberIds>();
  std::shared_ptr<MemberIds>& ids = types_[type];
  if (!ids) ids = std::make_shared<MemberIds>();
  return ids;
}

}  // namespace formwizard::adapters::com
