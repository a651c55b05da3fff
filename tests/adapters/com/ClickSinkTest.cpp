// The connection to a command's clicks, which the menus of the played environment tell.
#include "adapters/com/ComCommandBars.h"
#include "adapters/com/ComEnvironment.h"
#include "tests/apps/addin-dll/HostMenus.h"

#include <olectl.h>

using namespace formwizard;
using namespace formwizard::tests;
namespace ide = generator::ide;

namespace {

struct Clicks {
  Clicks() {
    Root->On("CommandBars", [this] { return Menus.CommandBars(); });
    Root->On("Events", host::HostMenus::Events);
    Control = Vbe.CommandBar(ide::Int32(1))->Item(ide::Int32(11))->Controls()->Item(ide::Int32(1));
  }

  std::unique_ptr<ide::CommandBarEvents> Connect(ide::CommandBarEvents::Click onClick) {
    return Vbe.ConnectEvents(Control, std::move(onClick));
  }
  HRESULT Click(EXCEPINFO* info = nullptr, DISPID event = com::ClickEvent) {
    return host::Fire(*host::ListenerOf(Command), Command, Answers, info, event);
  }

  NothingIsLeft AtTheEnd;
  host::HostMenus Menus;
  FakePtr Root = NewFake("VBE");
  com::ComEnvironment Vbe{Root.Get()};
  std::shared_ptr<ide::CommandBarControl> Control;
  const std::shared_ptr<host::Command> Command = Menus.At(host::HostMenus::AddIns).front();
  host::Answers Answers;
};

}  // namespace

TEST_CASE("A click reaches the listener with its control, and the answers go back") {
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
  clicks.Answers.CancelDefault = 1;  // true for some: left as it was
  CHECK(clicks.Click() == S_OK);
  CHECK(clicks.Command->Caption == "clicked");
  CHECK(clicks.Answers.Handled == VARIANT_FALSE);
  CHECK(clicks.Answers.CancelDefault == 1);
  CHECK(clicks.Click() == S_OK);
  CHECK(clicks.Answers.Handled == VARIANT_TRUE);
  CHECK(clicks.Answers.CancelDefault == VARIANT_FALSE);
  CHECK(clicks.Click(nullptr, 2) == DISP_E_MEMBERNOTFOUND);
  CHECK(count == 2);
}

TEST_CASE("The connection ends with its object, also during a click, and for a source that holds on to the sink") {
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
  const com::ComPtr<IDispatch> held = host::ListenerOf(clicks.Command);
  CHECK(clicks.Click() == S_OK);
  CHECK(clicks.Command->Sources.empty());
  CHECK(listenerIsAlive);
  CHECK(watched.expired());
  CHECK(clicks.Answers.Handled == VARIANT_TRUE);
  CHECK(host::Fire(*held, clicks.Command, clicks.Answers) == S_OK);
  CHECK(count == 1);
}

TEST_CASE("A listener's failure comes back as an automation failure, and an event without arguments is a click") {
  Clicks clicks;
  int count = 0;
  const auto events = clicks.Connect([&](ide::CommandBarControl&, bool& handled, bool&) {
    if (++count == 1) runtime::Raise(com::MemberNotSupported);
    if (count == 2) throw std::logic_error("a mistake");
    handled = true;
  });
  EXCEPINFO info{};
  CHECK(clicks.Click(&info) == DISP_E_EXCEPTION);
  CHECK(info.scode == static_cast<SCODE>(0x800A01B6U));
  ::SysFreeString(info.bstrDescription);
  CHECK(clicks.Click() == DISP_E_EXCEPTION);
  DISPPARAMS none{};
  CHECK(host::ListenerOf(clicks.Command)
            ->Invoke(com::ClickEvent, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr) == S_OK);
  CHECK(count == 3);
}

TEST_CASE("A place on a menu where Nothing is has no command") {
  Clicks clicks;
  const auto holder = NewFake("holder of everything");
  holder->OnId(DISPID_VALUE, "Item",
               [&](const Call& call) { return call.Number(0) == ide::Int32(1) ? holder : FakePtr(); });
  com::ComCommandBarControls menus(com::Object(com::ComPtr<IDispatch>(holder.Get())));
  CHECK(menus.Item(ide::Int32(1)));
  CHECK_FALSE(menus.Item(ide::Int32(2)));
}

TEST_CASE("A source that cannot be listened to leaves nothing behind") {
  Clicks clicks;
  const auto onClick = [](ide::CommandBarControl&, bool&, bool&) {};
  clicks.Command->IsHeardByAll = true;
  CHECK(ErrorNumberOf([&] { clicks.Connect(onClick); }) == CONNECT_E_ADVISELIMIT);
  CHECK(ErrorNumberOf([&] { com::ListenToClicks(com::ComPtr<IUnknown>(clicks.Root.Get()), onClick); }) == 430);
  CHECK(ErrorNumberOf([&] { com::ListenToClicks(com::ComPtr<IUnknown>(), onClick); }) == runtime::ObjectVariableNotSet);
}
