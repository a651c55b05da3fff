#include "tests/apps/addin-dll/HostMenus.h"

#include <olectl.h>

namespace formwizard::tests::host {

using com::ComPtr;
using com::Value;
using runtime::Int32;

namespace {

constexpr GUID ClickEvents{0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

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
auto Kept(const std::shared_ptr<Command>& command, Member Command::*member, Convert convert) {
  return [command, member, convert](const Call& call) {
    if (command->IsDeleted) runtime::Raise(runtime::AutomationError, "The command has been deleted");
    if (call.IsPut()) command.get()->*member = (call.Value(0).*convert)();
    return command.get()->*member;
  };
}

FakePtr NewButton(const std::shared_ptr<Menu>& menu, const std::shared_ptr<Command>& command) {
  return NewFake("CommandBarButton", command)
      ->On("Caption", Kept(command, &Command::Caption, &Value::ToText))
      ->On("OnAction", Kept(command, &Command::OnAction, &Value::ToText))
      ->On("BeginGroup", Kept(command, &Command::BeginGroup, &Value::ToBool))
      ->On("PasteFace", [command] { command->Face = ClipboardBitmap(); })
      ->On("Delete", [menu, command] {
        if (!command->Sources.empty()) runtime::Raise(runtime::AutomationError, "Somebody listens to the command");
        if (std::erase(*menu, command) == 0) runtime::Raise(runtime::AutomationError, "The command has been deleted");
        command->IsDeleted = true;
      });
}

// What stands in a collection, counted from 1.
template <typename Items>
const typename Items::value_type* ElementAt(const Items& items, const Call& call) {
  const auto place = static_cast<std::size_t>(call.Number(0).Value());
  return place == 0 || place > items.size() ? nullptr : &items[place - 1];
}

FakePtr NewControls(const std::shared_ptr<Menu>& menu) {
  return NewCollection(
             "CommandBarControls", [menu] { return Int32(menu->size()); },
             [menu](const Call& call) {
               const auto* command = ElementAt(*menu, call);
               return command ? NewButton(menu, *command) : FakePtr();
             })
      ->On("Add", [menu](const Call& call) {
        if (call.Number(0) != Int32(1)) runtime::Raise(runtime::InvalidProcedureCall);
        return NewButton(menu, menu->emplace_back(std::make_shared<Command>()));
      });
}

// Menus have a number of their own for what bars have too, whatever type both say they have.
FakePtr NewPopup(const std::shared_ptr<Menu>& menu) {
  return NewFake("CommandBarPopup")->On("CommandBar", [menu] {
    return NewFake("CommandBar")->On("Name", [] { return std::string("Menu"); })->On("Controls", [menu] {
      return NewControls(menu);
    });
  });
}

}  // namespace

// What the environment hands out for a command. Clicks come as long as somebody holds it.
class ClickSource : public FakeObject<IConnectionPointContainer, IConnectionPoint> {
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
    if (listener_ || command_->IsHeardByAll) return CONNECT_E_ADVISELIMIT;
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

FakePtr HostMenus::CommandBars() {
  return NewCollection(
      "CommandBars", [] { return Int32(1); },
      [this](const Call& index) {
        if (index.Number(0) != Int32(1)) return FakePtr();
        return NewFake("CommandBar")->On("Controls", [this] {
          return NewCollection(
              "CommandBarControls", [this] { return Int32(menus_.size()); },
              [this](const Call& call) {
                const auto* menu = ElementAt(menus_, call);
                return menu ? NewPopup(*menu) : FakePtr();
              });
        });
      });
}

FakePtr HostMenus::Events() {
  return NewFake("Events")->On("CommandBarEvents", [](const Call& call) {
    IConnectionPoint* source = new ClickSource(PlayedBy<std::shared_ptr<Command>>(call.Value(0)));
    return ComPtr<IUnknown>(source);
  });
}

ComPtr<IDispatch> ListenerOf(const std::shared_ptr<Command>& command) {
  return command->Sources.empty() ? ComPtr<IDispatch>() : command->Sources.front()->Listener();
}

HRESULT Fire(IDispatch& listener, const std::shared_ptr<Command>& command, Answers& answers, EXCEPINFO* info,
             DISPID event) {
  const FakePtr control = NewButton(std::make_shared<Menu>(), command);
  std::array<VARIANTARG, 3> arguments{};
  arguments[2].vt = VT_DISPATCH;
  arguments[2].pdispVal = control.Get();
  arguments[1].vt = arguments[0].vt = VT_BYREF | VT_BOOL;
  arguments[1].pboolVal = &answers.Handled;
  arguments[0].pboolVal = &answers.CancelDefault;
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  return listener.Invoke(event, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, info, nullptr);
}

bool Click(const std::shared_ptr<Command>& command) {
  bool isHeard = false;
  for (const ClickSource* source : std::vector(command->Sources)) {
    Answers answers;
    const HRESULT result = Fire(*source->Listener(), command, answers);
    isHeard = SUCCEEDED(result) && answers.Handled == VARIANT_FALSE && answers.CancelDefault == VARIANT_TRUE;
  }
  return isHeard;
}

}  // namespace formwizard::tests::host
