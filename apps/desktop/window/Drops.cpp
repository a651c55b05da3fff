#include "apps/desktop/window/Drops.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <utility>

namespace formwizard::apps::desktop {
namespace {

// The files among what is dropped that can be opened.
QStringList FilesIn(const QMimeData& dropped) {
  QStringList files;
  for (const QUrl& url : dropped.urls()) {
    const QString file = url.toLocalFile(), suffix = QFileInfo(file).suffix().toLower();
    if (QStringList{"vbp", "sqlite", "db", "json", "ini"}.contains(suffix)) files << file;
  }
  return files;
}

class Taker final : public QObject {
 public:
  Taker(QWidget& window, std::function<void(const QStringList&)> open) : QObject(&window), open_(std::move(open)) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
    later_.setSingleShot(true);
    later_.callOnTimeout([this] { open_(files_); });
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop) return false;
    auto* drop = static_cast<QDropEvent*>(event);
    files_ = FilesIn(*drop->mimeData());
    if (!files_.isEmpty()) drop->acceptProposedAction();
    if (event->type() == QEvent::Drop) later_.start(0);
    return true;
  }

 private:
  std::function<void(const QStringList&)> open_;
  QStringList files_;
  QTimer later_;
};

}  // namespace

void TakeDrops(QWidget& window, std::function<void(const QStringList&)> open) {
  new Taker(window, std::move(open));  // the window's
}

}  // namespace formwizard::apps::desktop
