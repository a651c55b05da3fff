#include "apps/desktop/basics/Seen.h"

#include <QEvent>

#include <utility>

namespace formwizard::apps::desktop {
namespace {

class Watcher final : public QObject {
 public:
  Watcher(QWidget& widget, std::function<void(bool)> tell) : QObject(&widget), tell_(std::move(tell)) {
    widget.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    const bool isShown = event->type() == QEvent::Show;
    // A window that is iconified has nothing else in front.
    if ((isShown || event->type() == QEvent::Hide) && !event->spontaneous()) tell_(isShown);
    return false;
  }

 private:
  std::function<void(bool)> tell_;
};

}  // namespace

void WhenSeen(QWidget& widget, std::function<void(bool)> tell) {
  tell(widget.isVisible());
  new Watcher(widget, std::move(tell));  // the widget's
}

}  // namespace formwizard::apps::desktop
