#include "apps/desktop/formview/Navigation.h"

#include <cstdlib>
#include <limits>
#include <map>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr std::size_t None = PlacedNode::None;
constexpr std::pair Unreached{true, std::numeric_limits<int>::max()};

// Two controls may have one index; then their order in the file decides.
std::pair<double, std::size_t> TabKey(const std::vector<PlacedNode>& places, std::size_t index) {
  return {places[index].Node->Number("TabIndex"), index};
}

bool IsInTabOrder(const PlacedNode& place) { return !place.Seen.isEmpty() && place.Node->Find("TabIndex"); }

bool Contains(const std::vector<PlacedNode>& places, std::size_t outer, std::size_t inner) {
  while (inner != None && inner != outer) inner = places[inner].Container;
  return inner == outer;
}

// How far a place is off in a direction, whose other side is out of the way; what lies beside it counts double. What is
// hardly in that direction comes behind all else, so that a menu is reached from everywhere below.
std::pair<bool, int> Distance(const QRect& from, const QRect& to, const QPoint& direction) {
  const QPoint way = to.center() - from.center();
  const int along = QPoint::dotProduct(way, direction);
  const int aside = std::abs(QPoint::dotProduct(way, {direction.y(), direction.x()}));
  const bool isHardly = aside > 3 * along;
  const bool isBeside = direction.x() == 0 ? to.top() <= from.bottom() && from.top() <= to.bottom()
                                           : to.left() <= from.right() && from.left() <= to.right();
  return along <= 0 || (isHardly && isBeside) ? Unreached : std::pair(isHardly, along + 2 * aside);
}

}  // namespace

std::size_t NodeAt(const std::vector<PlacedNode>& places, const QPoint& point) {
  for (std::size_t i = places.size(); i-- > 0;) {
    if (places[i].Seen.contains(point)) return i;
  }
  return None;
}

std::size_t Nearest(const std::vector<PlacedNode>& places, std::size_t from, const QPoint& direction) {
  const std::size_t first = from == 0 ? NextInTabOrder(places, from, false) : None;
  if (first != None) return first;
  std::size_t nearest = None;
  std::pair<bool, int> least = Unreached;
  for (std::size_t i = 1; i < places.size(); ++i) {
    if (i == from || places[i].Seen.isEmpty() || Contains(places, i, from)) continue;
    const std::pair distance =
        from == 0 ? std::pair(false, 0) : Distance(places[from].Place, places[i].Seen, direction);
    if (distance < least) {
      least = distance;
      nearest = i;
    }
  }
  return nearest;
}

std::size_t NextInTabOrder(const std::vector<PlacedNode>& places, std::size_t from, bool backward) {
  const bool isAnywhere = from >= places.size() || !IsInTabOrder(places[from]);
  std::size_t next = None;
  for (std::size_t i = 1; i < places.size(); ++i) {
    if (!IsInTabOrder(places[i])) continue;
    const auto key = TabKey(places, i);
    const auto isBefore = [&](const auto& a, const auto& b) { return backward ? b < a : a < b; };
    if (!isAnywhere && !isBefore(TabKey(places, from), key)) continue;
    if (next == None || isBefore(key, TabKey(places, next))) next = i;
  }
  return next;
}

std::vector<std::size_t> LabelsOf(const std::vector<PlacedNode>& places) {
  std::map<std::pair<std::size_t, double>, std::size_t> labels;  // by container and tab index
  for (std::size_t i = 1; i < places.size(); ++i) {
    if (places[i].Node->Class == "VB.Label") labels[{places[i].Container, places[i].Node->Number("TabIndex")}] = i;
  }
  std::vector<std::size_t> labelOf(places.size(), None);
  for (std::size_t i = 1; i < places.size(); ++i) {
    if (!places[i].Node->Find("TabIndex")) continue;
    const auto label = labels.find({places[i].Container, places[i].Node->Number("TabIndex") - 1});
    if (label != labels.end()) labelOf[i] = label->second;
  }
  return labelOf;
}

}  // namespace formwizard::apps::desktop
