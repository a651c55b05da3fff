#include "apps/desktop/formview/SvgPicture.h"

#include <QBuffer>
#include <QFont>
#include <QLinearGradient>
#include <QPaintEngine>
#include <QPainterPath>
#include <QXmlStreamWriter>

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace formwizard::apps::desktop {
namespace {

constexpr double DotsPerInch = 96, MillimetresPerInch = 25.4;

// A tile of a pattern, which repeats in both directions.
struct Tile {
  Qt::BrushStyle Style;
  int Side;
  const char* Lines;
};
constexpr std::array Tiles{
    Tile{Qt::Dense4Pattern, 2, "M0 .5H1M1 1.5H2"},
    Tile{Qt::HorPattern, 8, "M0 3.5H8"},
    Tile{Qt::VerPattern, 8, "M3.5 0V8"},
    Tile{Qt::CrossPattern, 8, "M0 3.5H8M3.5 0V8"},
    Tile{Qt::BDiagPattern, 8, "M-1 9L9 -1"},
    Tile{Qt::FDiagPattern, 8, "M-1 -1L9 9"},
    Tile{Qt::DiagCrossPattern, 8, "M-1 9L9 -1M-1 -1L9 9"},
};

QString Number(double value) { return QString::number(value, 'g', 7); }
QString Pair(double x, double y) { return Number(x) + ' ' + Number(y); }
QString Reference(const QString& id) { return "url(#" + id + ')'; }

using Attributes = std::vector<std::pair<const char*, QString>>;

Attributes PlaceOf(const QRectF& rect) {
  return {{"x", Number(rect.x())},
          {"y", Number(rect.y())},
          {"width", Number(rect.width())},
          {"height", Number(rect.height())}};
}

QString DataOf(const QPainterPath& path) {
  QString data;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element at = path.elementAt(i);
    if (at.isMoveTo()) data += 'M';
    if (at.isLineTo()) data += 'L';
    if (at.isCurveTo()) data += 'C';
    data += Pair(at.x, at.y) + ' ';  // of a curve two more points follow
  }
  return data;
}

// Without the characters that no document can hold.
QString Writable(QString text) {
  text.removeIf([](QChar c) {
    const char16_t code = c.unicode();
    return (code < 0x20 && code != '\t' && code != '\n' && code != '\r') || code >= 0xFFFE;
  });
  return text;
}

QString FamiliesOf(const QFont& font) {
  QStringList families;
  for (const QString& family : font.families()) {
    families << '\'' + Writable(family).remove('\'').remove('\\') + '\'';
  }
  families << "sans-serif";
  return families.join(", ");
}

}  // namespace

class SvgPicture::Engine : public QPaintEngine {
 public:
  Engine(const QSize& size, const QString& title) : QPaintEngine(AllFeatures), xml_(&document_) {
    xml_.setAutoFormatting(true);
    xml_.setAutoFormattingIndent(0);
    xml_.writeStartDocument();
    xml_.writeStartElement("svg");
    xml_.writeDefaultNamespace("http://www.w3.org/2000/svg");
    Write({{"width", Number(size.width())},
           {"height", Number(size.height())},
           {"viewBox", "0 0 " + Pair(size.width(), size.height())},
           {"role", "img"},
           {"fill", "none"},
           {"shape-rendering", "crispEdges"}});
    xml_.writeTextElement("title", Writable(title));
  }

  QByteArray Document() {
    xml_.writeEndDocument();
    return document_;
  }

  Type type() const override { return User; }
  bool begin(QPaintDevice*) override { return true; }
  bool end() override {
    if (std::exchange(isGroupOpen_, false)) xml_.writeEndElement();
    return true;
  }

  void updateState(const QPaintEngineState& now) override {
    transform_ = now.transform();
    pen_ = now.pen();
    brush_ = now.brush();
    const DirtyFlags changed = now.state();
    if (changed & (DirtyClipRegion | DirtyClipPath)) UpdateClip(now);
    if (changed & DirtyClipEnabled && !now.isClipEnabled()) clip_.reset();
    isSmooth_ = now.renderHints() & QPainter::Antialiasing;
  }

  void drawRects(const QRectF* rects, int count) override {
    std::for_each_n(rects, count, [&](const QRectF& rect) { Shape("rect", PlaceOf(rect)); });
  }

  void drawPath(const QPainterPath& path) override { Shape("path", {{"d", DataOf(path)}}); }

  void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override {
    QString places;
    std::for_each_n(points, count, [&](const QPointF& point) { places += Pair(point.x(), point.y()) + ' '; });
    const bool isOpen = mode == PolylineMode;
    if (isOpen) brush_ = Qt::NoBrush;
    Shape(isOpen ? "polyline" : "polygon", {{"points", places}});
  }

  // Another font may stand in for this one where the picture is looked at; its letters get the places of these.
  void drawTextItem(const QPointF& place, const QTextItem& item) override {
    if (!OpenGroup()) return;
    const QFont font = item.font();
    xml_.writeStartElement("text");
    // Not every viewer heeds the length of a text: what was drawn narrower is so by its own scale.
    const double stretch = font.stretch() > 0 ? font.stretch() / 100.0 : 1;
    Write({{"x", Number(place.x() / stretch)},
           {"y", Number(place.y())},
           {"fill", pen_.color().name()},
           {"font-family", FamiliesOf(font)},
           {"font-size", Number(font.pixelSize())},
           {"font-weight", font.bold() ? "bold" : "normal"},
           {"font-style", font.italic() ? "italic" : "normal"},
           {"textLength", Number(item.width() / stretch)},
           {"lengthAdjust", "spacingAndGlyphs"},
           {"xml:space", "preserve"}});
    if (stretch != 1) Write({{"transform", "scale(" + Number(stretch) + " 1)"}});
    xml_.writeCharacters(Writable(item.text()));
    xml_.writeEndElement();
  }

  // The whole image, whatever the part that is asked for.
  void drawImage(const QRectF& place, const QImage& image, const QRectF&, Qt::ImageConversionFlags) override {
    if (!OpenGroup()) return;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    xml_.writeEmptyElement("image");
    Write(PlaceOf(place));
    Write(
        {{"preserveAspectRatio", "none"}, {"href", "data:image/png;base64," + QString::fromLatin1(bytes.toBase64())}});
  }
  void drawPixmap(const QRectF& place, const QPixmap& pixmap, const QRectF& part) override {
    drawImage(place, pixmap.toImage(), part, Qt::AutoColor);
  }

 private:
  void Write(const Attributes& attributes) {
    for (const auto& [name, value] : attributes) xml_.writeAttribute(name, value);
  }

  void UpdateClip(const QPaintEngineState& now) {
    if (now.clipOperation() == Qt::NoClip) return clip_.reset();
    const bool isPath = now.state() & DirtyClipPath;
    const QRectF area = isPath ? now.clipPath().boundingRect() : QRectF(now.clipRegion().boundingRect());
    const QRectF here = transform_.mapRect(area);
    clip_ = now.clipOperation() == Qt::IntersectClip && clip_ ? clip_->intersected(here) : here;
  }

  // What follows is drawn under the clip and the transformation in force; false where nothing of it is seen.
  bool OpenGroup() {
    if (clip_ && clip_->isEmpty()) return false;
    const auto wanted = std::pair(clip_, transform_);
    if (isGroupOpen_ && wanted == group_) return true;
    if (std::exchange(isGroupOpen_, true)) xml_.writeEndElement();
    group_ = wanted;
    xml_.writeStartElement("g");
    if (!transform_.isIdentity()) {
      Write({{"transform", "matrix(" + Pair(transform_.m11(), transform_.m12()) + ' ' +
                               Pair(transform_.m21(), transform_.m22()) + ' ' + Pair(transform_.dx(), transform_.dy()) +
                               ')'}});
    }
    if (!clip_) return true;
    const QString id = NewId();
    Write({{"clip-path", Reference(id)}});
    xml_.writeStartElement("clipPath");
    Write({{"id", id}});
    xml_.writeEmptyElement("rect");
    Write(PlaceOf(transform_.inverted().mapRect(*clip_)));
    xml_.writeEndElement();
    return true;
  }

  void Shape(const char* element, const Attributes& geometry) {
    if (!OpenGroup()) return;
    const QString fill = Fill();
    xml_.writeEmptyElement(element);
    Write(geometry);
    if (brush_.style() != Qt::NoBrush) Write({{"fill", fill}});
    if (isSmooth_) Write({{"shape-rendering", "geometricPrecision"}});
    if (pen_.style() != Qt::NoPen) WriteStroke();
  }

  void WriteStroke() {
    const int width = std::max(pen_.width(), 1);
    Write({{"stroke", pen_.color().name()}, {"stroke-width", Number(width)}});
    // Such a line covers whole pixels, right of and below its place.
    if (!isSmooth_ && width % 2 == 1) Write({{"transform", "translate(.5 .5)"}});
    QStringList dashes;
    for (const double length : pen_.dashPattern()) dashes << Number(length * width);
    if (!dashes.isEmpty()) Write({{"stroke-dasharray", dashes.join(' ')}});
  }

  // What the attribute says; a gradient or pattern is defined before.
  QString Fill() {
    const Qt::BrushStyle style = brush_.style();
    if (style == Qt::NoBrush || style == Qt::SolidPattern) return brush_.color().name();
    const QString id = NewId();
    if (style == Qt::LinearGradientPattern) {
      DefineGradient(id, *static_cast<const QLinearGradient*>(brush_.gradient()));
    } else {
      DefinePattern(id, style);
    }
    return Reference(id);
  }

  void DefineGradient(const QString& id, const QLinearGradient& gradient) {
    xml_.writeStartElement("linearGradient");
    Write({{"id", id},
           {"gradientUnits", "userSpaceOnUse"},
           {"x1", Number(gradient.start().x())},
           {"y1", Number(gradient.start().y())},
           {"x2", Number(gradient.finalStop().x())},
           {"y2", Number(gradient.finalStop().y())}});
    for (const auto& [offset, color] : gradient.stops()) {
      xml_.writeEmptyElement("stop");
      Write({{"offset", Number(offset)}, {"stop-color", color.name()}});
    }
    xml_.writeEndElement();
  }

  void DefinePattern(const QString& id, Qt::BrushStyle style) {
    const auto tile = std::ranges::find(Tiles, style, &Tile::Style);
    if (tile == Tiles.end()) throw std::logic_error("an SVG picture has no such pattern");
    const QString side = Number(tile->Side);
    xml_.writeStartElement("pattern");
    Write({{"id", id}, {"patternUnits", "userSpaceOnUse"}, {"width", side}, {"height", side}});
    xml_.writeEmptyElement("path");
    Write({{"d", tile->Lines}, {"stroke", brush_.color().name()}});
    xml_.writeEndElement();
  }

  QString NewId() { return 'd' + QString::number(++ids_); }

  QByteArray document_;
  QXmlStreamWriter xml_;
  QTransform transform_;
  QPen pen_;
  QBrush brush_;
  std::optional<QRectF> clip_;
  std::pair<std::optional<QRectF>, QTransform> group_;
  bool isGroupOpen_ = false, isSmooth_ = false;
  int ids_ = 0;
};

SvgPicture::SvgPicture(const QSize& size, const QString& title)
    : size_(size), engine_(std::make_unique<Engine>(size, title)) {}
SvgPicture::~SvgPicture() = default;

QByteArray SvgPicture::Document() { return engine_->Document(); }

QPaintEngine* SvgPicture::paintEngine() const { return engine_.get(); }

int SvgPicture::metric(PaintDeviceMetric which) const {
  const auto millimetres = [](int pixels) { return static_cast<int>(pixels * MillimetresPerInch / DotsPerInch); };
  if (which == PdmWidth) return size_.width();
  if (which == PdmHeight) return size_.height();
  if (which == PdmWidthMM) return millimetres(size_.width());
  if (which == PdmHeightMM) return millimetres(size_.height());
  if (which == PdmDevicePixelRatio) return 1;
  if (which == PdmDevicePixelRatioScaled) return static_cast<int>(devicePixelRatioFScale());
  const bool isDensity = which == PdmDpiX || which == PdmDpiY || which == PdmPhysicalDpiX || which == PdmPhysicalDpiY;
  return isDensity ? static_cast<int>(DotsPerInch) : QPaintDevice::metric(which);
}

}  // namespace formwizard::apps::desktop
