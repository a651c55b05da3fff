#include "adapters/journal/Line.h"

#include <nlohmann/json.hpp>

#include <type_traits>
#include <variant>

namespace formwizard::adapters::journal {
namespace {

using nlohmann::json;

// Stands between quotes as it is.
constexpr bool IsPlain(std::string_view text) {
  bool isPlain = true;  // looked at as a whole, which is many at once
  for (const char c : text) isPlain &= c >= ' ' && c <= '~' && c != '"' && c != '\\';
  return isPlain;
}

}  // namespace

void Line::AppendQuoted(std::string_view text) {
  if (IsPlain(text)) {
    ((text_ += '"') += text) += '"';
  } else {
    text_ += json(text).dump(-1, ' ', false, json::error_handler_t::replace);
  }
}

Line& Line::AddWritten(std::string_view name, std::string_view written) {
  text_ += text_.empty() ? "{\"" : ",\"";
  ((text_ += name) += "\":") += written;
  return *this;
}

Line& Line::Add(std::string_view name, std::string_view text) {
  AddWritten(name, "");
  AppendQuoted(text);
  return *this;
}

Line& Line::Add(std::string_view name, std::int32_t number) { return AddWritten(name, std::to_string(number)); }

Line& Line::AddValue(std::string_view name, const generator::ide::PropertyValue& value) {
  const auto add = [&]<typename T>(T v) {
    if constexpr (std::is_same_v<T, std::string_view> || std::is_same_v<T, bool>) {
      Add(name, v);
    } else {
      Add(name, std::int32_t{v.Value()});
    }
  };
  std::visit(add, value);
  return *this;
}

Line& Line::Add(std::string_view name, const std::shared_ptr<generator::ide::VBControl>& control) {
  return control ? Add(name, control->Name()) : AddWritten(name, "null");
}

Line& Line::AddError(const runtime::RuntimeError& error) {
  AddWritten("error", R"({"number":)");
  text_ += std::to_string(error.Number()) + R"(,"description":)";
  AppendQuoted(error.Description());
  text_ += '}';
  return *this;
}

}  // namespace formwizard::adapters::journal
