#include "apps/desktop/formview/ShapePictures.h"

#include "apps/desktop/formview/ClassicLook.h"

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr double WidestBorder = 1000;  // pixels

std::size_t Index(const FormNode& control, std::string_view property, double missing, std::size_t count) {
  return static_cast<std::size_t>(std::clamp(control.Number(property, missing), 0.0, static_cast<double>(count - 1)));
}

QPen BorderOf(const FormNode& control) {
  constexpr std::array styles{Qt::NoPen,       Qt::SolidLine,      Qt::DashLine, Qt::DotLine,
                              Qt::DashDotLine, Qt::DashDotDotLine, Qt::SolidLine};
  constexpr double solid = 1;
  const Qt::PenStyle style = styles[Index(control, "BorderStyle", solid, styles.size())];
  const int width = static_cast<int>(std::clamp(control.Number("BorderWidth", 1), 1.0, WidestBorder));
  // A wide border is never broken.
  return QPen(ColorOf(control, "BorderColor", color::WindowText), width,
              width > 1 && style != Qt::NoPen ? Qt::SolidLine : style, Qt::FlatCap, Qt::MiterJoin);
}

QBrush FillOf(const FormNode& control) {
  constexpr std::array styles{Qt::SolidPattern, Qt::NoBrush,      Qt::HorPattern,   Qt::VerPattern,
                              Qt::BDiagPattern, Qt::FDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
  constexpr double transparent = 1;
  return QBrush(ColorOf(control, "FillColor", 0), styles[Index(control, "FillStyle", transparent, styles.size())]);
}

struct ShapeKind {
  bool IsEqualSided, IsRound, HasRoundCorners;
};
constexpr std::array Kinds{
    ShapeKind{false, false, false},  // rectangle
    ShapeKind{true, false, false},   // square
    ShapeKind{false, true, false},   // oval
    ShapeKind{true, true, false},    // circle
    ShapeKind{false, false, true},   // rounded rectangle
    ShapeKind{true, false, true},    // rounded square
};

void DrawOutline(QPainter& painter, const ShapeKind& kind, const QRect& place) {
  if (kind.IsRound) {
    painter.drawEllipse(place);
  } else if (kind.HasRoundCorners) {
    const double radius = std::min(place.width(), place.height()) / 7.0;
    painter.drawRoundedRect(place, radius, radius);
  } else {
    painter.drawRect(place);
  }
}

}  // namespace

void DrawShape(QPainter& painter, const FormNode& control, const QRect& place) {
  const ShapeKind& kind = Kinds[Index(control, "Shape", 0, Kinds.size())];
  const QPen border = BorderOf(control);
  QRect outline = place;
  if (kind.IsEqualSided) {
    const int side = std::min(place.width(), place.height());
    outline = QRect(0, 0, side, side);
    outline.moveCenter(place.center());
  }
  const int outer = border.width() / 2, inner = (border.width() + 1) / 2;
  outline.adjust(outer, outer, -inner, -inner);
  if (outline.width() <= 0 || outline.height() <= 0) return;
  painter.setRenderHint(QPainter::Antialiasing, kind.IsRound || kind.HasRoundCorners);
  painter.setPen(border);
  if (control.Flag("BackStyle")) {
    painter.setBrush(ColorOf(control, "BackColor", color::Window));
    DrawOutline(painter, kind, outline);
  }
  painter.setBrush(FillOf(control));
  DrawOutline(painter, kind, outline);
  painter.setRenderHint(QPainter::Antialiasing, false);
}

void DrawLine(QPainter& painter, const FormNode& control, const QPoint& from, const QPoint& to) {
  painter.setPen(BorderOf(control));
  painter.drawLine(from, to);
}

}  // namespace formwizard::apps::desktop
