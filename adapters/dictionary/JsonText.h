// JSON as it is written by hand: one element a line, indented.
#pragma once

#include <nlohmann/json.hpp>

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>

namespace formwizard::adapters::dictionary {

inline std::string Quoted(std::string_view text) {
  const auto isPlain = [](char c) { return c >= ' ' && c < '\x7F' && c != '"' && c != '\\'; };
  if (std::ranges::all_of(text, isPlain)) return '"' + std::string(text) + '"';
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// Writes elements with a comma between them, each on a line of its own below `indent`. Without any element nothing is
// written, neither what opens the list nor what closes it, but what then stands for it.
class JsonList {
 public:
  JsonList(std::ostream& out, std::string_view opening, std::string_view indent)
      : out_(out), opening_(opening), indent_(indent) {}

  std::ostream& Next() {
    out_ << (first_ ? opening_ : ",") << '\n' << indent_;
    first_ = false;
    return out_;
  }
  void End(std::string_view withoutElements = {}) {
    if (first_) {
      out_ << withoutElements;
    } else {
      out_ << '\n' << indent_.substr(2) << ']';
    }
  }

 private:
  std::ostream& out_;
  std::string_view opening_, indent_;
  bool first_ = true;
};

}  // namespace formwizard::adapters::dictionary
