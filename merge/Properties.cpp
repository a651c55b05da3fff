#include "merge/Properties.h"

#include "vbtext/Tokens.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace formwizard::merge {
namespace {

using vbtext::HeaderProperty;

// For each property of `a` the one of `b`, or null.
std::vector<const HeaderProperty*> Matches(const Properties& a, const Properties& b) {
  std::vector<const HeaderProperty*> matches(a.size(), nullptr);
  std::size_t same = 0;  // those that both begin with, as they mostly all are
  for (; same < std::min(a.size(), b.size()) && vbtext::IsSameName(a[same].Name, b[same].Name); ++same) {
    matches[same] = &b[same];
  }
  if (same == a.size() || same == b.size()) return matches;
  std::unordered_map<std::string, std::size_t> countsA, countsB;
  std::unordered_map<std::string, const HeaderProperty*> rest;
  const auto keyOf = [](const HeaderProperty& property, auto& counts) {
    const std::string name = vbtext::Folded(property.Name);
    return name + "\n" + std::to_string(counts[name]++);
  };
  for (std::size_t i = same; i < b.size(); ++i) rest.emplace(keyOf(b[i], countsB), &b[i]);
  for (std::size_t i = same; i < a.size(); ++i) {
    const auto found = rest.find(keyOf(a[i], countsA));
    if (found != rest.end()) matches[i] = found->second;
  }
  return matches;
}

// By place: whether a match is there.
std::vector<bool> Among(const std::vector<const HeaderProperty*>& matches, const Properties& all) {
  std::vector<bool> isAmong(all.size(), false);
  for (const HeaderProperty* match : matches) {
    if (match) isAmong[static_cast<std::size_t>(match - all.data())] = true;
  }
  return isAmong;
}

}  // namespace

std::vector<PropertyTrio> PropertiesOf(const Properties& base, const Properties& mine, const Properties& theirs) {
  const auto mineInBase = Matches(mine, base), mineInTheirs = Matches(mine, theirs),
             baseInTheirs = Matches(base, theirs);
  const std::vector<bool> isBaseInMine = Among(mineInBase, base), isTheirsInMine = Among(mineInTheirs, theirs),
                          isTheirsInBase = Among(baseInTheirs, theirs);
  std::vector<PropertyTrio> all;
  all.reserve(mine.size() + 1);
  for (std::size_t i = 0; i < mine.size(); ++i) all.push_back({mineInBase[i], &mine[i], mineInTheirs[i]});
  for (std::size_t i = 0; i < base.size(); ++i) {
    if (!isBaseInMine[i]) all.push_back({&base[i], nullptr, baseInTheirs[i]});
  }
  for (std::size_t i = 0; i < theirs.size(); ++i) {
    if (!isTheirsInMine[i] && !isTheirsInBase[i]) all.push_back({nullptr, nullptr, &theirs[i]});
  }
  return all;
}

}  // namespace formwizard::merge
