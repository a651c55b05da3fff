#include "apps/desktop/basics/Icons.h"

#include "adapters/qt/Pictures.h"
#include "apps/desktop/basics/SvgIcon.h"

#include <QFile>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <memory>

namespace formwizard::apps::desktop {
namespace {

SvgIcon PictureNamed(const QString& name) {
  QFile file(":/icons/" + name + ".svg");
  return SvgIcon(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
}

}  // namespace

// Its picture is read when it is first shown: most icons of a run are not.
QIcon IconNamed(const QString& name) {
  if (name.isEmpty()) return {};
  return adapters::qt::DrawnIcon([name, read = std::shared_ptr<const SvgIcon>()](QPainter& painter, const QRect& target,
                                                                                 QIcon::Mode mode) mutable {
    if (!read) read = std::make_shared<const SvgIcon>(PictureNamed(name));
    const QPalette palette = QGuiApplication::palette();
    const QColor selected = mode == QIcon::Selected ? palette.color(QPalette::HighlightedText) : QColor();
    const int side = std::min(target.width(), target.height());
    const QRect square(target.center() - QPoint(side - 1, side - 1) / 2, QSize(side, side));
    read->Paint(painter, square, palette.color(QPalette::WindowText), selected);
  });
}

}  // namespace formwizard::apps::desktop
