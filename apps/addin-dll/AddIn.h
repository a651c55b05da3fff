// The object that the environment creates: passes connection and disconnection on to a session.
#pragma once

#include "adapters/com/Counted.h"
#include "apps/addin-dll/Interfaces.h"
#include "apps/addin-dll/Session.h"

#include <memory>
#include <vector>

namespace formwizard::apps::addin {

// Both interfaces and calls by name lead to the same operations. It may be connected several times, and is then
// connected until it was disconnected as often. No exception leaves it.
class AddIn final : public adapters::com::Counted<IDTExtensibility, IDTExtensibility2> {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* info, UINT* argument) override;

  HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* VBInst, LONG ConnectMode, IDispatch* AddInInst,
                                         SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnDisconnection(LONG RemoveMode, SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) override;
  HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) override;

 private:
  ~AddIn() override;

  std::vector<std::shared_ptr<Session>> connections_;
};

}  // namespace formwizard::apps::addin
