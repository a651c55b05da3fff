// The add-in's entry point: connects to the environment, puts the wizard's command on its Add-Ins menu and opens the
// wizard.
#pragma once

#include "generator/ide/CommandBars.h"
#include "ui/Clipboard.h"
#include "wizard/frmWizard.h"

#include <memory>
#include <string_view>

namespace formwizard::addin {

namespace ide = generator::ide;

// How the environment connects an add-in.
enum class ConnectMode : int {
  AfterStartup = 0,  // by the add-in manager
  Startup = 1,
  External = 2,  // by another program: the wizard opens at once
};

class Wizard {
 public:
  // Everything that `ports` refers to, and the clipboard, must outlive this object.
  Wizard(wizard::WizardPorts ports, ui::Clipboard& clipboard);
  // While the add-in is connected nothing may take its place.
  Wizard(const Wizard&) = delete;
  Wizard& operator=(const Wizard&) = delete;
  ~Wizard() = default;

  bool FormDisplayed = false;              // while the wizard is shown
  ide::Application* VBInstance = nullptr;  // from connection on; must stay valid until disconnection

  // The environment's calls. None of them lets a run-time error escape; what the environment passes besides is not
  // used. However often the add-in is connected to one environment, there is one command.
  void IDTExtensibility_OnConnection(ide::Application& VBInst, ConnectMode mode);
  void IDTExtensibility_OnDisconnection();
  void IDTExtensibility_OnStartupComplete() {}
  void IDTExtensibility_OnAddInsUpdate() {}

  // What the dialogs leave behind.
  wizard::AddInState& State() { return services_.State; }
  const wizard::AddInState& State() const { return services_.State; }

  // A click on the menu command. Shows the wizard and returns when it is closed.
  void MenuHandler_Click();

 private:
  // Leaves no command where there is no menu or the environment refuses something.
  void AddMenuCommand(ide::Application& VBInst, std::string_view caption, std::span<const std::byte> picture);
  void ShowWizard();

  wizard::WizardServices services_;
  ui::Clipboard& clipboard_;
  std::shared_ptr<ide::CommandBarControl> menuCommand_;
  std::unique_ptr<ide::CommandBarEvents> menuHandler_;
};

}  // namespace formwizard::addin
