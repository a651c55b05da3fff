// The program as somebody finds it who starts it for the first time, and keys that go to whatever takes them.
#pragma once

#include "adapters/qt/Text.h"
#include "tests/apps/desktop/DesktopFixture.h"

namespace formwizard::tests {

// The program as it starts: nothing is open. What it remembers lasts from one window to the next.
struct FreshDesktop {
  TemporaryFolder Folder;
  std::unique_ptr<apps::desktop::MainWindow> Window;

  explicit FreshDesktop(const std::string& language = "ENU") { Start(language); }

  void Start(const std::string& language = "ENU") {
    Window = std::make_unique<apps::desktop::MainWindow>(
        apps::desktop::EnvironmentOptions{.Profile = Folder / "outility.ini",
                                          .Language = language,
                                          .Toolbox = "",
                                          .Memory = Folder / "desktop.ini",
                                          .Cache = Folder / "cache"});
    Window->show();
    Window->activateWindow();
    WaitForFocus();
  }
  QString Copied(const std::string& sample) const {
    const std::string target = Folder / std::filesystem::path(sample).filename().string();
    std::filesystem::copy(SourceFolder() + "/samples/" + sample, target,
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::skip_existing);
    return adapters::qt::Text(target);
  }
};

// There is no window manager that makes a window active when the one above it is closed.
inline void Strike(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  if (QApplication::activeModalWidget()) {
    WaitForFocus();
  } else if (!QApplication::focusWidget()) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible()) window->activateWindow();
    }
    REQUIRE(QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; }));
  }
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

}  // namespace formwizard::tests
