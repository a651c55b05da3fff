#include "apps/desktop/formview/FormMenus.h"

#include "apps/desktop/formview/FormPlaces.h"
#include "apps/desktop/formview/TextLayout.h"

#include <QMenu>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;
using OnEntry = std::function<void(const FormNode& entry)>;

void Fill(QMenu& menu, const FormNode& node, const OnEntry& onEntry) {
  for (const FormNode& child : node.Children) {
    const QString caption = ShownText(child.Text("Caption"));
    if (!IsVisible(child)) continue;
    if (caption == "-") {
      menu.addSeparator();
      continue;
    }
    QAction* action = child.Children.empty() ? menu.addAction(caption) : nullptr;
    if (!action) {
      QMenu* below = menu.addMenu(caption);
      Fill(*below, child, onEntry);
      action = below->menuAction();
    }
    action->setCheckable(child.Flag("Checked"));
    action->setChecked(child.Flag("Checked"));
    action->setEnabled(child.Flag("Enabled", true));
    const FormNode* entry = &child;
    QObject::connect(action, &QAction::triggered, &menu, [entry, onEntry] {
      if (onEntry) onEntry(*entry);
    });
  }
}

}  // namespace

void PopUpMenu(QWidget& owner, const FormNode& menu, const QPoint& place, const OnEntry& onEntry) {
  auto* popup = new QMenu(&owner);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  popup->setAccessibleName(WithoutMarks(ShownText(menu.Text("Caption"))));
  Fill(*popup, menu, onEntry);
  popup->popup(place);
}

}  // namespace formwizard::apps::desktop
