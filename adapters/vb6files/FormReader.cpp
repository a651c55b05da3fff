#include "adapters/vb6files/FormReader.h"

#include "adapters/vb6files/FormLines.h"
#include "runtime/Conversions.h"

#include <algorithm>

namespace formwizard::adapters::vb6files {
namespace {

class Reader {
 public:
  Reader(const std::string& path, std::string_view frm) : lines_(path, frm) {}

  FormParts Read() {
    ReadHead();
    ReadRoot();
    for (; !lines_.AtEnd() && lines_.StartsWith("Attribute"); lines_.Next()) parts_.AttributeLines.push_back(Line());
    ReadName();
    for (; !lines_.AtEnd(); lines_.Next()) parts_.Code += Line();
    return std::move(parts_);
  }

 private:
  std::string Line() const { return std::string(lines_.Line()) + "\r\n"; }

  void ReadHead() {
    if (!lines_.StartsWith("VERSION")) lines_.Fail("\"VERSION 5.00\"");
    for (; !lines_.AtEnd() && !lines_.StartsWith("Begin"); lines_.Next()) parts_.HeadLines.push_back(Line());
    if (lines_.AtEnd()) lines_.Fail("\"Begin\" of the form");
    parts_.Class = Word(lines_.Line(), 1);
    parts_.Name = Word(lines_.Line(), 2);
    if (parts_.Name.empty()) lines_.Fail("a class and a name behind \"Begin\"");
  }

  void ReadRoot() {
    int depth = 1;
    for (lines_.Next(); depth > 0; lines_.Next()) {
      if (lines_.AtEnd()) lines_.Fail("\"End\" of the form");
      if (lines_.StartsWith("BeginProperty") && depth == 1) {
        ReadGroup();
      } else if (lines_.StartsWith("Begin")) {
        ++depth;
        ++parts_.ControlCount;
      } else if (lines_.StartsWith("End")) {
        --depth;
      } else if (depth == 1 && !Trimmed(lines_.Line()).empty()) {
        parts_.Properties.push_back({std::string(lines_.Property().Name), Line()});
      }
    }
  }

  void ReadGroup() {
    FormProperty group{std::string(Word(lines_.Line(), 1)), ""};
    for (int depth = 0;; lines_.Next()) {
      if (lines_.AtEnd()) lines_.Fail("\"EndProperty\"");
      group.Lines += Line();
      if (lines_.StartsWith("BeginProperty")) ++depth;
      if (lines_.StartsWith("EndProperty") && --depth == 0) break;
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

  FormLines lines_;
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
