// A server in memory, with a class dictionary of a few lines, that fails where a test wants it to.
#pragma once

#include "tests/support/Test.h"
#include "wizard/factory/Factory.h"

namespace formwizard::tests {

// A row of a dictionary query: values by column name, in lower case.
using ServerRow = std::map<std::string, runtime::Variant>;

struct ServerData {
  std::string Systems = "Samples,conn;Archive,other";
  bool RefusesConnection = false, RefusesDisconnect = false;
  std::map<std::string, std::vector<ServerRow>> Queries;    // by "class/query/parameter"
  std::map<std::string, std::vector<std::string>> Columns;  // of class queries, by "class/query"
  int FailAtRow = 0;                                        // of every result set, counted from 1
  std::string FailingCall;                                  // by name; "Create" is that of the factory
  std::vector<std::string> Calls;

  void Begin(const std::string& call, const std::string& argument = "") {
    Calls.push_back(argument.empty() ? call : call + " " + argument);
    if (call == FailingCall) Fail();
  }
  [[noreturn]] static void Fail() { runtime::Raise(runtime::AutomationError, "the server failed"); }
  void AddClass(const std::string& name, int persistent = 1, int system = 0) {
    Queries["%ClassDefinition/ClassInfo/"].push_back(
        {{"name", name}, {"persistent", runtime::Int32(persistent)}, {"system", runtime::Int32(system)}});
  }
  // Values that are not given are those of an optional, editable text of length 50.
  void AddProperty(const std::string& owner, const std::string& name, ServerRow values = {}) {
    ServerRow row{{"name", name},    {"caption", name}, {"type", "%Library.String"},
                  {"datatype", "1"}, {"serial", "0"},   {"collection", ""},
                  {"required", "0"}, {"editable", "1"}, {"maxlen", "50"}};
    for (auto& [key, value] : values) row[key] = value;
    Queries["%CompiledProperty/PropertyInfo/" + owner].push_back(row);
  }
  void AddQuery(const std::string& owner, const std::string& name, int containId,
                const std::vector<std::string>& columns) {
    Queries["%CompiledQuery/QueryInfo/" + owner].push_back({{"name", name}, {"containid", runtime::Int32(containId)}});
    Columns[owner + "/" + name] = columns;
  }
};

class FakeRows : public wizard::factory::ResultSet {
 public:
  FakeRows(ServerData& data, std::string query) : data_(data), query_(std::move(query)) {}

  void Execute(std::span<const std::string_view> parameters) override {
    std::string key = query_ + "/";
    for (const std::string_view parameter : parameters) key += parameter;
    rows_ = data_.Queries[key];
  }
  bool Next() override {
    if (++row_ == data_.FailAtRow) ServerData::Fail();
    return static_cast<std::size_t>(row_) <= rows_.size();
  }
  runtime::Variant GetDataByName(std::string_view column) override {
    std::string key(column);
    for (char& c : key) c = static_cast<char>(std::tolower(c));
    return rows_.at(static_cast<std::size_t>(row_) - 1).at(key);
  }
  runtime::Int16 GetColumnCount() override { return runtime::Int16(data_.Columns[query_].size()); }
  std::string GetColumnName(runtime::Int16 column) override {
    return data_.Columns[query_].at(static_cast<std::size_t>(column.Value()) - 1);
  }
  runtime::Int16 GetParamCount() override { return runtime::Int16(1); }
  void Close() override { data_.Calls.push_back("Close " + query_); }

 private:
  ServerData& data_;
  std::string query_;
  std::vector<ServerRow> rows_;
  int row_ = 0;
};

class FakeFactory : public wizard::factory::ObjectFactory {
 public:
  explicit FakeFactory(ServerData& data) : data_(data) {}

  void Connect(const std::string& connectString) override {
    data_.Begin("Connect", connectString);
    connected_ = !data_.RefusesConnection;
  }
  bool Disconnect() override {
    data_.Begin("Disconnect");
    if (data_.RefusesDisconnect) return false;
    connected_ = false;
    return true;
  }
  std::string SystemList() override {
    data_.Begin("SystemList");
    return data_.Systems;
  }
  bool IsConnected() override { return connected_; }
  std::unique_ptr<wizard::factory::ResultSet> ResultSet(std::string_view className, std::string_view query) override {
    data_.Begin("ResultSet", std::string(className));
    return std::make_unique<FakeRows>(data_, std::string(className) + "/" + std::string(query));
  }

 private:
  ServerData& data_;
  bool connected_ = false;
};

class FakeServer : public wizard::factory::FactoryCreator {
 public:
  std::unique_ptr<wizard::factory::ObjectFactory> Create() override {
    if (Data.FailingCall == "Create") runtime::Raise(runtime::CannotCreateObject);
    return std::make_unique<FakeFactory>(Data);
  }
  ServerData Data;
};

}  // namespace formwizard::tests
