// The page of the code, used by keyboard and by mouse.
#include "apps/desktop/basics/Theme.h"
#include "tests/apps/desktop/Users.h"

#include <QClipboard>
#include <QInputDialog>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSpinBox>

using namespace formwizard::tests;
using namespace formwizard::apps::desktop;

namespace {

constexpr char Sample[] =
    "Option Explicit\r\nPrivate WithEvents m_list As List\r\n\r\n' Note\r\nPrivate Sub cmdSave_Click()\r\n  Save "
    "\"x\"\r\n"
    "End Sub\r\n\r\nPublic Property Get Total() As Long\r\n  Total = 1\r\nEnd Property\r\n"
    "private sub M_List_Change()\r\n  ' End Sub\r\nend sub\r\nSub No_Object()\r\nEnd Sub\r\n"
    "Declare Sub Other Lib \"x\" ()\r\nFunction cmdsave_GotFocus()\r\nEnd Function\r\n";

void Strike(QWidget* target, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  REQUIRE(target);
  QTest::keyClick(target, key, modifiers);
}

QStringList Entries(const QComboBox& list) {
  QStringList entries;
  for (int i = 0; i < list.count(); ++i) entries << list.itemText(i);
  return entries;
}

// How many points of a picture have a colour, from a line of it on.
int Points(const QImage& picture, const QColor& colour) {
  int points = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) points += picture.pixelColor(x, y) == colour ? 1 : 0;
  }
  return points;
}

}  // namespace

TEST_CASE("Procedures are listed by object as the environment has them, and lead to their lines") {
  const CodeOutline outline = OutlineOf(QString(Sample), {"cmdSave"});
  std::string all;
  for (const CodeProcedure& each : outline.Procedures) {
    all += (each.Object + "|" + each.Event + "|" + QString("%1-%2 ").arg(each.First).arg(each.Last)).toStdString();
  }
  CHECK(all == "cmdSave|Click|4-6 |Total|8-10 m_list|Change|11-13 |No_Object|14-15 cmdSave|GotFocus|17-18 ");
  CHECK(outline.Ends == std::vector<int>{1, 6, 10, 13, 15, 18});

  const Texts texts;
  CodePane pane(texts);
  pane.resize(500, 240);
  pane.ShowCode(Sample, {"cmdSave"});
  pane.show();
  const auto lists = pane.findChildren<QComboBox*>();
  const auto shown = [&] { return (lists[0]->currentText() + " " + lists[1]->currentText()).toStdString(); };
  CHECK(shown() == "(General) (Declarations)");
  CHECK(Entries(*lists[0]) == QStringList{"(General)", "cmdSave", "m_list"});
  CHECK(Entries(*lists[1]) == QStringList{"(Declarations)", "No_Object", "Total"});
  Strike(lists[0], Qt::Key_Down);
  CHECK(shown() == "cmdSave Click");
  CHECK(pane.View().CurrentLine() == 4);
  Strike(lists[1], Qt::Key_Down);
  CHECK(pane.View().CurrentLine() == 17);
  CHECK(pane.GoToHandlerOf("M_LIST"));
  CHECK(shown() == "m_list Change");
  CHECK(pane.GoToProcedure("total"));
  CHECK(pane.View().CurrentLine() == 8);
  CHECK_FALSE(pane.GoToHandlerOf("txtNone"));
  CHECK(pane.View().CurrentLine() == 8);

  const QColor line = ColourOf(Shade::Lines, pane.palette()), bar("#C47A0B");
  pane.View().GoToLine(0);
  const QImage picture = pane.View().grab().toImage();
  CHECK(Points(picture, line) >= 2 * (picture.width() - 100));
  CHECK(Points(picture, bar) == 0);
  pane.View().MarkEdited({{1, 2}, {5, 5}});
  CHECK(Points(pane.View().grab().toImage(), bar) == 3 * 3 * pane.View().fontMetrics().lineSpacing());
  pane.ShowCode("", {}, "This form has no code.");
  CHECK_FALSE(pane.View().isVisible());
}

TEST_CASE("What is looked for is found in all of the code, marked and counted, and copies have the colours") {
  QString code = "\n";
  for (int i = 0; i < 500; ++i) code += QString("  x%1 = m_object.Name ' note\r\n").arg(i);
  const Texts texts;
  CodePane pane(texts);
  pane.resize(700, 300);
  pane.ShowCode(code);
  pane.show();
  pane.activateWindow();
  WaitForFocus();
  QString place;
  pane.OnPlace = [&](const QString& text) { place = text; };
  pane.Find();
  auto* box = pane.findChild<QLineEdit*>();
  const auto labels = pane.findChildren<QLabel*>();
  const auto isSaid = [&](const QString& text) {
    return std::ranges::any_of(labels, [&](auto* label) { return label->isVisible() && label->text() == text; });
  };
  QTest::keyClicks(box, "M_OBJECT.");
  CHECK(isSaid("1 of 500"));
  CHECK(place == "Line 2, column 17");
  CHECK(Points(pane.View().viewport()->grab().toImage(), ColourOf(Shade::Found, pane.palette())) > 1000);
  Strike(box, Qt::Key_Return);
  Strike(box, Qt::Key_Return);
  CHECK(isSaid("3 of 500"));
  for (int i = 0; i < 3; ++i) Strike(box, Qt::Key_Return, Qt::ShiftModifier);
  CHECK(isSaid("500 of 500"));
  CHECK(pane.View().CurrentLine() == 500);
  CHECK(pane.View().cursorRect().top() >= 0);
  CHECK(pane.View().cursorRect().bottom() <= pane.View().viewport()->height());
  auto* matchCase = pane.findChild<QCheckBox*>();
  MouseUser::Click(*matchCase, QPoint(5, matchCase->height() / 2));
  CHECK(isSaid("Not found"));
  Strike(box, Qt::Key_Escape);
  CHECK_FALSE(box->isVisible());
  CHECK(pane.View().hasFocus());
  CHECK(Points(pane.View().viewport()->grab().toImage(), ColourOf(Shade::Found, pane.palette())) == 0);

  DesktopFixture::WhenShown([] {
    auto* line = QApplication::activeModalWidget()->findChild<QSpinBox*>();
    CHECK(line->maximum() == 502);
    line->selectAll();
    QTest::keyClicks(line, "130");
    Strike(line, Qt::Key_Return);
  });
  pane.AskForLine();
  CHECK(place == "Line 130, column 1");
  CHECK(pane.View().textCursor().block().text().contains("x128 "));
  Strike(&pane.View(), Qt::Key_End, Qt::ShiftModifier);
  Strike(&pane.View(), Qt::Key_C, Qt::ControlModifier);
  const QMimeData* copied = QApplication::clipboard()->mimeData();
  CHECK(copied->text() == "  x128 = m_object.Name ' note");
  CHECK(copied->html().contains("Name <span style=\"color:#007800\">' note</span></pre>"));
}

TEST_CASE("The commands for the code work from wherever the focus is") {
  DesktopFixture desktop("ENU");
  std::filesystem::copy(SourceFolder() + "/samples/library", desktop.Folder / "library",
                        std::filesystem::copy_options::recursive);
  REQUIRE(desktop.Window->OpenProject(QString::fromStdString(desktop.Folder / "library/Lending.vbp")));
  desktop.Window->Tree().Choose("frmPerson");
  desktop.Window->activateWindow();
  WaitForFocus();
  CodePane& pane = desktop.Window->Code();
  desktop.Window->Tree().View().setFocus();
  const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    Strike(QApplication::focusWidget(), key, modifiers);
  };
  press(Qt::Key_F3);  // asks what for
  CHECK(QApplication::focusWidget() == pane.findChild<QLineEdit*>());
  // What acts on the code alone, or on the picture alone, can be done where that is seen.
  const auto can = [&](Command command) { return desktop.Window->Commands()[command].isEnabled(); };
  CHECK((can(Command::SelectAll) && !can(Command::ZoomIn) && !can(Command::FitForm)));
  QTest::keyClicks(QApplication::focusWidget(), "End Sub");
  const int first = pane.View().CurrentLine();
  press(Qt::Key_F3);
  CHECK(pane.View().CurrentLine() > first);
  press(Qt::Key_F3, Qt::ShiftModifier);
  CHECK(pane.View().CurrentLine() == first);
  press(Qt::Key_F7, Qt::ShiftModifier);
  CHECK_FALSE(pane.isVisible());
  CHECK((!can(Command::SelectAll) && can(Command::ZoomIn) && can(Command::FitForm)));
  desktop.Window->Tree().Choose("modLending");
  CHECK_FALSE(can(Command::ActualSize));
  desktop.Window->Tree().Choose("frmPerson");
  CHECK(can(Command::ActualSize));
  FormCanvas& canvas = desktop.Window->Form().Canvas();
  for (std::size_t i = 0; i < canvas.Places().size(); ++i) {
    if (canvas.Places()[i].Node->Name == "cmdOK") canvas.Select(i);
  }
  desktop.Window->Commands()[Command::GoToHandler].trigger();
  CHECK(pane.isVisible());
  CHECK(pane.findChildren<QComboBox*>()[0]->currentText() == "cmdOK");
  press(Qt::Key_A, Qt::ControlModifier);
  desktop.Window->Commands()[Command::Copy].trigger();
  CHECK(QApplication::clipboard()->text() == pane.View().toPlainText());
}
