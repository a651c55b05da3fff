#include "apps/desktop/dictionary/WizardOpening.h"

#include "adapters/qt/FormWindow.h"

#include <QTimer>

namespace formwizard::apps::desktop {

void WizardOpening::Opened(ui::Form& form, QWidget& window) {
  next_.Opened(form, window);
  auto* dialog = dynamic_cast<wizard::frmWizard*>(&form);
  auto* shown = dynamic_cast<adapters::qt::FormWindow*>(&window);
  if (!dialog || !shown) return;
  const Played played = std::exchange(played_, {});
  if (!played.Play) return;
  QTimer::singleShot(0, shown, [dialog, shown, played] {  // when it hears of the user
    shown->Act([&] { played.Play(*dialog); });
    if (played.Then) played.Then();
  });
}

}  // namespace formwizard::apps::desktop
