#include "wizard/TreePictures.h"
#include "wizard/frmWizard.h"

namespace formwizard::wizard {

void frmWizard::ConnectClassEvents() {
  tvwClasses.NodeClick = Guarded([this](ui::Node& node) { tvwClasses_NodeClick(node); });
  tvwClasses.OnClick = Guarded([this] {
    if (ui::Node* node = tvwClasses.SelectedItem) tvwClasses_NodeClick(*node);
  });
  tvwClasses.MouseDown = [this](float x, float y) {
    classesX_ = x;
    classesY_ = y;
  };
  tvwClasses.DblClick = Guarded([this] { tvwClasses_DblClick(); });
}

void frmWizard::EnterClass() {
  if (!populatedClass_.empty()) {
    Allow(cmdNext, selectedClass_ && IsClass(*selectedClass_));
    return;
  }
  ClearClassList();  // it may be another system's
  LoadSettings();
  PopulateClassList();
}

// Only packages have a key.
bool frmWizard::IsClass(const ui::Node& node) { return node.Key().empty(); }

void frmWizard::ClearClassList() {
  tvwClasses.Nodes.Clear();
  hasAllClasses_ = false;
  ForgetOffered();
  ForgetClass();
}

void frmWizard::ForgetClass() {
  selectedClass_ = nullptr;
  Allow(cmdNext, false);  // until a class is chosen
}

void frmWizard::PopulateClassList() {
  support::LeaveOnError(report_, "PopulateClassList", [&] {
    StatusMessage(Text(401));
    SetBusy(true);
    ClearClassList();
    AddClassNodes();
    ChooseFirstClass();
  });
  SetBusy(false);
  StatusMessage(readyText_);
}

// A package node is added whenever the package changes from one row to the next: rows come ordered by name.
void frmWizard::AddClassNodes() {
  const auto rows = Factory().ResultSet("%ClassDefinition", "ClassInfo");
  rows->Execute({});
  std::string previousPackage;
  ui::Node* packageNode = nullptr;
  while (rows->Next()) {
    if (!runtime::EqualsNumber(rows->GetData(factory::ClassColumn("System")), Int32(0))) continue;
    if (!runtime::EqualsNumber(rows->GetData(factory::ClassColumn("Persistent")), Int32(1))) continue;
    const std::string name = runtime::ToText(rows->GetData(factory::ClassColumn("Name")));
    const std::size_t dot = name.find('.');
    if (dot == std::string::npos) runtime::Raise(runtime::InvalidProcedureCall);
    const std::string_view package = std::string_view(name).substr(0, dot);
    if (package != previousPackage) {
      previousPackage = package;
      packageNode = &tvwClasses.Nodes.Add(nullptr, package, package);
      packageNode->Image = picture::Package;
      packageNode->SelectedImage = picture::OpenPackage;
      packageNode->Expanded = true;
    }
    // A name that begins with "." has the empty package, which no key stands for.
    if (package.empty()) runtime::Raise(runtime::ElementNotFound);
    ui::Node& node = tvwClasses.Nodes.Add(packageNode, "", std::string_view(name).substr(dot + 1));
    node.Image = picture::Class;
    node.Tag = name;
  }
  rows->Close();
  hasAllClasses_ = true;
}

void frmWizard::ChooseFirstClass() {
  if (tvwClasses.Nodes.Count() < 2) return;
  tvwClasses.SelectedItem = &tvwClasses.Nodes.Item(2);  // the first class of the first package
  tvwClasses_NodeClick(*tvwClasses.SelectedItem.Get());
}

void frmWizard::tvwClasses_NodeClick(ui::Node& node) {
  selectedClass_ = &node;
  Allow(cmdNext, IsClass(node));
}

// On a package or beside all nodes the double click is the tree's own.
void frmWizard::tvwClasses_DblClick() {
  const ui::Node* node = tvwClasses.HitTest(classesX_, classesY_);
  if (node && IsClass(*node)) cmdNext.Click();
}

}  // namespace formwizard::wizard
