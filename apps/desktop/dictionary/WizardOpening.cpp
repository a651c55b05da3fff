#include "apps/desktop/dictionary/WizardOpening.h"

#include "adapters/qt/FormWindow.h"
#include "wizard/frmWizard.h"

#include <QTimer>

#include <utility>

namespace formwizard::apps::desktop {
namespace {

bool ClickNode(ui::TreeView& tree, const auto& isMeant) {
  for (ui::Node& node : tree.Nodes.All()) {
    if (!isMeant(node)) continue;
    tree.ClickNode(node);
    return true;
  }
  return false;
}

void Play(wizard::frmWizard& dialog, const std::string& system, const std::string& className) {
  dialog.cmdNext.Click();
  if (!ClickNode(dialog.tvwConnection, [&](const ui::Node& node) { return node.Text.Get() == system; })) return;
  dialog.cmdNext.Click();
  if (!dialog.IsConnected()) return;
  if (!ClickNode(dialog.tvwClasses, [&](const ui::Node& node) { return node.Tag == className; })) return;
  dialog.cmdNext.Click();
}

}  // namespace

void WizardOpening::Opened(ui::Form& form, QWidget& window) {
  next_.Opened(form, window);
  auto* dialog = dynamic_cast<wizard::frmWizard*>(&form);
  auto* shown = dynamic_cast<adapters::qt::FormWindow*>(&window);
  const std::string system = std::exchange(system_, ""), name = std::exchange(class_, "");
  if (!dialog || !shown || name.empty()) return;
  QTimer::singleShot(0, shown, [dialog, shown, system, name] {  // when it hears of the user
    shown->Act([&] { Play(*dialog, system, name); });
  });
}

}  // namespace formwizard::apps::desktop
