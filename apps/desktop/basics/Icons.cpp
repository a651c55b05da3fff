#include "apps/desktop/basics/Icons.h"

#include "apps/desktop/basics/SvgIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPalette>

#include <memory>
#include <optional>

namespace formwizard::apps::desktop {
namespace {

// Reads its picture when it is first shown: most icons of a run are not.
class IconEngine final : public QIconEngine {
 public:
  explicit IconEngine(QString name) : name_(std::move(name)) {}

  void paint(QPainter* painter, const QRect& target, QIcon::Mode mode, QIcon::State) override {
    const QPalette palette = QGuiApplication::palette();
    const QColor selected = mode == QIcon::Selected ? palette.color(QPalette::HighlightedText) : QColor();
    if (mode == QIcon::Disabled) painter->setOpacity(DisabledOpacity * painter->opacity());
    const int side = std::min(target.width(), target.height());
    const QRect square(target.center() - QPoint(side - 1, side - 1) / 2, QSize(side, side));
    Picture().Paint(*painter, square, palette.color(QPalette::WindowText), selected);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }
  QIconEngine* clone() const override { return new IconEngine(name_); }
  QString key() const override { return "ostrel-form-wizard"; }
  bool isNull() override { return false; }

 private:
  static constexpr double DisabledOpacity = 0.4;

  const SvgIcon& Picture() {
    if (!picture_) {
      QFile file(":/icons/" + name_ + ".svg");
      picture_.emplace(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }
    return *picture_;
  }

  QString name_;
  std::optional<SvgIcon> picture_;
};

}  // namespace

QIcon IconNamed(const QString& name) { return name.isEmpty() ? QIcon() : QIcon(new IconEngine(name)); }

}  // namespace formwizard::apps::desktop
