// Opens the wizard with a class chosen, as a user would choose it.
#pragma once

#include "adapters/qt/DialogWatcher.h"

#include <string>

namespace formwizard::apps::desktop {

class WizardOpening : public adapters::qt::DialogWatcher {
 public:
  // Everything is passed on to `next`, which must outlive this object.
  explicit WizardOpening(adapters::qt::DialogWatcher& next) : next_(next) {}

  // The next wizard that opens goes on to the properties of this class, or as far on the way as it can.
  void Choose(std::string system, std::string className) {
    system_ = std::move(system);
    class_ = std::move(className);
  }

  void Opened(ui::Form& form, QWidget& window) override;
  void Acting() override { next_.Acting(); }
  void Acted() override { next_.Acted(); }
  void Closed(ui::Form& form) override { next_.Closed(form); }

 private:
  adapters::qt::DialogWatcher& next_;
  std::string system_, class_;
};

}  // namespace formwizard::apps::desktop
