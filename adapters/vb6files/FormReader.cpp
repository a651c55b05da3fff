#include "adapters/vb6files/FormReader.h"

#include "adapters/vb6files/FormLines.h"
#include "runtime/Conversions.h"

#include <algorithm>

namespace formwizard::adapters::vb6files {
namespace {

class Reader {
 public:
  Reader(const std::string& path, std::string_view frm) : lines_(path, frm), size_(frm.size()) {}

  FormParts Read() {
    ReadHead();
    ReadRoot();
    ReadAttributes();
    parts_.Code.reserve(size_);
    for (; !lines_.AtEnd(); lines_.Next()) parts_.Code.append(lines_.Line()).append("\r\n");
    return std::move(parts_);
  }

 private:
  std::string Line() const { return std::string(lines_.Line()) + "\r\n"; }

  void ReadHead() {
    if (!lines_.StartsWith("VERSION")) lines_.Fail("\"VERSION 5.00\"");
    for (; !lines_.AtEnd() && !lines_.StartsWith("Begin"); lines_.Next()) parts_.HeadLines.push_back(Line());
    if (lines_.AtEnd()) lines_.Fail("\"Begin\" of the form");
    parts_.Class = WordOf(lines_.Line(), 1);
    parts_.Name = WordOf(lines_.Line(), 2);
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
    FormProperty group{std::string(WordOf(lines_.Line(), 1)), ""};
    for (int depth = 0;; lines_.Next()) {
      if (lines_.AtEnd()) lines_.Fail("\"EndProperty\"");
      group.Lines += Line();
      if (lines_.StartsWith("BeginProperty")) ++depth;
      if (lines_.StartsWith("EndProperty") && --depth == 0) break;
    }
    parts_.Properties.push_back(std::move(group));
  }

  // Every form has a VB_Name, the first of its attributes, and a VB_Exposed, the last that it needs: what lacks one of
  // them broke off.
  void ReadAttributes() {
    bool hasName = false, isExposedSaid = false;
    for (; !lines_.AtEnd() && lines_.StartsWith("Attribute"); lines_.Next()) {
      const std::string_view name = WordOf(lines_.Line(), 1);
      const std::string_view value = lines_.Property().Value;
      if (!IsWhole(value)) lines_.Fail("an attribute as \"Attribute Name = Value\"");
      if (runtime::EqualIgnoringCase(name, "VB_Exposed")) isExposedSaid = true;
      if (IsNameAttribute(lines_.Line())) {
        hasName = true;
        if (!value.starts_with('"')) lines_.Fail("a name in quotes behind \"Attribute VB_Name\"");
        // The attribute's spelling counts where it differs from that of the Begin line.
        if (value.size() > 2) parts_.Name = value.substr(1, value.size() - 2);
      }
      parts_.AttributeLines.push_back(Line());
    }
    if (!hasName) lines_.Fail("\"Attribute VB_Name\"");
    if (!isExposedSaid) lines_.Fail("\"Attribute VB_Exposed\"");
  }

  static bool IsWhole(std::string_view value) {
    if (value.starts_with('"')) return value.size() > 1 && value.ends_with('"');
    return runtime::EqualIgnoringCase(value, "True") || runtime::EqualIgnoringCase(value, "False") ||
           runtime::IsNumeric(value);
  }

  FormLines lines_;
  std::size_t size_;  // of the text
  FormParts parts_;
};

}  // namespace

bool IsNameAttribute(std::string_view line) {
  return BeginsWith(line, "Attribute") && runtime::EqualIgnoringCase(WordOf(line, 1), "VB_Name");
}

FormParts ReadForm(const std::string& path, std::string_view frm) { return Reader(path, frm).Read(); }

std::string_view ReadComponentName(std::string_view head) {
  while (!head.empty()) {
    std::string_view line = head.substr(0, head.find('\n'));
    head.remove_prefix(std::min(line.size() + 1, head.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (BeginsWith(line, "Begin") && !WordOf(line, 2).empty()) return WordOf(line, 2);
    const std::size_t open = line.find('"');
    const std::size_t close = line.rfind('"');
    if (IsNameAttribute(line) && open < close) return line.substr(open + 1, close - open - 1);
  }
  return {};
}

}  // namespace formwizard::adapters::vb6files
