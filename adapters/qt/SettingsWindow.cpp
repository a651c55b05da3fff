#include "adapters/qt/SettingsWindow.h"

#include "adapters/qt/Layouts.h"

#include <QGridLayout>

namespace formwizard::adapters::qt {

SettingsWindow::SettingsWindow(settings::frmSettings& dialog, QWidget* parent) : FormWindow(dialog, parent) {
  auto* numbers = new QGridLayout;
  int row = 0;
  const auto addNumber = [&](ui::Label& label, ui::TextBox& box, ui::UpDown& spinner) {
    numbers->addWidget(For(label), row, 0);
    For(box)->setMaximumWidth(fontMetrics().horizontalAdvance("0000000"));
    numbers->addLayout(Row({For(box), For(spinner)}), row++, 1);
  };
  addNumber(dialog.lblNumColumns, dialog.txtNumColumns, dialog.spnNumColumns);
  addNumber(dialog.lblCollectionRows, dialog.txtCollectionRows, dialog.spnCollectionRows);
  addNumber(dialog.lblImageRows, dialog.txtImageRows, dialog.spnImageRows);
  addNumber(dialog.lblMultilineRows, dialog.txtMutilineRows, dialog.spnMultilineRows);
  numbers->setColumnStretch(0, 1);
  For(dialog.fraScreenLayout)->setLayout(numbers);

  For(dialog.fraLabelAlignment)
      ->setLayout(Column({For(dialog.optLabelAlignmentLeft), For(dialog.optLabelAlignmentRight), Part::Room()}));
  For(dialog.fraFormLayout)
      ->setLayout(Column({For(dialog.chkMenu), For(dialog.chkButton), For(dialog.chkToolbar), For(dialog.chkStatusbar),
                          For(dialog.chkFormSizable)}));
  setLayout(Column({For(dialog.fraScreenLayout),
                    Part(Row({Part(For(dialog.fraLabelAlignment), 1), Part(For(dialog.fraFormLayout), 1)}), 1),
                    Row({Part::Room(), For(dialog.cmdOK), For(dialog.cmdCancel)})}));
  Finish();
}

}  // namespace formwizard::adapters::qt
