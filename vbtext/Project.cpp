#include "vbtext/Project.h"

#include "runtime/Conversions.h"
#include "vbtext/Differences.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

namespace formwizard::vbtext {
namespace {

using runtime::EqualIgnoringCase;

constexpr std::array<std::string_view, 11> Items{"Reference", "Object",      "Form",         "Module",
                                                 "Class",     "UserControl", "PropertyPage", "UserDocument",
                                                 "Designer",  "RelatedDoc",  "ResFile32"};

bool IsItem(std::string_view key) {
  return std::ranges::any_of(Items, [&](std::string_view item) { return EqualIgnoringCase(item, key); });
}

// "*\G{guid}#2.0#0#path#description": the part between the third and the fourth mark.
std::string WithoutPath(std::string_view reference) {
  std::size_t from = 0;
  for (int mark = 0; mark < 3; ++mark) {
    from = reference.find('#', from);
    if (from == std::string_view::npos) return std::string(reference);
    ++from;
  }
  const std::size_t behind = std::min(reference.find('#', from), reference.size());
  return std::string(reference.substr(0, from)) + std::string(reference.substr(behind));
}

std::string WithoutBlanks(std::string text) {
  std::erase_if(text, IsBlank);
  return text;
}

}  // namespace

std::vector<ProjectEntry> EntriesOf(const std::vector<Line>& lines) {
  std::vector<ProjectEntry> entries;
  std::string_view section;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view text = runtime::Trimmed(lines[i].Text);
    if (text.empty()) continue;
    if (text.starts_with('[') && text.ends_with(']')) {
      section = text;
      continue;
    }
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) throw Fault{i, "a line as \"Key=Value\""};
    const std::string_view key = text.substr(0, equals);
    entries.push_back({section, key, text.substr(equals + 1), i, section.empty() && IsItem(key)});
  }
  return entries;
}

std::string SpellingOf(const ProjectEntry& entry) {
  const std::string about = Folded(entry.Section) + "\n" + Folded(entry.Key) + "=";
  if (!entry.IsItem) return about + std::string(entry.Value);
  const bool isReference = EqualIgnoringCase(entry.Key, "Reference");
  return about + WithoutBlanks(Folded(isReference ? WithoutPath(entry.Value) : std::string(entry.Value)));
}

std::string NameOf(const ProjectEntry& entry) {
  if (!entry.IsItem) return std::string(entry.Key);
  const std::size_t mark = entry.Value.rfind(EqualIgnoringCase(entry.Key, "Reference") ? '#' : ';');
  const std::string_view name = mark == std::string_view::npos ? entry.Value : entry.Value.substr(mark + 1);
  return std::string(entry.Key) + " " + std::string(runtime::Trimmed(name, " \t\""));
}

std::vector<Difference> CompareProjects(const std::vector<ProjectEntry>& a, const std::vector<ProjectEntry>& b) {
  Differences differences;
  std::unordered_multimap<std::string, const ProjectEntry*> rest;
  std::unordered_map<std::string, const ProjectEntry*> settings;  // of b that differ, by section and key
  for (const ProjectEntry& entry : b) rest.emplace(SpellingOf(entry), &entry);
  std::vector<const ProjectEntry*> gone;
  for (const ProjectEntry& entry : a) {
    const auto found = rest.find(SpellingOf(entry));
    if (found == rest.end()) {
      gone.push_back(&entry);
    } else {
      rest.erase(found);
    }
  }
  const auto idOf = [](const ProjectEntry& entry) { return Folded(entry.Section) + "\n" + Folded(entry.Key); };
  for (const auto& [spelling, entry] : rest) {
    if (!entry->IsItem) settings.emplace(idOf(*entry), entry);
  }
  const auto rangeOf = [](const ProjectEntry& entry) { return LineRange{entry.Line, entry.Line + 1}; };
  const auto whatOf = [](const ProjectEntry& entry) { return entry.IsItem ? "item" : "setting"; };
  std::unordered_set<const ProjectEntry*> changed;
  for (const ProjectEntry* entry : gone) {
    const auto found = entry->IsItem ? settings.end() : settings.find(idOf(*entry));
    if (found == settings.end()) {
      differences.AddOneSided(whatOf(*entry), NameOf(*entry), rangeOf(*entry), true);
    } else {
      differences.Add(Change::Changed, "setting", NameOf(*entry), rangeOf(*entry), rangeOf(*found->second));
      changed.insert(found->second);
      settings.erase(found);
    }
  }
  std::vector<const ProjectEntry*> added;
  for (const auto& [spelling, entry] : rest) {
    if (!changed.contains(entry)) added.push_back(entry);
  }
  std::ranges::sort(added, {}, &ProjectEntry::Line);
  for (const ProjectEntry* entry : added) {
    differences.AddOneSided(whatOf(*entry), NameOf(*entry), rangeOf(*entry), false);
  }
  return differences.Take();
}

}  // namespace formwizard::vbtext
