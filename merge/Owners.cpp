#include "merge/Owners.h"

#include "vbtext/Controls.h"
#include "vbtext/Tokens.h"
#include "vbtext/Values.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace formwizard::merge {
namespace {

using vbtext::HeaderNode;
using vbtext::HeaderProperty;

// What keeps mine when both sides changed it, with a note.
bool IsPlace(std::string_view property) {
  constexpr std::array<std::string_view, 10> places{"Left",       "Top",        "Width",       "Height",
                                                    "ClientLeft", "ClientTop",  "ClientWidth", "ClientHeight",
                                                    "ScaleWidth", "ScaleHeight"};
  return std::ranges::any_of(places, [&](std::string_view name) { return vbtext::IsSameName(property, name); });
}

bool IsReference(const HeaderProperty* property) { return property && vbtext::ReferenceIn(property->Value); }

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

// One that says what would be so without it is as good as not there.
bool IsSame(const HeaderProperty* a, const vbtext::Side& ofA, const HeaderProperty* b, const vbtext::Side& ofB) {
  if (a && b) return IsSameProperty(*a, ofA, *b, ofB);
  if (!a && !b) return true;
  return a ? vbtext::IsLeftOut(*a, ofA.Control) : vbtext::IsLeftOut(*b, ofB.Control);
}

bool IsSameTree(const HeaderNode& a, const vbtext::Companion& recordsA, const HeaderNode& b,
                const vbtext::Companion& recordsB) {
  if (!vbtext::IsSameName(a.Class, b.Class) || !vbtext::IsSameName(vbtext::NameOf(a), vbtext::NameOf(b))) return false;
  if (a.Children.size() != b.Children.size()) return false;
  for (const PropertyTrio& property : PropertiesOf(a.Properties, b.Properties, {})) {
    const bool refers = IsReference(property.Base) && IsReference(property.Mine);
    const bool isTabIndex = vbtext::IsTabIndex((property.Base ? property.Base : property.Mine)->Name);
    if (!refers && !isTabIndex && !IsSame(property.Base, {a, recordsA}, property.Mine, {b, recordsB})) return false;
  }
  for (std::size_t i = 0; i < a.Children.size(); ++i) {
    if (!IsSameTree(a.Children[i], recordsA, b.Children[i], recordsB)) return false;
  }
  return true;
}

bool IsMovedByTheirs(const PropertyTrio& property) {
  return property.Base && property.Mine && property.Theirs && IsPlace(property.Mine->Name) &&
         property.Base->Value != property.Theirs->Value;
}

// Spelled alike, which what refers to nothing that is there is only by chance.
bool HasSameValue(const HeaderProperty* a, const HeaderProperty* b) {
  return a && b && !a->IsGroup && !b->IsGroup && a->Value == b->Value;
}

}  // namespace

Owners::Owners(const Documents& documents, const Options& options)
    : options_(options),
      references_(WhoseReferences(documents)),
      base_(*documents.Base.Root, std::nullopt),
      mine_(*documents.Mine.Root, std::nullopt),
      theirs_(*documents.Theirs.Root, std::nullopt) {}

Owner Owners::Of(const PropertyTrio& property, const Trio& node) const {
  // What it is to be in the end is found from the order of all.
  if (property.Mine && vbtext::IsTabIndex(property.Mine->Name)) return Owner::Mine;
  const vbtext::Side base{*node.Base, base_}, mine{*node.Mine, mine_}, theirs{*node.Theirs, theirs_};
  if (IsReference(property.Base) || IsReference(property.Mine) || IsReference(property.Theirs)) {
    return OfReference(property);
  }
  if (HasSameValue(property.Base, property.Theirs)) return Owner::Mine;
  if (options_.TakesSmallMoves && IsMovedByTheirs(property) && IsSame(property.Base, base, property.Mine, mine)) {
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

Owner Owners::OfReference(const PropertyTrio& property) const {
  if (references_ == Whose::Mine) return Owner::Mine;
  if (references_ == Whose::Theirs) return Owner::Theirs;
  const bool isSame = property.Mine && property.Theirs && property.Mine->Value == property.Theirs->Value;
  return isSame ? Owner::Mine : Owner::Nobody;
}

bool Owners::IsUntouched(const Trio& node) const {
  const bool isOfMine = node.Mine != nullptr;
  return IsSameTree(*node.Base, base_, isOfMine ? *node.Mine : *node.Theirs, isOfMine ? mine_ : theirs_);
}

bool Owners::IsAddedAlike(const Trio& node) const { return IsSameTree(*node.Mine, mine_, *node.Theirs, theirs_); }

bool HoldsReference(const HeaderNode& node) {
  std::string text;
  CollectReferences(node, text);
  return !text.empty();
}

}  // namespace formwizard::merge
