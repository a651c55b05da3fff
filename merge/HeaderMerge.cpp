#include "merge/HeaderMerge.h"

#include "merge/CodeMerge.h"
#include "merge/Sequence.h"
#include "vbtext/Companion.h"
#include "vbtext/Controls.h"
#include "vbtext/Tokens.h"
#include "vbtext/Values.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

using vbtext::HeaderNode;
using vbtext::HeaderProperty;
using vbtext::Line;

bool IsOneOf(std::string_view name, auto... names) { return (vbtext::IsSameName(name, names) || ...); }

// What keeps mine when both sides changed it, with a note.
bool IsPlace(std::string_view property) {
  return IsOneOf(property, "Left", "Top", "Width", "Height", "ClientLeft", "ClientTop", "ClientWidth", "ClientHeight",
                 "ScaleWidth", "ScaleHeight");
}

// The same control on the three sides; null where it is not.
struct Trio {
  const HeaderNode* Base = nullptr;
  const HeaderNode* Mine = nullptr;
  const HeaderNode* Theirs = nullptr;
};

struct PropertyTrio {
  const HeaderProperty* Base = nullptr;
  const HeaderProperty* Mine = nullptr;
  const HeaderProperty* Theirs = nullptr;
};

bool IsReference(const HeaderProperty* property) { return property && vbtext::ReferenceIn(property->Value); }

// Offsets into a companion file say nothing without it, and it comes whole from one side.
enum class Whose { Mine, Theirs, Both };

void CollectReferences(const HeaderNode& node, std::string& text) {
  for (const HeaderProperty& property : node.Properties) {
    const std::optional<vbtext::CompanionReference> reference = vbtext::ReferenceIn(property.Value);
    if (reference) text += vbtext::Folded(reference->File) + ":" + std::to_string(reference->Offset) + "\n";
  }
  for (const HeaderNode& child : node.Children) CollectReferences(child, text);
}

std::string ReferencesIn(const vbtext::Document& document) {
  std::string text;
  CollectReferences(*document.Root, text);
  return text;
}

Whose WhoseReferences(const Documents& documents) {
  const std::string base = ReferencesIn(documents.Base), mine = ReferencesIn(documents.Mine),
                    theirs = ReferencesIn(documents.Theirs);
  if (base == theirs || mine == theirs) return Whose::Mine;
  return base == mine ? Whose::Theirs : Whose::Both;
}

// A control is known in its container by its name and index, else, renamed, by what it is.
std::vector<std::size_t> MatchChildren(const HeaderNode& a, const HeaderNode& b) {
  const auto rowOf = [](const HeaderNode& node) {
    std::vector<vbtext::Control> row{{&node, vbtext::None, ""}};
    for (const HeaderNode& child : node.Children) row.push_back({&child, 0, vbtext::Folded(vbtext::NameOf(child))});
    return row;
  };
  return vbtext::MatchControls(rowOf(a), rowOf(b));
}

class TreeMerger {
 public:
  TreeMerger(const Documents& documents, Output& output)
      : documents_(documents),
        output_(output),
        referencesOf_(WhoseReferences(documents)),
        base_(*documents.Base.Root, std::nullopt),
        mine_(*documents.Mine.Root, std::nullopt),
        theirs_(*documents.Theirs.Root, std::nullopt) {}

  void Run() { MergeNode({&*documents_.Base.Root, &*documents_.Mine.Root, &*documents_.Theirs.Root}); }

 private:
  static std::string_view TextIn(const vbtext::Document& document, const auto* part) {
    return part ? TextOf(document.Lines, part->Lines) : std::string_view();
  }
  std::string_view OfBase(const auto* part) const { return TextIn(documents_.Base, part); }
  std::string_view OfMine(const auto* part) const { return TextIn(documents_.Mine, part); }
  std::string_view OfTheirs(const auto* part) const { return TextIn(documents_.Theirs, part); }

  void Conflict(const Trio& node) {
    output_.AddConflict("control " + vbtext::NameOf(node.Mine ? *node.Mine : *node.Theirs), OfMine(node.Mine),
                        OfBase(node.Base), OfTheirs(node.Theirs));
  }

  // A control that only one side still has, and only the base had before.
  bool IsUntouched(const Trio& node) const {
    const bool isOfMine = node.Mine != nullptr;
    return IsSameTree(*node.Base, base_, isOfMine ? *node.Mine : *node.Theirs, isOfMine ? mine_ : theirs_);
  }

  static bool IsSameTree(const HeaderNode& a, const vbtext::Companion& recordsA, const HeaderNode& b,
                         const vbtext::Companion& recordsB) {
    if (!vbtext::IsSameName(a.Class, b.Class) || !vbtext::IsSameName(vbtext::NameOf(a), vbtext::NameOf(b)))
      return false;
    if (a.Children.size() != b.Children.size()) return false;
    for (const auto& [name, property] : PropertiesOf({&a, &b, nullptr})) {
      const bool refers = IsReference(property.Base) && IsReference(property.Mine);
      const bool isTabIndex = vbtext::IsTabIndex((property.Base ? property.Base : property.Mine)->Name);
      if (!refers && !isTabIndex && !IsSame(property.Base, {a, recordsA}, property.Mine, {b, recordsB})) return false;
    }
    for (std::size_t i = 0; i < a.Children.size(); ++i) {
      if (!IsSameTree(a.Children[i], recordsA, b.Children[i], recordsB)) return false;
    }
    return true;
  }

  void MergeNode(const Trio& node) {
    std::map<std::string, PropertyTrio> properties = PropertiesOf(node);
    std::optional<Row> order;
    std::vector<Trio> children = ChildrenOf(node, order);
    if (!order || IsConflict(node) || std::ranges::any_of(properties, [&](const auto& property) {
          return OwnerOf(property.second, node) == Owner::Nobody;
        })) {
      return Conflict(node);
    }
    const bool isRenamed = vbtext::IsSameName(node.Mine->Name, node.Base->Name) &&
                           vbtext::IsSameName(node.Mine->Class, node.Base->Class) &&
                           !(vbtext::IsSameName(node.Theirs->Name, node.Base->Name) &&
                             vbtext::IsSameName(node.Theirs->Class, node.Base->Class));
    if (isRenamed) {
      output_.AddTheirs(documents_.Theirs.Lines[node.Theirs->Lines.First].Whole());
    } else {
      output_.AddMine(documents_.Mine.Lines[node.Mine->Lines.First].Whole());
    }
    WriteProperties(node, properties);
    for (const std::uint32_t child : *order) MergeChild(children[child]);
    output_.AddMine(documents_.Mine.Lines[node.Mine->Lines.Behind - 1].Whole());
  }

  // Name and class, which are one line.
  static bool IsConflict(const Trio& node) {
    const auto id = [](const HeaderNode& n) { return vbtext::Folded(n.Class) + " " + vbtext::Folded(n.Name); };
    const std::string base = id(*node.Base), mine = id(*node.Mine), theirs = id(*node.Theirs);
    return mine != theirs && base != mine && base != theirs;
  }

  static std::map<std::string, PropertyTrio> PropertiesOf(const Trio& node) {
    std::map<std::string, PropertyTrio> all;
    const auto collect = [&](const HeaderNode& of, const HeaderProperty* PropertyTrio::*side) {
      std::unordered_map<std::string, std::size_t> counts;
      for (const HeaderProperty& property : of.Properties) {
        std::string name = vbtext::Folded(property.Name);
        const std::size_t nth = counts[name]++;  // a header may hold a property twice
        if (nth > 0) name += "\n" + std::to_string(nth);
        all[name].*side = &property;
      }
    };
    if (node.Base) collect(*node.Base, &PropertyTrio::Base);
    if (node.Mine) collect(*node.Mine, &PropertyTrio::Mine);
    if (node.Theirs) collect(*node.Theirs, &PropertyTrio::Theirs);
    return all;
  }

  enum class Owner { Mine, Theirs, MineWithNote, Nobody };

  // Whose line stands in the result.
  Owner OwnerOf(const PropertyTrio& property, const Trio& node) const {
    // What it is to be in the end is found from the order of all.
    if (property.Mine && vbtext::IsTabIndex(property.Mine->Name)) return Owner::Mine;
    const vbtext::Side base{*node.Base, base_}, mine{*node.Mine, mine_}, theirs{*node.Theirs, theirs_};
    if (IsReference(property.Base) || IsReference(property.Mine) || IsReference(property.Theirs)) {
      return OwnerOfReference(property);
    }
    if (output_.Chosen().TakesSmallMoves && IsMovedByTheirs(property) &&
        IsSame(property.Base, base, property.Mine, mine)) {
      return Owner::Theirs;
    }
    if (IsSame(property.Mine, mine, property.Theirs, theirs) || IsSame(property.Base, base, property.Theirs, theirs)) {
      return Owner::Mine;
    }
    if (IsSame(property.Base, base, property.Mine, mine)) return Owner::Theirs;
    const std::string_view name = (property.Mine ? property.Mine : property.Theirs)->Name;
    if (vbtext::IsDerived(name, *node.Mine)) return Owner::Mine;
    return IsPlace(name) && property.Mine && property.Theirs ? Owner::MineWithNote : Owner::Nobody;
  }

  static bool IsMovedByTheirs(const PropertyTrio& property) {
    return property.Base && property.Mine && property.Theirs && IsPlace(property.Mine->Name) &&
           property.Base->Value != property.Theirs->Value;
  }

  Owner OwnerOfReference(const PropertyTrio& property) const {
    if (referencesOf_ == Whose::Mine) return Owner::Mine;
    if (referencesOf_ == Whose::Theirs) return Owner::Theirs;
    const bool isSame = property.Mine && property.Theirs && property.Mine->Value == property.Theirs->Value;
    return isSame ? Owner::Mine : Owner::Nobody;
  }

  // One that says what would be so without it is as good as not there.
  static bool IsSame(const HeaderProperty* a, const vbtext::Side& ofA, const HeaderProperty* b,
                     const vbtext::Side& ofB) {
    if (a && b) return IsSameProperty(*a, ofA, *b, ofB);
    if (!a && !b) return true;
    return a ? vbtext::IsLeftOut(*a, ofA.Control) : vbtext::IsLeftOut(*b, ofB.Control);
  }

  // Mine's in their order, and each of theirs before the first one behind it in the alphabet.
  void WriteProperties(const Trio& node, std::map<std::string, PropertyTrio>& properties) {
    std::vector<std::pair<std::string, const HeaderProperty*>> added;  // by name, which the map has in order
    std::unordered_map<const HeaderProperty*, const PropertyTrio*> ofMine;
    for (const auto& [name, property] : properties) {
      if (property.Mine) {
        ofMine.emplace(property.Mine, &property);
      } else if (OwnerOf(property, node) == Owner::Theirs) {
        added.emplace_back(name, property.Theirs);
      }
    }
    auto next = added.begin();
    for (const HeaderProperty& property : node.Mine->Properties) {
      for (; next != added.end() && next->first < vbtext::Folded(property.Name); ++next) {
        output_.AddTheirs(OfTheirs(next->second));
      }
      WriteProperty(*ofMine.at(&property), node);
    }
    for (; next != added.end(); ++next) output_.AddTheirs(OfTheirs(next->second));
  }

  void WriteProperty(const PropertyTrio& property, const Trio& node) {
    const Owner owner = OwnerOf(property, node);
    if (owner == Owner::Theirs) return output_.AddTheirs(OfTheirs(property.Theirs));
    output_.AddMine(OfMine(property.Mine));
    if (owner == Owner::MineWithNote) {
      output_.AddNote(vbtext::NameOf(*node.Mine) + "." + std::string(property.Mine->Name) +
                      ": both changed it; it stays " + std::string(property.Mine->Value) + ", theirs is " +
                      std::string(property.Theirs->Value));
    }
  }

  // All children of the three; `order` is what is left of them, by place in the result. Nothing where the order or the
  // names contradict each other.
  static std::vector<Trio> ChildrenOf(const Trio& node, std::optional<Row>& order) {
    std::vector<Trio> all;
    Row base, mine(node.Mine->Children.size(), 0), theirs(node.Theirs->Children.size(), 0);
    std::vector<bool> isInMine(mine.size(), false), isInTheirs(theirs.size(), false);
    const auto inMine = MatchChildren(*node.Base, *node.Mine), inTheirs = MatchChildren(*node.Base, *node.Theirs);
    for (std::size_t i = 0; i < node.Base->Children.size(); ++i) {
      const auto number = static_cast<std::uint32_t>(all.size());
      base.push_back(number);
      all.push_back({&node.Base->Children[i]});
      // In the rows of the matches the container itself stands first.
      if (const std::size_t place = inMine[i + 1]; place != vbtext::None) {
        all.back().Mine = &node.Mine->Children[place - 1];
        mine[place - 1] = number;
        isInMine[place - 1] = true;
      }
      if (const std::size_t place = inTheirs[i + 1]; place != vbtext::None) {
        all.back().Theirs = &node.Theirs->Children[place - 1];
        theirs[place - 1] = number;
        isInTheirs[place - 1] = true;
      }
    }
    std::unordered_map<std::string, std::uint32_t> added;
    bool isUnique = true;
    for (std::size_t i = 0; i < mine.size(); ++i) {
      if (isInMine[i]) continue;
      mine[i] = static_cast<std::uint32_t>(all.size());
      all.push_back({nullptr, &node.Mine->Children[i]});
      isUnique &= added.emplace(vbtext::Folded(vbtext::NameOf(node.Mine->Children[i])), mine[i]).second;
    }
    for (std::size_t i = 0; i < theirs.size(); ++i) {
      if (isInTheirs[i]) continue;
      const auto [found, isNew] = added.emplace(vbtext::Folded(vbtext::NameOf(node.Theirs->Children[i])),
                                                static_cast<std::uint32_t>(all.size()));
      theirs[i] = found->second;
      if (isNew) all.push_back({});
      isUnique &= all[found->second].Theirs == nullptr;
      all[found->second].Theirs = &node.Theirs->Children[i];
    }
    if (isUnique) order = MergedOrder(base, mine, theirs);
    return all;
  }

  void MergeChild(const Trio& child) {
    if (child.Base && child.Mine && child.Theirs) return MergeNode(child);
    if (child.Base) {
      if (!IsUntouched(child)) Conflict(child);
    } else if (!child.Mine) {
      if (referencesOf_ == Whose::Both && HoldsReference(*child.Theirs)) return Conflict(child);
      output_.AddTheirs(OfTheirs(child.Theirs));
    } else if (!child.Theirs || IsSameTree(*child.Mine, mine_, *child.Theirs, theirs_)) {
      output_.AddMine(OfMine(child.Mine));
    } else {
      Conflict(child);
    }
  }

  static bool HoldsReference(const HeaderNode& node) {
    std::string text;
    CollectReferences(node, text);
    return !text.empty();
  }

  const Documents& documents_;
  Output& output_;
  Whose referencesOf_;
  vbtext::Companion base_, mine_, theirs_;  // without their files
};

// The lines of the head are a set: what one side added comes, what it took out goes.
class HeadMerger {
 public:
  HeadMerger(const Documents& documents, Output& output) : documents_(documents), output_(output) {}

  void Run() {
    const Lines base = LinesIn(documents_.Base), mine = LinesIn(documents_.Mine), theirs = LinesIn(documents_.Theirs);
    for (const auto& [key, line] : InOrder(mine)) {
      const Line* ofBase = Find(base, key);
      const Line* ofTheirs = Find(theirs, key);
      Merge(key, ofBase, line, ofTheirs);
    }
    for (const auto& [key, line] : InOrder(theirs)) {
      if (!Find(mine, key)) Merge(key, Find(base, key), nullptr, line);
    }
  }

 private:
  using Lines = std::map<std::string, const Line*>;

  // A library by its GUID, whatever its version and file.
  static std::string KeyOf(std::string_view line) {
    const std::size_t open = line.find('{'), close = line.find('}');
    if (!vbtext::BeginsWith(line, "Object") || open >= close || close == std::string_view::npos) {
      return vbtext::Folded(vbtext::BeginsWith(line, "VERSION") ? std::string_view("VERSION") : line);
    }
    return vbtext::Folded(line.substr(open, close - open));
  }
  static Lines LinesIn(const vbtext::Document& document) {
    Lines lines;
    for (std::size_t i = document.Head.First; i < document.Head.Behind; ++i) {
      lines.emplace(KeyOf(document.Lines[i].Text), &document.Lines[i]);
    }
    return lines;
  }
  static const Line* Find(const Lines& lines, const std::string& key) {
    const auto found = lines.find(key);
    return found == lines.end() ? nullptr : found->second;
  }
  static std::vector<std::pair<std::string, const Line*>> InOrder(const Lines& lines) {
    std::vector<std::pair<std::string, const Line*>> row(lines.begin(), lines.end());
    std::ranges::sort(row, {}, [](const auto& entry) { return entry.second; });
    return row;
  }
  static std::string Spelling(const Line* line) {
    std::string text = line ? vbtext::Folded(line->Text) : "";
    std::erase_if(text, vbtext::IsBlank);
    return text;
  }

  void Merge(const std::string& key, const Line* base, const Line* mine, const Line* theirs) {
    const std::string ofBase = Spelling(base), ofMine = Spelling(mine), ofTheirs = Spelling(theirs);
    const auto text = [](const Line* line) { return line ? line->Whole() : std::string_view(); };
    if (ofMine == ofTheirs || ofBase == ofTheirs) {
      output_.AddMine(text(mine));
    } else if (ofBase == ofMine) {
      output_.AddTheirs(text(theirs));
    } else {
      output_.AddConflict("component " + key, text(mine), text(base), text(theirs));
    }
  }

  const Documents& documents_;
  Output& output_;
};

}  // namespace

void MergeHeaders(const Documents& documents, Output& output) {
  HeadMerger(documents, output).Run();
  if (documents.Mine.Root) TreeMerger(documents, output).Run();
  const auto attributes = [](const vbtext::Document& document) { return TextOf(document.Lines, document.Attributes); };
  MergeLines(attributes(documents.Base), attributes(documents.Mine), attributes(documents.Theirs), "attributes",
             output);
}

}  // namespace formwizard::merge
