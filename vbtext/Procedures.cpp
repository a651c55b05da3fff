#include "vbtext/Procedures.h"

#include "vbtext/Lines.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace formwizard::vbtext {
namespace {

using Sections = std::vector<const Section*>;

bool HasNameOf(const Section& a, const Section& b) {
  return a.Branch == b.Branch && IsSameName(a.Word, b.Word) && IsSameName(a.Name, b.Name);
}

// From that one on. Another one of the same name is its second.
std::vector<std::string> NamesOf(const Sections& sections, std::size_t from) {
  std::vector<std::string> names(from);
  std::unordered_map<std::string, std::size_t> counts;
  for (std::size_t i = from; i < sections.size(); ++i) {
    std::string name = sections[i]->Branch + Folded(sections[i]->Word) + " " + Folded(sections[i]->Name);
    const std::size_t nth = counts[name]++;
    names.push_back(name + " " + std::to_string(nth));
  }
  return names;
}

// The lines without the one that names it; empty when that leaves no more than "End Sub".
std::string BodyOf(const Section& section, const std::vector<Line>& lines, LineKeys& keys) {
  if (section.Body.Count() < 3) return "";
  std::string text = section.Branch;
  const std::vector<LineKey> body = keys.Of(lines, section.Body);
  for (std::size_t i = 1; i < body.size(); ++i) {
    if (body[i] != EmptyLine) text += " " + std::to_string(body[i]);
  }
  return text;
}

class Matcher {
 public:
  Matcher(const Procedures& a, const Procedures& b, LineKeys& keys)
      : a_(a), b_(b), keys_(keys), matches_(a.All.size(), None), isTaken_(b.All.size(), false) {}

  std::vector<std::size_t> Run() {
    // Those at the beginning that both have, as they mostly have all.
    std::size_t same = 0;
    for (; same < std::min(a_.All.size(), b_.All.size()) && HasNameOf(*a_.All[same], *b_.All[same]); ++same) {
      Take(same, same);
    }
    TakeByName(same);
    TakeByBody();
    return std::move(matches_);
  }

 private:
  void Take(std::size_t a, std::size_t b) {
    matches_[a] = b;
    isTaken_[b] = true;
  }

  void TakeByName(std::size_t from) {
    std::unordered_map<std::string, std::size_t> byName;
    const std::vector<std::string> namesA = NamesOf(a_.All, from), namesB = NamesOf(b_.All, from);
    for (std::size_t i = from; i < namesB.size(); ++i) byName.emplace(namesB[i], i);
    for (std::size_t i = from; i < namesA.size(); ++i) {
      const auto found = byName.find(namesA[i]);
      if (found != byName.end()) Take(i, found->second);
    }
  }

  void TakeByBody() {
    struct Seen {
      std::size_t CountA = 0, CountB = 0, B = None;
    };
    std::unordered_map<std::string, Seen> bodies;
    for (std::size_t i = 0; i < b_.All.size(); ++i) {
      if (isTaken_[i]) continue;
      Seen& seen = bodies[BodyOf(*b_.All[i], b_.Lines, keys_)];
      ++seen.CountB;
      seen.B = i;
    }
    if (bodies.empty()) return;
    std::vector<std::string> bodiesOfA(a_.All.size());
    for (std::size_t i = 0; i < a_.All.size(); ++i) {
      if (matches_[i] != None) continue;
      bodiesOfA[i] = BodyOf(*a_.All[i], a_.Lines, keys_);
      ++bodies[bodiesOfA[i]].CountA;
    }
    for (std::size_t i = 0; i < a_.All.size(); ++i) {
      if (matches_[i] != None || bodiesOfA[i].empty()) continue;
      const Seen& seen = bodies[bodiesOfA[i]];
      if (seen.CountA == 1 && seen.CountB == 1) matches_[i] = seen.B;
    }
  }

  const Procedures &a_, &b_;
  LineKeys& keys_;
  std::vector<std::size_t> matches_;
  std::vector<bool> isTaken_;
};

}  // namespace

std::vector<std::size_t> MatchProcedures(const Procedures& a, const Procedures& b, LineKeys& keys) {
  return Matcher(a, b, keys).Run();
}

}  // namespace formwizard::vbtext
