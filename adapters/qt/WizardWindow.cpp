#include "adapters/qt/WizardWindow.h"

#include "adapters/qt/Layouts.h"

#include <QFrame>
#include <QGridLayout>

namespace formwizard::adapters::qt {
namespace {

QFrame* Line(QWidget* parent) {
  auto* line = new QFrame(parent);
  line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  return line;
}

}  // namespace

WizardWindow::WizardWindow(wizard::frmWizard& dialog, QWidget* parent) : FormWindow(dialog, parent), dialog_(dialog) {
  LayOutProperties();
  LayOutAttributes();
  for (ui::Frame& step : dialog.frmStep) LayOutColumn(step);
  auto* steps = new QGridLayout;
  for (ui::Frame& step : dialog.frmStep) steps->addWidget(For(step), 0, 0);

  For(dialog.frmCommand)
      ->setLayout(Row({For(dialog.cmdSettings), Part::Room(), For(dialog.cmdBack), For(dialog.cmdNext),
                       For(dialog.cmdFinish), For(dialog.cmdCancel)}));
  auto* all = Column(
      {Part(Row({For(dialog.picMain), Part(steps, 1)}), 1), Line(this), For(dialog.frmCommand), For(dialog.barStatus)});
  all->setContentsMargins(0, 0, 0, 0);
  all->setSpacing(0);
  setLayout(all);
  Finish();
}

// A frame whose controls need no other order has them below one another, in tab order.
void WizardWindow::LayOutColumn(ui::Frame& frame) {
  if (For(frame)->layout()) return;
  auto* column = new QVBoxLayout;
  bool hasTree = false;
  for (ui::Control* control : dialog_.Controls()) {
    if (control->Container != &frame) continue;
    const bool isTree = dynamic_cast<ui::TreeView*>(control) != nullptr;
    column->addWidget(For(*control), isTree ? 1 : 0);
    hasTree = hasTree || isTree;
  }
  if (!hasTree) column->addStretch(1);
  For(frame)->setLayout(column);
}

void WizardWindow::LayOutProperties() {
  QWidget* choosing[] = {For(dialog_.cmdSelectOne), For(dialog_.cmdSelectAll), For(dialog_.cmdDeSelectOne),
                         For(dialog_.cmdDeSelectAll)};
  QWidget* moving[] = {For(dialog_.cmdMoveUp), For(dialog_.cmdMoveDown)};
  const int narrow = fontMetrics().horizontalAdvance("MMMM");
  for (QWidget* button : choosing) button->setMaximumWidth(narrow);
  for (QWidget* button : moving) button->setMaximumWidth(narrow);
  auto* properties = new QGridLayout(For(*dialog_.tvwAttributes.Container));
  properties->addWidget(For(dialog_.lblStep3_1), 0, 0, 1, 4);
  properties->addWidget(For(dialog_.lblStep3_2), 1, 0);
  properties->addWidget(For(dialog_.lblStep3_3), 1, 2);
  properties->addWidget(For(dialog_.tvwAttributes), 2, 0);
  properties->addLayout(Column({Part::Room(), choosing[0], choosing[1], choosing[2], choosing[3], Part::Room()}), 2, 1);
  properties->addWidget(For(dialog_.lstSelected), 2, 2);
  properties->addLayout(Column({Part::Room(), moving[0], moving[1], Part::Room()}), 2, 3);
  properties->setColumnStretch(0, 1);
  properties->setColumnStretch(2, 1);
  properties->setRowStretch(2, 1);
}

void WizardWindow::LayOutAttributes() {
  for (ui::Frame& panel : dialog_.frmProperty) LayOutColumn(panel);
  auto* attributes = new QGridLayout(For(*dialog_.lstFields.Container));
  attributes->addWidget(For(dialog_.lblStep4_1), 0, 0, 1, 2);
  attributes->addWidget(For(dialog_.lblStep4_2), 1, 0);
  attributes->addWidget(For(dialog_.lstFields), 2, 0);
  for (ui::Frame& panel : dialog_.frmProperty) attributes->addWidget(For(panel), 1, 1, 2, 1);
  attributes->setColumnStretch(0, 1);
  attributes->setColumnStretch(1, 1);
  attributes->setRowStretch(2, 1);
}

}  // namespace formwizard::adapters::qt
