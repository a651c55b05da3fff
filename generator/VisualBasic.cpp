#include "generator/VisualBasic.h"

#include <algorithm>
#include <stdexcept>

namespace formwizard::generator {
namespace {

constexpr std::string_view LineBreak = "\r\n";

// Takes the next line off the page.
std::string_view TakeLine(std::string_view& page) {
  const std::string_view line = page.substr(0, page.find('\n'));
  page.remove_prefix(std::min(line.size() + 1, page.size()));
  return line;
}

void AppendFilled(std::string& text, std::string_view line, const Values& values) {
  for (;;) {
    const std::size_t open = line.find('{');
    text += line.substr(0, open);
    if (open == std::string_view::npos) return;
    const std::size_t close = line.find('}', open);
    if (close == std::string_view::npos) throw std::logic_error("a gap without its closing brace");
    text += values.Of(line.substr(open + 1, close - open - 1));
    line.remove_prefix(close + 1);
  }
}

}  // namespace

Values& Values::Set(std::string_view gap, std::string_view text) {
  values_.at(count_++) = Value{gap, text};
  return *this;
}

std::string_view Values::Of(std::string_view gap) const {
  for (std::size_t i = 0; i < count_; ++i) {
    if (values_[i].Gap == gap) return values_[i].Text;
  }
  throw std::logic_error("nothing fills the gap {" + std::string(gap) + "}");
}

Values NamesOf(const FieldRecord& field) {
  return Values()
      .Set("property", field.PropertyName)
      .Set("control", field.ControlName)
      .Set("display", field.ReferenceColumn)
      .Set("base", field.IntName);
}

void Lines::BeginLine() {
  if (!empty_) text_ += LineBreak;
  empty_ = false;
}

void Lines::EndLine() { text_ += LineBreak; }

void Lines::Add(std::string_view page) {
  while (!page.empty()) {
    BeginLine();
    text_ += TakeLine(page);
  }
}

void Lines::Add(std::string_view page, const Values& values) {
  while (!page.empty()) {
    BeginLine();
    AppendFilled(text_, TakeLine(page), values);
  }
}

void Procedure::AppendTo(ide::CodeModule& module) {
  lines_.Add("End Sub");
  lines_.EndLine();
  Append(module, lines_.Text());
}

void Append(ide::CodeModule& module, std::string_view text) {
  module.InsertLines(module.CountOfLines() + Int32(1), text);
}

void WriteEvent(Generation& run, std::string_view object, std::string_view event, const Lines& body) {
  ide::CodeModule& module = Required(run.NewCodeModule);
  const Int16 line(module.CreateEventProc(event, object));  // 16 bits: a longer module overflows here
  module.InsertLines(line + Int16(1), body.Text());
}

void WriteEvent(Generation& run, std::string_view object, std::string_view event, std::string_view page) {
  Lines body;
  body.Add(page);
  WriteEvent(run, object, event, body);
}

void WriteEvent(Generation& run, std::string_view object, std::string_view event, std::string_view page,
                const Values& values) {
  Lines body;
  body.Add(page, values);
  WriteEvent(run, object, event, body);
}

}  // namespace formwizard::generator
