// Has the wizard open somewhere on its way, as a user would bring it there.
#pragma once

#include "adapters/qt/DialogWatcher.h"
#include "adapters/qt/FormWindow.h"
#include "wizard/frmWizard.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <utility>

namespace formwizard::apps::desktop {

class WizardOpening : public adapters::qt::DialogWatcher {
 public:
  // Everything is passed on to `next`, which must outlive this object.
  explicit WizardOpening(adapters::qt::DialogWatcher& next);

  struct Played {
    std::function<void(wizard::frmWizard&)> Play;
    std::function<void()> Then;  // once it hears of the user again; null for nothing
  };
  // The next wizard that opens is brought on its way. An empty one: no longer.
  void PlayNext(Played played) { played_ = std::move(played); }

  void Opened(ui::Form& form, QWidget& window) override;
  void Acting() override { next_.Acting(); }
  void Acted() override { next_.Acted(); }
  void Closed(ui::Form& form) override { next_.Closed(form); }

 private:
  void Play();

  adapters::qt::DialogWatcher& next_;
  Played played_;
  wizard::frmWizard* dialog_ = nullptr;  // while its window is there
  QPointer<adapters::qt::FormWindow> window_ = nullptr;
  QTimer later_;
};

}  // namespace formwizard::apps::desktop
