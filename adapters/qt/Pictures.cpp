#include "adapters/qt/Pictures.h"

#include <QIconEngine>
#include <QPixmap>

namespace formwizard::adapters::qt {
namespace {

using resources::Shape;

QPointF PointOf(const resources::Point& point) { return {point.X, point.Y}; }

class ShapeIcon : public QIconEngine {
 public:
  explicit ShapeIcon(const resources::Picture& picture) : picture_(picture) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    if (mode == QIcon::Disabled) painter->setOpacity(0.4);
    Draw(*painter, picture_, rect);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new ShapeIcon(picture_); }

 private:
  const resources::Picture& picture_;
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

QIcon IconOf(const resources::Picture* picture) { return picture ? QIcon(new ShapeIcon(*picture)) : QIcon(); }

}  // namespace formwizard::adapters::qt
