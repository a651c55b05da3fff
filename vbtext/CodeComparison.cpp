#include "vbtext/Differences.h"

#include "vbtext/Alignment.h"
#include "vbtext/LineKeys.h"
#include "vbtext/Procedures.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace formwizard::vbtext {
namespace {

class CodeComparison {
 public:
  CodeComparison(const Document& a, const Document& b, Differences& differences)
      : a_(a), b_(b), keysA_(KeysOf(a, keys_)), keysB_(KeysOf(b, keys_)), differences_(differences) {}

  void Run() {
    CompareRest();
    CompareProcedures();
  }

 private:
  struct Side {
    const Document& File;
    const std::vector<LineKey>& Keys;
  };

  // By line; only of the code.
  static std::vector<LineKey> KeysOf(const Document& file, LineKeys& keys) {
    std::vector<LineKey> all(file.CodeLines.First, EmptyLine);
    const std::vector<LineKey> ofCode = keys.Of(file.Lines, file.CodeLines);
    all.insert(all.end(), ofCode.begin(), ofCode.end());
    return all;
  }

  // The lines of a range that are not empty.
  static std::vector<LineKey> KeysIn(const std::vector<LineKey>& keys, LineRange lines) {
    std::vector<LineKey> in;
    std::copy_if(keys.begin() + static_cast<std::ptrdiff_t>(lines.First),
                 keys.begin() + static_cast<std::ptrdiff_t>(lines.Behind), std::back_inserter(in),
                 [](LineKey key) { return key != EmptyLine; });
    return in;
  }

  // All lines of a section as one key, with the branch that it stands in.
  LineKey SectionKey(const Section& section, const std::vector<LineKey>& keys) {
    std::string text = section.Branch;
    for (const LineKey key : KeysIn(keys, section.Lines)) text += " " + std::to_string(key);
    return keys_.OfExact(text);
  }

  static std::string_view WhatOf(const Section& section) {
    if (section.Kind == SectionKind::Remark) return "comment";
    return section.Kind == SectionKind::Directive ? "directive" : "declaration";
  }
  static std::string NameOfSection(const Section& section) {
    std::string name(section.Word);
    if (!section.Name.empty()) name += (name.empty() ? "" : " ") + std::string(section.Name);
    return section.Kind == SectionKind::Directive ? "#" + name : name;
  }

  struct Rest {
    std::vector<const Section*> Sections;
    std::vector<LineKey> Keys;
  };
  // All but procedures and empty lines.
  Rest RestOf(const Document& file, const std::vector<LineKey>& keys) {
    Rest rest;
    for (const Section& section : file.Code.Sections) {
      if (section.Kind == SectionKind::Procedure || KeysIn(keys, section.Lines).empty()) continue;
      rest.Sections.push_back(&section);
      rest.Keys.push_back(SectionKey(section, keys));
    }
    return rest;
  }

  void CompareRest() {
    const Rest a = RestOf(a_, keysA_), b = RestOf(b_, keysB_);
    std::vector<Pair> pairs = Align(a.Keys, b.Keys);
    pairs.push_back({a.Sections.size(), b.Sections.size()});
    std::size_t fromA = 0, fromB = 0;
    for (const Pair& pair : pairs) {
      CompareGap(std::span(a.Sections).subspan(fromA, pair.A - fromA),
                 std::span(b.Sections).subspan(fromB, pair.B - fromB));
      fromA = pair.A + 1;
      fromB = pair.B + 1;
    }
  }

  // By which the sections of a gap find each other; empty for one that finds none.
  static std::string KeyInGap(const Section& section) {
    if (section.Name.empty() && section.Kind != SectionKind::Remark) return {};
    return std::to_string(static_cast<int>(section.Kind)) + " " + Folded(section.Name);
  }

  // Sections between two that are equal: one of the same name is the same one, changed.
  void CompareGap(std::span<const Section* const> a, std::span<const Section* const> b) {
    std::unordered_map<std::string, std::deque<std::size_t>> unmatched;
    for (std::size_t i = 0; i < b.size(); ++i) unmatched[KeyInGap(*b[i])].push_back(i);
    std::vector<bool> isMatched(b.size(), false);
    for (const Section* section : a) {
      const std::string key = KeyInGap(*section);
      const auto same = unmatched.find(key);
      if (key.empty() || same == unmatched.end() || same->second.empty()) {
        differences_.AddOneSided(WhatOf(*section), NameOfSection(*section), section->Lines, true);
        continue;
      }
      const std::size_t match = same->second.front();
      same->second.pop_front();
      isMatched[match] = true;
      differences_.Add(Change::Changed, WhatOf(*section), NameOfSection(*section), section->Lines, b[match]->Lines);
    }
    for (std::size_t i = 0; i < b.size(); ++i) {
      if (!isMatched[i]) differences_.AddOneSided(WhatOf(*b[i]), NameOfSection(*b[i]), b[i]->Lines, false);
    }
  }

  using Sections = std::vector<const Section*>;
  static Sections ProceduresOf(const Document& file) {
    Sections procedures;
    for (const Section& section : file.Code.Sections) {
      if (section.Kind == SectionKind::Procedure) procedures.push_back(&section);
    }
    return procedures;
  }

  void CompareProcedures() {
    const Sections a = ProceduresOf(a_), b = ProceduresOf(b_);
    const std::vector<std::size_t> matches = MatchProcedures({a, a_.Lines}, {b, b_.Lines}, keys_);
    std::vector<bool> isInA(b.size(), false);
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i < a.size(); ++i) {
      if (matches[i] == None) {
        differences_.AddOneSided("procedure", NameOfSection(*a[i]), a[i]->Body, true);
        continue;
      }
      pairs.push_back({i, matches[i]});
      isInA[matches[i]] = true;
      CompareProcedure(*a[i], *b[matches[i]]);
    }
    for (std::size_t i = 0; i < b.size(); ++i) {
      if (!isInA[i]) differences_.AddOneSided("procedure", NameOfSection(*b[i]), b[i]->Body, false);
    }
    CompareOrder(a, b, pairs);
  }

  void CompareProcedure(const Section& a, const Section& b) {
    if (IsSameName(a.Name, b.Name) && IsSameName(a.Word, b.Word)) {
      CompareBodies(a, b);
    } else {
      differences_.Add(Change::Renamed, "procedure", NameOfSection(a) + " to " + NameOfSection(b), a.Body, b.Body);
    }
  }

  // The lines from the first that differs to the last.
  void CompareBodies(const Section& a, const Section& b) {
    const std::vector<LineKey> ofA = KeysIn(keysA_, a.Lines), ofB = KeysIn(keysB_, b.Lines);
    if (ofA == ofB) return;
    LineRange linesA = a.Lines, linesB = b.Lines;
    const auto skipEmpty = [&] {
      while (linesA.Count() > 0 && keysA_[linesA.First] == EmptyLine) ++linesA.First;
      while (linesB.Count() > 0 && keysB_[linesB.First] == EmptyLine) ++linesB.First;
    };
    for (skipEmpty(); linesA.Count() > 0 && linesB.Count() > 0 && keysA_[linesA.First] == keysB_[linesB.First];
         skipEmpty()) {
      ++linesA.First;
      ++linesB.First;
    }
    const auto skipEmptyBehind = [&] {
      while (linesA.Count() > 0 && keysA_[linesA.Behind - 1] == EmptyLine) --linesA.Behind;
      while (linesB.Count() > 0 && keysB_[linesB.Behind - 1] == EmptyLine) --linesB.Behind;
    };
    for (skipEmptyBehind();
         linesA.Count() > 0 && linesB.Count() > 0 && keysA_[linesA.Behind - 1] == keysB_[linesB.Behind - 1];
         skipEmptyBehind()) {
      --linesA.Behind;
      --linesB.Behind;
    }
    differences_.Add(Change::Changed, "procedure", NameOfSection(b), linesA, linesB);
  }

  void CompareOrder(const Sections& a, const Sections& b, const std::vector<Pair>& pairs) {
    const std::vector<Pair> stayed = LongestAscending(pairs);
    auto next = stayed.begin();
    for (const Pair& pair : pairs) {
      if (next != stayed.end() && next->A == pair.A) {
        ++next;
      } else {
        differences_.Add(Change::Moved, "procedure", NameOfSection(*a[pair.A]), a[pair.A]->Body, b[pair.B]->Body);
      }
    }
  }

  const Document& a_;
  const Document& b_;
  LineKeys keys_;
  std::vector<LineKey> keysA_, keysB_;
  Differences& differences_;
};

}  // namespace

void CompareCode(const Document& a, const Document& b, Differences& differences) {
  CodeComparison(a, b, differences).Run();
}

}  // namespace formwizard::vbtext
