// Feeds bytes to the readers of Visual Basic and to the comparison: a text is equal to itself, all of its lines are in
// one section, and tokens are parts of their lines in order.
#include "fuzz/Property.h"
#include "vbtext/Comparison.h"
#include "vbtext/LineKeys.h"
#include "vbtext/Project.h"
#include "vbtext/Tokens.h"

#include <optional>

using namespace formwizard;
using namespace formwizard::fuzz;
using namespace formwizard::vbtext;

namespace {

void CheckTokens(const std::vector<Line>& lines) {
  Tokenizer tokenizer;
  for (const Line& line : lines) {
    const char* at = line.Text.data();
    for (const Token& token : tokenizer.Read(line.Text)) {
      Require(!token.Text.empty() && token.Text.data() >= at, "tokens stand behind one another");
      at = token.Text.data() + token.Text.size();
      Require(at <= line.Text.data() + line.Text.size(), "a token ends with its line");
    }
  }
}

void CheckSections(const Module& module, std::size_t from, std::size_t behind) {
  for (const Section& section : module.Sections) {
    Require(section.Lines.First == from && section.Lines.Behind > from, "sections have all lines");
    Require(section.Body.First >= from && section.Body.Behind == section.Lines.Behind, "a body is in its section");
    from = section.Lines.Behind;
  }
  Require(from == behind, "sections have the last line");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = TextOf(data, size);
  const std::vector<Line> lines = LinesOf(text);
  Require(TextOf(lines, {0, lines.size()}) == text, "lines are the text");
  CheckTokens(lines);
  CheckSections(ModuleOf(lines), 0, lines.size());
  std::optional<std::size_t> start;
  try {
    start = StartOfCode(text);
  } catch (const Fault&) {
  }
  try {
    const Document document = DocumentOf(text);
    Require(start == StartOfCode(document), "the code begins where it does when the tree is made");
    CheckSections(document.Code, document.CodeLines.First, document.CodeLines.Behind);
    Require(Compare({document, text}, {document, text}).empty(), "a text is equal to itself");
  } catch (const Fault& fault) {
    Require(fault.Line <= lines.size(), "a fault is in the text");
    Require(!start, "a text that cannot be read has no place where its code begins");
  }
  try {
    const std::vector<ProjectEntry> entries = EntriesOf(lines);
    Require(CompareProjects(entries, entries).empty(), "a project is equal to itself");
  } catch (const Fault&) {
  }
  return 0;
}
