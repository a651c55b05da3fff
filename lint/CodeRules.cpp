// The procedures of a module.
#include "lint/Blocks.h"
#include "lint/Checks.h"
#include "runtime/Conversions.h"
#include "vbtext/LogicalLines.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace formwizard::lint {
namespace {

using runtime::EqualIgnoringCase;
using vbtext::Section;
using vbtext::SectionKind;

// Whether no condition lets the lines in such branches be compiled, so that they can hold anything.
bool IsNeverCompiled(std::string_view branch) {
  return branch.starts_with("if false then \n") || branch.starts_with("if 0 then \n") ||
         branch.find("\nif false then \n") != std::string_view::npos ||
         branch.find("\nif 0 then \n") != std::string_view::npos;
}

// Those that are compiled and of which it is certain what they are. Behind the first one that does not end nothing is.
template <typename Visit>
void ForEachProcedure(const Subject& subject, Visit visit) {
  if (!subject.Document()) return;
  const vbtext::Module& code = subject.Document()->Code;
  for (const Section& section : code.Sections) {
    if (code.Wrong && section.Body.Behind > code.Wrong->Line) return;
    if (section.Kind == SectionKind::Procedure && !IsNeverCompiled(section.Branch)) visit(section);
  }
}

bool IsOneOf(std::string_view word, const auto& words) {
  return std::ranges::any_of(words, [&](std::string_view each) { return EqualIgnoringCase(each, word); });
}

// The objects whose events a form can handle, and the interfaces that it has.
std::unordered_set<std::string> ObjectsOf(const Subject& subject) {
  std::unordered_set<std::string> names{"form", "mdiform", "usercontrol", "propertypage", "userdocument", "class"};
  for (const vbtext::Control& control : subject.Controls()) names.insert(vbtext::Folded(control.Node->Name));
  for (const Section& section : subject.Document()->Code.Sections) {
    if (section.Kind != SectionKind::Declaration) continue;
    vbtext::LogicalLines lines(subject.Lines(), section.Body);
    vbtext::LogicalLine line;
    if (!lines.Next(line)) continue;
    for (std::size_t i = 0; i + 1 < line.Tokens.size(); ++i) {
      const bool names_ =
          EqualIgnoringCase(line.Tokens[i].Text, "WithEvents") || EqualIgnoringCase(line.Tokens[i].Text, "Implements");
      if (names_)
        names.insert(vbtext::Folded(
            line.Tokens[line.Tokens.size() > i + 3 && line.Tokens[i + 2].Text == "." ? i + 3 : i + 1].Text));
    }
  }
  return names;
}

constexpr std::array<std::string_view, 30> Events{
    "Change",    "Click",     "Collapse",  "DblClick",    "DragDrop",    "DragOver", "DropDown",   "Expand",
    "GotFocus",  "ItemCheck", "ItemClick", "KeyDown",     "KeyPress",    "KeyUp",    "LostFocus",  "MouseDown",
    "MouseMove", "MouseUp",   "NodeClick", "OLEDragDrop", "OLEDragOver", "Paint",    "PathChange", "Resize",
    "Scroll",    "SelChange", "Timer",     "UpDown",      "Updated",     "Validate"};

}  // namespace

void CheckProcedures(const Subject& subject, const Report& report) {
  if (!subject.Document() || !subject.Document()->Code.Wrong) return;
  const vbtext::Fault& wrong = *subject.Document()->Code.Wrong;
  report(wrong.Line, "expected " + wrong.Expected);
}

void CheckBlocks(const Subject& subject, const Report& report) {
  ForEachProcedure(subject, [&](const Section& procedure) {
    if (auto fault = BlockFaultIn(subject.Lines(), procedure)) report(fault->Line, std::move(fault->Message));
  });
}

void CheckDuplicateProcedures(const Subject& subject, const Report& report) {
  std::unordered_map<std::string, std::vector<const Section*>> seen;  // by name: at most the parts of one property
  ForEachProcedure(subject, [&](const Section& procedure) {
    constexpr std::array<std::string_view, 3> accessors{"Get", "Let", "Set"};
    std::vector<const Section*>& others = seen[procedure.Branch + vbtext::Folded(procedure.Name)];
    const auto other = std::ranges::find_if(others, [&](const Section* section) {
      return EqualIgnoringCase(section->Word, procedure.Word) || !IsOneOf(section->Word, accessors) ||
             !IsOneOf(procedure.Word, accessors);
    });
    if (other == others.end()) return others.push_back(&procedure);
    report(procedure.Body.First, "a second procedure is called " + std::string(procedure.Name) + ", as that of line " +
                                     std::to_string((*other)->Body.First + 1));
  });
}

void CheckHandlers(const Subject& subject, const Report& report) {
  if (subject.Controls().empty()) return;
  const std::unordered_set<std::string> objects = ObjectsOf(subject);
  ForEachProcedure(subject, [&](const Section& procedure) {
    const std::string name = vbtext::Folded(procedure.Name);
    if (!EqualIgnoringCase(procedure.Word, "Sub") || !IsOneOf(name.substr(name.rfind('_') + 1), Events)) return;
    bool isOfObject = name.find('_') == std::string::npos;
    for (std::size_t mark = name.find('_'); mark != std::string::npos; mark = name.find('_', mark + 1)) {
      isOfObject = isOfObject || objects.contains(name.substr(0, mark));
    }
    if (isOfObject) return;
    const std::string_view object = procedure.Name.substr(0, procedure.Name.rfind('_'));
    report(procedure.Body.First, std::string(procedure.Name) + " handles an event of " + std::string(object) +
                                     ", and there is no control of this name");
  });
}

}  // namespace formwizard::lint
