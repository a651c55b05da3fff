// The dictionary beside the project: looked through, searched, and a form made of what was found.
#include "tests/apps/desktop/Users.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include <functional>
#include <sstream>
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
  // The keys of a search go through what was found, and Esc leads back to all.
  tree->setFocus();
  QTest::keyClick(tree, Qt::Key_F, Qt::ControlModifier);
  CHECK(search->hasFocus());
  QTest::keyClicks(search, "name");  // over what stands there
  CHECK(QTest::qWaitFor([&] { return tree->isVisible() && tree->isExpanded(FindItem(*tree, "Sample")); }));
  QTest::keyClick(search, Qt::Key_Down);
  QStringList fits;
  for (const auto& [key, modifiers] : {std::pair{Qt::Key_F3, Qt::NoModifier}, std::pair{Qt::Key_F3, Qt::NoModifier},
                                       std::pair{Qt::Key_F3, Qt::ShiftModifier}}) {
    QTest::keyClick(tree, key, modifiers);
    fits << tree->currentIndex().data().toString();
  }
  CHECK(fits.filter("name", Qt::CaseInsensitive).size() == 3);
  CHECK((fits[0] == fits[2] && fits[0] != fits[1]));
  search->setFocus();
  QTest::keyClick(search, Qt::Key_Escape);
  CHECK(search->text().isEmpty());
  QTest::keyClick(search, Qt::Key_Escape);
  CHECK(tree->hasFocus());

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

namespace {

// Classes "Big.C10000" and so on, each with a property "Of" and its number, in a file beside others.
std::string MadeDictionary(const std::string& file, int classes) {
  std::ostringstream json;
  json << R"({"systems":[{"name":"Large","connect":"large","classes":[)";
  for (int i = 10000; i < 10000 + classes; ++i) {
    json << (i > 10000 ? "," : "") << R"({"Name":"Big.C)" << i << R"(","properties":[{"Name":"Of)" << i << R"("}]})";
  }
  json << "]}]}";
  std::istringstream in(json.str());
  apps::common::ImportDictionary(in, "made", file);
  return file;
}

}  // namespace

TEST_CASE("Of many classes the first are shown and the others when they are wanted, and a search finds any of them") {
  const TemporaryFolder folder;
  const auto dictionary = apps::common::OpenDictionary(MadeDictionary(folder / "large.sqlite", 2500));
  const Texts texts;
  DictionaryPane pane(texts, [] {});
  pane.Show(dictionary.get());
  pane.show();
  auto* tree = pane.findChild<QTreeView*>();
  auto* search = pane.findChild<QLineEdit*>();
  const auto& model = dynamic_cast<const DictionaryModel&>(*tree->model());
  const auto isDone = [&] { return QTest::qWaitFor([&] { return !model.IsBusy(); }); };
  REQUIRE(isDone());
  const QModelIndex package = FindItem(*tree, "Big");
  const auto last = [&] { return model.index(model.rowCount(package) - 1, 0, package).data().toString(); };
  for (const QString rest : {"1,500 more", "500 more", "C12499"}) {
    CHECK(last() == rest);
    tree->setCurrentIndex(model.index(model.rowCount(package) - 1, 0, package));
    QApplication::processEvents();
  }
  CHECK(tree->currentIndex().data() == "C12499");

  struct Case {
    QString Text;
    int Classes;
    QString Last;
  };
  for (const Case& c : {Case{"c1", 1000, "C10999"}, Case{"c11", 1000, "C11999"}, Case{"c119", 100, "C11999"},
                        Case{"c1199", 10, "C11999"}, Case{"of1249", 10, "C12499"}, Case{"of12490", 1, "C12490"},
                        Case{"of12", 500, "C12499"}, Case{"none", 0, ""}, Case{"", 2500, "C12499"}}) {
    CAPTURE(c.Text.toStdString());
    search->setText(c.Text);
    REQUIRE(isDone());
    const QModelIndex found = model.index(0, 0, model.index(0, 0, {}));
    CHECK(model.rowCount(found) == c.Classes);
    CHECK(model.index(model.rowCount(found) - 1, 0, found).data().toString() == c.Last);
    CHECK((model.rowCount({}) == 2) == (c.Classes == 1000));  // it says that there are more
  }
}

TEST_CASE("What is chosen in the dictionary stands among the properties, with the forms made from it") {
  DesktopFixture desktop("ENU");
  MakePersonForm(desktop);
  desktop.Window->activateWindow();
  WaitForFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F2);
  auto* tree = desktop.Window->Dictionary().findChild<QTreeView*>();
  auto* table = desktop.Window->findChild<QTableView*>();
  const auto shown = [&] {
    QStringList rows;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
      const QModelIndex index = table->model()->index(row, 0);
      rows << index.data().toString() + "=" + index.siblingAtColumn(1).data().toString();
    }
    return rows.join('\n').toStdString();
  };
  const auto choose = [&](const std::string& name, const std::string& above, const std::string& text) {
    tree->setCurrentIndex(FindItem(*tree, name, above));
    tree->expand(tree->currentIndex());
    CHECK(QTest::qWaitFor([&] { return shown().find(text) != std::string::npos; }));
    return shown();
  };
  CHECK(choose("Person", "Sample", "Forms made from it=\nfrmPerson=")
            .starts_with("In the dictionary=\nName=Sample.Person"));
  CHECK(choose("Age", "Person", "Type=%Library.Integer").ends_with("Forms made from it=\nfrmPerson="));
  CHECK(choose("SSN", "Person", "Required=True").find("frmPerson") == std::string::npos);
  choose("ByName", "Person", "ContainId=1\nColumns=ID, Name");
  choose("Samples", "", "Connect=");
  choose("Company", "Sample", "Name=Sample.Company");

  // Enter on a form shows it, and with it its own properties.
  choose("Person", "Sample", "frmPerson=");
  desktop.Window->Tree().Choose("Form1");
  table->setFocus();
  table->setCurrentIndex(table->model()->index(table->model()->rowCount() - 1, 0));
  QTest::keyClick(table, Qt::Key_Return);
  CHECK(desktop.Window->Tree().Chosen()->Name == "frmPerson");
  CHECK(shown().starts_with("Generated from=\nClass=Sample.Person"));
}
