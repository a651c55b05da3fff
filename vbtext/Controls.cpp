#include "vbtext/Controls.h"

#include "vbtext/Tokens.h"
#include "vbtext/Values.h"

#include <algorithm>
#include <unordered_map>

namespace formwizard::vbtext {
namespace {

void AppendControl(const HeaderNode& node, std::size_t parent, std::vector<Control>& controls) {
  const std::size_t place = controls.size();
  controls.push_back({&node, parent, KeyOf(node)});
  for (const HeaderNode& child : node.Children) AppendControl(child, place, controls);
}

// Everything of a control but its name and what the environment computes, for a rough look before the exact one.
std::string Likeness(const HeaderNode& node, std::size_t parent) {
  std::string text = std::to_string(parent) + " " + Folded(node.Class);
  for (const HeaderProperty& property : node.Properties) {
    if (IsTabIndex(property.Name) || IsLeftOut(property, node) || ReferenceIn(property.Value)) continue;
    text += "\n" + Folded(property.Name) + "=" + std::string(property.Value);
  }
  return text;
}

class Matcher {
 public:
  Matcher(const std::vector<Control>& a, const std::vector<Control>& b)
      : a_(a), b_(b), matches_(a.size(), None), isTaken_(b.size(), false) {}

  std::vector<std::size_t> Run() {
    TakeByKey(TakeFirstOnes());
    TakeWhere([](const Control& control, std::size_t) { return Folded(control.Node->Name); });
    // Containers come before what they contain, so that theirs are known.
    TakeWhere([](const Control& control, std::size_t parent) { return Likeness(*control.Node, parent); });
    return matches_;
  }

 private:
  void Take(std::size_t a, std::size_t b) {
    matches_[a] = b;
    isTaken_[b] = true;
  }

  // The forms, and the controls behind them as long as both have the same; how many.
  std::size_t TakeFirstOnes() {
    std::size_t same = 0;
    do {
      Take(same, same);
      ++same;
    } while (same < std::min(a_.size(), b_.size()) && a_[same].Key == b_[same].Key);
    return same;
  }

  // In a form that is not as it should be, the second one of a key is its second.
  static std::string Counted(const std::string& key, std::unordered_map<std::string, std::size_t>& counts) {
    return key + "\n" + std::to_string(counts[key]++);
  }
  void TakeByKey(std::size_t from) {
    std::unordered_map<std::string, std::size_t> countsA, countsB, places;
    for (std::size_t i = from; i < b_.size(); ++i) places.emplace(Counted(b_[i].Key, countsB), i);
    for (std::size_t i = from; i < a_.size(); ++i) {
      const auto found = places.find(Counted(a_[i].Key, countsA));
      if (found != places.end()) Take(i, found->second);
    }
  }

  // Those that are not taken yet and whose text only one of each side has.
  template <typename TextOf>
  void TakeWhere(TextOf textOf) {
    struct Seen {
      std::size_t Count = 0, Place = None;
    };
    std::unordered_map<std::string, Seen> seenA, seenB;
    for (std::size_t i = 0; i < b_.size(); ++i) {
      if (isTaken_[i]) continue;
      Seen& seen = seenB[textOf(b_[i], b_[i].Parent)];
      ++seen.Count;
      seen.Place = i;
    }
    if (seenB.empty()) return;
    std::vector<std::string> texts(a_.size());
    for (std::size_t i = 0; i < a_.size(); ++i) {
      if (matches_[i] != None) continue;
      texts[i] = textOf(a_[i], matches_[a_[i].Parent]);
      ++seenA[texts[i]].Count;
    }
    for (std::size_t i = 0; i < a_.size(); ++i) {
      if (matches_[i] != None) continue;
      const auto found = seenB.find(texts[i]);
      if (found != seenB.end() && found->second.Count == 1 && seenA[texts[i]].Count == 1) Take(i, found->second.Place);
    }
  }

  const std::vector<Control>& a_;
  const std::vector<Control>& b_;
  std::vector<std::size_t> matches_;
  std::vector<bool> isTaken_;
};

}  // namespace

std::string NameOf(const HeaderNode& control) {
  const HeaderProperty* index = control.Find("Index");
  const std::string name(control.Name);
  return index ? name + "(" + std::string(index->Value) + ")" : name;
}

std::string KeyOf(const HeaderNode& control) {
  std::string key;
  AppendFolded(control.Name, key);
  if (const HeaderProperty* index = control.Find("Index")) AppendFolded("(" + std::string(index->Value) + ")", key);
  return key;
}

std::vector<Control> ControlsOf(const HeaderNode& form) {
  std::vector<Control> controls;
  AppendControl(form, None, controls);
  return controls;
}

std::vector<std::size_t> MatchControls(const std::vector<Control>& a, const std::vector<Control>& b) {
  return Matcher(a, b).Run();
}

}  // namespace formwizard::vbtext
