// One line of the journal: a call as a JSON object.
#pragma once

#include "generator/ide/Ide.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace formwizard::adapters::journal {

// What begins a call or a member, whose names are plain letters, as it is written.
class Beginning {
 public:
  consteval Beginning(std::string_view before, std::string_view name, std::string_view behind) {
    for (const std::string_view part : {before, name, behind}) {
      for (const char c : part) text_.at(size_++) = c;
    }
  }

  // Writes it to a place with room for Most bytes, and gives its end.
  char* PutTo(char* to) const {
    std::memcpy(to, text_.data(), Most);  // also what is unused: a fixed size is no call
    return to + size_;
  }
  static constexpr std::size_t Most = 48;

 private:
  std::array<char, Most> text_{};
  std::size_t size_ = 0;
};

// Names hold their beginning: clang 14 does not compile what the compiler itself makes of a derived class.
struct CallName {
  template <std::size_t Size>
  consteval CallName(const char (&name)[Size]) : Text(R"({"call":")", {name, Size - 1}, "\"") {}
  Beginning Text;
};

struct MemberName {
  template <std::size_t Size>
  consteval MemberName(const char (&name)[Size]) : Text(",\"", {name, Size - 1}, "\":") {}
  Beginning Text;
};

// Written member by member into one text, without a document tree: a form is hundreds of calls. Texts are UTF-8; what
// is none is replaced by the character for that.
class Line {
 public:
  // Every line begins so; the text of the one before is gone.
  Line& Begin(const CallName& call);

  Line& Add(const MemberName& name, std::string_view text);
  Line& Add(const MemberName& name, std::int32_t number);
  Line& Add(const MemberName& name, std::same_as<bool> auto flag) { return AddWritten(name, flag ? "true" : "false"); }
  Line& AddValue(const MemberName& name, const generator::ide::PropertyValue& value);
  // A control by its name; null for none.
  Line& Add(const MemberName& name, const std::shared_ptr<generator::ide::VBControl>& control);
  Line& AddError(const runtime::RuntimeError& error);

  // The object as it is so far.
  std::string Text() const { return buffer_.substr(0, size_) + "}"; }
  // The whole line with its line break, until the next one begins.
  std::string_view End();

 private:
  Line& AddWritten(const MemberName& name, std::string_view json);
  void AppendQuoted(std::string_view text);
  void Append(std::string_view text);
  void Append(const Beginning& beginning);
  // Where so many bytes can be written behind the line; `size_` then says how many were.
  char* Room(std::size_t most);

  std::string buffer_;  // of which the line is the beginning
  std::size_t size_ = 0;
};

}  // namespace formwizard::adapters::journal
