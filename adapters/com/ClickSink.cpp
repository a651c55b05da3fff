// The object that the environment calls at a click. A sink belongs to its connection; the environment may hold it
// longer.
#include "adapters/com/ComCommandBars.h"
#include "adapters/com/Counted.h"
#include "adapters/com/Failures.h"

#include <ocidl.h>

#include <functional>
#include <memory>
#include <utility>

namespace formwizard::adapters::com {
namespace {

namespace ide = generator::ide;
using Click = ide::CommandBarEvents::Click;

// An answer of the event, which stays as it is unless the listener changes it.
class Answer {
 public:
  explicit Answer(const VARIANT* argument) {
    if (argument && argument->vt == (VT_BYREF | VT_BOOL)) place_ = argument->pboolVal;
    Given = place_ && *place_ != VARIANT_FALSE;
    before_ = Given;
  }
  void PassBack() const {
    if (place_ && Given != before_) *place_ = Given ? VARIANT_TRUE : VARIANT_FALSE;
  }

  bool Given;

 private:
  VARIANT_BOOL* place_ = nullptr;
  bool before_;
};

class ClickSink final : public Counted<IDispatch> {
 public:
  explicit ClickSink(Click onClick) : onClick_(std::move(onClick)) {}

  // No click is passed on any more, and the controls of those that are handled are let go.
  void Stop() {
    onClick_ = nullptr;
    controls_->End();
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch && id != CommandBarControlEvents) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO* info,
                                   UINT*) override {
    if (event != ClickEvent) return DISP_E_MEMBERNOTFOUND;
    if (!parameters) return E_POINTER;
    return WithoutExceptions(info, [&] {
      PassOn(*parameters);
      return S_OK;
    });
  }

 private:
  // Null when the event has fewer arguments; the last one stands first.
  static const VARIANT* Argument(const DISPPARAMS& parameters, UINT index) {
    return index < parameters.cArgs ? &parameters.rgvarg[parameters.cArgs - 1 - index] : nullptr;
  }

  Object ControlIn(const VARIANT* argument) const {
    const bool isObject = argument && argument->vt == VT_DISPATCH;
    return Object(ComPtr<IDispatch>(isObject ? argument->pdispVal : nullptr), controls_).WithOwnIds();
  }

  void PassOn(const DISPPARAMS& parameters) {
    // The listener may end the connection.
    const ComPtr<ClickSink> kept(this);
    const Click onClick = onClick_;
    if (!onClick) return;
    ComCommandBarControl control(ControlIn(Argument(parameters, 0)));
    Answer handled(Argument(parameters, 1));
    Answer cancelDefault(Argument(parameters, 2));
    onClick(control, handled.Given, cancelDefault.Given);
    handled.PassBack();
    cancelDefault.PassBack();
  }

  Click onClick_;
  const std::shared_ptr<Connection> controls_ = std::make_shared<Connection>();
};

class Listening : public ide::CommandBarEvents {
 public:
  Listening(ComPtr<IUnknown> source, ComPtr<ClickSink> sink) : source_(std::move(source)), sink_(std::move(sink)) {
    ComPtr<IConnectionPointContainer> container;
    Check(source_->QueryInterface(IID_IConnectionPointContainer, container.ReceiveVoid()));
    Check(container->FindConnectionPoint(CommandBarControlEvents, point_.Receive()));
    Check(point_->Advise(sink_.Get(), &cookie_));
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  ~Listening() override {
    sink_->Stop();
    point_->Unadvise(cookie_);  // fails when the environment dropped the connection itself
  }

 private:
  ComPtr<IUnknown> source_;  // clicks come as long as somebody holds it
  ComPtr<ClickSink> sink_;
  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

}  // namespace

std::unique_ptr<ide::CommandBarEvents> ListenToClicks(ComPtr<IUnknown> source, Click onClick) {
  if (!source) runtime::Raise(runtime::ObjectVariableNotSet);
  ComPtr<ClickSink> sink(new ClickSink(std::move(onClick)));
  return std::make_unique<Listening>(std::move(source), std::move(sink));
}

}  // namespace formwizard::adapters::com
