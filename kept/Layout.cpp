#include "kept/Layout.h"

#include "runtime/Conversions.h"
#include "vbtext/Controls.h"
#include "vbtext/Document.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>

namespace formwizard::kept {
namespace {

using vbtext::HeaderNode;

constexpr double Tolerance = 15;  // twips, a pixel

struct Box {
  const HeaderNode* Control;
  double Left, Top, Right, Bottom;

  bool Overlaps(const Box& other) const {
    return Left + Tolerance < other.Right && other.Left + Tolerance < Right && Top + Tolerance < other.Bottom &&
           other.Top + Tolerance < Bottom;
  }
};

std::optional<double> NumberOf(const HeaderNode& node, std::string_view property) {
  const vbtext::HeaderProperty* const found = node.Find(property);
  if (!found || !runtime::IsNumeric(found->Value)) return std::nullopt;
  return runtime::ToNumber(found->Value);
}

// Nothing for what has no place, such as a menu, or no size that counts.
std::optional<Box> BoxOf(const HeaderNode& node) {
  const auto left = NumberOf(node, "Left"), top = NumberOf(node, "Top"), width = NumberOf(node, "Width"),
             height = NumberOf(node, "Height");
  const auto visible = NumberOf(node, "Visible");
  if (!left || !top || !width || !height || (visible && *visible == 0)) return std::nullopt;
  return Box{&node, *left, *top, *left + *width, *top + *height};
}

struct Size {
  std::optional<double> Width, Height;
};
Size InsideOf(const HeaderNode& node, bool isForm) {
  if (!isForm) return {NumberOf(node, "Width"), NumberOf(node, "Height")};
  const auto width = NumberOf(node, "ScaleWidth"), height = NumberOf(node, "ScaleHeight");
  return {width ? width : NumberOf(node, "ClientWidth"), height ? height : NumberOf(node, "ClientHeight")};
}

// Without a tree where the text is no form.
vbtext::Document FormIn(const std::string& text) {
  try {
    return vbtext::DocumentWithoutCode(text);
  } catch (const vbtext::Fault&) {
    return {};
  }
}

class Finder {
 public:
  std::set<std::string> Run(const vbtext::Document& form) {
    if (form.Root) Look(*form.Root, true);
    return std::move(notes_);
  }

 private:
  void Look(const HeaderNode& node, bool isForm) {
    if (node.Children.empty()) return;
    const Size inside = InsideOf(node, isForm);
    std::vector<Box> boxes;
    for (const HeaderNode& child : node.Children) {
      if (const std::optional<Box> box = BoxOf(child)) {
        const bool sticksOut = (inside.Width && box->Right > *inside.Width + Tolerance) ||
                               (inside.Height && box->Bottom > *inside.Height + Tolerance);
        if (sticksOut) notes_.insert(vbtext::NameOf(child) + " sticks out of " + vbtext::NameOf(node));
        boxes.push_back(*box);
      }
      Look(child, false);
    }
    LookForOverlaps(boxes);
  }

  // From the top down, each with those that have not ended above it.
  void LookForOverlaps(std::vector<Box>& boxes) {
    std::ranges::stable_sort(boxes, {}, &Box::Top);
    std::vector<const Box*> open;
    for (const Box& box : boxes) {
      std::erase_if(open, [&](const Box* above) { return above->Bottom <= box.Top; });
      for (const Box* above : open) {
        if (!above->Overlaps(box)) continue;
        const auto [first, second] = std::minmax({vbtext::NameOf(*above->Control), vbtext::NameOf(*box.Control)});
        notes_.insert(std::string(first).append(" and ").append(second).append(" overlap"));
      }
      open.push_back(&box);
    }
  }

  std::set<std::string> notes_;
};

}  // namespace

std::vector<std::string> LayoutNotes(const std::string& before, const std::string& after) {
  const std::set<std::string> all = Finder().Run(FormIn(after));
  if (all.empty()) return {};
  const std::set<std::string> old = Finder().Run(FormIn(before));
  std::vector<std::string> notes;
  std::ranges::set_difference(all, old, std::back_inserter(notes));
  return notes;
}

}  // namespace formwizard::kept
