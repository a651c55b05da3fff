#include "apps/desktop/properties/PropertiesPanel.h"
#include "tests/apps/desktop/Nameless.h"
#include "tests/apps/desktop/ShownForm.h"

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>

using namespace formwizard;
using namespace formwizard::apps::desktop;
using namespace formwizard::tests;

namespace {

struct ShownProperties : ShownForm {
  PropertiesPanel Panel{View};
  QTableView& Table = *Panel.findChild<QTableView*>();
  std::string Opened;

  ShownProperties() {
    View.OnSelect = [this] { Panel.ShowSelection(); };
    Panel.OnProcedureWanted = [this](const std::string& procedure) { Opened += procedure; };
    Panel.resize(260, 250);
    Panel.show();
    Select("txtCity");
  }
  void Select(const std::string& name) { Canvas().Select(Find(name)); }
  // A line a row; titles between bars.
  std::string Rows() const {
    std::string rows;
    for (int row = 0; row < Table.model()->rowCount(); ++row) {
      const std::string name = Table.model()->index(row, 0).data().toString().toStdString();
      const bool isTitle = Table.columnSpan(row, 0) == 2;
      rows += isTitle ? "|" + name + "|\n"
                      : name + "=" + Table.model()->index(row, 1).data().toString().toStdString() + "\n";
    }
    return rows;
  }
  void Choose(const char* name) {
    const auto found = Table.model()->match(Table.model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
    REQUIRE(found.size() == 1);
    Table.scrollTo(found[0]);
    QTest::mouseClick(Table.viewport(), Qt::LeftButton, {}, Table.visualRect(found[0]).center());
  }
  std::string Chosen() const {
    const QModelIndex current = Table.currentIndex();
    return current.isValid() ? current.siblingAtColumn(0).data().toString().toStdString() : "";
  }
};

}  // namespace

TEST_CASE("The properties say what a control shows, what stands in its file and which procedures it has") {
  ShownProperties panel;
  CHECK(panel.Rows() ==
        "|Generated from|\nClass=Sample.Person\nProperty=Home.City\nCaption=City\nRead-only=False\n"
        "|In the file|\n(Name)=txtCity\nHeight=330\nLeft=1200\nTabIndex=2\nText=x\nTop=150\nWidth=1350\n"
        "|Procedures|\nChange=txtCity_Change\n");
  panel.Select("cmd");
  CHECK(panel.Rows() ==
        "|In the "
        "file|\n(Name)=cmd\nCaption=&Go\nEnabled=False\nHeight=375\nLeft=1200\nTabIndex=3\nTop=900\nWidth=1350\n");
  panel.Canvas().Select(0);
  CHECK(panel.Rows() ==
        "|Generated from|\nClass=Sample.Person\n|In the file|\n(Name)=frmP\nBorderStyle=1 - Fixed Single\n"
        "Caption=Person\nClientHeight=1500\nClientWidth=3000\n|Procedures|\nLoad=Form_Load\n");
  panel.View.SetForm(std::nullopt);
  CHECK(panel.Rows().empty());
  CHECK(panel.Panel.findChild<QLabel*>()->text() == "Select a control.");
}

TEST_CASE("The chosen property and the scroll stay when another control is selected, and values can be copied") {
  ShownProperties panel;
  panel.Choose("Width");
  const int scroll = panel.Table.verticalScrollBar()->value();
  CHECK(scroll > 0);
  CHECK(panel.Panel.findChild<QLabel*>()->text().startsWith("<b>Width</b>"));
  panel.Select("lblCity");
  CHECK(panel.Chosen() == "Width");
  panel.Select("mnu");  // which has none
  CHECK(panel.Chosen().empty());
  panel.Select("txtCity");
  CHECK(panel.Chosen() == "Width");
  CHECK(panel.Table.verticalScrollBar()->value() == scroll);
  QTest::keyClick(&panel.Table, Qt::Key_C, Qt::ControlModifier);
  CHECK(QApplication::clipboard()->text() == "1350");
  panel.Choose("Change");
  QTest::keyClick(&panel.Table, Qt::Key_Return);
  CHECK(panel.Opened == "txtCity_Change");
  const auto means = [&] { return panel.Panel.findChild<QLabel*>()->text().section("<br>", 1); };
  CHECK(means() == "The procedure that runs on this event.");
  panel.Choose("Text");
  CHECK(means() == "The text that it holds at first.");
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&panel.Table);
  CHECK(table->role() == QAccessible::Table);
  CHECK(table->text(QAccessible::Name) == "Properties");
  CHECK(Nameless(panel.Panel) == "");

  // The list has every object, and chooses on the form.
  auto& objects = *panel.Panel.findChild<QComboBox*>();
  CHECK(objects.currentText() == "txtCity  TextBox");
  CHECK(objects.count() == static_cast<int>(panel.Canvas().Places().size()));
  objects.setFocus();
  QTest::keyClick(&objects, Qt::Key_Home);
  CHECK(objects.currentText() == "cmd  CommandButton");
  CHECK(panel.Selected() == "cmd");
}
