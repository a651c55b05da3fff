#include "merge/CodeMerge.h"

#include "merge/Diff3.h"
#include "merge/Sequence.h"
#include "vbtext/LineKeys.h"
#include "vbtext/Procedures.h"
#include "vbtext/Tokens.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

using vbtext::Document;
using vbtext::LineKey;
using vbtext::LineRange;
using vbtext::None;
using vbtext::Section;
using vbtext::SectionKind;

// A text as lines with their keys.
struct Keyed {
  std::vector<vbtext::Line> Lines;
  std::vector<LineKey> Keys;

  Keyed(std::string_view text, vbtext::LineKeys& keys) : Lines(vbtext::LinesOf(text)), Keys(keys.Of(Lines)) {}
  std::string_view Text(LineRange range) const { return TextOf(Lines, range); }
};

void WriteHunks(const Keyed& base, const Keyed& mine, const Keyed& theirs, const std::string& name, Output& output) {
  for (const Hunk& hunk : Diff3(base.Keys, mine.Keys, theirs.Keys)) {
    if (hunk.Kind == HunkKind::OfTheirs) {
      output.AddTheirs(theirs.Text(hunk.Theirs));
    } else if (hunk.Kind == HunkKind::Conflict) {
      output.AddConflict(name, mine.Text(hunk.Mine), base.Text(hunk.Base), theirs.Text(hunk.Theirs));
    } else {
      output.AddMine(mine.Text(hunk.Mine));
    }
  }
}

// One of the three modules, as declarations, procedures and what stands behind the last of them.
class Side {
 public:
  Side(const Document& document, vbtext::LineKeys& keys) : document_(document) {
    for (const Section& section : document.Code.Sections) {
      const bool isProcedure = section.Kind == SectionKind::Procedure;
      (isProcedure ? Procedures : Procedures.empty() ? Declarations : Tail).push_back(&section);
    }
    for (const Section* section : Declarations) DeclarationKeys.push_back(KeyOf(*section, keys));
  }

  std::string_view Text(const Section& section) const { return TextOf(document_.Lines, section.Lines); }
  std::string_view Text(const std::vector<const Section*>& sections, LineRange range) const {
    if (range.Count() == 0) return {};
    return TextOf(document_.Lines, {sections[range.First]->Lines.First, sections[range.Behind - 1]->Lines.Behind});
  }
  std::string_view Text(const std::vector<const Section*>& sections) const {
    return Text(sections, {0, sections.size()});
  }
  const std::vector<vbtext::Line>& Lines() const { return document_.Lines; }

  std::vector<const Section*> Declarations, Procedures, Tail;
  std::vector<LineKey> DeclarationKeys;

 private:
  LineKey KeyOf(const Section& section, vbtext::LineKeys& keys) const {
    std::string text;
    for (const LineKey key : keys.Of(document_.Lines, section.Lines)) {
      if (key != vbtext::EmptyLine) text += std::to_string(key) + " ";
    }
    return keys.OfExact(text);
  }

  const Document& document_;
};

std::string NameOf(const Section& section) { return std::string(section.Word) + " " + std::string(section.Name); }

class CodeMerger {
 public:
  CodeMerger(const Documents& documents, Output& output)
      : documents_(documents),
        base_(documents.Base, keys_),
        mine_(documents.Mine, keys_),
        theirs_(documents.Theirs, keys_),
        output_(output) {}

  void Run() {
    const bool areOrdered =
        IsOrdered(documents_.Base.Code) && IsOrdered(documents_.Mine.Code) && IsOrdered(documents_.Theirs.Code);
    if (!areOrdered || !Number()) return MergeAllLines();
    MergeDeclarations();
    MergeProcedures();
    MergeLines(base_.Text(base_.Tail), mine_.Text(mine_.Tail), theirs_.Text(theirs_.Tail), "the end of the code",
               output_);
  }

 private:
  static std::string_view CodeOf(const Document& document) { return TextOf(document.Lines, document.CodeLines); }

  void MergeAllLines() {
    MergeLines(CodeOf(documents_.Base), CodeOf(documents_.Mine), CodeOf(documents_.Theirs), "code", output_);
  }

  void MergeDeclarations() {
    Added addedByMine;
    const std::unordered_set<LineKey> ofBase(base_.DeclarationKeys.begin(), base_.DeclarationKeys.end());
    for (std::size_t i = 0; i < mine_.Declarations.size(); ++i) {
      if (ofBase.contains(mine_.DeclarationKeys[i])) continue;
      addedByMine.Keys.insert(mine_.DeclarationKeys[i]);
      addedByMine.ByName.emplace(vbtext::Folded(mine_.Declarations[i]->Name), mine_.DeclarationKeys[i]);
    }
    for (const Hunk& hunk : Diff3(base_.DeclarationKeys, mine_.DeclarationKeys, theirs_.DeclarationKeys)) {
      if (hunk.Kind == HunkKind::Conflict && hunk.Base.Count() > 0) {
        MergeChanged(hunk, addedByMine);
      } else {
        MergeHunk(hunk, addedByMine);
      }
    }
  }

  // The declarations that mine has and base has not.
  struct Added {
    std::unordered_map<std::string, LineKey> ByName;
    std::unordered_set<LineKey> Keys;
  };

  void MergeHunk(const Hunk& hunk, const Added& addedByMine) {
    const std::string_view mine = mine_.Text(mine_.Declarations, hunk.Mine);
    const std::string_view base = base_.Text(base_.Declarations, hunk.Base);
    const std::string_view theirs = theirs_.Text(theirs_.Declarations, hunk.Theirs);
    const bool comes = hunk.Kind == HunkKind::OfTheirs || hunk.Kind == HunkKind::Conflict;
    if (!comes) {
      output_.AddMine(mine);
    } else if (IsDeclaredByBoth(hunk.Theirs, addedByMine)) {
      output_.AddConflict("declarations", mine, base, theirs);
    } else if (hunk.Kind == HunkKind::OfTheirs) {
      output_.AddTheirs(theirs);
    } else if (hunk.Base.Count() == 0) {
      output_.AddMine(mine);
      AddNewOnes(hunk.Theirs, addedByMine);
    } else {
      MergeText(base, mine, theirs, "declarations");
    }
  }

  // Declarations that all three have by name are merged one by one, as a Type in which both sides changed a member.
  void MergeChanged(const Hunk& changed, const Added& addedByMine) {
    const std::vector<LineKey> base = NamesIn(base_, changed.Base), mine = NamesIn(mine_, changed.Mine),
                               theirs = NamesIn(theirs_, changed.Theirs);
    for (Hunk hunk : Diff3(base, mine, theirs)) {
      const auto shift = [](LineRange& range, LineRange by) {
        range = {range.First + by.First, range.Behind + by.First};
      };
      shift(hunk.Base, changed.Base);
      shift(hunk.Mine, changed.Mine);
      shift(hunk.Theirs, changed.Theirs);
      if (hunk.Kind == HunkKind::Same) {
        for (std::size_t i = 0; i < hunk.Base.Count(); ++i) {
          const Section& section = *mine_.Declarations[hunk.Mine.First + i];
          MergeText(base_.Text(*base_.Declarations[hunk.Base.First + i]), mine_.Text(section),
                    theirs_.Text(*theirs_.Declarations[hunk.Theirs.First + i]),
                    section.Name.empty() ? "declarations" : "declaration " + NameOf(section));
        }
      } else {
        // Names say nothing of what stands in a declaration that the other side took out.
        hunk.Kind = HunkKind::Conflict;
        MergeHunk(hunk, addedByMine);
      }
    }
  }

  // The declarations by name; what has none is what it says, also without a line.
  std::vector<LineKey> NamesIn(const Side& side, LineRange range) {
    std::vector<LineKey> names;
    for (std::size_t i = range.First; i < range.Behind; ++i) {
      const Section& section = *side.Declarations[i];
      names.push_back(keys_.OfExact(section.Name.empty() ? "\n" + std::to_string(side.DeclarationKeys[i])
                                                         : "\n" + vbtext::Folded(NameOf(section))));
    }
    return names;
  }

  // Whether mine declares a name of theirs, too, and otherwise.
  bool IsDeclaredByBoth(LineRange theirs, const Added& addedByMine) const {
    for (std::size_t i = theirs.First; i < theirs.Behind; ++i) {
      const Section& section = *theirs_.Declarations[i];
      if (section.Name.empty()) continue;
      const auto found = addedByMine.ByName.find(vbtext::Folded(section.Name));
      if (found != addedByMine.ByName.end() && found->second != theirs_.DeclarationKeys[i]) return true;
    }
    return false;
  }

  void AddNewOnes(LineRange theirs, const Added& addedByMine) {
    for (std::size_t i = theirs.First; i < theirs.Behind; ++i) {
      const LineKey key = theirs_.DeclarationKeys[i];
      if (key != vbtext::EmptyLine && !addedByMine.Keys.contains(key))
        output_.AddTheirs(theirs_.Text(*theirs_.Declarations[i]));
    }
  }

  // Gives the same procedure one number on all sides; false when two of a side would have the same one.
  bool Number() {
    const vbtext::Procedures base{base_.Procedures, base_.Lines()}, mine{mine_.Procedures, mine_.Lines()},
        theirs{theirs_.Procedures, theirs_.Lines()};
    const auto inMine = MatchProcedures(base, mine, keys_), inTheirs = MatchProcedures(base, theirs, keys_);
    ofMine_.assign(mine_.Procedures.size(), 0);
    ofTheirs_.assign(theirs_.Procedures.size(), 0);
    things_.assign(1, {});  // 0 is none
    for (std::size_t i = 0; i < base_.Procedures.size(); ++i) {
      const auto number = static_cast<std::uint32_t>(things_.size());
      things_.push_back({base_.Procedures[i], nullptr, nullptr});
      if (inMine[i] != None) {
        things_.back().Mine = mine_.Procedures[inMine[i]];
        ofMine_[inMine[i]] = number;
      }
      if (inTheirs[i] != None) {
        things_.back().Theirs = theirs_.Procedures[inTheirs[i]];
        ofTheirs_[inTheirs[i]] = number;
      }
      ofBase_.push_back(number);
    }
    return NumberNewOnes();
  }

  bool NumberNewOnes() {
    std::unordered_map<std::string, std::uint32_t> numbers;
    for (std::size_t i = 0; i < ofMine_.size(); ++i) {
      if (ofMine_[i] != 0) continue;
      ofMine_[i] = static_cast<std::uint32_t>(things_.size());
      things_.push_back({nullptr, mine_.Procedures[i], nullptr});
      if (!numbers.emplace(KeyOf(*mine_.Procedures[i]), ofMine_[i]).second) return false;
    }
    for (std::size_t i = 0; i < ofTheirs_.size(); ++i) {
      if (ofTheirs_[i] != 0) continue;
      const auto [found, isNew] =
          numbers.emplace(KeyOf(*theirs_.Procedures[i]), static_cast<std::uint32_t>(things_.size()));
      ofTheirs_[i] = found->second;
      if (isNew) {
        things_.push_back({nullptr, nullptr, theirs_.Procedures[i]});
      } else if (things_[found->second].Theirs) {
        return false;
      } else {
        things_[found->second].Theirs = theirs_.Procedures[i];
      }
    }
    return HasEachNameOnce();
  }

  static std::string KeyOf(const Section& section) {
    return section.Branch + vbtext::Folded(section.Word) + " " + vbtext::Folded(section.Name);
  }

  // A name that one side gave to an old procedure and the other to a new one.
  bool HasEachNameOnce() const {
    std::unordered_map<std::string, std::size_t> names;
    for (std::size_t i = 1; i < things_.size(); ++i) {
      const Thing& thing = things_[i];
      const bool isGone = thing.Base && (!thing.Mine || !thing.Theirs);
      for (const Section* section : {thing.Mine, thing.Theirs}) {
        if (isGone || !section) continue;
        if (names.emplace(KeyOf(*section), i).first->second != i) return false;
      }
    }
    return true;
  }

  void MergeProcedures() {
    const std::optional<Row> order = MergedOrder(ofBase_, ofMine_, ofTheirs_);
    if (!order) {
      output_.AddConflict("order of procedures", mine_.Text(mine_.Procedures), base_.Text(base_.Procedures),
                          theirs_.Text(theirs_.Procedures));
      return;
    }
    for (const std::uint32_t number : *order) MergeProcedure(things_[number]);
  }

  struct Thing {
    const Section* Base;
    const Section* Mine;
    const Section* Theirs;
  };

  void MergeText(std::string_view base, std::string_view mine, std::string_view theirs, const std::string& name) {
    if (base == theirs) return output_.AddMine(mine);
    WriteHunks({base, keys_}, {mine, keys_}, {theirs, keys_}, name, output_);
  }

  void MergeProcedure(const Thing& thing) {
    if (!thing.Mine && !thing.Theirs) return;  // both took it out
    const std::string_view base = thing.Base ? base_.Text(*thing.Base) : std::string_view();
    const std::string_view mine = thing.Mine ? mine_.Text(*thing.Mine) : std::string_view();
    const std::string_view theirs = thing.Theirs ? theirs_.Text(*thing.Theirs) : std::string_view();
    const std::string name = "procedure " + NameOf(thing.Mine ? *thing.Mine : *thing.Theirs);
    if (thing.Mine && thing.Theirs) {
      if (thing.Base) return MergeText(base, mine, theirs, name);
      // Added on both sides.
      return IsSame(mine, theirs) ? output_.AddMine(mine) : output_.AddConflict(name, mine, base, theirs);
    }
    if (!thing.Base) return thing.Mine ? output_.AddMine(mine) : output_.AddTheirs(theirs);
    if (!IsSame(base, thing.Mine ? mine : theirs)) output_.AddConflict(name, mine, base, theirs);
  }

  bool IsSame(std::string_view a, std::string_view b) {
    std::vector<LineKey> ofA = keys_.Of(vbtext::LinesOf(a)), ofB = keys_.Of(vbtext::LinesOf(b));
    std::erase(ofA, vbtext::EmptyLine);
    std::erase(ofB, vbtext::EmptyLine);
    return ofA == ofB;
  }

  const Documents& documents_;
  vbtext::LineKeys keys_;
  Side base_, mine_, theirs_;
  Output& output_;
  std::vector<Thing> things_;  // by number
  Row ofBase_, ofMine_, ofTheirs_;
};

}  // namespace

void MergeLines(std::string_view base, std::string_view mine, std::string_view theirs, const std::string& name,
                Output& output) {
  vbtext::LineKeys keys;
  const Keyed ofBase(base, keys), ofMine(mine, keys), ofTheirs(theirs, keys);
  WriteHunks(ofBase, ofMine, ofTheirs, name, output);
}

bool IsOrdered(const vbtext::Module& code) {
  bool isHead = true, isTail = false;
  for (const Section& section : code.Sections) {
    const bool isProcedure = section.Kind == SectionKind::Procedure;
    if (section.Kind == SectionKind::Directive || (isProcedure && isTail)) return false;
    if (section.Kind == SectionKind::Declaration && !isHead) return false;
    isHead = isHead && !isProcedure;
    isTail = !isHead && !isProcedure;
  }
  return !code.Wrong;
}

void MergeCode(const Documents& documents, Output& output) { CodeMerger(documents, output).Run(); }

}  // namespace formwizard::merge
