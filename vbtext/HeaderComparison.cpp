#include "vbtext/Differences.h"

#include "runtime/Conversions.h"
#include "vbtext/Alignment.h"
#include "vbtext/Controls.h"
#include "vbtext/Tokens.h"
#include "vbtext/Values.h"

#include <algorithm>
#include <array>
#include <map>

namespace formwizard::vbtext {
namespace {

// A thing of a row that is known by a key, of which there should be only one: the second one with a key is its second.
using Keyed = std::map<std::pair<std::string, std::size_t>, std::size_t>;

class HeaderComparison {
 public:
  HeaderComparison(const HeaderNode& a, const Companion& recordsA, const HeaderNode& b, const Companion& recordsB,
                   Differences& differences)
      : recordsA_(recordsA),
        recordsB_(recordsB),
        a_(ControlsOf(a)),
        b_(ControlsOf(b)),
        matches_(MatchControls(a_, b_)),
        isIn_(b_.size(), false),
        differences_(differences) {
    for (const std::size_t match : matches_) {
      if (match != None) isIn_[match] = true;
    }
  }

  void Run() {
    for (std::size_t i = 0; i < a_.size(); ++i) {
      const std::size_t match = matches_[i];
      if (match != None) {
        CompareControl(a_[i], b_[match]);
      } else if (IsOutermost(i)) {
        differences_.AddOneSided("control", NameOf(*a_[i].Node), a_[i].Node->Lines, true);
      }
    }
    for (std::size_t i = 0; i < b_.size(); ++i) {
      const bool isOutermost = !isIn_[i] && isIn_[b_[i].Parent];
      if (isOutermost) differences_.AddOneSided("control", NameOf(*b_[i].Node), b_[i].Node->Lines, false);
    }
    CompareOrders();
    CompareTabOrder();
  }

 private:
  // What goes with its container is not said again.
  bool IsOutermost(std::size_t i) const { return matches_[a_[i].Parent] != None; }

  void CompareControl(const Control& a, const Control& b) {
    const std::string name = NameOf(*b.Node);
    const LineRange linesA{a.Node->Lines.First, a.Node->Lines.First + 1};
    const LineRange linesB{b.Node->Lines.First, b.Node->Lines.First + 1};
    if (!IsSameName(a.Node->Name, b.Node->Name)) {
      differences_.Add(Change::Renamed, "control", NameOf(*a.Node) + " to " + name, linesA, linesB);
    }
    if (!IsSameName(a.Node->Class, b.Node->Class)) {
      differences_.Add(Change::Changed, "class of control", name, linesA, linesB);
    }
    if (a.Parent != None && matches_[a.Parent] != b.Parent) {
      differences_.Add(Change::Moved, "control",
                       name + " from " + NameOf(*a_[a.Parent].Node) + " to " + NameOf(*b_[b.Parent].Node), linesA,
                       linesB);
    }
    CompareProperties(*a.Node, *b.Node, name);
  }

  static Keyed KeyedProperties(const HeaderNode& node) {
    Keyed keyed;
    std::map<std::string, std::size_t> counts;
    for (std::size_t i = 0; i < node.Properties.size(); ++i) {
      std::string key = Folded(node.Properties[i].Name);
      const std::size_t nth = counts[key]++;
      keyed.emplace(std::pair(std::move(key), nth), i);
    }
    return keyed;
  }

  void CompareProperties(const HeaderNode& a, const HeaderNode& b, const std::string& control) {
    const Keyed ofB = KeyedProperties(b);
    const Keyed ofA = KeyedProperties(a);
    for (const auto& [key, place] : ofA) {
      const HeaderProperty& property = a.Properties[place];
      if (IsTabIndex(property.Name) || IsDerived(property.Name, a)) continue;
      const auto found = ofB.find(key);
      const std::string name = control + "." + std::string(property.Name);
      if (found == ofB.end()) {
        if (!IsLeftOut(property, a)) differences_.AddOneSided("property", name, property.Lines, true);
      } else if (const HeaderProperty& other = b.Properties[found->second];
                 !IsSameProperty(property, {a, recordsA_}, other, {b, recordsB_})) {
        differences_.Add(Change::Changed, "property", name, property.Lines, other.Lines);
      }
    }
    for (const auto& [key, place] : ofB) {
      const HeaderProperty& property = b.Properties[place];
      if (IsTabIndex(property.Name) || ofA.contains(key) || IsLeftOut(property, b)) continue;
      differences_.AddOneSided("property", control + "." + std::string(property.Name), property.Lines, false);
    }
  }

  // The environment saves windows, then what it draws itself, then menus; only within each of these the order counts.
  static int LayerOf(const HeaderNode& control) {
    constexpr std::array<std::string_view, 4> drawn{"VB.Label", "VB.Image", "VB.Shape", "VB.Line"};
    if (runtime::EqualIgnoringCase(control.Class, "VB.Menu")) return 2;
    return std::ranges::any_of(drawn, [&](auto name) { return runtime::EqualIgnoringCase(name, control.Class); }) ? 1
                                                                                                                  : 0;
  }

  // Children that kept their container, by container and layer.
  void CompareOrders() {
    std::map<std::pair<std::size_t, int>, std::vector<Pair>> rows;
    for (std::size_t i = 1; i < a_.size(); ++i) {
      const std::size_t match = matches_[i];
      if (match == None || matches_[a_[i].Parent] != b_[match].Parent) continue;
      rows[{a_[i].Parent, LayerOf(*a_[i].Node)}].push_back({i, match});
    }
    for (const auto& [key, pairs] : rows) {
      const std::vector<Pair> stayed = LongestAscending(pairs);
      if (stayed.size() == pairs.size()) continue;
      const HeaderNode& container = *a_[key.first].Node;
      differences_.Add(
          Change::Changed, key.second == 2 ? "order of menus" : "order of controls", NameOf(container),
          LineRange{container.Lines.First, container.Lines.First + 1},
          LineRange{b_[matches_[key.first]].Node->Lines.First, b_[matches_[key.first]].Node->Lines.First + 1});
    }
  }

  static double TabIndexOf(const HeaderNode& control) {
    const HeaderProperty* index = control.Find("TabIndex");
    return index && runtime::IsNumeric(index->Value) ? runtime::ToNumber(index->Value) : -1;
  }

  // The numbers themselves mean nothing: the environment counts anew.
  void CompareTabOrder() {
    struct Stop {
      double A, B;
      std::size_t PlaceB;
    };
    std::vector<Stop> stops;
    for (std::size_t i = 1; i < a_.size(); ++i) {
      if (matches_[i] == None) continue;
      const Stop stop{TabIndexOf(*a_[i].Node), TabIndexOf(*b_[matches_[i]].Node), matches_[i]};
      if (stop.A >= 0 && stop.B >= 0) stops.push_back(stop);
    }
    std::ranges::stable_sort(stops, {}, &Stop::A);
    const auto wrong = std::ranges::adjacent_find(
        stops, [](const Stop& first, const Stop& second) { return second.A > first.A && second.B < first.B; });
    if (wrong == stops.end()) return;
    differences_.Add(Change::Changed, "tab order", NameOf(*b_[(wrong + 1)->PlaceB].Node), std::nullopt, std::nullopt);
  }

  const Companion& recordsA_;
  const Companion& recordsB_;
  std::vector<Control> a_, b_;
  std::vector<std::size_t> matches_;
  std::vector<bool> isIn_;  // by place in b: whether it is a match
  Differences& differences_;
};

}  // namespace

void CompareHeaders(const HeaderNode& a, const Companion& recordsA, const HeaderNode& b, const Companion& recordsB,
                    Differences& differences) {
  HeaderComparison(a, recordsA, b, recordsB, differences).Run();
}

}  // namespace formwizard::vbtext
