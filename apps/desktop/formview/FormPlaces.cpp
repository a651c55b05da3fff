#include "apps/desktop/formview/FormPlaces.h"

#include "apps/desktop/formview/ControlPictures.h"
#include "apps/desktop/formview/FormPicture.h"
#include "apps/desktop/formview/TextLayout.h"
#include "runtime/Conversions.h"
#include "ui/WindowFrame.h"

#include <algorithm>
#include <cmath>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;
using adapters::vb6files::Scale;
using ui::TwipsPerPixel;

constexpr double LargestArea = 48.0e6;    // pixels: some 190 MB
constexpr double FarthestPlace = 100000;  // pixels: a control farther off is nowhere on a form
constexpr int MenuBarHeight = ui::MenuBarHeight / TwipsPerPixel;
constexpr int MenuPadding = 6;      // on either side of a title
constexpr int DesignIconSize = 32;  // of a control that is invisible at run time

constexpr std::size_t NoBorder = 0, FixedSingle = 1, Sizable = 2;

bool Is(const FormNode& node, std::string_view className) { return runtime::EqualIgnoringCase(node.Class, className); }

std::size_t BorderStyleOf(const FormNode& form) {
  // A user control has no window of its own.
  if (!Is(form, "VB.Form") && !Is(form, "VB.MDIForm")) return NoBorder;
  return static_cast<std::size_t>(
      std::clamp(form.Number("BorderStyle", Sizable), 0.0, static_cast<double>(ui::WindowFrames.size() - 1)));
}

bool IsTitle(const FormNode& node) { return IsMenu(node) && IsVisible(node) && !node.Text("Caption").empty(); }

int Pixels(double value) { return static_cast<int>(std::lround(std::clamp(value, -FarthestPlace, FarthestPlace))); }

// The units in which lines on a container are given.
Scale ScaleOf(const FormNode& container, const QRect& client) {
  const double mode = container.Number("ScaleMode", adapters::vb6files::TwipScale);
  const double width = container.Number("ScaleWidth");
  const double height = container.Number("ScaleHeight");
  // What the client area measures in them says more than the mode, whose pixels are another machine's.
  if (mode == adapters::vb6files::TwipScale || width == 0 || height == 0) return adapters::vb6files::FixedScale(mode);
  return adapters::vb6files::UsersScale(container.Number("ScaleLeft"), container.Number("ScaleTop"), width, height,
                                        client.width() * TwipsPerPixel, client.height() * TwipsPerPixel);
}

// Goes through a form and notes every place.
class Places {
 public:
  explicit Places(const FormNode& form) {
    const WindowParts window(form);
    list_.push_back({&form, PlacedNode::None, window.Outer, window.Outer});
    AddOn(0, window.Client, window.Client);
    for (const MenuTitle& title : MenuTitlesOf(form, window.MenuBar)) {
      AddMenu(*title.Menu, 0, title.Place, title.Place.intersected(window.MenuBar));
    }
    for (const FormNode& child : form.Children) {
      if (IsMenu(child) && !IsTitle(child)) AddMenu(child, 0, {}, {});
    }
  }

  std::vector<PlacedNode> Take() { return std::move(list_); }

 private:
  void AddOn(std::size_t container, const QRect& client, const QRect& seen) {
    const FormNode& node = *list_[container].Node;
    ForEachFromBack(node, [&](const FormNode& child) { Add(child, container, PlaceOf(child, node, client), seen); });
  }

  void Add(const FormNode& control, std::size_t container, const QRect& place, const QRect& around) {
    const bool isSeen = IsVisible(control) && !IsInvisibleAtRunTime(control);
    const std::size_t index = list_.size();
    list_.push_back({&control, container, place, isSeen ? place.intersected(around) : QRect()});
    if (control.Children.empty()) return;
    const QRect inside = InsideOf(control, place);
    AddOn(index, inside, isSeen ? inside.intersected(around) : QRect());
  }

  void AddMenu(const FormNode& menu, std::size_t container, const QRect& place, const QRect& seen) {
    const std::size_t index = list_.size();
    list_.push_back({&menu, container, place, seen});
    for (const FormNode& child : menu.Children) AddMenu(child, index, {}, {});
  }

  std::vector<PlacedNode> list_;
};

}  // namespace

bool IsMenu(const FormNode& node) { return Is(node, "VB.Menu"); }

bool IsVisible(const FormNode& node) { return node.Flag("Visible", true); }

int BorderOfWindow(const FormNode& form) { return ui::WindowFrames[BorderStyleOf(form)].Border / TwipsPerPixel; }

bool IsFullWindow(const FormNode& form) {
  const std::size_t style = BorderStyleOf(form);
  return style == FixedSingle || style == Sizable;
}

WindowParts::WindowParts(const FormNode& form) {
  const int border = BorderOfWindow(form);
  const int caption = ui::WindowFrames[BorderStyleOf(form)].Caption / TwipsPerPixel;
  const bool hasCaption = form.Flag("ControlBox", true) || !form.Text("Caption").empty();
  const bool hasMenus = std::ranges::any_of(form.Children, IsTitle);
  const int width = std::clamp(Pixels(form.Number("ClientWidth", 4680) / TwipsPerPixel), 1, LargestSide);
  const int height = std::clamp(Pixels(form.Number("ClientHeight", 3195) / TwipsPerPixel), 1, LargestSide);
  Caption = QRect(border, border, width, hasCaption ? caption : 0);
  MenuBar = QRect(border, Caption.bottom() + 1, width, hasMenus ? MenuBarHeight : 0);
  Client = QRect(border, MenuBar.bottom() + 1, width, height);
  Outer = QRect(0, 0, width + 2 * border, Client.bottom() + 1 + border);
}

double FittedScale(const FormNode& form, double wanted) {
  const QSize size = WindowParts(form).Outer.size();
  const double width = size.width(), height = size.height();
  const double scale = wanted > 0 ? wanted : 1;
  return std::min({scale, LargestSide / width, LargestSide / height, std::sqrt(LargestArea / (width * height))});
}

std::vector<MenuTitle> MenuTitlesOf(const FormNode& form, const QRect& menuBar) {
  std::vector<MenuTitle> titles;
  QRect place = menuBar;
  for (const FormNode& menu : form.Children) {
    if (!IsTitle(menu)) continue;
    place.setWidth(WidthOfLine(menu, menu.Text("Caption")) + 2 * MenuPadding);
    if (place.left() > menuBar.right()) break;
    titles.push_back({&menu, place});
    place.moveLeft(place.right() + 1);
  }
  return titles;
}

QRect PlaceOf(const FormNode& control, const FormNode& container, const QRect& client) {
  if (IsLine(control)) {
    const auto [from, to] = EndsOf(control, container, client);
    return QRect(from, to).normalized();
  }
  const auto pixels = [&](std::string_view name) { return Pixels(control.Number(name) / TwipsPerPixel); };
  const QPoint corner = client.topLeft() + QPoint(pixels("Left"), pixels("Top"));
  if (IsInvisibleAtRunTime(control)) return {corner, QSize(DesignIconSize, DesignIconSize)};
  return {corner, QSize(std::abs(pixels("Width")), std::abs(pixels("Height")))};
}

LineEnds EndsOf(const FormNode& line, const FormNode& container, const QRect& client) {
  const Scale scale = ScaleOf(container, client);
  const auto end = [&](std::string_view x, std::string_view y) {
    return client.topLeft() + QPoint(Pixels(scale.X.TwipsTo(line.Number(x)) / TwipsPerPixel),
                                     Pixels(scale.Y.TwipsTo(line.Number(y)) / TwipsPerPixel));
  };
  return {end("X1", "Y1"), end("X2", "Y2")};
}

// The front of the z-order stands first in the file.
void ForEachFromBack(const FormNode& container, const std::function<void(const FormNode& child)>& action) {
  for (const bool lightweight : {true, false}) {
    std::for_each(container.Children.rbegin(), container.Children.rend(), [&](const FormNode& child) {
      if (!IsMenu(child) && IsLightweight(child) == lightweight) action(child);
    });
  }
}

std::vector<PlacedNode> PlacesOf(const FormNode& form) { return Places(form).Take(); }

}  // namespace formwizard::apps::desktop
