// JSON as it is written by hand: one element a line, indented.
#pragma once

#include <nlohmann/json.hpp>

#include <ostream>
#include <string>
#include <string_view>

namespace formwizard::adapters::dictionary {

inline std::string Quoted(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// Writes elements with a comma between them, each on a line of its own below `indent`.
class JsonList {
 public:
  JsonList(std::ostream& out, std::string_view indent) : out_(out), indent_(indent) {}

  std::ostream& Next() { return out_ << (first_ ? (first_ = false, "\n") : ",\n") << indent_; }
  void End(std::string_view closing) {
    if (!first_) out_ << "\n" << indent_.substr(2);
    out_ << closing;
  }

 private:
  std::ostream& out_;
  std::string_view indent_;
  bool first_ = true;
};

}  // namespace formwizard::adapters::dictionary
