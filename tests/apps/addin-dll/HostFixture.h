// The environment with its main window, the server, and the add-in's library in one process.
#pragma once

#include "tests/adapters/win32/User.h"
#include "tests/apps/addin-dll/AddInLibrary.h"
#include "tests/apps/addin-dll/HostEnvironment.h"
#include "tests/apps/addin-dll/HostServer.h"
#include "tests/support/SampleDictionary.h"

namespace formwizard::tests::host {

// Whether the wizard has the user's input and shows a step.
bool IsAtStep(int step);
// Presses the button that makes the form, and waits until the wizard is closed or tells something.
void Finish();

struct HostFixture : Pinned {
  NothingIsLeft AtTheEnd;
  MainWindow Window;
  TemporaryFolder Folder;
  MemoryProject Project;
  std::unique_ptr<HostServer> Server;
  HostEnvironment Environment{Project, Window.Handle()};
  AddInLibrary Library;
  com::ComPtr<IUnknown> AddIn;

  // `dictionary` is JSON; empty: the sample's. `code` is what the sample project's form has already.
  explicit HostFixture(const std::string& dictionary = "", const std::string& code = "");
  ~HostFixture();

  Menu& AddInsMenu() { return Environment.Menus.At(HostMenus::AddIns); }
  // The one that is third on its menu; null when there is none.
  std::shared_ptr<Command> WizardCommand() { return AddInsMenu().size() < 3 ? nullptr : AddInsMenu().back(); }

  void Connect(LONG mode = 1);
  void Disconnect();
  // Clicks the command and lets somebody use the wizard that it opens.
  void UseWizard(const std::function<void()>& user);
};

}  // namespace formwizard::tests::host
