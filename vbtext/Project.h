// A project file: what its lines say, whatever their order.
#pragma once

#include "vbtext/Comparison.h"
#include "vbtext/Lines.h"

#include <string>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

// A line "Key=Value".
struct ProjectEntry {
  std::string_view Section;  // "[MS Transaction Server]", which is in brackets; empty before the first one
  std::string_view Key, Value;
  std::size_t Line;  // from 0
  bool IsItem;       // one of those that a project has any number of: a form, a module, a reference
};

// All but empty lines, in order. Throws Fault for a line that is none.
std::vector<ProjectEntry> EntriesOf(const std::vector<Line>& lines);

// Equal for entries that the environment holds for the same: letters in any case where they name a file, and without
// the path in a reference, which is that of the machine that saved it.
std::string SpellingOf(const ProjectEntry& entry);

// The thing that an entry is about: for a setting its key, for an item what it names.
std::string NameOf(const ProjectEntry& entry);

// Items are a set; settings go by their names.
std::vector<Difference> CompareProjects(const std::vector<ProjectEntry>& a, const std::vector<ProjectEntry>& b);

}  // namespace formwizard::vbtext
