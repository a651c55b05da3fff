#include "merge/Siblings.h"

#include "vbtext/Controls.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>

namespace formwizard::merge {
namespace {

using vbtext::Control;
using vbtext::HeaderNode;

// A control is known in its container by its name and index, else, renamed, by what it is. The container itself stands
// first.
std::vector<Control> RowOf(const HeaderNode& node) {
  std::vector<Control> row;
  row.reserve(node.Children.size() + 1);
  row.push_back({&node, vbtext::None, ""});
  for (const HeaderNode& child : node.Children) row.push_back({&child, 0, vbtext::KeyOf(child)});
  return row;
}

class Matcher {
 public:
  explicit Matcher(const Trio& node)
      : base_(RowOf(*node.Base)),
        mine_{RowOf(*node.Mine), {}, &Trio::Mine},
        theirs_{RowOf(*node.Theirs), {}, &Trio::Theirs} {}

  Siblings Run() {
    Row base;
    for (std::size_t i = 1; i < base_.size(); ++i) base.push_back(Add({base_[i].Node}));
    NumberThoseOfBase(mine_);
    NumberThoseOfBase(theirs_);
    const bool isUnique = NumberNewOnes(mine_) && NumberNewOnes(theirs_);
    if (isUnique) result_.Order = MergedOrder(base, mine_.Numbers, theirs_.Numbers);
    return std::move(result_);
  }

 private:
  static constexpr std::uint32_t NoNumber = static_cast<std::uint32_t>(-1);

  struct Side {
    std::vector<Control> Controls;
    Row Numbers;  // of all but the container: places in the result
    const HeaderNode* Trio::*Member;
  };

  std::uint32_t Add(Trio trio) {
    result_.All.push_back(trio);
    return static_cast<std::uint32_t>(result_.All.size() - 1);
  }

  void NumberThoseOfBase(Side& side) {
    side.Numbers.assign(side.Controls.size() - 1, NoNumber);
    const std::vector<std::size_t> places = vbtext::MatchControls(base_, side.Controls);
    for (std::size_t i = 1; i < base_.size(); ++i) {
      if (places[i] == vbtext::None) continue;
      side.Numbers[places[i] - 1] = static_cast<std::uint32_t>(i - 1);
      result_.All[i - 1].*side.Member = side.Controls[places[i]].Node;
    }
  }

  // Both sides may add the same one; false when one side adds two of a name.
  bool NumberNewOnes(Side& side) {
    for (std::size_t i = 0; i < side.Numbers.size(); ++i) {
      if (side.Numbers[i] != NoNumber) continue;
      const Control& control = side.Controls[i + 1];
      const auto [found, isNew] = added_.emplace(control.Key, static_cast<std::uint32_t>(result_.All.size()));
      if (isNew) Add({});
      side.Numbers[i] = found->second;
      const HeaderNode*& node = result_.All[found->second].*side.Member;
      if (node) return false;
      node = control.Node;
    }
    return true;
  }

  std::vector<Control> base_;
  Side mine_, theirs_;
  std::unordered_map<std::string, std::uint32_t> added_;  // numbers of those that the base has not, by their keys
  Siblings result_;
};

}  // namespace

Siblings ChildrenOf(const Trio& node) {
  if (node.Base->Children.empty() && node.Mine->Children.empty() && node.Theirs->Children.empty()) return {{}, Row()};
  return Matcher(node).Run();
}

}  // namespace formwizard::merge
