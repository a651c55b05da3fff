// The desktop program over a copy of a sample project, and somebody who uses its windows.
#pragma once

#include "adapters/qt/Text.h"
#include "apps/common/Dictionaries.h"
#include "apps/desktop/window/MainWindow.h"
#include "tests/support/TemporaryFolder.h"
#include "ui/Control.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QTreeView>

namespace formwizard::tests {

// The widget of a control in the window that takes input now, laid out as a user would see it; the shown one where
// several bear the name.
template <typename Widget = QWidget>
Widget* Find(const ui::Control& control) {
  QApplication::processEvents();
  for (Widget* widget : QApplication::activeModalWidget()->findChildren<Widget*>(adapters::qt::Text(control.Name))) {
    if (widget->isVisible()) return widget;
  }
  throw std::runtime_error("no visible " + control.Name);
}

// A node, which may stand below another one.
inline QModelIndex FindItem(const QTreeView& tree, const std::string& text, const std::string& below = "") {
  const QAbstractItemModel& nodes = *tree.model();
  for (const QModelIndex& index : nodes.match(nodes.index(0, 0), Qt::DisplayRole, adapters::qt::Text(text), -1,
                                              Qt::MatchExactly | Qt::MatchRecursive)) {
    if (below.empty() || index.parent().data() == adapters::qt::Text(below)) return index;
  }
  throw std::runtime_error("no node " + text);
}

// Until the keys go to the window that takes input. There is no window manager that activates it, and on a busy machine
// the activation of the window before may come later.
inline void WaitForFocus() {
  CHECK(QTest::qWaitFor([] {
    QWidget* const window = QApplication::activeModalWidget();
    if (window && !window->isActiveWindow()) QApplication::setActiveWindow(window);
    const QWidget* focus = QApplication::focusWidget();
    return focus && (!window || focus->window() == window);
  }));
}

// The files of a project but for what is kept beside it.
inline std::map<std::string, std::string> OwnFiles(const std::string& folder) {
  std::map<std::string, std::string> files = FilesIn(NativePath(folder));
  std::erase_if(files, [](const auto& file) { return Has(file.first, ".forms/") || Has(file.first, ".undo/"); });
  return files;
}

struct DesktopFixture {
  TemporaryFolder Folder;
  std::string Home = Folder / "project";
  std::string Profile = Folder / "outility.ini";
  std::unique_ptr<apps::desktop::MainWindow> Window;

  explicit DesktopFixture(const std::string& language = "", int codePage = 1252) {
    CopySample("new-project", Home);
    std::ifstream in(SourceFolder() + "/samples/dictionary.json");
    apps::common::ImportDictionary(in, "dictionary.json", Folder / "d.sqlite");
    Window = std::make_unique<apps::desktop::MainWindow>(
        apps::desktop::EnvironmentOptions{Profile, language, SourceFolder() + "/samples/toolbox.ini", codePage});
    Window->show();
    CHECK(Window->OpenProject(QString::fromStdString(Home + "/Project1.vbp")));
    CHECK(Window->OpenDictionary(QString::fromStdString(Folder / "d.sqlite")));
  }

  QAction* WizardCommand() const { return Window->Commands().Menu(apps::desktop::MenuName::AddIns).actions().back(); }

  // Opens the wizard and lets somebody use it; returns when it is closed. What goes wrong on the way is shown, and
  // closes it.
  void UseWizard(const std::function<void()>& user) const {
    WhenShown(user);
    WizardCommand()->trigger();
    QApplication::processEvents();
  }

  // Calls back in the next modal window, once it is ready. Who leaves it open after a failure finds it closed.
  static void WhenShown(
      const std::function<void()>& user, const std::function<bool()>& isReady = [] { return true; }) {
    WhenShownAfter(QApplication::activeModalWidget(), user, isReady);
  }
  static void WhenShownAfter(QWidget* before, const std::function<void()>& user, const std::function<bool()>& isReady) {
    QTimer::singleShot(5, [=] {
      QWidget* window = QApplication::activeModalWidget();
      const bool isOther = window && window != before;
      if (!isOther || !isReady()) return WhenShownAfter(isOther ? before : window, user, isReady);
      WaitForFocus();
      try {
        user();
        if (QApplication::activeModalWidget() == window) throw std::runtime_error("left open");
      } catch (const std::runtime_error& failure) {
        std::string shown;
        while (auto* open = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
          shown += "\n" + open->windowTitle().toStdString();
          for (const QLabel* label : open->findChildren<QLabel*>()) {
            if (label->isVisible()) shown += "\n  " + label->text().toStdString();
          }
          open->done(0);
        }
        FAIL_CHECK((failure.what() + shown));
      }
    });
  }

  void PressSave() const {
    Window->activateWindow();
    WaitForFocus();
    QTest::keyClick(Window.get(), Qt::Key_S, Qt::ControlModifier);
  }
  void Save() const {
    PressSave();
    CHECK_FALSE(Window->isWindowModified());
  }
};

}  // namespace formwizard::tests
