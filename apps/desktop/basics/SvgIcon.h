// The few parts of SVG that the program's icons are drawn with.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

#include <vector>

namespace formwizard::apps::desktop {

// Rectangles, ellipses, circles and paths of M, L, C and Z with absolute coordinates, in a square of 16.
class SvgIcon {
 public:
  // The text of a file that this program brings along; what is none of the above is left out.
  explicit SvgIcon(const QByteArray& svg);

  // Fills the rectangle; `text` takes the place of "currentColor". When `only` is valid, it takes the place of all
  // colours, unless there is a white sign on a badge.
  void Paint(QPainter& painter, const QRectF& target, const QColor& text, const QColor& only) const;

 private:
  struct Ink {
    QColor Colour;  // invalid: none, or the text's where IsText is set
    bool IsText = false;
    double Opacity = 1;
  };
  struct Shape {
    QPainterPath Path;
    Ink Fill, Stroke;
    QPen Pen;  // all of the stroke but its colour
  };
  static Ink InkNamed(const QString& name, const QString& opacity);

  std::vector<Shape> shapes_;
  bool isBadge_ = false;
};

}  // namespace formwizard::apps::desktop
