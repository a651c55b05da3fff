#include "generator/VisualBasic.h"

#include <algorithm>
#include <stdexcept>

namespace formwizard::generator {
namespace {

constexpr std::string_view LineBreak = "\r\n";

void AppendFilled(std::string& text, std::string_view page, const Values& values) {
  for (;;) {
    const std::size_t open = page.find('{');
    text += page.substr(0, open);
    if (open == std::string_view::npos) return;
    const std::size_t close = page.find('}', open);
    if (close == std::string_view::npos) throw std::logic_error("a gap without its closing brace");
    text += values.Of(page.substr(open + 1, close - open - 1));
    page.remove_prefix(close + 1);
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
  Values names;
  names.Set("property", field.PropertyName)
      .Set("control", field.ControlName)
      .Set("display", field.ReferenceColumn)
      .Set("base", field.IntName);
  return names;
}

void Lines::BeginLine() {
  if (!empty_) text_ += LineBreak;
  empty_ = false;
}

void Lines::EndLine() { text_ += LineBreak; }

void Lines::Add(std::string_view page) {
  if (page.empty()) return;
  BeginLine();
  text_ += page;
}

void Lines::Add(std::string_view page, const Values& values) {
  if (page.empty()) return;
  BeginLine();
  AppendFilled(text_, page, values);
}

void Procedure::AppendTo(ide::CodeModule& module) {
  lines_.Add("End Sub");
  lines_.EndLine();
  Append(module, lines_.Text());
}

void Append(ide::CodeModule& module, std::string_view text) {
  module.InsertLines(module.CountOfLines() + Int32(1), text);
}

void WriteEvent(Generation& run, std::string_view object, std::string_view event, std::string_view page) {
  ide::CodeModule& module = Required(run.NewCodeModule);
  const Int16 line(module.CreateEventProc(event, object));  // 16 bits: a longer module overflows here
  module.InsertLines(line + Int16(1), page);
}

void WriteEvent(Generation& run, std::string_view object, std::string_view event, const Lines& body) {
  WriteEvent(run, object, event, std::string_view(body.Text()));
}

void WriteEvent(Generation& run, std::string_view object, std::string_view event, std::string_view page,
                const Values& values) {
  Lines body;
  body.Add(page, values);
  WriteEvent(run, object, event, body);
}

}  // namespace formwizard::generator
