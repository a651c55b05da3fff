// How properties are written in a form file, and the companion file that takes the values that do not fit a line.
#pragma once

#include "adapters/vb6files/ControlClasses.h"
#include "adapters/vb6files/FormText.h"

#include <array>
#include <concepts>
#include <cstddef>
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
void AppendNumber(FormText& out, double value);

// The value as it stands behind the "=" and its blanks; a text that is too long for a line or holds control characters
// goes to the companion file.
void AppendValue(FormText& out, const PropertyRow& row, const PropertyData& data, FrxBuilder& frx);

// `level` times three blanks.
inline void AppendIndent(FormText& out, int level) {
  constexpr auto blanks = std::to_array("                     ");
  for (; level > 7; level -= 7) out.AppendFirst(blanks, 21);
  out.AppendFirst(blanks, static_cast<std::size_t>(level) * 3);
}

// A whole line, whose value `appendValue` appends.
template <std::invocable Action>
void AppendPropertyLine(FormText& out, int level, const LineStart& start, Action&& appendValue) {
  AppendIndent(out, level);
  out.AppendFirst(start.Chars, start.Size);
  appendValue();
  out += "\r\n";
}

}  // namespace formwizard::adapters::vb6files
