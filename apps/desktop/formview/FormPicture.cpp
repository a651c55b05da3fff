#include "apps/desktop/formview/FormPicture.h"

#include "apps/desktop/formview/ClassicLook.h"
#include "apps/desktop/formview/ControlPictures.h"
#include "apps/desktop/formview/FormPlaces.h"
#include "apps/desktop/formview/ShapePictures.h"
#include "apps/desktop/formview/StoredPictures.h"
#include "apps/desktop/formview/TextLayout.h"

#include <QLinearGradient>

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr int IconSize = 16;

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

void DrawTitleBar(QPainter& painter, const FormNode& form, const QRect& place, const StoredPictures& pictures) {
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
      const QRect icon(bar.left() + 2, bar.top() + 1, IconSize, IconSize);
      if (const QImage* stored = pictures.Find(form, "Icon")) {
        painter.drawImage(icon, stored->scaled(icon.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
      } else {
        DrawWindowIcon(painter, icon);
      }
      text.setLeft(bar.left() + 2 + IconSize + 2);
    }
  }
  FormNode title;  // always in the system's own font and colour
  title.Properties = {{"Font.Weight", "700"}};
  DrawText(painter, text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, form.Text("Caption"), title,
           color::TitleText);
}

void DrawMenuBar(QPainter& painter, const FormNode& form, const QRect& bar) {
  for (const auto& [menu, place] : MenuTitlesOf(form, bar)) {
    DrawText(painter, place.intersected(bar), Qt::AlignCenter | Qt::TextSingleLine | WithAccessKey,
             menu->Text("Caption"), *menu, color::MenuText);
  }
}

// Draws the controls and remembers where the tab key stops.
class ControlPainter {
 public:
  ControlPainter(QPainter& painter, const PictureOptions& options, const StoredPictures& pictures)
      : painter_(painter), options_(options), pictures_(pictures) {}

  void DrawOn(const FormNode& container, const QRect& client) {
    painter_.save();
    painter_.setClipRect(client, Qt::IntersectClip);
    ForEachFromBack(container, [&](const FormNode& child) {
      if (!IsLine(child)) {
        Draw(child, PlaceOf(child, container, client), client);
      } else if (IsVisible(child)) {
        const auto [from, to] = EndsOf(child, container, client);
        DrawLine(painter_, child, from, to);
      }
    });
    painter_.restore();
  }

  void DrawTabOrder() const {
    FormNode badge;
    badge.Properties = {{"Font.Weight", "700"}, {"ForeColor", "&H00FFFFFF&"}};
    const int height = HeightOfLine(badge);
    for (const Stop& stop : stops_) {
      const QRect place(stop.Place.left(), stop.Place.top(), WidthOfLine(badge, stop.Index) + 6, height);
      painter_.fillRect(place, QColor(0x00, 0x00, 0x80));
      DrawText(painter_, place, Qt::AlignCenter, stop.Index, badge, color::Highlight);
    }
  }

 private:
  struct Stop {
    QRect Place;
    std::string Index;
  };

  void Draw(const FormNode& control, const QRect& place, const QRect& client) {
    if (!IsVisible(control) || !place.intersects(client)) return;
    if (IsInvisibleAtRunTime(control) && !options_.ShowInvisible) return;
    painter_.save();
    painter_.setClipRect(place, Qt::IntersectClip);
    DrawControl(painter_, control, place);
    DrawStoredPicture(painter_, control, InsideOf(control, place), pictures_);
    if (options_.OutlineLabels && IsBorderlessLabel(control)) {
      painter_.setPen(QPen(ColorOf(color::Shadow), 1, Qt::DotLine));
      painter_.setBrush(Qt::NoBrush);
      painter_.drawRect(place.adjusted(0, 0, -1, -1));
    }
    if (!control.Children.empty()) DrawOn(control, InsideOf(control, place));
    painter_.restore();
    if (TakesFocus(control)) stops_.push_back({place, control.Text("TabIndex")});
  }

  QPainter& painter_;
  const PictureOptions& options_;
  const StoredPictures& pictures_;
  std::vector<Stop> stops_;
};

}  // namespace

QSize PictureSize(const FormNode& form, double scale) {
  const QSize size = WindowParts(form).Outer.size();
  const double fitted = FittedScale(form, scale);
  const auto side = [&](int pixels) {
    return std::clamp(static_cast<int>(std::ceil(pixels * fitted - 1e-6)), 1, LargestSide);
  };
  return {side(size.width()), side(size.height())};
}

void DrawForm(QPainter& painter, const FormNode& form, const PictureOptions& options) {
  const WindowParts window(form);
  const double scale = FittedScale(form, options.Scale);
  painter.save();
  painter.scale(scale, scale);
  painter.fillRect(window.Outer, ColorOf(color::Face));
  if (BorderOfWindow(form) > 0) DrawEdge(painter, window.Outer, Edge::Raised);
  const std::optional<StoredPictures> read =
      options.Pictures ? std::nullopt : std::optional<StoredPictures>(std::in_place, form);
  const StoredPictures& pictures = options.Pictures ? *options.Pictures : *read;
  DrawTitleBar(painter, form, window.Caption, pictures);
  DrawMenuBar(painter, form, window.MenuBar);
  painter.fillRect(window.Client, ColorOf(form, "BackColor", color::Face));
  DrawStoredPicture(painter, form, window.Client, pictures);
  ControlPainter controls(painter, options, pictures);
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
