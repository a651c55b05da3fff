#include "apps/desktop/formview/HiddenStrip.h"

#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/formview/ControlPictures.h"
#include "apps/desktop/formview/FormMenus.h"
#include "apps/desktop/formview/TextLayout.h"

#include <QLabel>

namespace formwizard::apps::desktop {
namespace {

bool IsHidden(const PlacedNode& place) {
  return !IsVisible(*place.Node) || (!IsMenu(*place.Node) && IsInvisibleAtRunTime(*place.Node));
}

// What is on a hidden container goes without saying.
bool IsNamed(const std::vector<PlacedNode>& places, std::size_t index) {
  return IsHidden(places[index]) && !places[places[index].Container].Seen.isEmpty();
}

}  // namespace

HiddenStrip::HiddenStrip(FormCanvas& canvas) : canvas_(canvas) {
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setAccessibleName(canvas.Said()(T::ViewNotVisible));
  setIconSize(QSize(16, 16));
}

void HiddenStrip::Refill() {
  clear();
  auto* title = new QLabel(canvas_.Said()(T::ViewNotVisible));
  title->setContentsMargins(4, 0, 4, 0);
  addWidget(title);
  // Menus first, which lead somewhere.
  const std::vector<PlacedNode>& places = canvas_.Places();
  for (const bool menus : {true, false}) {
    for (std::size_t i = 1; i < places.size(); ++i) {
      if (IsMenu(*places[i].Node) == menus && IsNamed(places, i)) Add(i);
    }
  }
  SetWanted(isWanted_);
}

void HiddenStrip::SetWanted(bool wanted) {
  isWanted_ = wanted;
  setVisible(wanted && actions().size() > 1);
}

void HiddenStrip::Add(std::size_t index) {
  const adapters::vb6files::FormNode& node = *canvas_.Places()[index].Node;
  QAction* action = addAction(IconNamed(IsMenu(node) ? "popup-menu" : "control"), ShownText(node.Name));
  action->setCheckable(true);
  action->setData(static_cast<qulonglong>(index));
  action->setToolTip(ShownText(node.Class));
  connect(action, &QAction::triggered, this, [this, action, index] {
    canvas_.Select(index);
    ShowSelection();  // a second click leaves it chosen
    const adapters::vb6files::FormNode& chosen = *canvas_.Places()[index].Node;
    const QWidget* button = widgetForAction(action);
    if (IsMenu(chosen)) PopUpMenu(*this, chosen, button->mapToGlobal(QPoint(0, 0)), canvas_.OnHandlerWanted);
  });
}

void HiddenStrip::ShowSelection() {
  for (QAction* action : actions()) {
    action->setChecked(action->isCheckable() && action->data().toULongLong() == canvas_.Selected());
  }
}

}  // namespace formwizard::apps::desktop
