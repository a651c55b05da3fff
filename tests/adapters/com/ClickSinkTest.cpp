#include "adapters/com/ComCommandBars.h"
#include "adapters/com/ComEnvironment.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeDispatch.h"

#include <doctest/doctest.h>
#include <olectl.h>

#include <stdexcept>

using namespace formwizard;
namespace com = adapters::com;
namespace ide = generator::ide;
using com::ComPtr;
using tests::ErrorNumberOf;
using tests::FakeDispatch;
using tests::Invocation;
using tests::NewFake;

namespace {

// What the environment hands out for a control: tells one listener of clicks.
class ClickSource : public tests::FakeObject<IConnectionPointContainer, IConnectionPoint> {
 public:
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    *point = nullptr;
    if (id != com::CommandBarControlEvents) return CONNECT_E_NOCONNECTION;
    *point = this;
    AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    if (Full) return CONNECT_E_ADVISELIMIT;
    *cookie = 77;
    return sink->QueryInterface(com::CommandBarControlEvents, Listener.ReceiveVoid());
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    if (cookie != 77) return CONNECT_E_NOCONNECTION;
    Listener = {};
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

  ComPtr<IDispatch> Listener;
  bool Full = false;
};

// A click as the environment tells of it, with the answers in `handled` and `cancelDefault`.
HRESULT Fire(IDispatch& listener, IDispatch* control, VARIANT_BOOL& handled, VARIANT_BOOL& cancelDefault,
             EXCEPINFO* info = nullptr, DISPID event = com::ClickEvent) {
  VARIANTARG arguments[3]{};
  arguments[2].vt = VT_DISPATCH;
  arguments[2].pdispVal = control;
  arguments[1].vt = arguments[0].vt = VT_BYREF | VT_BOOL;
  arguments[1].pboolVal = &handled;
  arguments[0].pboolVal = &cancelDefault;
  DISPPARAMS parameters{arguments, nullptr, 3, 0};
  return listener.Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, info, nullptr);
}

struct Clicks {
  Clicks() {
    Events->On(L"CommandBarEvents", [this](const Invocation& call) {
      call.Result->vt = VT_UNKNOWN;
      ComPtr<IUnknown> source(static_cast<IConnectionPointContainer*>(Source.Get()));
      call.Result->punkVal = source.Detach();
      return S_OK;
    });
    Root->With(L"Events", Events);
    Control->With(L"Caption", tests::NoValue);
  }

  std::unique_ptr<ide::CommandBarEvents> Connect(ide::CommandBarEvents::Click onClick) {
    com::ComEnvironment vbe(Root.Get());
    const auto control = std::make_shared<com::ComCommandBarControl>(com::Object(ComPtr<IDispatch>(Control.Get())));
    return vbe.ConnectEvents(control, std::move(onClick));
  }
  HRESULT Click(EXCEPINFO* info = nullptr) {
    return Fire(*Source->Listener, Control.Get(), Handled, CancelDefault, info);
  }

  ComPtr<ClickSource> Source{new ClickSource};
  ComPtr<FakeDispatch> Root = NewFake("VBE"), Events = NewFake("Events"), Control = NewFake("Button");
  VARIANT_BOOL Handled = VARIANT_FALSE, CancelDefault = VARIANT_TRUE;
};

}  // namespace

TEST_CASE("A click reaches the listener with its control, and the answers go back") {
  const tests::AutomationTest test;
  Clicks clicks;
  int count = 0;
  const auto events = clicks.Connect([&](ide::CommandBarControl& control, bool& handled, bool& cancelDefault) {
    control.SetCaption("clicked");
    CHECK_FALSE(handled);
    CHECK(cancelDefault);
    if (++count == 1) return;
    handled = true;
    cancelDefault = false;
  });
  CHECK(tests::CallLog.back() == "get Events.CommandBarEvents Button");

  clicks.CancelDefault = 1;  // true for some: left as it was
  CHECK(clicks.Click() == S_OK);
  CHECK(tests::CallLog.back() == R"(put Button.Caption "clicked")");
  CHECK(clicks.Handled == VARIANT_FALSE);
  CHECK(clicks.CancelDefault == 1);
  CHECK(clicks.Click() == S_OK);
  CHECK(clicks.Handled == VARIANT_TRUE);
  CHECK(clicks.CancelDefault == VARIANT_FALSE);

  CHECK(Fire(*clicks.Source->Listener, nullptr, clicks.Handled, clicks.CancelDefault, nullptr, 2) ==
        DISP_E_MEMBERNOTFOUND);
  CHECK(count == 2);
}

TEST_CASE("An event without arguments is a click all the same") {
  const tests::AutomationTest test;
  Clicks clicks;
  int count = 0;
  const auto events = clicks.Connect([&](ide::CommandBarControl&, bool& handled, bool&) {
    handled = true;
    ++count;
  });
  DISPPARAMS none{};
  CHECK(clicks.Source->Listener->Invoke(com::ClickEvent, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr,
                                        nullptr) == S_OK);
  CHECK(count == 1);
}

TEST_CASE("The connection ends with its object, also during a click, and for a source that holds on to the sink") {
  const tests::AutomationTest test;
  Clicks clicks;
  int count = 0;
  std::unique_ptr<ide::CommandBarEvents> events;
  auto token = std::make_shared<int>();
  const std::weak_ptr<int> watched = token;
  bool listenerIsAlive = false;
  events = clicks.Connect([&, token = std::move(token)](ide::CommandBarControl&, bool& handled, bool&) {
    ++count;
    events.reset();
    listenerIsAlive = !watched.expired();
    handled = true;
  });
  const ComPtr<IDispatch> held = clicks.Source->Listener;
  CHECK(Fire(*held, clicks.Control.Get(), clicks.Handled, clicks.CancelDefault) == S_OK);
  CHECK_FALSE(clicks.Source->Listener);
  CHECK(listenerIsAlive);
  CHECK(watched.expired());
  CHECK(clicks.Handled == VARIANT_TRUE);
  CHECK(Fire(*held, clicks.Control.Get(), clicks.Handled, clicks.CancelDefault) == S_OK);
  CHECK(count == 1);
}

TEST_CASE("A listener's failure comes back as an automation failure") {
  const tests::AutomationTest test;
  Clicks clicks;
  bool asMistake = false;
  const auto events = clicks.Connect([&](ide::CommandBarControl& control, bool&, bool&) {
    if (asMistake) throw std::logic_error("a mistake");
    control.SetOnAction("absent");
  });
  EXCEPINFO info{};
  CHECK(clicks.Click(&info) == DISP_E_EXCEPTION);
  CHECK(info.scode == static_cast<SCODE>(0x800A01B6U));
  ::SysFreeString(info.bstrDescription);
  asMistake = true;
  CHECK(clicks.Click() == DISP_E_EXCEPTION);
}

TEST_CASE("A source that cannot be listened to leaves nothing behind") {
  const tests::AutomationTest test;
  Clicks clicks;
  const auto onClick = [](ide::CommandBarControl&, bool&, bool&) {};
  clicks.Source->Full = true;
  CHECK(ErrorNumberOf([&] { clicks.Connect(onClick); }) == CONNECT_E_ADVISELIMIT);
  CHECK(ErrorNumberOf([&] { com::ListenToClicks(ComPtr<IUnknown>(clicks.Events.Get()), onClick); }) == 430);
  CHECK(ErrorNumberOf([&] { com::ListenToClicks(ComPtr<IUnknown>(), onClick); }) == runtime::ObjectVariableNotSet);
}
