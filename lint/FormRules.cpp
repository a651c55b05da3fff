// The controls of a form, their names and what they refer to.
#include "lint/Checks.h"
#include "lint/ControlLibraries.h"
#include "vbtext/Companion.h"
#include "vbtext/Limits.h"
#include "vbtext/Tokens.h"

#include <string>
#include <unordered_map>
#include <unordered_set>

namespace formwizard::lint {
namespace {

using vbtext::Control;
using vbtext::HeaderNode;
using vbtext::HeaderProperty;

std::string OfLine(std::size_t line) { return " of line " + std::to_string(line + 1); }

// The sizes of the files to which a form refers, nearly always one.
class CompanionCheck {
 public:
  CompanionCheck(const Surroundings& around, const Report& report) : around_(around), report_(report) {}

  void Check(const std::vector<HeaderProperty>& properties) {
    for (const HeaderProperty& property : properties) {
      if (const auto reference = vbtext::ReferenceIn(property.Value)) Check(property, *reference);
      Check(property.Members);
    }
  }

 private:
  void Check(const HeaderProperty& property, const vbtext::CompanionReference& reference) {
    const auto [found, isNew] = sizes_.try_emplace(std::string(reference.File));
    if (isNew) found->second = around_.SizeOf(reference.File);
    const std::string name(property.Name), file(reference.File);
    if (found->second && reference.Offset >= *found->second) {
      report_(property.Lines.First, name + " refers to byte " + std::to_string(reference.Offset) + " of " + file +
                                        ", which has " + std::to_string(*found->second));
    } else if (!found->second && isNew) {
      report_(property.Lines.First, name + " refers to " + file + ", which is not there");
    }
  }

  const Surroundings& around_;
  const Report& report_;
  std::unordered_map<std::string, std::optional<std::uintmax_t>> sizes_;
};

}  // namespace

void CheckTree(const Subject& subject, const Report& report) {
  if (subject.Broken() && subject.Kind() != vbtext::FileKind::Project) {
    report(subject.Broken()->Line, "expected " + subject.Broken()->Expected);
  }
}

void CheckDuplicateControls(const Subject& subject, const Report& report) {
  std::unordered_map<std::string, const HeaderNode*> seen;   // by name and index
  std::unordered_map<std::string, const HeaderNode*> first;  // by name
  for (std::size_t i = 1; i < subject.Controls().size(); ++i) {
    const Control& control = subject.Controls()[i];
    const HeaderNode& node = *control.Node;
    const std::string name = vbtext::NameOf(node);
    const auto [same, isNew] = seen.try_emplace(control.Key, &node);
    const auto [other, isFirst] = first.try_emplace(vbtext::Folded(node.Name), &node);
    if (!isNew) {
      report(node.Lines.First, "a second control is called " + name + ", as that" + OfLine(same->second->Lines.First));
    } else if (!isFirst && (node.Find("Index") == nullptr) != (other->second->Find("Index") == nullptr)) {
      report(node.Lines.First, "of two controls that are called " + std::string(node.Name) +
                                   " only one has an index; the other is that" + OfLine(other->second->Lines.First));
    }
  }
}

void CheckControlCount(const Subject& subject, const Report& report) {
  std::unordered_set<std::string> names;
  for (std::size_t i = 1; i < subject.Controls().size(); ++i) {
    const HeaderNode& node = *subject.Controls()[i].Node;
    if (!names.insert(vbtext::Folded(node.Name)).second || names.size() != vbtext::MostControlNames + 1) continue;
    report(node.Lines.First,
           std::string(node.Name) + " is the name after the " + std::to_string(vbtext::MostControlNames) + "th");
  }
}

void CheckNameLengths(const Subject& subject, const Report& report) {
  std::unordered_set<std::string> names;
  for (const Control& control : subject.Controls()) {
    const std::string_view name = control.Node->Name;
    if (name.size() <= vbtext::LongestObjectName || !names.insert(vbtext::Folded(name)).second) continue;
    report(control.Node->Lines.First, std::string(name) + " has " + std::to_string(name.size()) + " characters");
  }
}

void CheckControlLibraries(const Subject& subject, const Report& report) {
  if (subject.Controls().empty()) return;
  const LibraryLines lines(subject);
  std::unordered_set<std::string> told;
  for (std::size_t i = 1; i < subject.Controls().size(); ++i) {
    const HeaderNode& node = *subject.Controls()[i].Node;
    const std::string library(node.Class.substr(0, node.Class.find('.')));
    if (lines.MayHave(library) || !told.insert(vbtext::Folded(library)).second) continue;
    report(node.Lines.First, std::string(node.Name) + " is a " + std::string(node.Class) +
                                 ", and no line \"Object =\"" + " names the library " + library);
  }
}

void CheckCompanionReferences(const Subject& subject, const Report& report) {
  CompanionCheck check(subject.File().Around, report);
  for (const Control& control : subject.Controls()) check.Check(control.Node->Properties);
}

}  // namespace formwizard::lint
