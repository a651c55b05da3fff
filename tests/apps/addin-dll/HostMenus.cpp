#include "tests/apps/addin-dll/HostMenus.h"

#include <olectl.h>

#include <utility>

namespace formwizard::tests::host {

using com::ComPtr;
using com::Value;
using runtime::Int32;

namespace {

constexpr GUID ClickEvents{0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr DISPID ClickId = 1;

// The bytes of the bitmap on the clipboard.
std::string ClipboardBitmap() {
  if (!::OpenClipboard(nullptr)) runtime::Raise(runtime::AutomationError, "The clipboard is in use");
  std::string bytes;
  if (const HANDLE memory = ::GetClipboardData(CF_DIB)) {
    bytes.assign(static_cast<const char*>(::GlobalLock(memory)), ::GlobalSize(memory));
    ::GlobalUnlock(memory);
  }
  ::CloseClipboard();
  if (bytes.empty()) runtime::Raise(runtime::AutomationError, "There is no picture on the clipboard");
  return bytes;
}

// A property that is kept in a member of the command.
template <typename Member, typename Convert>
HostObject::Handler Kept(const std::shared_ptr<Command>& command, Member Command::*member, Convert convert) {
  return [command, member, convert](const Call& call) {
    if (command->IsDeleted) runtime::Raise(runtime::AutomationError, "The command has been deleted");
    if (!call.IsPut()) return Value::Of(command.get()->*member);
    command.get()->*member = convert(call.Value(0));
    return Value();
  };
}

class HostButton : public HostObject {
 public:
  HostButton(const std::shared_ptr<Menu>& menu, const std::shared_ptr<Command>& command);
  const std::shared_ptr<Command>& Clicked() const { return command_; }

 private:
  std::shared_ptr<Command> command_;
};

ComPtr<HostObject> NewButton(const std::shared_ptr<Menu>& menu, const std::shared_ptr<Command>& command) {
  return ComPtr<HostObject>(new HostButton(menu, command));
}

ComPtr<HostObject> NewControls(const std::shared_ptr<Menu>& menu) {
  auto controls = NewCollection(
      "CommandBarControls", [menu] { return Int32(menu->size()); },
      [menu](const Call& call) {
        const auto index = static_cast<std::size_t>(call.Number(0).Value());
        return index == 0 || index > menu->size() ? ComPtr<HostObject>() : NewButton(menu, (*menu)[index - 1]);
      });
  controls->On("Add", [menu](const Call& call) {
    if (call.Number(0) != Int32(1)) runtime::Raise(runtime::InvalidProcedureCall);
    menu->push_back(std::make_shared<Command>());
    return ValueOf(NewButton(menu, menu->back()));
  });
  return controls;
}

HostButton::HostButton(const std::shared_ptr<Menu>& menu, const std::shared_ptr<Command>& command)
    : HostObject("CommandBarButton"), command_(command) {
  On("Type", [](const Call&) { return Value(Int32(1)); });
  On("Caption", Kept(command, &Command::Caption, [](const Value& value) { return value.ToText(); }));
  On("OnAction", Kept(command, &Command::OnAction, [](const Value& value) { return value.ToText(); }));
  On("BeginGroup", Kept(command, &Command::BeginGroup, [](const Value& value) { return value.ToBool(); }));
  On("PasteFace", [command](const Call&) {
    command->Face = ClipboardBitmap();
    return Value();
  });
  On("Delete", [menu, command](const Call&) {
    if (!command->Sources.empty()) runtime::Raise(runtime::AutomationError, "Somebody still listens to the command");
    if (std::erase(*menu, command) == 0) runtime::Raise(runtime::AutomationError, "The command has been deleted");
    command->IsDeleted = true;
    return Value();
  });
}

ComPtr<HostObject> NewPopup(const std::shared_ptr<Menu>& menu) {
  auto popup = NewObject("CommandBarPopup");
  popup->On("Type", [](const Call&) { return Value(Int32(10)); });
  popup->On("CommandBar", [menu](const Call&) {
    auto bar = NewObject("CommandBar");
    bar->On("Controls", [menu](const Call&) { return ValueOf(NewControls(menu)); });
    return ValueOf(bar);
  });
  return popup;
}

}  // namespace

// What the environment hands out for a command. Clicks come as long as somebody holds it.
class ClickSource : public FakeObject<IDispatch, IConnectionPointContainer, IConnectionPoint> {
 public:
  explicit ClickSource(std::shared_ptr<Command> command) : command_(std::move(command)) {}

  ComPtr<IDispatch> Listener() const { return listener_; }

  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    *point = id == ClickEvents ? this : nullptr;
    if (!*point) return CONNECT_E_NOCONNECTION;
    AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override {
    if (listener_) return CONNECT_E_ADVISELIMIT;
    *cookie = Cookie;
    command_->Sources.push_back(this);
    return sink->QueryInterface(ClickEvents, listener_.ReceiveVoid());
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    if (cookie != Cookie || !listener_) return CONNECT_E_NOCONNECTION;
    std::erase(command_->Sources, this);
    listener_ = {};
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }

 protected:
  ~ClickSource() override { std::erase(command_->Sources, this); }

 private:
  static constexpr DWORD Cookie = 4711;
  std::shared_ptr<Command> command_;
  ComPtr<IDispatch> listener_;
};

HostMenus::HostMenus() {
  for (std::size_t i = 0; i < AddIns + 2; ++i) {
    menus_.push_back(std::make_shared<Menu>());
    for (const char* caption : {"First", "Second"}) {
      menus_.back()->push_back(std::make_shared<Command>());
      menus_.back()->back()->Caption = caption;
    }
  }
}

ComPtr<HostObject> HostMenus::CommandBars() {
  return NewCollection(
      "CommandBars", [] { return Int32(1); },
      [this](const Call& index) {
        if (index.Number(0) != Int32(1)) return ComPtr<HostObject>();
        auto bar = NewObject("CommandBar");
        bar->On("Controls", [this](const Call&) {
          return ValueOf(NewCollection(
              "CommandBarControls", [this] { return Int32(menus_.size()); },
              [this](const Call& call) {
                const auto place = static_cast<std::size_t>(call.Number(0).Value());
                return place == 0 || place > menus_.size() ? ComPtr<HostObject>() : NewPopup(menus_[place - 1]);
              }));
        });
        return bar;
      });
}

ComPtr<HostObject> HostMenus::Events() {
  auto events = NewObject("Events");
  events->On("CommandBarEvents", [](const Call& call) {
    const ComPtr<IDispatch> control = call.Value(0).ToDispatch();
    const auto* button = dynamic_cast<HostButton*>(control.Get());
    if (!button) runtime::Raise(runtime::TypeMismatch);
    return Value(ComPtr<IDispatch>(new ClickSource(button->Clicked())));
  });
  return events;
}

ComPtr<IDispatch> ListenerOf(const std::shared_ptr<Command>& command) {
  return command->Sources.empty() ? ComPtr<IDispatch>() : command->Sources.front()->Listener();
}

bool Click(const std::shared_ptr<Command>& command) {
  bool isHeard = false;
  for (const ClickSource* source : std::vector(command->Sources)) {
    const ComPtr<IDispatch> listener = source->Listener();
    const ComPtr<HostObject> control = NewButton(std::make_shared<Menu>(), command);
    VARIANT_BOOL handled = VARIANT_FALSE, cancelDefault = VARIANT_TRUE;
    std::array<VARIANTARG, 3> arguments{};
    arguments[2].vt = VT_DISPATCH;
    arguments[2].pdispVal = control.Get();
    arguments[1].vt = arguments[0].vt = VT_BYREF | VT_BOOL;
    arguments[1].pboolVal = &handled;
    arguments[0].pboolVal = &cancelDefault;
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    const HRESULT result =
        listener->Invoke(ClickId, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    isHeard = SUCCEEDED(result) && handled == VARIANT_FALSE && cancelDefault == VARIANT_TRUE;
  }
  return isHeard;
}

}  // namespace formwizard::tests::host
