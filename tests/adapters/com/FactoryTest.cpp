#include "adapters/com/ComFactory.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeDispatch.h"

#include <doctest/doctest.h>

using namespace formwizard;
namespace com = adapters::com;
using com::ComPtr;
using runtime::Int16;
using runtime::Int32;
using runtime::Variant;
using tests::CallLog;
using tests::ErrorNumberOf;
using tests::FakeDispatch;
using tests::Invocation;
using tests::NewFake;

namespace {

constexpr CLSID ServerClass{0x5B1D6E2A, 0x7C11, 0x4E0B, {0x9A, 0x31, 0x2F, 0x60, 0x0D, 0x55, 0x1C, 0x77}};

class ServerFactory : public tests::FakeObject<IClassFactory> {
 public:
  explicit ServerFactory(ComPtr<FakeDispatch> server) : server_(std::move(server)) {}
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return server_->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  ComPtr<FakeDispatch> server_;
};

// A server that is registered under a name of this process while the object lives.
class RegisteredServer {
 public:
  RegisteredServer() : ProgId("FormWizardTest.Factory." + std::to_string(::GetCurrentProcessId())) {
    REQUIRE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    const std::wstring id = L"{5B1D6E2A-7C11-4E0B-9A31-2F600D551C77}";
    const std::wstring key = com::Wide(ProgId) + L"\\CLSID";
    REQUIRE(::RegSetValueW(HKEY_CLASSES_ROOT, key.c_str(), REG_SZ, id.c_str(),
                           static_cast<DWORD>(id.size() * sizeof(wchar_t))) == ERROR_SUCCESS);
    const ComPtr<IClassFactory> factory(new ServerFactory(Server));
    REQUIRE(SUCCEEDED(
        ::CoRegisterClassObject(ServerClass, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_)));
  }
  RegisteredServer(const RegisteredServer&) = delete;
  RegisteredServer& operator=(const RegisteredServer&) = delete;
  ~RegisteredServer() {
    Revoke();
    ::RegDeleteKeyW(HKEY_CLASSES_ROOT, (com::Wide(ProgId) + L"\\CLSID").c_str());
    ::RegDeleteKeyW(HKEY_CLASSES_ROOT, com::Wide(ProgId).c_str());
    ::CoUninitialize();
  }
  void Revoke() { ::CoRevokeClassObject(std::exchange(registration_, 0)); }

  const std::string ProgId;
  ComPtr<FakeDispatch> Server = NewFake("Server");

 private:
  DWORD registration_ = 0;
};

}  // namespace

TEST_CASE("The factory is reached by the ids of its members") {
  const tests::AutomationTest test;
  RegisteredServer registered;
  FakeDispatch& server = *registered.Server;
  server.With(L"a", tests::NoValue, 1)
      .With(L"b", true, 2)
      .With(L"c", "SysA,connA;SysB,connB", 26)
      .With(L"d", Int16(-1), 10);
  server.With(L"e", NewFake("Rows"), 11);
  const auto factory = com::ComFactoryCreator(registered.ProgId).Create();

  factory->Connect("connA");
  CHECK(factory->Disconnect());
  CHECK(factory->SystemList() == "SysA,connA;SysB,connB");
  CHECK(factory->IsConnected());
  const auto rows = factory->ResultSet("%ClassDefinition", "ClassInfo");
  CHECK(CallLog == std::vector<std::string>{R"(call Server.a ByRef "connA")", "call Server.b", "get Server.c",
                                            "get Server.d", R"(get Server.e "%ClassDefinition" "ClassInfo")"});
  CHECK(server.NameQueries == 0);
  CHECK(ErrorNumberOf([&] { rows->Close(); }) == 438);
}

TEST_CASE("A result set is read by the names of its members") {
  const tests::AutomationTest test;
  RegisteredServer registered;
  const auto rows = NewFake("Rows");
  int next = 0;
  rows->On(L"Next", [&](const Invocation& call) {
    const Variant answers[] = {Int16(1), true, runtime::Null{}};
    return call.Return(com::Value::Of(answers[next++ % 3]));
  });
  rows->With(L"Execute", tests::NoValue).With(L"GetDataByName", Int32(50)).With(L"GetColumnCount", Int32(3));
  rows->With(L"GetColumnName", "Caption").With(L"GetParamCount", Int16(2)).With(L"Close", tests::NoValue);
  registered.Server->With(L"ResultSet", rows, 11);
  const auto factory = com::ComFactoryCreator(registered.ProgId).Create();
  const auto set = factory->ResultSet("Sample.Person", "ByName");
  CallLog.clear();

  set->Execute({});
  set->Execute({"A", "Gr\xC3\xBCn"});
  int count = 0;
  while (set->Next()) ++count;
  CHECK(count == 2);
  CHECK(set->GetDataByName("MaxLen") == Variant(Int32(50)));
  CHECK(set->GetColumnCount() == Int16(3));
  CHECK(set->GetColumnName(Int16(1)) == "Caption");
  CHECK(set->GetParamCount() == Int16(2));
  set->Close();
  CHECK(CallLog == std::vector<std::string>{"call Rows.Execute", "call Rows.Execute \"A\" \"Gr\xC3\xBCn\"",
                                            "get Rows.Next", "get Rows.Next", "get Rows.Next",
                                            R"(get Rows.GetDataByName "MaxLen")", "get Rows.GetColumnCount",
                                            "get Rows.GetColumnName 1%", "get Rows.GetParamCount", "call Rows.Close"});
  CHECK(rows->NameQueries == 7);
}

TEST_CASE("A server's failures are the core's run-time errors") {
  const tests::AutomationTest test;
  RegisteredServer registered;
  FakeDispatch& server = *registered.Server;
  server.On(
      L"Connect", [](const Invocation& call) { return call.Raise(0, E_FAIL, "no licence left"); }, 1);
  server.With(L"Disconnect", runtime::Null{}, 2).With(L"ResultSet", ComPtr<FakeDispatch>(), 11);
  com::ComFactoryCreator creator(registered.ProgId);
  const auto factory = creator.Create();

  try {
    factory->Connect("connA");
    FAIL("the failure got lost");
  } catch (const runtime::RuntimeError& error) {
    CHECK(error.Number() == E_FAIL);
    CHECK(error.Description() == "no licence left");
  }
  CHECK(ErrorNumberOf([&] { factory->Disconnect(); }) == runtime::InvalidUseOfNull);
  CHECK(ErrorNumberOf([&] { factory->ResultSet("A", "B")->Next(); }) == runtime::ObjectVariableNotSet);

  registered.Revoke();
  CHECK(ErrorNumberOf([&] { creator.Create(); }) == runtime::CannotCreateObject);
  CHECK(ErrorNumberOf([&] { com::ComFactoryCreator("FormWizardTest.Absent").Create(); }) ==
        runtime::CannotCreateObject);
}
