// The port to the server: the object factory and the result sets through which its class dictionary is read.
#pragma once

#include "runtime/Integer.h"
#include "runtime/Variant.h"
#include "wizard/factory/Dictionary.h"

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace formwizard::wizard::factory {

using runtime::Int16;
using runtime::Variant;

// The rows of one class query, read once from the first to the last. Every operation raises a RuntimeError when the
// server fails. Texts are UTF-8.
class ResultSet {
 public:
  virtual ~ResultSet() = default;
  // As many parameters as the query has.
  virtual void Execute(std::span<const std::string_view> parameters) = 0;
  void Execute(std::initializer_list<std::string_view> parameters) {
    Execute(std::span<const std::string_view>(parameters.begin(), parameters.size()));
  }
  // True while a further row has been fetched.
  virtual bool Next() = 0;
  // The column's value in the current row; names are looked up without regard to case.
  virtual Variant GetDataByName(std::string_view column) = 0;
  // The same of a query on the dictionary: rows that have its columns in their order need not look for the name.
  virtual Variant GetData(const ColumnKey& column) { return GetDataByName(column.Name); }
  virtual Int16 GetColumnCount() = 0;
  // `column` counts from 1.
  virtual std::string GetColumnName(Int16 column) = 0;
  virtual Int16 GetParamCount() = 0;
  virtual void Close() = 0;
};

// What the result set of a class query may be besides: a server tells how many parameters there are, a dictionary also
// knows what they are called.
class NamedParameters {
 public:
  virtual ~NamedParameters() = default;
  // `parameter` counts from 1.
  virtual std::string GetParamName(Int16 parameter) = 0;
};

// The server's object factory.
class ObjectFactory {
 public:
  virtual ~ObjectFactory() = default;
  virtual void Connect(const std::string& connectString) = 0;
  // True when the factory disconnected.
  virtual bool Disconnect() = 0;
  // "name,connect string" entries separated by ";".
  virtual std::string SystemList() = 0;
  virtual bool IsConnected() = 0;
  // A query of a class, not yet executed.
  virtual std::unique_ptr<factory::ResultSet> ResultSet(std::string_view className, std::string_view query) = 0;
};

// Creates "OstrelObject.Factory".
class FactoryCreator {
 public:
  virtual ~FactoryCreator() = default;
  // Error 429 when the server's factory cannot be created.
  virtual std::unique_ptr<ObjectFactory> Create() = 0;
};

}  // namespace formwizard::wizard::factory
