#include "apps/desktop/basics/SvgIcon.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

namespace formwizard::apps::desktop {
namespace {

constexpr double Grid = 16;

double Number(const QXmlStreamAttributes& attributes, const char* name, double missing = 0) {
  return attributes.hasAttribute(name) ? attributes.value(name).toDouble() : missing;
}

// Numbers behind each letter: one point for M and L, three for C.
QPainterPath PathOf(const QString& text) {
  static const QRegularExpression step("([MLCZ])([^MLCZ]*)"), blank("[ ,]+");
  QPainterPath path;
  for (auto found = step.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch match = found.next();
    const QStringList numbers = match.captured(2).trimmed().split(blank);
    const auto point = [&](qsizetype at) {
      return QPointF(numbers.value(at).toDouble(), numbers.value(at + 1).toDouble());
    };
    switch (match.captured(1)[0].toLatin1()) {
      case 'M':
        path.moveTo(point(0));
        break;
      case 'L':
        path.lineTo(point(0));
        break;
      case 'C':
        path.cubicTo(point(0), point(2), point(4));
        break;
      default:
        path.closeSubpath();
    }
  }
  return path;
}

QPainterPath PathOf(QStringView element, const QXmlStreamAttributes& attributes) {
  QPainterPath path;
  const double rx = Number(attributes, "rx");
  if (element == u"path") return PathOf(attributes.value("d").toString());
  if (element == u"rect") {
    path.addRoundedRect(QRectF(Number(attributes, "x"), Number(attributes, "y"), Number(attributes, "width"),
                               Number(attributes, "height")),
                        rx, rx);
  }
  if (element == u"circle" || element == u"ellipse") {
    const double radius = Number(attributes, "r", rx);
    path.addEllipse(QPointF(Number(attributes, "cx"), Number(attributes, "cy")), radius,
                    Number(attributes, "ry", radius));
  }
  return path;
}

QPen PenOf(const QXmlStreamAttributes& attributes) {
  QPen pen;
  pen.setWidthF(Number(attributes, "stroke-width", 1));
  pen.setCapStyle(attributes.value("stroke-linecap") == u"round" ? Qt::RoundCap : Qt::FlatCap);
  pen.setJoinStyle(attributes.value("stroke-linejoin") == u"round" ? Qt::RoundJoin : Qt::SvgMiterJoin);
  QList<qreal> dashes;
  for (const QString& length : attributes.value("stroke-dasharray").toString().split(' ', Qt::SkipEmptyParts)) {
    dashes << length.toDouble() / pen.widthF();
  }
  if (!dashes.isEmpty()) pen.setDashPattern(dashes);
  return pen;
}

}  // namespace

SvgIcon::Ink SvgIcon::InkNamed(const QString& name, const QString& opacity) {
  Ink ink;
  ink.IsText = name == "currentColor";
  if (name.startsWith('#')) ink.Colour = QColor(name);
  if (!opacity.isEmpty()) ink.Opacity = opacity.toDouble();
  return ink;
}

SvgIcon::SvgIcon(const QByteArray& svg) : isBadge_(svg.contains("#fff")) {
  QXmlStreamReader reader(svg);
  while (!reader.atEnd()) {
    if (reader.readNext() != QXmlStreamReader::StartElement) continue;
    const QXmlStreamAttributes attributes = reader.attributes();
    Shape shape{PathOf(reader.name(), attributes), {}, {}, PenOf(attributes)};
    if (shape.Path.isEmpty()) continue;
    const auto ink = [&](const QString& name) {
      return InkNamed(attributes.value(name).toString(), attributes.value(name + "-opacity").toString());
    };
    shape.Fill = ink("fill");
    shape.Stroke = ink("stroke");
    shapes_.push_back(shape);
  }
}

void SvgIcon::Paint(QPainter& painter, const QRectF& target, const QColor& text, const QColor& only) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(target.topLeft());
  painter.scale(target.width() / Grid, target.height() / Grid);
  const auto colour = [&](const Ink& ink) {
    QColor shown = ink.IsText ? text : ink.Colour;
    if (!shown.isValid()) return QColor(Qt::transparent);
    if (only.isValid() && !isBadge_) shown = only;
    shown.setAlphaF(static_cast<float>(ink.Opacity * shown.alphaF()));
    return shown;
  };
  for (const Shape& shape : shapes_) {
    QPen pen = shape.Pen;
    pen.setColor(colour(shape.Stroke));
    painter.setPen(pen.color().alpha() == 0 ? QPen(Qt::NoPen) : pen);
    painter.setBrush(colour(shape.Fill));
    painter.drawPath(shape.Path);
  }
  painter.restore();
}

}  // namespace formwizard::apps::desktop
