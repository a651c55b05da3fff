// How properties are written in a form file, and the companion file that takes the values that do not fit a line.
#pragma once

#include "adapters/vb6files/ControlClasses.h"

#include <concepts>
#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

// Collects the records of a ".frx" in the order in which the form refers to them.
class FrxBuilder {
 public:
  // `stem` is the file name without ".frx", in bytes.
  explicit FrxBuilder(std::string_view stem) : stem_(stem) {}

  // Each returns the reference to the record, such as "frmX.frx":0000.
  std::string AddRecord(std::string_view bytes);
  std::string AddString(std::string_view text);         // of any length, any characters
  std::string AddMultiLineText(std::string_view text);  // the Text of a multi-line text box

  const std::string& Bytes() const { return bytes_; }

 private:
  std::string stem_, bytes_;
};

// The value of a property: a number, or a text in the project's code page that somebody else keeps.
struct PropertyData {
  double Number = 0;
  std::string_view Text = {};
};

// Everything below appends to the text of a form.

// At most three decimals; from 100000 on with an exponent, as the environment writes single-precision numbers.
void AppendNumber(std::string& out, double value);

// The value as it stands behind the "=" and its blanks; a text that is too long for a line or holds control characters
// goes to the companion file.
void AppendValue(std::string& out, const PropertyRow& row, const PropertyData& data, FrxBuilder& frx);

// `level` times three blanks.
void AppendIndent(std::string& out, int level);

// The start of a line: its indent, the name padded to 16 columns, "=" and three blanks.
void AppendPropertyStart(std::string& out, int level, std::string_view name);

// A whole line, whose value `appendValue` appends.
template <std::invocable Action>
void AppendPropertyLine(std::string& out, int level, std::string_view name, Action&& appendValue) {
  AppendPropertyStart(out, level, name);
  appendValue();
  out += "\r\n";
}

}  // namespace formwizard::adapters::vb6files
