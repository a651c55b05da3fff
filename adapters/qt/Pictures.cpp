#include "adapters/qt/Pictures.h"

#include <QIconEngine>
#include <QPixmap>

#include <utility>

namespace formwizard::adapters::qt {
namespace {

using resources::Shape;

QPointF PointOf(const resources::Point& point) { return {point.X, point.Y}; }

class DrawnEngine final : public QIconEngine {
 public:
  explicit DrawnEngine(IconDrawing draw) : draw_(std::move(draw)) {}

  void paint(QPainter* painter, const QRect& target, QIcon::Mode mode, QIcon::State) override {
    if (mode == QIcon::Disabled) painter->setOpacity(DisabledOpacity * painter->opacity());
    draw_(*painter, target, mode);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new DrawnEngine(draw_); }
  QString key() const override { return "ostrel-form-wizard"; }

 private:
  static constexpr double DisabledOpacity = 0.4;

  IconDrawing draw_;
};

}  // namespace

void Draw(QPainter& painter, const resources::Picture& picture, const QRectF& target) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(target.topLeft());
  painter.scale(target.width() / picture.Width, target.height() / picture.Height);
  for (const Shape& shape : picture.Shapes) {
    painter.setBrush(QColor(shape.Fill));
    painter.setPen(shape.Outline == resources::NoOutline ? QPen(Qt::NoPen) : QPen(QColor(shape.Outline), 1));
    if (shape.Form == Shape::Kind::Ellipse) {
      painter.drawEllipse(QRectF(PointOf(shape.Points.front()), PointOf(shape.Points.back())));
    } else {
      QPolygonF polygon;
      for (const resources::Point& point : shape.Points) polygon << PointOf(point);
      painter.drawPolygon(polygon);
    }
  }
  painter.restore();
}

QIcon DrawnIcon(IconDrawing draw) { return QIcon(new DrawnEngine(std::move(draw))); }

QIcon IconOf(const resources::Picture* picture) {
  if (!picture) return {};
  return DrawnIcon([picture](QPainter& painter, const QRect& target, QIcon::Mode) { Draw(painter, *picture, target); });
}

}  // namespace formwizard::adapters::qt
