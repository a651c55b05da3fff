#include "apps/desktop/formview/TabPictures.h"

#include "apps/desktop/formview/ClassicLook.h"
#include "apps/desktop/formview/TextLayout.h"

#include <algorithm>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr int MostTabs = 200;
constexpr int Standout = 2;  // pixels by which the tab in front is larger on each side
constexpr int CaptionMargin = 6;

struct Tab {
  std::string Caption;
  QRect Place;
  bool IsInFront = false;
};

std::string Numbered(const std::string& name, int number) { return name + "(" + std::to_string(number) + ")"; }

int WidthOf(const FormNode& control, const std::string& caption) {
  return WidthOfLine(control, caption) + 2 * CaptionMargin;
}

// Raised on every side but that of the page, which is below the tabs or, where `atBottom`, above them.
void DrawTab(QPainter& painter, const FormNode& control, const Tab& tab, bool atBottom) {
  const int more = tab.IsInFront ? Standout : 0;
  const QRect place = tab.Place.adjusted(-more, -more, more, more);
  painter.save();
  painter.setClipRect(place, Qt::IntersectClip);
  const QRect body = atBottom ? place.adjusted(0, -Standout, 0, 0) : place.adjusted(0, 0, 0, Standout);
  painter.fillRect(body, ColorOf(color::Face));
  DrawEdge(painter, body, Edge::Raised);
  // In the font of the control and the colour of buttons.
  FormNode text{control.Class, control.Name, control.Properties, {}, {}};
  std::erase_if(text.Properties, [](const auto& property) { return property.Name == "ForeColor"; });
  const int wrap = text.Flag("WordWrap", true) && tab.Place.height() >= 2 * HeightOfLine(text) ? Qt::TextWordWrap
                                                                                               : Qt::TextSingleLine;
  DrawText(painter, tab.Place, Qt::AlignCenter | wrap | WithAccessKey, tab.Caption, text, color::ButtonText);
  painter.restore();
}

// The page lies over its tabs, except the one in front.
void DrawTabs(QPainter& painter, const FormNode& control, const QRect& page, const std::vector<Tab>& tabs,
              bool atBottom) {
  const auto draw = [&](bool inFront) {
    for (const Tab& tab : tabs) {
      if (tab.IsInFront == inFront) DrawTab(painter, control, tab, atBottom);
    }
  };
  draw(false);
  painter.fillRect(page, ColorOf(color::Face));
  DrawEdge(painter, page, Edge::Raised);
  draw(true);
}

// Rows of tabs, the one with the tab in front next to the page.
std::vector<Tab> PagedTabs(const FormNode& control, const QRect& place, int height, bool atBottom) {
  constexpr double usual = 3;
  const int count = static_cast<int>(std::clamp(control.Number("Tabs", usual), 1.0, double{MostTabs}));
  const int perRow = static_cast<int>(std::clamp(control.Number("TabsPerRow", usual), 1.0, double{MostTabs}));
  const int current = static_cast<int>(std::clamp(control.Number("Tab"), 0.0, count - 1.0));
  const bool fitsCaptions = control.Flag("Style");
  const int rows = (count + perRow - 1) / perRow;
  std::vector<Tab> tabs;
  int left = place.left() + Standout;
  for (int i = 0; i < count; ++i) {
    const int row = i / perRow, front = current / perRow;
    const int distance = row == front ? 0 : row < front ? row + 1 : row;  // from the page
    const int top =
        atBottom ? place.bottom() + 1 - (rows - distance) * height : place.top() + (rows - 1 - distance) * height;
    if (i % perRow == 0) left = place.left() + Standout;
    if (!control.Flag(Numbered("TabVisible", i), true)) continue;
    Tab tab{control.Text(Numbered("TabCaption", i)), {}, i == current};
    const int width = fitsCaptions ? WidthOf(control, tab.Caption) : (place.width() - 2 * Standout) / perRow;
    tab.Place = QRect(left, top + (atBottom ? 0 : Standout), width, height - Standout);
    left += width;
    tabs.push_back(std::move(tab));
  }
  return tabs;
}

}  // namespace

void DrawPagedTabs(QPainter& painter, const FormNode& control, const QRect& place) {
  constexpr double bottom = 1, usualHeight = 529;
  const bool atBottom = control.Number("TabOrientation") == bottom;
  const int height = std::max(PixelsOfHimetric(control.Number("TabHeight", usualHeight)), Standout + 1);
  painter.fillRect(place, ColorOf(control, "BackColor", color::Face));
  const std::vector<Tab> tabs = PagedTabs(control, place, height, atBottom);
  QRect page = place;
  for (const Tab& tab : tabs) {
    if (atBottom) page.setBottom(std::min(page.bottom(), tab.Place.top() - 1));
    if (!atBottom) page.setTop(std::max(page.top(), tab.Place.bottom() + 1));
  }
  DrawTabs(painter, control, page, tabs, atBottom);
}

void DrawTabStrip(QPainter& painter, const FormNode& control, const QRect& place) {
  constexpr double fixed = 2, bottom = 1;
  constexpr int least = 42;  // pixels
  const bool atBottom = control.Number("Placement") == bottom;
  const bool isFixed = control.Number("TabWidthStyle") == fixed;
  int height = HeightOfLine(control) + 7;
  if (isFixed && control.Find("TabFixedHeight")) height = PixelsOfHimetric(control.Number("TabFixedHeight"));
  std::vector<Tab> tabs;
  const int count = static_cast<int>(std::clamp(control.Number("Tabs.NumTabs", 1), 1.0, double{MostTabs}));
  int left = place.left() + Standout;
  for (int i = 1; i <= count; ++i) {
    Tab tab{control.Text("Tabs.Tab" + std::to_string(i) + ".Caption"), {}, i == 1};
    int width = std::max(WidthOf(control, tab.Caption), least);
    if (isFixed && control.Find("TabFixedWidth")) width = PixelsOfHimetric(control.Number("TabFixedWidth"));
    tab.Place = QRect(left, atBottom ? place.bottom() + 1 - height : place.top() + Standout, width, height);
    left += width;
    tabs.push_back(std::move(tab));
  }
  const int above = height + Standout;
  DrawTabs(painter, control, atBottom ? place.adjusted(0, 0, 0, -above) : place.adjusted(0, above, 0, 0), tabs,
           atBottom);
}

}  // namespace formwizard::apps::desktop
