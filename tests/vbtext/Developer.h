// Changes forms as people do, and tells what became of it.
#pragma once

#include "vbtext/Comparison.h"
#include "vbtext/Tokens.h"

#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace formwizard::tests {

// What each change adds is marked by a name that stands nowhere else.
class Developer {
 public:
  Developer(std::mt19937& random, std::string who) : random_(random), who_(std::move(who)) {}

  std::string DoSomething(const std::string& form) {
    const vbtext::Document document = vbtext::DocumentOf(form);
    document_ = &document;
    form_ = &form;
    const std::string id = who_ + std::to_string(++count_);
    std::vector<const vbtext::Section*> procedures;
    for (const auto& section : document.Code.Sections) {
      if (section.Kind == vbtext::SectionKind::Procedure) procedures.push_back(&section);
    }
    const auto& controls = document.Root->Children;
    const unsigned what = random_() % 8;
    if (what < 4 && !procedures.empty()) {
      const vbtext::Section& procedure = *procedures[random_() % procedures.size()];
      if (what == 0) return Without(procedure.Lines);
      if (what == 1) return With(procedure.Lines.First, "Private Sub New_" + id + "()\r\n  x = 1\r\nEnd Sub\r\n");
      return With(procedure.Body.First + 1 + random_() % (procedure.Body.Count() - 1), "    Call_" + id + "\r\n");
    }
    if (what == 4) return With(document.CodeLines.First, "Private v_" + id + " As Long\r\n");
    if (what == 5 || controls.empty()) {
      const std::size_t line = controls.empty() ? document.Root->Lines.Behind - 1 : Any(controls).Lines.First;
      return With(line, "   Begin VB.Timer tmr_" + id + " \r\n      Interval        =   7\r\n   End\r\n");
    }
    if (what == 6) return Without(Any(controls).Lines);
    return With(Any(controls).Lines.First + 1, "      Tag             =   \"Tag_" + id + "\"\r\n");
  }

 private:
  const vbtext::HeaderNode& Any(const std::vector<vbtext::HeaderNode>& controls) {
    return controls[random_() % controls.size()];
  }
  std::size_t OffsetOf(std::size_t line) const {
    return line == document_->Lines.size()
               ? form_->size()
               : static_cast<std::size_t>(document_->Lines[line].Text.data() - form_->data());
  }
  std::string With(std::size_t line, const std::string& text) const {
    return std::string(*form_).insert(OffsetOf(line), text);
  }
  std::string Without(vbtext::LineRange lines) const {
    return std::string(*form_).erase(OffsetOf(lines.First), OffsetOf(lines.Behind) - OffsetOf(lines.First));
  }

  std::mt19937& random_;
  std::string who_;
  int count_ = 0;
  const vbtext::Document* document_ = nullptr;
  const std::string* form_ = nullptr;
};

// The marks of a developer in a text.
inline std::set<std::string> MarksIn(const std::string& text) {
  std::set<std::string> marks;
  const std::string folded = vbtext::Folded(text);
  for (const char* word : {"new_", "call_", "v_", "tmr_", "tag_"}) {
    for (std::size_t at = folded.find(word); at != std::string::npos; at = folded.find(word, at + 1)) {
      std::size_t end = at;
      while (end < folded.size() && vbtext::IsNameByte(folded[end])) ++end;
      const std::string mark = folded.substr(at, end - at);
      if (vbtext::IsDigit(mark.back())) marks.insert(mark);
    }
  }
  return marks;
}

// By what and name.
inline std::set<std::string> Changes(const std::string& a, const std::string& b) {
  const vbtext::Document fileA = vbtext::DocumentOf(a), fileB = vbtext::DocumentOf(b);
  std::set<std::string> changes;
  for (const auto& difference : vbtext::Compare({fileA, {}}, {fileB, {}})) {
    changes.insert(std::string(difference.What) + " " + vbtext::Folded(difference.Name));
  }
  return changes;
}

}  // namespace formwizard::tests
