// How property values are written in a form file, and the companion file that takes the ones that do not fit a line.
#pragma once

#include "adapters/vb6files/ControlClasses.h"

#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

// The value of a property: a number, or a text in the project's code page.
struct PropertyData {
  double Number = 0;
  std::string Text;

  friend bool operator==(const PropertyData&, const PropertyData&) = default;
};

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

// At most three decimals; from 100000 on with an exponent, as the environment writes single-precision numbers.
std::string NumberText(double value);

// A quoted text, or its reference when it is too long for a line or holds control characters.
std::string StringText(std::string_view text, FrxBuilder& frx);

// The value as it stands behind the "=" and its blanks.
std::string ValueText(const PropertyRow& row, const PropertyData& data, FrxBuilder& frx);

// One line: `level` times three blanks, the name padded to 16 columns, "=", three blanks, the value, CRLF.
void AppendPropertyLine(std::string& out, int level, std::string_view name, std::string_view value);

void AppendIndent(std::string& out, int level);

}  // namespace formwizard::adapters::vb6files
