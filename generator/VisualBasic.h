// Visual Basic text as it is written into a code module: pages of whole lines with named gaps.
#pragma once

#include "generator/Generation.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace formwizard::generator {

// A page of lines as it stands in the source, without the line break after the opening quote and the one before the
// closing one.
constexpr std::string_view Page(std::string_view source) {
  if (source.starts_with('\n')) source.remove_prefix(1);
  if (source.ends_with('\n')) source.remove_suffix(1);
  return source;
}

// What fills the gaps of a page. Texts are not copied: they must live as long as these values.
class Values {
 public:
  Values& Set(std::string_view gap, std::string_view text);
  // std::logic_error for a gap that nothing fills.
  std::string_view Of(std::string_view gap) const;

 private:
  struct Value {
    std::string_view Gap, Text;
  };
  std::array<Value, 10> values_{};
  std::size_t count_ = 0;
};

// {property}, {control}, {display} and {base} of a field.
Values NamesOf(const FieldRecord& field);

// Lines joined by CRLF, without one at the end.
class Lines {
 public:
  Lines() { text_.reserve(MostOften); }
  // Pages are "\n"-separated; a page without text adds nothing.
  void Add(std::string_view page);
  // Fills the gaps "{name}"; an inserted text is taken as it is, whatever it holds.
  void Add(std::string_view page, const Values& values);

  // Ends the last line, which has no line break otherwise.
  void EndLine();

  const std::string& Text() const { return text_; }

 private:
  static constexpr std::size_t MostOften = 512;  // bytes of a procedure: it need not grow piece by piece

  void BeginLine();

  std::string text_;
  bool empty_ = true;
};

// One Sub: a page that begins with its header, more lines, and the closing that makes it one insertion into the module.
class Procedure {
 public:
  explicit Procedure(std::string_view page) { lines_.Add(page); }
  Procedure(std::string_view page, const Values& values) { lines_.Add(page, values); }

  void Add(std::string_view page) { lines_.Add(page); }
  void Add(std::string_view page, const Values& values) { lines_.Add(page, values); }
  // Adds "End Sub" and appends everything at the end of the module; the last that is done with it.
  void AppendTo(ide::CodeModule& module);

 private:
  Lines lines_;
};

// Inserts text behind the last line of the module in one call.
void Append(ide::CodeModule& module, std::string_view text);

// Creates the procedure for an event and inserts the body below its first line. Error 6 in a module of more than 32767
// lines.
void WriteEvent(Generation& run, std::string_view object, std::string_view event, const Lines& body);
void WriteEvent(Generation& run, std::string_view object, std::string_view event, std::string_view page);
void WriteEvent(Generation& run, std::string_view object, std::string_view event, std::string_view page,
                const Values& values);

}  // namespace formwizard::generator
