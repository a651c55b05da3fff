#include "apps/addin-dll/AddIn.h"

#include "adapters/com/Failures.h"
#include "adapters/com/Value.h"
#include "apps/addin-dll/Sessions.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace formwizard::apps::addin {

using adapters::com::Check;
using adapters::com::ComPtr;
using adapters::com::Value;
using adapters::com::WithoutExceptions;

namespace {

// What can be called by name, with the names of its arguments.
struct Member {
  DISPID Id;
  std::wstring_view Name;
  std::array<std::wstring_view, 4> Arguments;
};
constexpr std::array Members{
    Member{1, L"OnConnection", {L"VBInst", L"ConnectMode", L"AddInInst", L"custom"}},
    Member{2, L"OnDisconnection", {L"RemoveMode", L"custom"}},
    Member{3, L"OnAddInsUpdate", {L"custom"}},
    Member{4, L"OnStartupComplete", {L"custom"}},
    Member{5, L"OnBeginShutdown", {L"custom"}},
};

bool SameName(std::wstring_view a, LPCOLESTR b) {
  return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b, -1, TRUE) == CSTR_EQUAL;
}

template <typename Range>
DISPID IndexOf(const Range& names, LPCOLESTR name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!names[i].empty() && SameName(names[i], name)) return static_cast<DISPID>(i);
  }
  return DISPID_UNKNOWN;
}

// An argument by its place; the last one stands first. Named arguments name their places.
const VARIANT* Argument(const DISPPARAMS& parameters, UINT place) {
  for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
    if (parameters.rgdispidNamedArgs[i] == static_cast<DISPID>(place)) return &parameters.rgvarg[i];
  }
  const UINT byPlace = parameters.cArgs - parameters.cNamedArgs;
  return place < byPlace ? &parameters.rgvarg[parameters.cArgs - 1 - place] : nullptr;
}

Value Copied(const VARIANT& argument) {
  Value value;
  Check(VariantCopyInd(value.Receive(), const_cast<VARIANT*>(&argument)));  // reads it only
  return value;
}

// Nothing but a call's own result may reach the caller.
template <typename Action>
HRESULT Contained(Action&& action) {
  return WithoutExceptions(nullptr, [&] {
    action();
    return S_OK;
  });
}

}  // namespace

AddIn::~AddIn() {
  // The environment may go without disconnecting first.
  while (!connections_.empty()) OnDisconnection(0, nullptr);
}

HRESULT AddIn::QueryInterface(REFIID id, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (id == IID_IUnknown || id == IID_IDispatch || id == IID_IDTExtensibility) {
    *object = static_cast<IDTExtensibility*>(this);
  } else if (id == IID_IDTExtensibility2) {
    *object = static_cast<IDTExtensibility2*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

HRESULT AddIn::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT AddIn::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info) *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT AddIn::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!names || !ids || count == 0) return E_POINTER;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  for (const Member& member : Members) {
    if (!SameName(member.Name, names[0])) continue;
    ids[0] = member.Id;
    HRESULT result = S_OK;
    for (UINT i = 1; i < count; ++i) {
      ids[i] = IndexOf(member.Arguments, names[i]);
      if (ids[i] == DISPID_UNKNOWN) result = DISP_E_UNKNOWNNAME;
    }
    return result;
  }
  return DISP_E_UNKNOWNNAME;
}

HRESULT AddIn::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* info,
                      UINT*) {
  if (!parameters) return E_POINTER;
  if ((flags & DISPATCH_METHOD) == 0 || id < 1 || id > static_cast<DISPID>(Members.size())) {
    return DISP_E_MEMBERNOTFOUND;
  }
  if (result) VariantInit(result);
  if (info) *info = EXCEPINFO{};
  HRESULT outcome = S_OK;
  const HRESULT arguments = Contained([&] {
    const auto number = [&](UINT place) {
      const VARIANT* argument = Argument(*parameters, place);
      return argument ? Copied(*argument).ToInt32().Value() : 0;
    };
    switch (id) {
      case 1: {
        const VARIANT* root = Argument(*parameters, 0);
        if (!root) runtime::Raise(runtime::TypeMismatch);
        outcome = OnConnection(Copied(*root).ToDispatch().Get(), number(1), nullptr, nullptr);
        break;
      }
      case 2:
        outcome = OnDisconnection(number(0), nullptr);
        break;
      default:
        break;  // nothing is done on the others
    }
  });
  return FAILED(arguments) ? DISP_E_TYPEMISMATCH : outcome;
}

HRESULT AddIn::OnConnection(IDispatch* VBInst, LONG ConnectMode, IDispatch*, SAFEARRAY**) {
  if (!VBInst) return E_POINTER;
  const ComPtr<AddIn> kept(this);
  return Contained([&] {
    const auto session = SessionOf(VBInst);
    connections_.push_back(session);
    try {
      session->Connect(static_cast<core::ConnectMode>(ConnectMode));
    } catch (...) {
      const auto still = std::ranges::find(connections_, session);
      if (still != connections_.end()) {
        connections_.erase(still);
        session->Disconnect();
      }
      throw;
    }
  });
}

HRESULT AddIn::OnDisconnection(LONG, SAFEARRAY**) {
  return Contained([&] {
    if (connections_.empty()) return;
    const auto session = std::move(connections_.back());
    connections_.pop_back();
    session->Disconnect();
  });
}

HRESULT AddIn::OnAddInsUpdate(SAFEARRAY**) { return S_OK; }
HRESULT AddIn::OnStartupComplete(SAFEARRAY**) { return S_OK; }
HRESULT AddIn::OnBeginShutdown(SAFEARRAY**) { return S_OK; }

}  // namespace formwizard::apps::addin
