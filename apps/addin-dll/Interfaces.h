// The interfaces by which the environment calls an add-in. All arguments are the environment's; none is kept beyond
// disconnection.
#pragma once

#include <oaidl.h>

namespace formwizard::apps::addin {

// The vtable order is not the one in which the documentation lists the methods.
struct IDTExtensibility : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* VBInst, LONG ConnectMode, IDispatch* AddInInst,
                                                 SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(LONG RemoveMode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
};
inline constexpr GUID IID_IDTExtensibility{0x0002E151, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

struct IDTExtensibility2 : IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* VBInst, LONG ConnectMode, IDispatch* AddInInst,
                                                 SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(LONG RemoveMode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;
};
inline constexpr GUID IID_IDTExtensibility2{
    0xB65AD801, 0xABAF, 0x11D0, {0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44}};

}  // namespace formwizard::apps::addin
