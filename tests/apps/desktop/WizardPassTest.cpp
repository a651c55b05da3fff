// The wizard in real windows, used by keyboard alone and by mouse.
#include "tests/apps/desktop/Nameless.h"
#include "tests/apps/desktop/Users.h"
#include "tests/support/Golden.h"

#include <QAccessible>

using namespace formwizard::tests;

namespace {

// Neither a click beside all entries nor a double click with the right button does anything.
void ClickInVain(QAbstractItemView& view, QPoint entry) {
  MouseUser::Click(*view.viewport(), view.viewport()->rect().bottomRight() - QPoint(5, 5));
  CHECK(view.selectionModel()->selectedRows().size() == 1);
  MouseUser::DoubleClick(*view.viewport(), entry, Qt::RightButton);
}

void ClickInVain(int step) {
  const formwizard::wizard::frmWizard& dialog = WizardDesign();
  if (step == 2) {
    auto* systems = Find<QTreeView>(dialog.tvwConnection);
    const QPoint selected = systems->visualRect(FindItem(*systems, "Samples")).center();
    ClickInVain(*systems, selected);
    MouseUser::Click(*systems->viewport(), selected);  // which is a click on the node all the same
    CHECK(Find(dialog.barStatus)->findChild<QLabel*>()->text() == "local:samples");
  } else if (step == 4) {
    const auto* tree = Find<QTreeView>(dialog.tvwAttributes);
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QTreeView*>(tree));
    for (const auto& [property, isTicked] : {std::pair{"*Name", true}, std::pair{"DOB", false}}) {
      const QModelIndex node = FindItem(*tree, property);
      for (int child = 0; child < spoken->childCount(); ++child) {
        const QAccessibleInterface* row = spoken->child(child);
        if (row->text(QAccessible::Name) != node.data().toString()) continue;
        CHECK(row->state().checkable);
        CHECK(row->state().checked == isTicked);
      }
    }
    auto* chosen = Find<QListView>(dialog.lstSelected);
    ClickInVain(*chosen, chosen->visualRect(chosen->model()->index(0, 0)).center());
  }
}

}  // namespace

TEST_CASE("A form made by keyboard alone or by mouse is the one that the command line makes") {
  KeyboardUser keyboard;
  MouseUser mouse;
  for (User* user : std::initializer_list<User*>{&keyboard, &mouse}) {
    CAPTURE((user == &keyboard));
    const DesktopFixture desktop;
    desktop.UseWizard([user] {
      PassThroughWizard(*user, [user](int step) {
        if (dynamic_cast<MouseUser*>(user)) ClickInVain(step);
        CHECK(Nameless(*QApplication::activeModalWidget()) == "");
        CHECK(QApplication::activeModalWidget()->windowTitle().toStdString() ==
              (step == 0 ? "Ostrel Form Wizard Settings"
                         : "Ostrel Form Wizard - Step " + std::to_string(step) + " of 6"));
      });
      user->Press(WizardDesign().cmdFinish);
    });
    CHECK_FALSE(QApplication::activeModalWidget());
    desktop.Save();
    CheckSameFiles(OwnFiles(desktop.Home), FilesIn(SourceFolder() + "/tests/golden/addin-project"));
  }
}
