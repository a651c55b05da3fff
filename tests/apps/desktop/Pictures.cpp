// Takes the pictures of the desktop program's windows that the pages show: desktop-pictures FOLDER. Needs no display.
#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/window/MainWindow.h"
#include "apps/desktop/window/NeedsDialog.h"
#include "apps/desktop/window/Sample.h"
#include "tests/support/BuildTree.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QStatusBar>
#include <QStyle>
#include <QTemporaryDir>

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
  bool Take(QWidget& window, const QString& name) const {
    QApplication::processEvents();
    if (auto* bar = window.findChild<QStatusBar*>()) bar->clearMessage();
    return window.grab().save(Target.filePath(name + ".png"));
  }
  // The main window with a form and one of its controls.
  bool TakeMain(const QString& name, const std::string& language = "ENU", const QSize& size = {1200, 740}) const {
    const auto window = Opened(language, size);
    window->OpenProject(Files.Project);
    window->OpenDictionary(Files.Dictionary);
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
  const QPalette light = QApplication::style()->standardPalette();
  QApplication::setPalette(light);
  bool isTaken = pictures.TakeMain("main") && pictures.TakeMain("main-german", "DEU") &&
                 pictures.TakeMain("main-800x600", "ENU", {800, 600});
  QApplication::setPalette(DarkPalette());
  isTaken = isTaken && pictures.TakeMain("main-dark");
  QApplication::setPalette(light);
  const auto start = pictures.Opened("ENU", {1000, 660});
  isTaken = isTaken && pictures.Take(*start, "start");
  return isTaken ? 0 : 1;
}
