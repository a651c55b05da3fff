// The add-in's object and its command in the environment.
#include "resources/Bitmaps.h"
#include "tests/apps/addin-dll/HostFixture.h"

using namespace formwizard::tests;
using namespace formwizard::tests::host;
using formwizard::adapters::com::ComPtr;

namespace {

void ClearClipboard() {
  REQUIRE(::OpenClipboard(nullptr));
  ::EmptyClipboard();
  ::CloseClipboard();
}

VARIANTARG Missing() { return {}; }
VARIANTARG Number(LONG number) {
  VARIANTARG raw{};
  raw.vt = VT_I4;
  raw.lVal = number;
  return raw;
}
VARIANTARG Reference(IDispatch* object) {
  VARIANTARG raw{};
  raw.vt = VT_DISPATCH;
  raw.pdispVal = object;
  return raw;
}

// A call by name; the arguments stand as they are passed, the last one first.
struct NamedCall {
  const wchar_t* Method;
  std::vector<const wchar_t*> ArgumentNames;
  std::vector<VARIANTARG> Arguments;
  HRESULT Result;
  std::size_t Commands;  // afterwards

  HRESULT On(IDispatch* object) const {
    std::vector<wchar_t*> names{const_cast<wchar_t*>(Method)};
    for (const wchar_t* name : ArgumentNames) names.push_back(const_cast<wchar_t*>(name));
    std::vector<DISPID> ids(names.size());
    const auto count = static_cast<UINT>(names.size());
    const HRESULT found = object->GetIDsOfNames(IID_NULL, names.data(), count, LOCALE_USER_DEFAULT, ids.data());
    if (FAILED(found)) return found;
    std::vector<VARIANTARG> raw = Arguments;
    DISPPARAMS parameters{raw.data(), ids.data() + 1, static_cast<UINT>(raw.size()), count - 1};
    return object->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                          nullptr);
  }
};

}  // namespace

TEST_CASE("The class factory makes independent objects of both interfaces, and nothing else") {
  const NothingIsLeft test;
  const AddInLibrary library;
  const ComPtr<IUnknown> first = library.Create(Extensibility);
  const ComPtr<IUnknown> second = library.Create(Extensibility2);
  CHECK(first.Get() != second.Get());
  CHECK(ErrorNumberOf([&] { library.Create(IID_IUnknown, first.Get()); }) == CLASS_E_NOAGGREGATION);
  for (const IID& id : {IID_IUnknown, IID_IDispatch, Extensibility}) {
    ComPtr<IUnknown> same;
    CHECK(first->QueryInterface(id, same.ReceiveVoid()) == S_OK);
  }
  ComPtr<IUnknown> other, identity;
  CHECK(first->QueryInterface(IID_IPersist, other.ReceiveVoid()) == E_NOINTERFACE);
  CHECK_FALSE(other);
  CHECK(second->QueryInterface(IID_IUnknown, identity.ReceiveVoid()) == S_OK);
  CHECK(second->QueryInterface(Extensibility, other.ReceiveVoid()) == S_OK);
  ComPtr<IUnknown> again;
  CHECK(other->QueryInterface(IID_IUnknown, again.ReceiveVoid()) == S_OK);
  CHECK(again.Get() == identity.Get());
}

TEST_CASE("Connection puts the command with its picture on the Add-Ins menu, disconnection takes it away") {
  for (const auto& [version, place] : {std::pair{"6.00", HostMenus::AddIns}, {"5.00", HostMenus::AddIns - 2}}) {
    CAPTURE(version);
    HostFixture host;
    host.Environment.Version = version;
    ClearClipboard();
    Menu& menu = host.Environment.Menus.At(place);
    menu[1]->BeginGroup = true;  // so the command begins one too
    host.Connect(0);
    REQUIRE(menu.size() == 3);
    const std::shared_ptr<Command> command = menu.back();
    CHECK(command->Caption == "Ostrel Form Wizard");
    CHECK(command->OnAction == "hello");
    CHECK(command->BeginGroup);
    CHECK(command->Sources.size() == 1);
    const auto bitmap = formwizard::resources::Bitmap(9999).subspan(sizeof(BITMAPFILEHEADER));
    CHECK(command->Face.starts_with(std::string(reinterpret_cast<const char*>(bitmap.data()), bitmap.size())));
    host.Disconnect();
    CHECK(menu.size() == 2);
    CHECK(command->IsDeleted);
    CHECK_FALSE(Click(command));
    host.Disconnect();
    host.Connect(0);  // an object can be used again
    CHECK(menu.size() == 3);
  }
}

TEST_CASE("The environment may connect by name, with arguments in place or named") {
  HostFixture host;
  ComPtr<IDispatch> byName;
  REQUIRE(host.AddIn->QueryInterface(IID_IDispatch, byName.ReceiveVoid()) == S_OK);
  const FakePtr kept = host.Environment.Root();
  IDispatch* root = kept.Get();
  const NamedCall calls[] = {
      {L"onconnection", {}, {Missing(), Reference(nullptr), Number(1), Reference(root)}, S_OK, 1},
      {L"OnDisconnection", {}, {Missing(), Number(0)}, S_OK, 0},
      {L"OnConnection", {L"ConnectMode", L"VBInst"}, {Number(0), Reference(root)}, S_OK, 1},
      {L"OnAddInsUpdate", {}, {Missing()}, S_OK, 1},
      {L"OnStartupComplete", {}, {Missing()}, S_OK, 1},
      {L"OnBeginShutdown", {}, {Missing()}, S_OK, 1},
      {L"OnDisconnection", {L"RemoveMode"}, {Number(1)}, S_OK, 0},
      {L"OnConnection", {}, {}, DISP_E_TYPEMISMATCH, 0},
      {L"OnConnection", {}, {Missing(), Missing(), Number(1), Number(7)}, DISP_E_TYPEMISMATCH, 0},
      {L"OnSomething", {}, {}, DISP_E_UNKNOWNNAME, 0},
      {L"OnConnection", {L"Nobody"}, {Number(1)}, DISP_E_UNKNOWNNAME, 0},
  };
  int row = 0;
  for (const NamedCall& call : calls) {
    ++row;
    CAPTURE(row);
    CHECK(call.On(byName.Get()) == call.Result);
    CHECK(host.AddInsMenu().size() == 2 + call.Commands);
  }
}

TEST_CASE("However often it is connected, the add-in has one command in an environment, until the last disconnection") {
  for (const bool isSameObject : {true, false}) {
    CAPTURE(isSameObject);
    HostFixture host;
    host.Connect();
    const std::shared_ptr<Command> command = host.WizardCommand();
    const ComPtr<IUnknown> other = isSameObject ? host.AddIn : host.Library.Create(Extensibility2);
    CHECK(Connect(other.Get(), host.Environment.Root().Get(), 0) == S_OK);
    CHECK(host.AddInsMenu().size() == 3);
    CHECK(command->Sources.size() == 1);
    HostEnvironment another(host.Project);
    const FakePtr root = another.Root();  // has no window to be known by
    for (int i = 0; i < 2; ++i) CHECK(Connect(other.Get(), root.Get(), 1) == S_OK);
    CHECK(another.Menus.At(HostMenus::AddIns).size() == 3);
    for (int i = 0; i < 2; ++i) CHECK(Disconnect(other.Get()) == S_OK);
    CHECK(another.Menus.At(HostMenus::AddIns).size() == 2);
    host.Disconnect();
    CHECK(host.AddInsMenu().size() == 3);
    host.UseWizard([] { Press(VK_ESCAPE); });
    CHECK(Disconnect(other.Get()) == S_OK);
    CHECK(command->IsDeleted);
    CHECK(host.AddInsMenu().size() == 2);
  }
}

TEST_CASE("The environment may connect by either interface") {
  HostFixture host;
  ComPtr<IUnknown> other;
  REQUIRE(host.AddIn->QueryInterface(Extensibility2, other.ReceiveVoid()) == S_OK);
  CHECK(Connect(host.AddIn.Get(), nullptr, 1) == E_POINTER);
  CHECK(Connect(other.Get(), host.Environment.Root().Get(), 1) == S_OK);
  for (const std::size_t place : {slot::OnAddInsUpdate, slot::OnStartupComplete, slot::OnBeginShutdown}) {
    CHECK(CallSlot<SAFEARRAY**>(other.Get(), place, nullptr) == S_OK);
  }
  CHECK(host.AddInsMenu().size() == 3);
  CHECK(Disconnect(other.Get()) == S_OK);
  CHECK(host.AddInsMenu().size() == 2);
}

TEST_CASE("An environment in which a member fails goes on without the command, and nothing is left behind") {
  UsedMembers.clear();
  { HostFixture().Connect(); }
  std::set<std::string> members = UsedMembers;
  CHECK(members.erase("CommandBarButton.Delete") == 1);
  CHECK(members.size() > 12);
  for (const std::string& member : members) {
    for (const Failure failure : AllFailures) {
      CAPTURE(member);
      CAPTURE(static_cast<int>(failure));
      HostFixture host;
      host.AddInsMenu()[1]->BeginGroup = true;  // so the command begins one too
      PlannedFailures[member] = failure;
      host.Connect();
      const bool isHeard = host.WizardCommand() && !host.WizardCommand()->Sources.empty();
      const bool isNeeded = !member.ends_with("Window") && member != "Window.HWnd";
      if (failure != Failure::WrongType && failure != Failure::Null) CHECK(isHeard != isNeeded);
      const bool isUnreachable = member == "CommandBarControls.Add" && failure == Failure::Null;
      host.Disconnect();
      CHECK(host.AddInsMenu().size() == (isUnreachable ? 3 : 2));
      host.Connect();  // now nothing fails
      CHECK(host.WizardCommand()->Sources.size() == 1);
    }
  }
  HostFixture host;
  host.Connect();
  PlannedFailures["CommandBarButton.Delete"] = Failure::Exception;
  host.Disconnect();  // is not told
}
