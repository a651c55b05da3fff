// The lines of a form file one after another, and how one is taken apart.
#pragma once

#include "runtime/Conversions.h"
#include "vbtext/Header.h"

#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

using runtime::Trimmed;
using vbtext::BeginsWith, vbtext::WordOf;

// What stands on the two sides of a property line's "=", blanks around them taken off.
struct PropertyLine {
  std::string_view Name, Value;
};

class FormLines {
 public:
  // Stands on the first line. Both must outlive this object.
  FormLines(const std::string& path, std::string_view text) : path_(path), rest_(text) { Next(); }

  bool AtEnd() const { return end_; }
  std::string_view Line() const { return line_; }  // without its line end
  bool StartsWith(std::string_view word) const { return BeginsWith(line_, word); }
  void Next();

  // The line as a property; support::InputError when it is none.
  PropertyLine Property() const;

  // support::InputError, naming the file and the line.
  [[noreturn]] void Fail(const std::string& expected) const;

 private:
  const std::string& path_;
  std::string_view rest_, line_;
  int number_ = 0;
  bool end_ = false;
};

}  // namespace formwizard::adapters::vb6files
