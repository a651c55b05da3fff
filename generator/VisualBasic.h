// Visual Basic text as it is written into a code module: pages of whole lines with named gaps.
#pragma once

#include "generator/Generation.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace formwizard::generator {

// A page of lines as it stands in the source, without the line break after the opening quote and the one before the
// closing one, and with those between the lines as a code module has them.
template <std::size_t Size>
class Page {
 public:
  consteval explicit Page(const char (&source)[Size]) {
    std::string_view lines(source, Size - 1);
    if (lines.starts_with('\n')) lines.remove_prefix(1);
    if (lines.ends_with('\n')) lines.remove_suffix(1);
    for (const char c : lines) {
      if (c == '\n') text_[size_++] = '\r';
      text_[size_++] = c;
    }
  }
  constexpr operator std::string_view() const { return {text_.data(), size_}; }

 private:
  static constexpr std::size_t MostLines = 64;  // of a page; one with more does not compile

  std::array<char, Size + MostLines> text_{};
  std::size_t size_ = 0;
};

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
  // A page without text adds nothing.
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
