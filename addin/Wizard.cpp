#include "addin/Wizard.h"

#include "resources/Bitmaps.h"
#include "ui/RuntimeErrorMessage.h"

#include <utility>

namespace formwizard::addin {
namespace {

using runtime::Int32;
using runtime::RuntimeError;

constexpr int CommandBitmap = 9999;

Int32 AddInsMenuIndex(const ide::Application& environment) { return Int32(environment.Version() == "6.00" ? 11 : 9); }

bool BeginsGroup(ide::CommandBarControls& controls, Int32 index) {
  if (index < Int32(1)) return false;  // a menu that was short before the new command
  return generator::Required(controls.Item(index)).BeginGroup();
}

// When the last of the old commands starts a group and the one before it does not, the new one starts a group too.
bool StartsGroup(ide::CommandBarControls& controls) {
  const Int32 last = controls.Count() - Int32(1);
  return BeginsGroup(controls, last) && !BeginsGroup(controls, last - Int32(1));
}

void Remove(const std::shared_ptr<ide::CommandBarControl>& command) {
  try {
    if (command) command->Delete();
  } catch (const RuntimeError&) {
    return;  // it may be gone with its menu
  }
}

// Says for as long as it lives that the wizard is shown.
class Shown {
 public:
  explicit Shown(bool& flag) : flag_(flag) { flag_ = true; }
  ~Shown() { flag_ = false; }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

 private:
  bool& flag_;
};

}  // namespace

Wizard::Wizard(wizard::WizardPorts ports, ui::Clipboard& clipboard)
    : services_(std::move(ports)), clipboard_(clipboard) {}

void Wizard::IDTExtensibility_OnConnection(ide::Application& VBInst, ConnectMode mode) {
  try {
    VBInstance = &VBInst;
    if (mode == ConnectMode::External) {
      ShowWizard();
      return;
    }
    if (!menuCommand_) AddMenuCommand(VBInst, support::ProductName, resources::Bitmap(CommandBitmap));
    if (!menuCommand_ || menuHandler_) return;  // a second connection finds the command of the first
    menuHandler_ =
        VBInst.ConnectEvents(menuCommand_, [this](ide::CommandBarControl&, bool&, bool&) { MenuHandler_Click(); });
  } catch (const RuntimeError&) {
    return;  // the environment goes on without the command
  }
}

// Kept from the moment when it is on the menu: the environment may disconnect while the rest is done.
void Wizard::AddMenuCommand(ide::Application& VBInst, std::string_view caption, std::span<const std::byte> picture) {
  try {
    const auto addInsMenu = generator::Required(VBInst.CommandBar(Int32(1))).Item(AddInsMenuIndex(VBInst));
    if (!addInsMenu) return;
    const auto controls = addInsMenu->Controls();
    const auto command = menuCommand_ = generator::Required(controls).Add(ide::CommandBarControlType::Button);
    if (StartsGroup(*controls)) command->SetBeginGroup(true);
    command->SetCaption(caption);
    command->SetOnAction("hello");
    clipboard_.LendPicture(picture, [&] { command->PasteFace(); });  // a busy clipboard costs the picture alone
  } catch (const RuntimeError&) {
    Remove(std::exchange(menuCommand_, nullptr));  // a half-made one would stay on the menu for good
  }
}

void Wizard::MenuHandler_Click() {
  try {
    ShowWizard();
  } catch (const RuntimeError& error) {
    ui::ShowRuntimeError(services_.Desktop, error, support::ProductName);
  }
}

void Wizard::ShowWizard() {
  if (!VBInstance) runtime::Raise(runtime::ObjectVariableNotSet);
  wizard::frmWizard dialog(services_, *VBInstance);
  const Shown shown(FormDisplayed);
  services_.Desktop.ShowModal(dialog, nullptr);
}

void Wizard::IDTExtensibility_OnDisconnection() {
  menuHandler_.reset();
  Remove(std::exchange(menuCommand_, nullptr));
}

}  // namespace formwizard::addin
