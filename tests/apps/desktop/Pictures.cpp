// Takes the pictures of the desktop program's windows that the pages show: desktop-pictures FOLDER. Needs no display.
#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/window/MainWindow.h"
#include "apps/desktop/window/NeedsDialog.h"
#include "apps/desktop/window/Sample.h"
#include "tests/support/BuildTree.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QProcess>
#include <QStatusBar>
#include <QStyle>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <cstdio>

using namespace formwizard::apps::desktop;

namespace {

QPalette DarkPalette() {
  const QColor window("#2a2b2d"), base("#202124"), text("#e8e8e8"), button("#37383b");
  QPalette palette(text, button, QColor("#4a4b4e"), QColor("#1a1b1c"), QColor("#303134"), text, Qt::white, base,
                   window);
  palette.setColor(QPalette::Highlight, QColor("#2f6fb7"));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor("#8ab4f8"));
  palette.setColor(QPalette::ToolTipBase, button);
  palette.setColor(QPalette::ToolTipText, text);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor("#808184"));
  }
  return palette;
}

struct Pictures {
  explicit Pictures(const QString& folder) : Target(folder) {}

  QDir Target;
  QTemporaryDir Work;
  Sample Files = CopySample(Work.filePath("Lending"));
  // With a form that the wizard has made.
  bool HasForm = QFile::remove(Work.filePath("Lending/Forms/frmPerson.frm")) &&
                 QFile::copy(QString::fromStdString(formwizard::tests::SourceFolder()) +
                                 "/tests/golden/addin-project/frmPerson.frm",
                             Work.filePath("Lending/Forms/frmPerson.frm"));

  std::unique_ptr<MainWindow> Opened(const std::string& language, const QSize& size) const {
    auto window = std::make_unique<MainWindow>(
        formwizard::apps::desktop::EnvironmentOptions{.Profile = Work.filePath("outility.ini").toStdString(),
                                                      .Language = language,
                                                      .Toolbox = "",
                                                      .Memory = Work.filePath("desktop.ini").toStdString()});
    window->resize(size);
    window->show();
    return window;
  }
  std::unique_ptr<MainWindow> OpenedSample(const std::string& language = "ENU", const QSize& size = {1200, 740}) const {
    auto window = Opened(language, size);
    window->OpenProject(Files.Project);
    window->OpenDictionary(Files.Dictionary);
    return window;
  }
  bool Take(QWidget& window, const QString& name) const {
    QApplication::processEvents();
    if (auto* bar = window.findChild<QStatusBar*>()) bar->clearMessage();
    return window.grab().save(Target.filePath(name + ".png"));
  }
  // The project with a form that has every kind of control that the wizard makes, kept with its choices.
  QString MakeKinds(const QString& name) const {
    const QString folder = Work.filePath(name);
    const QString source = QString::fromStdString(formwizard::tests::SourceFolder());
    QDir().mkpath(folder);
    for (const char* file : {"Project1.vbp", "Form1.frm"}) {
      QFile::copy(source + "/samples/new-project/" + file, folder + "/" + file);
    }
    const QString project = folder + "/Project1.vbp";
    return Generate(project, {source + "/samples/forms/person.json"}) ? project : "";
  }
  bool Generate(const QString& project, const QStringList& form) const {
    const QString dictionary = QFileInfo(Files.Dictionary).absoluteFilePath();
    const QString program = QString::fromStdString(formwizard::tests::BuiltProgram("ostrel-form-wizard"));
    return QProcess::execute(program, QStringList{"generate", "--keep", "--project", project, "--dictionary",
                                                  dictionary, "--toolbox", Files.Toolbox} +
                                          form) == 0;
  }
  static bool Edit(const QString& path, const QByteArray& from, const QByteArray& to) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)) return false;
    const QByteArray bytes = file.readAll();
    if (!bytes.contains(from)) return false;
    return file.resize(0) && file.seek(0) && file.write(QByteArray(bytes).replace(from, to)) > 0;
  }
  // A form that lacks a field of its description, has one too many, and shows a caption that the class and its user
  // have changed; before that the main window with it, one that was edited and one as it was made.
  bool TakeUpdate(const QString& name, const QString& mainName) const {
    const QString project = MakeKinds("updated"), folder = QFileInfo(project).path(),
                  classes = Work.filePath("changed.json");
    const QString description = folder + "/Project1.forms/frmPerson.json", form = folder + "/frmPerson.frm";
    QFile::remove(classes);
    QFile::copy(QString::fromStdString(formwizard::tests::SourceFolder()) + "/samples/dictionary.json", classes);
    QFile(classes).setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (!Edit(description, R"("Spouse.SSN",)", R"("Home.Zip",)") ||
        !Edit(classes, R"("Caption": "Date of Birth")", R"("Caption": "Born on")") ||
        !Edit(classes, R"("Caption": "Social Security No.")", R"("Caption": "Security No.")") ||
        !Edit(form, R"("Social Security No.")", R"("SSN")") ||
        !Generate(project, {"--class", "Sample.Company", "--fields", "Name"}) ||
        !Generate(project, {"--class", "Sample.Employee", "--fields", "Name,Title,Salary"}) ||
        !Edit(folder + "/frmEmployee.frm", R"("Salary")", R"("Wage")"))
      return false;
    const auto window = Opened("ENU", {1200, 740});
    if (!window->OpenProject(project) || !window->OpenDictionary(classes)) return false;
    window->Tree().Choose("frmPerson");
    if (!QTest::qWaitFor([&] { return window->Kept().IsDone(); }) || !Take(*window, mainName)) return false;
    bool isTaken = false;
    QTimer::singleShot(200, window.get(), [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog) dialog->resize(1240, 790);
      isTaken = dialog && Take(*dialog, name);
      if (dialog) dialog->close();
    });
    window->Commands()[Command::UpdateForm].trigger();
    return isTaken;
  }
  bool TakeKinds(const QString& name) const {
    const auto window = Opened("ENU", {1200, 800});
    if (!window->OpenProject(MakeKinds("kinds")) || !window->OpenDictionary(Files.Dictionary)) return false;
    window->Tree().Choose("frmPerson");
    return Take(*window, name);
  }
  // A class in the dictionary, found by a property.
  bool TakeBrowser(const QString& name) const {
    const auto window = OpenedSample();
    window->Commands()[Command::ShowDictionary].trigger();
    QApplication::processEvents();
    auto* tree = window->Dictionary().findChild<QTreeView*>();
    const QAbstractItemModel& model = *tree->model();
    const auto found =
        model.match(model.index(0, 0), Qt::DisplayRole, "Person", 1, Qt::MatchExactly | Qt::MatchRecursive);
    if (found.isEmpty()) return false;
    tree->setCurrentIndex(found[0]);
    tree->expand(found[0]);
    return Take(*window, name);
  }
  bool TakeCode(const QString& name) const {
    const auto window = OpenedSample();
    window->Tree().Choose("frmPerson");
    window->Commands()[Command::Find].trigger();
    QTest::keyClicks(window->Code().findChild<QLineEdit*>(), "m_object");
    return Take(*window, name);
  }
  bool TakeNeeds(const QString& name) const {
    const auto window = Opened("ENU", {1200, 740});
    window->OpenProject(Files.Project);
    bool isTaken = false;
    QTimer::singleShot(200, window.get(), [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      isTaken = Take(*dialog, name);
      dialog->close();
    });
    window->Commands().Menu(MenuName::AddIns).actions().back()->trigger();
    return isTaken;
  }
  // The main window with a form and one of its controls.
  bool TakeMain(const QString& name, const std::string& language = "ENU", const QSize& size = {1200, 740}) const {
    const auto window = OpenedSample(language, size);
    window->Tree().Choose("frmPerson");
    FormCanvas& canvas = window->Form().Canvas();
    for (std::size_t i = 0; i < canvas.Places().size(); ++i) {
      if (canvas.Places()[i].Node->Name == "txtHomeCity") canvas.Select(i);
    }
    return Take(*window, name);
  }
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setStyle("Fusion");
  if (argc != 2) {
    std::fputs("usage: desktop-pictures FOLDER\n", stderr);
    return 2;
  }
  const Pictures pictures(QString::fromLocal8Bit(argv[1]));
  qputenv("HOME", pictures.Work.path().toLocal8Bit());  // as paths are shown
  const QPalette light = QApplication::style()->standardPalette();
  QApplication::setPalette(light);
  bool isTaken = pictures.TakeKinds("kinds") && pictures.TakeUpdate("update", "kept") && pictures.TakeNeeds("needed") &&
                 pictures.TakeBrowser("dictionary") && pictures.TakeCode("code") && pictures.TakeMain("main") &&
                 pictures.TakeMain("main-german", "DEU") && pictures.TakeMain("main-800x600", "ENU", {800, 600});
  QApplication::setPalette(DarkPalette());
  isTaken = isTaken && pictures.TakeMain("main-dark");
  QApplication::setPalette(light);
  const auto start = pictures.Opened("ENU", {1000, 660});
  isTaken = isTaken && pictures.Take(*start, "start");
  return isTaken ? 0 : 1;
}
