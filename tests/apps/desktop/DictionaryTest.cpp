// The dictionary beside the project: looked through, searched, and a form made of what was found.
#include "tests/apps/desktop/Users.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <stdexcept>

using namespace formwizard;
using namespace formwizard::tests;
using namespace formwizard::apps::desktop;

TEST_CASE("The dictionary is looked through and searched, and Enter or the button opens the wizard with the class") {
  DesktopFixture desktop("ENU");
  desktop.Window->activateWindow();
  WaitForFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
  DictionaryPane* pane = &desktop.Window->Dictionary();
  REQUIRE(pane->isVisible());
  QApplication::processEvents();
  auto* tree = pane->findChild<QTreeView*>();
  auto* search = pane->findChild<QLineEdit*>();
  auto* button = pane->findChild<QPushButton*>("newForm");
  CHECK(tree->hasFocus());
  CHECK_FALSE(button->isVisible());
  const QAbstractItemModel& model = *tree->model();
  const QModelIndex person = FindItem(*tree, "Person", "Sample");
  CHECK(model.rowCount(person) == 0);  // not read before it is opened
  tree->setCurrentIndex(person);
  CHECK(button->isVisible());
  CHECK(button->text() == "New Form for Person...");
  tree->expand(person);
  QApplication::processEvents();
  CHECK(model.rowCount(person) > 10);
  const QModelIndex name = FindItem(*tree, "Name", "Person");
  CHECK(name.siblingAtColumn(1).data() == "String, 50");
  CHECK(FindItem(*tree, "Home", "Person").siblingAtColumn(1).data() == "Address");
  CHECK(FindItem(*tree, "ByName", "Person").siblingAtColumn(1).data() == "query");

  // By a property of a class that nobody has opened, and by nothing that there is.
  QTest::keyClicks(search, "mission");
  CHECK(QTest::qWaitFor([&] {
    return model.match(model.index(0, 0), Qt::DisplayRole, "Mission", -1, Qt::MatchContains | Qt::MatchRecursive)
               .size() == 1;
  }));
  CHECK_THROWS(FindItem(*tree, "Person"));
  const auto isSaid = [&](const QString& text) {
    const auto labels = pane->findChildren<QLabel*>();
    return std::ranges::any_of(labels, [&](auto* label) { return label->isVisible() && label->text() == text; });
  };
  search->setText("no such name");
  CHECK(QTest::qWaitFor([&] { return isSaid("No class or property contains \"no such name\"."); }));
  search->setText("sample.comp");
  CHECK(QTest::qWaitFor([&] { return tree->isVisible(); }));

  const wizard::frmWizard& dialog = WizardDesign();
  const auto title = [] { return QApplication::activeModalWidget()->windowTitle().toStdString(); };
  // Looked at again and again, because the wizard handles events while it goes on to the class, and hears of no user
  // then.
  const auto isShown = [&](const std::string& property) {
    try {
      FindItem(*Find<QTreeView>(dialog.tvwAttributes), property);
      return title() == "Ostrel Form Wizard - Step 4 of 6";
    } catch (const std::runtime_error&) {
      return false;
    }
  };
  const std::function<void(std::string, int)> isAtProperties = [&](const std::string& property, int tries) {
    auto* shown = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    const bool isThere = shown && isShown(property);
    if (isThere) MouseUser().Press(dialog.cmdCancel);
    if (isThere && !QApplication::activeModalWidget()) return;
    if (tries > 0) {
      QTimer::singleShot(5, [&, property, tries] { isAtProperties(property, tries - 1); });
    } else {
      FAIL_CHECK(property);
      if (shown) shown->done(0);
    }
  };
  constexpr int tries = 1000;
  tree->setCurrentIndex(FindItem(*tree, "Company", "Sample"));
  tree->setFocus();
  isAtProperties("*Name", tries);
  QTest::keyClick(tree, Qt::Key_Return);
  search->clear();
  tree->setCurrentIndex(FindItem(*tree, "Person", "Sample"));
  QApplication::processEvents();
  isAtProperties("*SSN", tries);
  MouseUser::Click(*button, button->rect().center());
  desktop.UseWizard([&] {  // by its own command it begins as ever
    CHECK(title() == "Ostrel Form Wizard - Step 1 of 6");
    MouseUser().Press(dialog.cmdCancel);
  });
}
