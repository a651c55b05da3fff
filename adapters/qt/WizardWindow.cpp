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
  LayOutSteps();
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

void WizardWindow::LayOutSteps() {
  For(dialog_.frmStep[0])->setLayout(Column({For(dialog_.lblStep1_1), For(dialog_.lblStep1_2), Part::Room()}));
  For(dialog_.frmStep[1])->setLayout(Column({For(dialog_.lblStep2A_1), Part(For(dialog_.tvwConnection), 1)}));
  For(dialog_.frmStep[2])
      ->setLayout(Column({For(dialog_.lblStep2_1), For(dialog_.lblStep2_2), Part(For(dialog_.tvwClasses), 1)}));

  QWidget* choosing[] = {For(dialog_.cmdSelectOne), For(dialog_.cmdSelectAll), For(dialog_.cmdDeSelectOne),
                         For(dialog_.cmdDeSelectAll)};
  QWidget* moving[] = {For(dialog_.cmdMoveUp), For(dialog_.cmdMoveDown)};
  const int narrow = fontMetrics().horizontalAdvance("MMMM");
  for (QWidget* button : choosing) button->setMaximumWidth(narrow);
  for (QWidget* button : moving) button->setMaximumWidth(narrow);
  auto* properties = new QGridLayout;
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
  For(dialog_.frmStep[3])->setLayout(properties);

  LayOutPanels();
  auto* attributes = new QGridLayout;
  attributes->addWidget(For(dialog_.lblStep4_1), 0, 0, 1, 2);
  attributes->addWidget(For(dialog_.lblStep4_2), 1, 0);
  attributes->addWidget(For(dialog_.lstFields), 2, 0);
  for (ui::Frame& panel : dialog_.frmProperty) attributes->addWidget(For(panel), 1, 1, 2, 1);
  attributes->setColumnStretch(0, 1);
  attributes->setColumnStretch(1, 1);
  attributes->setRowStretch(2, 1);
  For(dialog_.frmStep[4])->setLayout(attributes);

  For(dialog_.frmStep[5])
      ->setLayout(Column({For(dialog_.lblStep5_1), For(dialog_.lblStep5_2), For(dialog_.lblStep5_3), Part::Room()}));
}

void WizardWindow::LayOutPanels() {
  auto& d = dialog_;
  for (std::size_t i = 0; i < d.frmProperty.size(); ++i) {
    QVBoxLayout* column = Column({For(d.lblCaption[i]), For(d.txtCaption[i])});
    if (i == 0) Filled(column, {For(d.chkReadOnly), For(d.lblUpdateAfter), For(d.lstUpdateAfter)});
    if (i == 1) {
      Filled(column, {For(d.chkRefCombo), For(d.lblComboMsg), For(d.lblComboQuery), For(d.lstQueryName),
                      For(d.lblComboColumn), For(d.lstQueryColumn)});
    }
    if (i >= wizard::frmWizard::FirstPanelWithRows) Filled(column, {For(d.lblRowHeight[i]), For(d.txtRowHeight[i])});
    column->addStretch(1);
    For(d.frmProperty[i])->setLayout(column);
  }
}

}  // namespace formwizard::adapters::qt
