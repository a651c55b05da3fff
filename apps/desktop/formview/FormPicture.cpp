#include "apps/desktop/formview/FormPicture.h"

#include "adapters/vb6files/Scale.h"
#include "apps/desktop/formview/ClassicLook.h"
#include "apps/desktop/formview/ControlPictures.h"
#include "apps/desktop/formview/ShapePictures.h"
#include "runtime/Conversions.h"
#include "ui/WindowFrame.h"

#include <QFontMetrics>
#include <QLinearGradient>

#include <algorithm>
#include <cmath>
#include <vector>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;
using adapters::vb6files::Scale;

using ui::TwipsPerPixel;
constexpr int LargestSide = 16384;        // pixels
constexpr double LargestArea = 48.0e6;    // pixels: some 190 MB
constexpr double FarthestPlace = 100000;  // pixels: a control farther off is nowhere on a form
constexpr int MenuBarHeight = ui::MenuBarHeight / TwipsPerPixel;
constexpr int MenuPadding = 6;  // on either side of a title
constexpr int IconSize = 16;
constexpr int DesignIconSize = 32;  // of a control that is invisible at run time

constexpr std::size_t NoBorder = 0, FixedSingle = 1, Sizable = 2;

bool Is(const FormNode& node, std::string_view className) { return runtime::EqualIgnoringCase(node.Class, className); }
bool IsVisible(const FormNode& node) { return node.Flag("Visible", true); }

std::size_t BorderStyleOf(const FormNode& form) {
  // A user control has no window of its own.
  if (!Is(form, "VB.Form") && !Is(form, "VB.MDIForm")) return NoBorder;
  return static_cast<std::size_t>(
      std::clamp(form.Number("BorderStyle", Sizable), 0.0, static_cast<double>(ui::WindowFrames.size() - 1)));
}
int BorderOf(const FormNode& form) { return ui::WindowFrames[BorderStyleOf(form)].Border / TwipsPerPixel; }

// Dialogs and tool windows have neither an icon nor buttons for their size.
bool IsFullWindow(const FormNode& form) {
  const std::size_t style = BorderStyleOf(form);
  return style == FixedSingle || style == Sizable;
}

std::vector<const FormNode*> MenuTitles(const FormNode& form) {
  std::vector<const FormNode*> titles;
  for (const FormNode& child : form.Children) {
    if (Is(child, "VB.Menu") && IsVisible(child) && !child.Text("Caption").empty()) titles.push_back(&child);
  }
  return titles;
}

int Pixels(double value) { return static_cast<int>(std::lround(std::clamp(value, -FarthestPlace, FarthestPlace))); }

// The parts of the window, in pixels.
struct Window {
  explicit Window(const FormNode& form) {
    const int border = BorderOf(form);
    const int caption = ui::WindowFrames[BorderStyleOf(form)].Caption / TwipsPerPixel;
    const bool hasCaption = form.Flag("ControlBox", true) || !form.Text("Caption").empty();
    const int width = std::clamp(Pixels(form.Number("ClientWidth", 4680) / TwipsPerPixel), 1, LargestSide);
    const int height = std::clamp(Pixels(form.Number("ClientHeight", 3195) / TwipsPerPixel), 1, LargestSide);
    Caption = QRect(border, border, width, hasCaption ? caption : 0);
    MenuBar = QRect(border, Caption.bottom() + 1, width, MenuTitles(form).empty() ? 0 : MenuBarHeight);
    Client = QRect(border, MenuBar.bottom() + 1, width, height);
    Outer = QRect(0, 0, width + 2 * border, Client.bottom() + 1 + border);
  }
  QRect Outer, Caption, MenuBar, Client;
};

// A wanted scale, or the largest at which the picture can be made.
double FittedScale(const QSize& size, double wanted) {
  const double width = size.width();
  const double height = size.height();
  const double scale = wanted > 0 ? wanted : 1;
  return std::min({scale, LargestSide / width, LargestSide / height, std::sqrt(LargestArea / (width * height))});
}

// In twips from the edge of the client area, whatever the scale of the container.
QRect PlaceOf(const FormNode& control, const QRect& client) {
  const auto pixels = [&](std::string_view name) { return Pixels(control.Number(name) / TwipsPerPixel); };
  const QPoint corner = client.topLeft() + QPoint(pixels("Left"), pixels("Top"));
  if (IsInvisibleAtRunTime(control)) return {corner, QSize(DesignIconSize, DesignIconSize)};
  return {corner, QSize(std::abs(pixels("Width")), std::abs(pixels("Height")))};
}

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

enum class TitleButton { Minimize, Maximize, Close };

void DrawTitleButton(QPainter& painter, const QRect& place, TitleButton button, bool enabled) {
  painter.fillRect(place, ColorOf(color::Face));
  DrawEdge(painter, place, Edge::Raised);
  const QColor ink = ColorOf(enabled ? color::ButtonText : color::Shadow);
  const QRect sign(place.left() + place.width() / 2 - 4, place.top() + place.height() / 2 - 4, 8, 7);
  if (button == TitleButton::Minimize) painter.fillRect(sign.left(), sign.bottom() - 1, 6, 2, ink);
  if (button == TitleButton::Maximize) {
    DrawFrame(painter, sign.adjusted(0, -1, 1, 0), ink);
    painter.fillRect(sign.left(), sign.top(), 9, 1, ink);
  }
  if (button != TitleButton::Close) return;
  for (int i = 0; i < 7; ++i) {
    painter.fillRect(sign.left() + i, sign.top() + i, 2, 1, ink);
    painter.fillRect(sign.left() + 6 - i, sign.top() + i, 2, 1, ink);
  }
}

// From the right; where the buttons begin.
int DrawTitleButtons(QPainter& painter, const FormNode& form, const QRect& bar) {
  const int height = bar.height() - 5;
  QRect place(bar.right() - 1 - (height + 2), bar.top() + 2, height + 2, height);
  DrawTitleButton(painter, place, TitleButton::Close, true);
  const bool canMinimize = form.Flag("MinButton", true);
  const bool canMaximize = form.Flag("MaxButton", true);
  if (!IsFullWindow(form) || (!canMinimize && !canMaximize)) return place.left();
  place.translate(-place.width() - 2, 0);
  DrawTitleButton(painter, place, TitleButton::Maximize, canMaximize);
  place.translate(-place.width(), 0);
  DrawTitleButton(painter, place, TitleButton::Minimize, canMinimize);
  return place.left();
}

void DrawWindowIcon(QPainter& painter, const QRect& place) {
  const QRect sheet = place.adjusted(0, 2, 0, -2);
  painter.fillRect(sheet, ColorOf(color::Window));
  painter.fillRect(sheet.left(), sheet.top(), sheet.width(), 3, QColor(0x00, 0x00, 0x80));
  DrawFrame(painter, sheet, ColorOf(color::WindowText));
}

void DrawTitleBar(QPainter& painter, const FormNode& form, const QRect& place) {
  if (place.isEmpty()) return;
  const QRect bar = place.adjusted(0, 0, 0, -1);
  QLinearGradient shade(bar.topLeft(), bar.topRight());
  shade.setColorAt(0, QColor(0x0A, 0x24, 0x6A));
  shade.setColorAt(1, QColor(0xA6, 0xCA, 0xF0));
  painter.fillRect(bar, shade);
  QRect text = bar.adjusted(2, 0, -2, 0);
  if (form.Flag("ControlBox", true)) {
    text.setRight(DrawTitleButtons(painter, form, place) - 2);
    if (IsFullWindow(form)) {
      DrawWindowIcon(painter, QRect(bar.left() + 2, bar.top() + 1, IconSize, IconSize));
      text.setLeft(bar.left() + 2 + IconSize + 2);
    }
  }
  FormNode title;  // always in the system's own font and colour
  title.Properties = {{"Font.Weight", "700"}};
  DrawText(painter, text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, form.Text("Caption"), title,
           color::TitleText);
}

void DrawMenuBar(QPainter& painter, const FormNode& form, const QRect& place) {
  QRect title = place;
  for (const FormNode* menu : MenuTitles(form)) {
    const QFontMetrics metrics(FontOf(*menu));
    const QSize size = metrics.size(WithAccessKey | Qt::TextSingleLine, ShownText(menu->Text("Caption")));
    title.setWidth(size.width() + 2 * MenuPadding);
    if (title.left() > place.right()) return;
    DrawText(painter, title.intersected(place), Qt::AlignCenter | Qt::TextSingleLine | WithAccessKey,
             menu->Text("Caption"), *menu, color::MenuText);
    title.moveLeft(title.right() + 1);
  }
}

// Draws the controls and remembers where the tab key stops.
class ControlPainter {
 public:
  ControlPainter(QPainter& painter, const PictureOptions& options) : painter_(painter), options_(options) {}

  // The front of the z-order stands first in the file, so the last one is drawn first.
  void DrawOn(const FormNode& container, const QRect& client) {
    painter_.save();
    painter_.setClipRect(client, Qt::IntersectClip);
    for (const bool lightweight : {true, false}) {
      std::for_each(container.Children.rbegin(), container.Children.rend(), [&](const FormNode& child) {
        if (IsLightweight(child) != lightweight) return;
        if (IsLine(child)) {
          DrawLineOn(child, ScaleOf(container, client), client.topLeft());
        } else {
          Draw(child, PlaceOf(child, client), client);
        }
      });
    }
    painter_.restore();
  }

  void DrawTabOrder() const {
    FormNode badge;
    badge.Properties = {{"Font.Weight", "700"}, {"ForeColor", "&H00FFFFFF&"}};
    const QFontMetrics metrics(FontOf(badge));
    for (const Stop& stop : stops_) {
      const int width = metrics.horizontalAdvance(ShownText(stop.Index)) + 6;
      const QRect place(stop.Place.left(), stop.Place.top(), width, metrics.height());
      painter_.fillRect(place, QColor(0x00, 0x00, 0x80));
      DrawText(painter_, place, Qt::AlignCenter, stop.Index, badge, color::Highlight);
    }
  }

 private:
  struct Stop {
    QRect Place;
    std::string Index;
  };

  void DrawLineOn(const FormNode& line, const Scale& scale, const QPoint& corner) {
    if (!IsVisible(line)) return;
    const auto end = [&](std::string_view x, std::string_view y) {
      return corner + QPoint(Pixels(scale.X.TwipsTo(line.Number(x)) / TwipsPerPixel),
                             Pixels(scale.Y.TwipsTo(line.Number(y)) / TwipsPerPixel));
    };
    DrawLine(painter_, line, end("X1", "Y1"), end("X2", "Y2"));
  }

  void Draw(const FormNode& control, const QRect& place, const QRect& client) {
    if (Is(control, "VB.Menu") || !IsVisible(control) || !place.intersects(client)) return;
    if (IsInvisibleAtRunTime(control) && !options_.ShowInvisible) return;
    painter_.save();
    painter_.setClipRect(place, Qt::IntersectClip);
    DrawControl(painter_, control, place);
    if (!control.Children.empty()) DrawOn(control, InsideOf(control, place));
    painter_.restore();
    if (TakesFocus(control)) stops_.push_back({place, control.Text("TabIndex")});
  }

  QPainter& painter_;
  const PictureOptions& options_;
  std::vector<Stop> stops_;
};

}  // namespace

QSize PictureSize(const FormNode& form, double scale) {
  const QSize size = Window(form).Outer.size();
  const double fitted = FittedScale(size, scale);
  const auto side = [&](int pixels) {
    return std::clamp(static_cast<int>(std::ceil(pixels * fitted - 1e-6)), 1, LargestSide);
  };
  return {side(size.width()), side(size.height())};
}

void DrawForm(QPainter& painter, const FormNode& form, const PictureOptions& options) {
  const Window window(form);
  const double scale = FittedScale(window.Outer.size(), options.Scale);
  painter.save();
  painter.scale(scale, scale);
  painter.fillRect(window.Outer, ColorOf(color::Face));
  if (BorderOf(form) > 0) DrawEdge(painter, window.Outer, Edge::Raised);
  DrawTitleBar(painter, form, window.Caption);
  DrawMenuBar(painter, form, window.MenuBar);
  painter.fillRect(window.Client, ColorOf(form, "BackColor", color::Face));
  ControlPainter controls(painter, options);
  controls.DrawOn(form, window.Client);
  if (options.ShowTabOrder) controls.DrawTabOrder();
  painter.restore();
}

QImage PictureOf(const FormNode& form, double scale, bool showTabOrder) {
  QImage image(PictureSize(form, scale), QImage::Format_RGB32);
  if (image.isNull()) return image;
  image.fill(ColorOf(color::Face));
  QPainter painter(&image);
  DrawForm(painter, form, {.Scale = scale, .ShowTabOrder = showTabOrder});
  painter.end();
  image.setDevicePixelRatio(scale > 0 ? scale : 1);
  return image;
}

}  // namespace formwizard::apps::desktop
