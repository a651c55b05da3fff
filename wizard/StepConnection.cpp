#include "runtime/Conversions.h"
#include "settings/Profile.h"
#include "wizard/RememberedSystem.h"
#include "wizard/TreePictures.h"
#include "wizard/factory/SystemList.h"
#include "wizard/frmWizard.h"

namespace formwizard::wizard {
void frmWizard::ConnectConnectionEvents() {
  tvwConnection.NodeClick = Guarded([this](ui::Node& node) { StatusMessage(node.Tag); });
  tvwConnection.DblClick = Guarded([this] {
    services_.Desktop.ProcessMessages();
    cmdNext.Click();
  });
}

void frmWizard::EnterConnection() {
  if (tvwConnection.Nodes.Count() == 0) PopulateConnection();
}

bool frmWizard::LeaveConnection() {
  const ui::Node* selected = tvwConnection.SelectedItem;
  if (!selected) {
    // An empty list has no system to connect to.
    barStatus.Panels[1] = "";
  } else if (barStatus.Panels[1].Get() != selected->Text.Get()) {
    ConnectToSystem();
  }
  return IsConnected();
}

void frmWizard::PopulateConnection() {
  support::LeaveOnError(report_, "PopulateConnection", [&] {
    std::string none;
    std::size_t size = 0;
    const std::string remembered = settings::ReadProfile(services_.Profiles, settings::ProfileSection,
                                                         RememberedSystemKey, none, services_.ProfileFile, size);
    SetBusy(true);
    CloseConnection();
    tvwConnection.Nodes.Clear();
    factory_ = services_.Factories.Create();
    FillConnectionTree(remembered);
  });
  SetBusy(false);
}

void frmWizard::FillConnectionTree(std::string_view remembered) {
  for (const factory::System& system : factory::SystemsIn(factory_->SystemList())) {
    ui::Node& node = tvwConnection.Nodes.Add(nullptr, "", system.Name);
    node.Image = picture::NotConnected;
    node.Tag = system.Connect;
    if (system.Name == remembered) tvwConnection.SelectedItem = &node;
  }
  if (!tvwConnection.SelectedItem.Get() && tvwConnection.Nodes.Count() > 0) {
    tvwConnection.SelectedItem = &tvwConnection.Nodes.Item(1);
  }
}

// An attempt that raises an error has failed like one that the server refuses, and the error is its reason.
void frmWizard::ConnectToSystem() {
  SetBusy(true);
  ui::Node& system = *tvwConnection.SelectedItem.Get();
  const std::string failed = Text(404) + system.Text.Get() + ": " + system.Key();
  try {
    if (!Connect(system)) StatusMessage(failed);
  } catch (const runtime::RuntimeError& error) {
    StatusMessage(failed + error.Description());
    report_("ConnectToSystem", error);
  }
  SetBusy(false);
}

bool frmWizard::Connect(ui::Node& system) {
  barStatus.Panels[1] = "";
  populatedClass_.clear();  // the class list is read again
  for (ui::Node& node : tvwConnection.Nodes.All()) node.Image = picture::NotConnected;
  CloseConnection();
  factory_ = services_.Factories.Create();
  StatusMessage(Text(403));
  if (!OpenConnection(system.Tag)) return false;
  StatusMessage(runtime::ReplaceAll(Text(414), "%S1", system.Text));
  barStatus.Panels[1] = system.Text;
  system.Image = picture::Connected;
  std::string name = system.Text.Get();
  settings::WriteProfile(services_.Profiles, services_.Desktop, settings::ProfileSection, RememberedSystemKey, name,
                         services_.ProfileFile);
  return true;
}

bool frmWizard::OpenConnection(const std::string& connectString) {
  if (!connectString.empty()) factory_->Connect(connectString);
  return factory_->IsConnected();
}

factory::ObjectFactory& frmWizard::Factory() const {
  if (!factory_) runtime::Raise(runtime::ObjectVariableNotSet);
  return *factory_;
}

void frmWizard::CloseConnection() {
  try {
    if (factory_ && factory_->IsConnected() && factory_->Disconnect()) factory_.reset();
  } catch (const runtime::RuntimeError&) {
    factory_.reset();  // of no use any more; the next attempt begins with a new one
    throw;
  }
}

}  // namespace formwizard::wizard
