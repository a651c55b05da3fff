#include "merge/ProjectMerge.h"

#include "merge/Constants.h"
#include "merge/Sequence.h"
#include "runtime/Conversions.h"
#include "vbtext/Project.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

using vbtext::Line;
using vbtext::ProjectEntry;

struct Side {
  std::vector<Line> Lines;
  std::vector<ProjectEntry> Entries;

  explicit Side(std::string_view text) : Lines(vbtext::LinesOf(text)), Entries(vbtext::EntriesOf(Lines)) {}
  std::string_view Text(const ProjectEntry* entry) const {
    return entry ? Lines[entry->Line].Whole() : std::string_view();
  }
};

struct Trio {
  const ProjectEntry* Base = nullptr;
  const ProjectEntry* Mine = nullptr;
  const ProjectEntry* Theirs = nullptr;
};

// What makes an entry the same one on all sides: of an item all that it says but for what a module's path is.
std::string IdOf(const ProjectEntry& entry) {
  std::string about = vbtext::Folded(entry.Section) + "\n" + vbtext::Folded(entry.Key) + "=";
  if (!entry.IsItem) return about;
  const std::size_t mark = entry.Value.find(';');
  const bool isNamed = mark != std::string_view::npos && !entry.Value.starts_with('{');
  if (isNamed) return about + vbtext::Folded(entry.Value.substr(0, mark));
  const std::size_t guid = entry.Value.find('}');
  const bool isLibrary = entry.Value.starts_with('{') || entry.Value.starts_with("*\\G{");
  return isLibrary && guid != std::string_view::npos ? about + vbtext::Folded(entry.Value.substr(0, guid))
                                                     : vbtext::SpellingOf(entry);
}

// Numbers that the environment counts up by itself.
bool IsCounter(const ProjectEntry& entry) {
  return vbtext::IsSameName(entry.Key, "RevisionVer") || vbtext::IsSameName(entry.Key, "MinorVer") ||
         vbtext::IsSameName(entry.Key, "MajorVer");
}

class ProjectMerger {
 public:
  ProjectMerger(std::string_view base, std::string_view mine, std::string_view theirs, Output& output)
      : base_(base), mine_(mine), theirs_(theirs), output_(output) {}

  void Run() {
    NumbersOf(base_, &Trio::Base);
    const Row ofMine = NumbersOf(mine_, &Trio::Mine), ofTheirs = NumbersOf(theirs_, &Trio::Theirs);
    // The order says nothing, so mine's stays.
    const Row order = WithThoseOf(ofMine, ofTheirs);
    std::string_view section;
    std::size_t line = 0;
    for (const std::uint32_t number : order) {
      const Trio& entry = entries_[number];
      WriteUpTo(entry, line, section);
      Merge(entry);
    }
    for (; line < mine_.Lines.size(); ++line) output_.AddMine(mine_.Lines[line].Whole());
  }

 private:
  Row NumbersOf(const Side& side, const ProjectEntry* Trio::*place) {
    Row row;
    std::unordered_map<std::string, std::size_t> counts;
    for (const ProjectEntry& entry : side.Entries) {
      std::string id = IdOf(entry);
      id += "\n" + std::to_string(counts[id]++);
      const auto [found, isNew] = numbers_.emplace(std::move(id), static_cast<std::uint32_t>(entries_.size()));
      if (isNew) entries_.push_back({});
      entries_[found->second].*place = &entry;
      row.push_back(found->second);
    }
    return row;
  }

  // Lines of mine that are no entries: empty ones and the names of sections.
  void WriteUpTo(const Trio& entry, std::size_t& line, std::string_view& section) {
    if (entry.Mine) {
      for (; line < entry.Mine->Line; ++line) output_.AddMine(mine_.Lines[line].Whole());
      line = entry.Mine->Line + 1;
      section = entry.Mine->Section;
    } else if (entry.Theirs && entry.Theirs->Section != section) {
      output_.AddTheirs(std::string(entry.Theirs->Section) + "\n");
      section = entry.Theirs->Section;
    }
  }

  void Merge(const Trio& entry) {
    const auto spelling = [](const ProjectEntry* of) { return of ? vbtext::SpellingOf(*of) : std::string(); };
    const std::string base = spelling(entry.Base), mine = spelling(entry.Mine), theirs = spelling(entry.Theirs);
    if (mine == theirs || base == theirs) return output_.AddMine(mine_.Text(entry.Mine));
    if (base == mine) return output_.AddTheirs(theirs_.Text(entry.Theirs));
    if (entry.Mine && entry.Theirs && IsCounter(*entry.Mine)) {
      const double ofMine = runtime::LeadingNumber(entry.Mine->Value);
      const double ofTheirs = runtime::LeadingNumber(entry.Theirs->Value);
      output_.AddNote(std::string(entry.Mine->Key) + ": both counted up; the higher number stays");
      return ofMine < ofTheirs ? output_.AddTheirs(theirs_.Text(entry.Theirs))
                               : output_.AddMine(mine_.Text(entry.Mine));
    }
    if (entry.Base && entry.Mine && entry.Theirs && vbtext::IsSameName(entry.Mine->Key, "CondComp")) {
      const auto constants = MergedConstants(entry.Base->Value, entry.Mine->Value, entry.Theirs->Value);
      if (constants) return output_.AddTheirs(std::string(entry.Mine->Key) + "=" + *constants + "\n");
    }
    output_.AddConflict(NameOf(entry.Mine ? *entry.Mine : *entry.Theirs), mine_.Text(entry.Mine),
                        base_.Text(entry.Base), theirs_.Text(entry.Theirs));
  }

  Side base_, mine_, theirs_;
  Output& output_;
  std::unordered_map<std::string, std::uint32_t> numbers_;
  std::vector<Trio> entries_;
};

}  // namespace

void MergeProjects(std::string_view base, std::string_view mine, std::string_view theirs, Output& output) {
  ProjectMerger(base, mine, theirs, output).Run();
}

}  // namespace formwizard::merge
