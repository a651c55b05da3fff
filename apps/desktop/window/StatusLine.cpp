#include "apps/desktop/window/StatusLine.h"

#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/PlainTip.h"

#include <QAction>

namespace formwizard::apps::desktop {
namespace {

constexpr int SuccessStays = 5000;  // milliseconds

}  // namespace

StatusLine::StatusLine(QStatusBar& bar, const Texts& texts, QAction& chooseDictionary, QAction& chooseToolbox)
    : bar_(bar),
      texts_(texts),
      place_(new QLabel),
      dictionary_(Made(chooseDictionary, "dictionary", texts(T::ChooseDictionaryTip))),
      toolbox_(Made(chooseToolbox, "toolbox", texts(T::ChooseToolboxTip))) {
  place_->setTextFormat(Qt::PlainText);
  place_->setMargin(4);
  bar_.insertWidget(0, place_, 1);
  bar_.setSizeGripEnabled(false);
  SetDictionary("");
  SetToolbox("");
}

QToolButton* StatusLine::Made(QAction& action, const QString& icon, const QString& tip) {
  auto* button = new QToolButton;
  button->setIcon(IconNamed(icon));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setToolTip(tip);
  QObject::connect(button, &QToolButton::clicked, &action, &QAction::trigger);
  bar_.addPermanentWidget(button);
  return button;
}

void StatusLine::SetPlace(const QString& text) {
  if (text != place_->text()) bar_.clearMessage();
  place_->setText(text);
}

void StatusLine::Say(const QString& text) { bar_.showMessage(text, SuccessStays); }

void StatusLine::SetDictionary(const QString& name) {
  dictionary_->setText(name.isEmpty() ? texts_(T::StatusNoDictionary) : PlainCaption(name));
}

void StatusLine::SetToolbox(const QString& name) {
  toolbox_->setText(name.isEmpty() ? texts_(T::StatusNoToolbox) : PlainCaption(name));
}

}  // namespace formwizard::apps::desktop
