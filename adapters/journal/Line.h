// One line of the journal: a call as a JSON object.
#pragma once

#include "generator/ide/Ide.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace formwizard::adapters::journal {

// Written member by member, without a document tree: a form is hundreds of calls. Texts are UTF-8; what is none is
// replaced by the character for that.
class Line {
 public:
  explicit Line(std::string_view call) {
    text_.reserve(MostOften);
    Add("call", call);
  }

  // Names of members are plain letters.
  Line& Add(std::string_view name, std::string_view text);
  Line& Add(std::string_view name, std::int32_t number);
  Line& Add(std::string_view name, std::same_as<bool> auto flag) { return AddWritten(name, flag ? "true" : "false"); }
  Line& AddValue(std::string_view name, const generator::ide::PropertyValue& value);
  // A control by its name; null for none.
  Line& Add(std::string_view name, const std::shared_ptr<generator::ide::VBControl>& control);
  Line& AddError(const runtime::RuntimeError& error);

  // The object as it is so far.
  std::string Text() const { return text_ + "}"; }

 private:
  static constexpr std::size_t MostOften = 192;  // bytes

  Line& AddWritten(std::string_view name, std::string_view json);
  void AppendQuoted(std::string_view text);

  std::string text_;
};

}  // namespace formwizard::adapters::journal
