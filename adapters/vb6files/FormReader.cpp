#include "adapters/vb6files/FormReader.h"

#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <algorithm>

namespace formwizard::adapters::vb6files {
namespace {

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// The n-th word of a line, counted from 0.
std::string_view Word(std::string_view line, int n) {
  line = Trimmed(line);
  for (; n > 0; --n) line = Trimmed(line.substr(std::min(line.find_first_of(" \t"), line.size())));
  return line.substr(0, line.find_first_of(" \t"));
}

bool StartsWith(std::string_view line, std::string_view word) {
  return runtime::EqualIgnoringCase(Word(line, 0), word);
}

class Reader {
 public:
  Reader(const std::string& path, std::string_view frm) : path_(path), rest_(frm) { Next(); }

  FormParts Read() {
    ReadHead();
    ReadRoot();
    for (; !end_ && StartsWith(line_, "Attribute"); Next()) parts_.AttributeLines.push_back(Line());
    ReadName();
    for (; !end_; Next()) parts_.Code += Line();
    return std::move(parts_);
  }

 private:
  [[noreturn]] void Fail(const std::string& expected) const {
    throw support::InputError(path_ + ":" + std::to_string(number_) + ": expected " + expected +
                              "; the form is damaged: restore it or take it out of the project");
  }

  void Next() {
    end_ = rest_.empty();
    const std::size_t length = std::min(rest_.find('\n'), rest_.size());
    line_ = rest_.substr(0, length);
    if (line_.ends_with('\r')) line_.remove_suffix(1);
    rest_.remove_prefix(std::min(length + 1, rest_.size()));
    ++number_;
  }
  std::string Line() const { return std::string(line_) + "\r\n"; }

  void ReadHead() {
    if (!StartsWith(line_, "VERSION")) Fail("\"VERSION 5.00\"");
    for (; !end_ && !StartsWith(line_, "Begin"); Next()) parts_.HeadLines.push_back(Line());
    if (end_) Fail("\"Begin\" of the form");
    parts_.Class = Word(line_, 1);
    parts_.Name = Word(line_, 2);
    if (parts_.Name.empty()) Fail("a class and a name behind \"Begin\"");
  }

  void ReadRoot() {
    int depth = 1;
    for (Next(); depth > 0; Next()) {
      if (end_) Fail("\"End\" of the form");
      if (StartsWith(line_, "BeginProperty") && depth == 1) {
        ReadGroup();
      } else if (StartsWith(line_, "Begin")) {
        ++depth;
        ++parts_.ControlCount;
      } else if (StartsWith(line_, "End")) {
        --depth;
      } else if (depth == 1 && !Trimmed(line_).empty()) {
        const std::size_t equals = line_.find('=');
        if (equals == std::string_view::npos) Fail("a property as \"Name = value\"");
        parts_.Properties.push_back({std::string(Trimmed(line_.substr(0, equals))), Line()});
      }
    }
  }

  void ReadGroup() {
    FormProperty group{std::string(Word(line_, 1)), ""};
    for (int depth = 0;; Next()) {
      if (end_) Fail("\"EndProperty\"");
      group.Lines += Line();
      if (StartsWith(line_, "BeginProperty")) ++depth;
      if (StartsWith(line_, "EndProperty") && --depth == 0) break;
    }
    parts_.Properties.push_back(std::move(group));
  }

  // The attribute's spelling counts where it differs from that of the Begin line.
  void ReadName() {
    for (const std::string& line : parts_.AttributeLines) {
      if (!runtime::EqualIgnoringCase(Word(line, 1), "VB_Name")) continue;
      const std::size_t open = line.find('"');
      const std::size_t close = line.rfind('"');
      if (open != std::string::npos && close > open) parts_.Name = line.substr(open + 1, close - open - 1);
    }
  }

  const std::string& path_;
  std::string_view rest_, line_;
  int number_ = 0;
  bool end_ = false;
  FormParts parts_;
};

}  // namespace

FormParts ReadForm(const std::string& path, std::string_view frm) { return Reader(path, frm).Read(); }

std::string_view ReadComponentName(std::string_view head) {
  while (!head.empty()) {
    std::string_view line = head.substr(0, head.find('\n'));
    head.remove_prefix(std::min(line.size() + 1, head.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (StartsWith(line, "Begin") && !Word(line, 2).empty()) return Word(line, 2);
    if (StartsWith(line, "Attribute") && runtime::EqualIgnoringCase(Word(line, 1), "VB_Name")) {
      const std::size_t open = line.find('"');
      return line.substr(std::min(open + 1, line.size()), line.rfind('"') - open - 1);
    }
  }
  return {};
}

}  // namespace formwizard::adapters::vb6files
