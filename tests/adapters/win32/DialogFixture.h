// The wizard in real windows, over a fake server and a fake environment, above the environment's main window.
#pragma once

#include "adapters/win32/Win32Desktop.h"
#include "adapters/win32/Win32TextMeasure.h"
#include "tests/adapters/win32/User.h"
#include "tests/support/FakeLibraries.h"
#include "tests/support/WizardFixture.h"

#include <string>

namespace formwizard::tests {

class MainWindow {
 public:
  MainWindow()
      : handle_(CreateWindowExW(0, WC_STATICW, L"Environment", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 900, 600,
                                nullptr, nullptr, nullptr, nullptr)) {}
  ~MainWindow() { DestroyWindow(handle_); }
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  operator HWND() const { return handle_; }  // NOLINT(google-explicit-constructor)

 private:
  HWND handle_;
};

struct DialogFixture {
  MainWindow Main;
  adapters::win32::Win32Desktop Desktop{Main};
  adapters::win32::Win32TextMeasure Measure;
  WizardFixture Fakes;
  FakeLibraries Libraries;
  support::Strings Strings{Libraries, ""};
  support::Localization Localization{Strings, Libraries};
  wizard::AddInState State;
  wizard::frmWizard Dialog{
      {Desktop, Measure, Fakes.Profile, "outility.ini", Fakes.Server, Strings, Localization, "", State}, Fakes.Ide};

  void UseWizard(const std::function<void()>& work) {
    UseWindows([this] { Desktop.ShowModal(Dialog, nullptr); }, work);
  }
};

}  // namespace formwizard::tests
