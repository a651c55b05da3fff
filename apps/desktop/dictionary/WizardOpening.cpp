#include "apps/desktop/dictionary/WizardOpening.h"

namespace formwizard::apps::desktop {

WizardOpening::WizardOpening(adapters::qt::DialogWatcher& next) : next_(next) {
  later_.setSingleShot(true);
  later_.callOnTimeout([this] { Play(); });
}

void WizardOpening::Opened(ui::Form& form, QWidget& window) {
  next_.Opened(form, window);
  auto* dialog = dynamic_cast<wizard::frmWizard*>(&form);
  auto* shown = dynamic_cast<adapters::qt::FormWindow*>(&window);
  if (!dialog || !shown || !played_.Play) return;
  dialog_ = dialog;
  window_ = shown;
  later_.start(0);  // when it hears of the user
}

void WizardOpening::Play() {
  const Played played = std::exchange(played_, {});
  if (!window_ || !played.Play) return;
  window_->Act([&] { played.Play(*dialog_); });
  if (played.Then) played.Then();
}

}  // namespace formwizard::apps::desktop
