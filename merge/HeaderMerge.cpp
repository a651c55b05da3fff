#include "merge/HeaderMerge.h"

#include "merge/CodeMerge.h"
#include "merge/HeadMerge.h"
#include "merge/Owners.h"
#include "merge/Properties.h"
#include "merge/Siblings.h"
#include "vbtext/Controls.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

using vbtext::HeaderNode;
using vbtext::HeaderProperty;
using vbtext::IsSameName;

struct OwnedProperty {
  PropertyTrio Property;
  Owner IsOf;
};

class TreeMerger {
 public:
  TreeMerger(const Documents& documents, Output& output)
      : documents_(documents), output_(output), owners_(documents, output.Chosen()) {}

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

  void MergeNode(const Trio& node) {
    if (owners_.References() == Whose::Mine) {
      if (OfBase(node.Base) == OfTheirs(node.Theirs)) return output_.AddMine(OfMine(node.Mine));
      if (IsWholeOfTheirs(node)) return output_.AddTheirs(OfTheirs(node.Theirs));
    }
    std::vector<OwnedProperty> properties;
    for (const PropertyTrio& each :
         PropertiesOf(node.Base->Properties, node.Mine->Properties, node.Theirs->Properties)) {
      properties.push_back({each, owners_.Of(each, node)});
    }
    const Siblings children = ChildrenOf(node);
    if (!children.Order || IsConflict(node) ||
        std::ranges::count(properties, Owner::Nobody, &OwnedProperty::IsOf) > 0) {
      return Conflict(node);
    }
    WriteFirstLine(node);
    WriteProperties(node, properties);
    for (const std::uint32_t child : *children.Order) MergeChild(children.All[child]);
    output_.AddMine(documents_.Mine.Lines[node.Mine->Lines.Behind - 1].Whole());
  }

  // A control that mine has left alone and that contains none, where it stays in its place in the tab order.
  bool IsWholeOfTheirs(const Trio& node) const {
    const HeaderProperty *before = node.Base->Find("TabIndex"), *after = node.Theirs->Find("TabIndex");
    const bool stays = before && after ? before->Value == after->Value : before == after;
    return output_.Chosen().TakesPartsWhole && stays && node.Base->Children.empty() && node.Theirs->Children.empty() &&
           OfBase(node.Base) == OfMine(node.Mine);
  }

  // Name and class, which are one line.
  static bool IsConflict(const Trio& node) {
    return !IsSameId(*node.Mine, *node.Theirs) && !IsSameId(*node.Base, *node.Mine) &&
           !IsSameId(*node.Base, *node.Theirs);
  }
  static bool IsSameId(const HeaderNode& a, const HeaderNode& b) {
    return IsSameName(a.Name, b.Name) && IsSameName(a.Class, b.Class);
  }

  void WriteFirstLine(const Trio& node) {
    const bool isOfTheirs = IsSameId(*node.Mine, *node.Base) && !IsSameId(*node.Theirs, *node.Base);
    if (isOfTheirs) {
      output_.AddTheirs(documents_.Theirs.Lines[node.Theirs->Lines.First].Whole());
    } else {
      output_.AddMine(documents_.Mine.Lines[node.Mine->Lines.First].Whole());
    }
  }

  // Mine's in their order, and each of theirs before the first one behind it in the alphabet.
  void WriteProperties(const Trio& node, const std::vector<OwnedProperty>& properties) {
    std::vector<std::pair<std::string, const HeaderProperty*>> added;
    for (const auto& [property, owner] : properties) {
      if (!property.Mine && owner == Owner::Theirs) {
        added.emplace_back(vbtext::Folded(property.Theirs->Name), property.Theirs);
      }
    }
    std::ranges::stable_sort(added, {}, [](const auto& entry) -> const std::string& { return entry.first; });
    auto next = added.begin();
    for (const OwnedProperty& each : properties) {
      if (!each.Property.Mine) break;  // those of mine come first
      for (; next != added.end() && next->first < vbtext::Folded(each.Property.Mine->Name); ++next) {
        output_.AddTheirs(OfTheirs(next->second));
      }
      WriteProperty(each, node);
    }
    for (; next != added.end(); ++next) output_.AddTheirs(OfTheirs(next->second));
  }

  void WriteProperty(const OwnedProperty& each, const Trio& node) {
    const auto& [property, owner] = each;
    if (owner == Owner::Theirs) return output_.AddTheirs(OfTheirs(property.Theirs));
    output_.AddMine(OfMine(property.Mine));
    if (owner == Owner::MineWithNote) {
      output_.AddNote(vbtext::NameOf(*node.Mine) + "." + std::string(property.Mine->Name) +
                      ": both changed it; it stays " + std::string(property.Mine->Value) + ", theirs is " +
                      std::string(property.Theirs->Value));
    }
  }

  void MergeChild(const Trio& child) {
    if (child.Base && child.Mine && child.Theirs) return MergeNode(child);
    if (child.Base) {
      if (!owners_.IsUntouched(child)) Conflict(child);
    } else if (!child.Mine) {
      if (owners_.References() == Whose::Both && HoldsReference(*child.Theirs)) return Conflict(child);
      output_.AddTheirs(OfTheirs(child.Theirs));
    } else if (!child.Theirs || owners_.IsAddedAlike(child)) {
      output_.AddMine(OfMine(child.Mine));
    } else {
      Conflict(child);
    }
  }

  const Documents& documents_;
  Output& output_;
  Owners owners_;
};

}  // namespace

void MergeHeaders(const Documents& documents, Output& output) {
  MergeHeads(documents, output);
  if (documents.Mine.Root) TreeMerger(documents, output).Run();
  const auto attributes = [](const vbtext::Document& document) { return TextOf(document.Lines, document.Attributes); };
  MergeLines(attributes(documents.Base), attributes(documents.Mine), attributes(documents.Theirs), "attributes",
             output);
}

}  // namespace formwizard::merge
