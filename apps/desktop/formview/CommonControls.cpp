#include "apps/desktop/formview/CommonControls.h"

#include "apps/desktop/formview/ClassicLook.h"
#include "apps/desktop/formview/TextLayout.h"

#include <algorithm>
#include <string>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr double MostParts = 200;
constexpr int Gap = 2;  // pixels around the panels of a status bar

int CountOf(const FormNode& control, const char* property, double missing) {
  return static_cast<int>(std::clamp(control.Number(property, missing), 0.0, MostParts));
}

std::string Part(const char* name, int number, const char* property) {
  return name + std::to_string(number) + "." + property;
}

// An edge one pixel wide.
void DrawThinEdge(QPainter& painter, const QRect& place, bool isRaised) {
  const QColor lit = ColorOf(isRaised ? color::Highlight : color::Shadow);
  const QColor dark = ColorOf(isRaised ? color::Shadow : color::Highlight);
  painter.fillRect(place.left(), place.top(), place.width(), 1, lit);
  painter.fillRect(place.left(), place.top(), 1, place.height(), lit);
  painter.fillRect(place.left(), place.bottom(), place.width(), 1, dark);
  painter.fillRect(place.right(), place.top(), 1, place.height(), dark);
}

}  // namespace

std::vector<ToolbarButton> ToolbarButtonsOf(const FormNode& control, const QRect& place) {
  constexpr double separator = 3, placeholder = 4;
  constexpr double usualWidth = 609, usualHeight = 582, separatorWidth = 212;
  const int width = PixelsOfHimetric(control.Number("ButtonWidth", usualWidth));
  const int height = PixelsOfHimetric(control.Number("ButtonHeight", usualHeight));
  QPoint corner = place.topLeft() + QPoint(0, control.Flag("Style") ? 0 : 2);
  std::vector<ToolbarButton> buttons;
  for (int i = 1, count = CountOf(control, "Buttons.NumButtons", 0); i <= count; ++i) {
    if (!control.Flag(Part("Buttons.Button", i, "Object.Visible"), true)) continue;
    const double style = control.Number(Part("Buttons.Button", i, "Style"));
    int taken = style == separator ? PixelsOfHimetric(separatorWidth) : width;
    if (style == placeholder) taken = PixelsOfHimetric(control.Number(Part("Buttons.Button", i, "Object.Width")));
    const bool isButton = style != separator && style != placeholder;
    if (isButton && corner.x() + taken > place.right() + 1) corner = {place.left(), corner.y() + height};
    if (isButton) buttons.push_back({i, QRect(corner, QSize(taken, height))});
    corner.rx() += taken;
  }
  return buttons;
}

void DrawToolbar(QPainter& painter, const FormNode& control, const QRect& place) {
  painter.fillRect(place, ColorOf(color::Face));
  if (control.Flag("BorderStyle")) DrawThinEdge(painter, place, true);
  for (const ToolbarButton& button : ToolbarButtonsOf(control, place)) {
    DrawThinEdge(painter, button.Place, control.Number(Part("Buttons.Button", button.Number, "Value")) == 0);
    DrawText(painter, button.Place.adjusted(2, 0, -2, -2), Qt::AlignHCenter | Qt::AlignBottom | Qt::TextSingleLine,
             control.Text(Part("Buttons.Button", button.Number, "Caption")), control, color::ButtonText);
  }
}

// Panels that take what is left share it.
void DrawStatusBar(QPainter& painter, const FormNode& control, const QRect& place) {
  constexpr double simple = 1, spring = 1, usualWidth = 2540;
  painter.fillRect(place, ColorOf(color::Face));
  const QRect inside = place.adjusted(0, Gap, -Gap, 0);
  const auto draw = [&](const QRect& panel, const std::string& text) {
    DrawThinEdge(painter, panel, false);
    DrawText(painter, panel.adjusted(3, 0, -3, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text, control,
             color::ButtonText);
  };
  if (control.Number("Style") == simple) return draw(inside, control.Text("SimpleText"));
  const int count = CountOf(control, "Panels.NumPanels", 1);
  const auto widthOf = [&](int panel) {
    return PixelsOfHimetric(control.Number(Part("Panels.Panel", panel, "Object.Width"), usualWidth));
  };
  const auto isSpring = [&](int panel) { return control.Number(Part("Panels.Panel", panel, "AutoSize")) == spring; };
  int rest = inside.width(), springs = 0;
  for (int i = 1; i <= count; ++i) isSpring(i) ? ++springs : rest -= widthOf(i);
  int left = inside.left();
  for (int i = 1; i <= count; ++i) {
    const int width = isSpring(i) ? std::max(rest / springs, 0) : widthOf(i);
    draw(QRect(left, inside.top(), width - Gap, inside.height()), control.Text(Part("Panels.Panel", i, "Text")));
    left += width;
  }
}

void DrawProgressBar(QPainter& painter, const FormNode& control, const QRect& place) {
  painter.fillRect(place, ColorOf(color::Face));
  DrawThinEdge(painter, place, false);
  if (control.Flag("BorderStyle")) DrawFrame(painter, place, ColorOf(color::WindowText));
}

void DrawUpDown(QPainter& painter, const FormNode& control, const QRect& place) {
  const bool isEnabled = control.Flag("Enabled", true);
  const bool isLying = control.Flag("Orientation");
  const QRect first(place.topLeft(),
                    isLying ? QSize(place.width() / 2, place.height()) : QSize(place.width(), place.height() / 2));
  const QRect second = isLying ? place.adjusted(first.width(), 0, 0, 0) : place.adjusted(0, first.height(), 0, 0);
  DrawArrowButton(painter, first, isLying ? Direction::Left : Direction::Up, isEnabled);
  DrawArrowButton(painter, second, isLying ? Direction::Right : Direction::Down, isEnabled);
}

void DrawSlider(QPainter& painter, const FormNode& control, const QRect& place) {
  constexpr int margin = 10, thickness = 4;
  painter.fillRect(place, ColorOf(color::Face));
  const bool isUpright = control.Flag("Orientation");
  const QPoint start = place.topLeft() + QPoint(margin, margin);
  const QRect groove = isUpright ? QRect(start, QSize(thickness, place.height() - 2 * margin))
                                 : QRect(start, QSize(place.width() - 2 * margin, thickness));
  DrawEdge(painter, groove, Edge::Sunken);
  const QRect thumb =
      isUpright ? QRect(groove.left() - 8, groove.top(), 20, 10) : QRect(groove.left(), groove.top() - 8, 10, 20);
  painter.fillRect(thumb, ColorOf(color::Face));
  DrawEdge(painter, thumb, Edge::Raised);
}

void DrawGrid(QPainter& painter, const FormNode& control, const QRect& place) {
  constexpr int columnWidth = 64, rowHeight = 16;
  constexpr std::uint32_t gridLine = 0xC0C0C0;
  painter.fillRect(place, ColorOf(control, "BackColorBkg", color::Shadow));
  DrawEdge(painter, place, control.Flag("Appearance", true) ? Edge::Sunken : Edge::Flat);
  const QRect inside = place.adjusted(2, 2, -2, -2);
  painter.save();
  painter.setClipRect(inside, Qt::IntersectClip);
  const int rows = CountOf(control, "Rows", 2), columns = CountOf(control, "Cols", 2);
  const int fixedRows = CountOf(control, "FixedRows", 1), fixedColumns = CountOf(control, "FixedCols", 1);
  for (int row = 0; row < rows && row * rowHeight < inside.height(); ++row) {
    for (int column = 0; column < columns && column * columnWidth < inside.width(); ++column) {
      const QRect cell(inside.left() + column * columnWidth, inside.top() + row * rowHeight, columnWidth, rowHeight);
      const bool isFixed = row < fixedRows || column < fixedColumns;
      painter.fillRect(cell, isFixed ? ColorOf(control, "BackColorFixed", color::Face)
                                     : ColorOf(control, "BackColor", color::Window));
      const QColor line = ColorOf(isFixed ? color::WindowText : gridLine);
      painter.fillRect(cell.left(), cell.bottom(), cell.width(), 1, line);
      painter.fillRect(cell.right(), cell.top(), 1, cell.height(), line);
    }
  }
  painter.restore();
}

}  // namespace formwizard::apps::desktop
