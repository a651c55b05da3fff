#include "tests/apps/addin-dll/HostServer.h"

#include "adapters/com/Failures.h"

#include <objbase.h>

namespace formwizard::tests::host {
namespace {

namespace factory = wizard::factory;
using com::ComPtr;

constexpr GUID ServerId{0x3A9C8D10, 0x6E42, 0x4B7F, {0x90, 0x11, 0x5C, 0x0D, 0x7E, 0x24, 0xAF, 0x66}};
constexpr wchar_t ProgIdKey[] = L"OstrelObject.Factory";

FakePtr NewRows(const std::shared_ptr<factory::ResultSet>& rows) {
  return NewFake("ResultSet")
      ->On("Execute",
           [rows](const Call& call) {
             std::vector<std::string> texts;
             for (std::size_t i = 0; i < call.Count(); ++i) texts.push_back(call.Text(i));
             const std::vector<std::string_view> parameters(texts.begin(), texts.end());
             rows->Execute(std::span<const std::string_view>(parameters));
           })
      ->On("Next", [rows] { return rows->Next(); })
      ->On("GetDataByName", [rows](const Call& call) { return rows->GetDataByName(call.Text(0)); })
      ->On("GetColumnCount", [rows] { return rows->GetColumnCount(); })
      ->On("GetColumnName", [rows](const Call& call) { return rows->GetColumnName(call.Value(0).ToInt16()); })
      ->On("GetParamCount", [rows] { return rows->GetParamCount(); })
      ->On("Close", [rows] { rows->Close(); });
}

FakePtr NewFactory(const std::shared_ptr<factory::ObjectFactory>& server) {
  return NewFake("Factory")
      ->OnId(1, "Connect",
             [server](const Call& call) {
               if (call.Arguments.at(0)->vt != (VT_BSTR | VT_BYREF)) runtime::Raise(runtime::TypeMismatch);
               server->Connect(call.Text(0));
             })
      ->OnId(2, "Disconnect", [server] { return server->Disconnect(); })
      ->OnId(10, "IsConnected", [server] { return server->IsConnected(); })
      ->OnId(11, "ResultSet",
             [server](const Call& call) { return NewRows(server->ResultSet(call.Text(0), call.Text(1))); })
      ->OnId(26, "SystemList", [server] { return server->SystemList(); });
}

class ServerClass : public FakeObject<IClassFactory> {
 public:
  explicit ServerClass(factory::FactoryCreator& dictionary) : dictionary_(dictionary) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    *object = nullptr;
    if (PlannedFailures.erase("Server.Create") != 0) return E_FAIL;
    return NewFactory(dictionary_.Create())->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  factory::FactoryCreator& dictionary_;
};

}  // namespace

HostServer::HostServer(std::unique_ptr<factory::FactoryCreator> dictionary) : dictionary_(std::move(dictionary)) {
  wchar_t id[39];
  ::StringFromGUID2(ServerId, id, 39);
  ::RegSetKeyValueW(HKEY_CLASSES_ROOT, (std::wstring(ProgIdKey) + L"\\CLSID").c_str(), nullptr, REG_SZ, id, sizeof(id));
  const ComPtr<IUnknown> factory(new ServerClass(*dictionary_));
  com::Check(
      ::CoRegisterClassObject(ServerId, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration_));
}

HostServer::~HostServer() {
  ::CoRevokeClassObject(registration_);
  ::RegDeleteTreeW(HKEY_CLASSES_ROOT, ProgIdKey);
  ::RegDeleteKeyW(HKEY_CLASSES_ROOT, ProgIdKey);
}

}  // namespace formwizard::tests::host
