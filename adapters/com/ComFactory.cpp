#include "adapters/com/ComFactory.h"

#include "adapters/com/Automation.h"
#include "adapters/com/Text.h"

#include <vector>

namespace formwizard::adapters::com {
namespace {

namespace factory = wizard::factory;
using runtime::Int16;
using runtime::Variant;

// The factory's members.
namespace member {
constexpr DISPID Connect = 1;
constexpr DISPID Disconnect = 2;
constexpr DISPID IsConnected = 10;
constexpr DISPID ResultSet = 11;
constexpr DISPID SystemList = 26;
}  // namespace member

class ComResultSet : public factory::ResultSet {
 public:
  explicit ComResultSet(Object rows) : rows_(std::move(rows)) {}

  void Execute(std::span<const std::string_view> parameters) override {
    std::vector<Value> values;
    for (const std::string_view parameter : parameters) values.emplace_back(parameter);
    rows_.Call(L"Execute", std::span<const Value>(values));
  }
  bool Next() override { return runtime::IsTrue(rows_.Get(L"Next").ToVariant()); }
  Variant GetDataByName(std::string_view column) override { return rows_.Get(L"GetDataByName", column).ToVariant(); }
  Int16 GetColumnCount() override { return rows_.Get(L"GetColumnCount").ToInt16(); }
  std::string GetColumnName(Int16 column) override { return rows_.Get(L"GetColumnName", column).ToText(); }
  Int16 GetParamCount() override { return rows_.Get(L"GetParamCount").ToInt16(); }
  void Close() override { rows_.Call(L"Close"); }

 private:
  Object rows_;
};

class ComFactory : public factory::ObjectFactory {
 public:
  explicit ComFactory(Object server) : server_(std::move(server)) {}

  void Connect(const std::string& connectString) override {
    Value text{std::string_view(connectString)};
    server_.CallId(member::Connect, Value::ReferenceTo(text));
  }
  bool Disconnect() override { return server_.CallId(member::Disconnect).ToBool(); }
  std::string SystemList() override { return server_.GetId(member::SystemList).ToText(); }
  bool IsConnected() override { return server_.GetId(member::IsConnected).ToBool(); }
  std::unique_ptr<factory::ResultSet> ResultSet(std::string_view className, std::string_view query) override {
    return std::make_unique<ComResultSet>(server_.ChildId(member::ResultSet, className, query));
  }

 private:
  Object server_;
};

}  // namespace

std::unique_ptr<factory::ObjectFactory> ComFactoryCreator::Create() {
  CLSID id{};
  ComPtr<IDispatch> server;
  HRESULT result = ::CLSIDFromProgID(Wide(progId_).c_str(), &id);
  if (SUCCEEDED(result)) {
    result = ::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                                server.ReceiveVoid());
  }
  if (FAILED(result) || !server) runtime::Raise(runtime::CannotCreateObject);
  return std::make_unique<ComFactory>(Object(std::move(server)));
}

}  // namespace formwizard::adapters::com
