#include "vbtext/Procedures.h"

#include "vbtext/Lines.h"
#include "vbtext/Tokens.h"

#include <string>
#include <unordered_map>

namespace formwizard::vbtext {
namespace {

using Sections = std::vector<const Section*>;

// Another one of the same name is its second.
std::vector<std::string> NamesOf(const Sections& sections) {
  std::vector<std::string> names;
  std::unordered_map<std::string, std::size_t> counts;
  for (const Section* section : sections) {
    std::string name = section->Branch + Folded(section->Word) + " " + Folded(section->Name);
    const std::size_t nth = counts[name]++;
    names.push_back(name + " " + std::to_string(nth));
  }
  return names;
}

// The lines without the one that names it; empty when that leaves no more than "End Sub".
std::string BodyOf(const Section& section, const std::vector<LineKey>& keys) {
  if (section.Body.Count() < 3) return "";
  std::string text = section.Branch;
  for (std::size_t i = section.Body.First + 1; i < section.Body.Behind; ++i) {
    if (keys[i] != EmptyLine) text += " " + std::to_string(keys[i]);
  }
  return text;
}

}  // namespace

std::vector<std::size_t> MatchProcedures(const Sections& a, const std::vector<LineKey>& keysA, const Sections& b,
                                         const std::vector<LineKey>& keysB) {
  std::unordered_map<std::string, std::size_t> byName;
  const std::vector<std::string> namesA = NamesOf(a), namesB = NamesOf(b);
  for (std::size_t i = 0; i < b.size(); ++i) byName.emplace(namesB[i], i);
  std::vector<std::size_t> matches(a.size(), None);
  std::vector<bool> isTaken(b.size(), false);
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto found = byName.find(namesA[i]);
    if (found == byName.end()) continue;
    matches[i] = found->second;
    isTaken[found->second] = true;
  }
  struct Seen {
    std::size_t CountA = 0, CountB = 0, B = None;
  };
  std::unordered_map<std::string, Seen> bodies;
  for (std::size_t i = 0; i < b.size(); ++i) {
    if (isTaken[i]) continue;
    Seen& seen = bodies[BodyOf(*b[i], keysB)];
    ++seen.CountB;
    seen.B = i;
  }
  if (bodies.empty()) return matches;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (matches[i] == None) ++bodies[BodyOf(*a[i], keysA)].CountA;
  }
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (matches[i] != None) continue;
    const std::string body = BodyOf(*a[i], keysA);
    const Seen& seen = bodies[body];
    if (!body.empty() && seen.CountA == 1 && seen.CountB == 1) matches[i] = seen.B;
  }
  return matches;
}

}  // namespace formwizard::vbtext
