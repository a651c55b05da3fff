// The wizard over a fake server and a project in memory.
#pragma once

#include "tests/support/FakeProfile.h"
#include "tests/support/FakeServer.h"
#include "tests/support/GenerationFixture.h"
#include "wizard/frmWizard.h"

namespace formwizard::tests {

struct WizardFixture {
  FakeDesktop Desktop;
  TenTwipsACharacter Measure;
  FakeProfile Profile;
  FakeServer Server;
  MemoryProject Ide;
  FakeLibraries Libraries;
  wizard::WizardServices Services{
      {.Desktop = Desktop, .Measure = Measure, .Profiles = Profile, .Factories = Server, .Libraries = Libraries}};
  wizard::AddInState& State = Services.State;
  wizard::frmWizard Dialog{Services, Ide};

  WizardFixture() {
    ServerData& data = Server.Data;
    data.AddClass("%Library.Base", 1, 1);
    data.AddClass("Billing.Core.Invoice");
    data.AddClass("Sample.Address", 0);
    data.AddClass("Sample.Company");
    data.AddClass("Sample.Person");
    data.AddProperty("Billing.Core.Invoice", "Number");
    data.AddProperty("Sample.Company", "Name");
    data.AddProperty("Sample.Person", "Name", {{"required", "1"}});
    data.AddProperty("Sample.Person", "Age", {{"editable", "0"}, {"maxlen", ""}});
    data.AddProperty("Sample.Person", "Home", {{"datatype", "0"}, {"serial", "1"}, {"type", "Sample.Address"}});
    data.AddProperty("Sample.Person", "Spouse", {{"datatype", "0"}, {"type", "Sample.Person"}});
    data.AddProperty("Sample.Person", "Colors", {{"collection", "list"}});
    data.AddProperty("Sample.Person", "Notes", {{"collection", "characterstream"}});
    data.AddProperty("Sample.Person", "Children", {{"collection", "list"}, {"datatype", "0"}});
    data.AddProperty("Sample.Person", "Aliases", {{"type", "%Library.List"}});
    data.AddProperty("Sample.Address", "City", {{"caption", "Town"}});
    data.AddQuery("Sample.Person", "ByName", 2, {"ID", "Name"});
    data.AddQuery("Sample.Person", "Counts", 0, {"Count"});
    data.AddQuery("Sample.Person", "Extent", 1, {"ID"});
    Dialog.Load();
  }

  void Next(int times = 1) {
    for (int i = 0; i < times; ++i) Dialog.cmdNext.Click();
  }
  static void DoubleClick(ui::TreeView& tree, ui::Node& node) {
    tree.ClickNode(node);
    tree.DoubleClick();
  }
  void ChooseClass(const std::string& name) {
    Dialog.tvwClasses.ClickNode(NodeIn(Dialog.tvwClasses, [&](const ui::Node& node) { return node.Tag == name; }));
  }
  static ui::Node& NodeIn(ui::TreeView& tree, const std::function<bool(const ui::Node&)>& isMeant) {
    const auto found = std::ranges::find_if(tree.Nodes.All(), isMeant);
    if (found == tree.Nodes.All().end()) throw std::runtime_error("there is no such node");
    return *found;
  }
  ui::Node& Property(const std::string& text) {
    return NodeIn(Dialog.tvwAttributes, [&](const ui::Node& node) { return node.Text == text; });
  }
  void Select(const std::string& text) { Select(Property(text)); }
  void Select(ui::Node& node) {
    Dialog.tvwAttributes.ClickNode(node);
    Dialog.cmdSelectOne.Click();
  }
  // The first property inside an object or a reference.
  ui::Node& Inside(const std::string& object) {
    Dialog.tvwAttributes.ExpandNode(Property(object));
    return *Property(object).Child();
  }
  std::string Status() const { return Dialog.barStatus.Panels[0]; }
  std::string Connected() const { return Dialog.barStatus.Panels[1]; }
  const model::FieldRecord& Field(int index) { return State.Form.Fields[Int16(index)]; }
  // Every node with its key, tag and picture, one a line.
  static std::string Tree(ui::TreeView& tree) {
    std::string all;
    for (const ui::Node& node : tree.Nodes.All()) {
      all += (node.Parent() ? " " : "") + node.Text.Get() + "[" + node.Key() + "," + node.Tag + "," +
             Text(node.Image.Get()) + "]\n";
    }
    return all;
  }
  static std::string Entries(const ui::ListBox& list) {
    std::string all;
    for (int i = 0; i < list.ListCount(); ++i) all += (i == list.ListIndex() ? "*" : "") + list.List(i) + " ";
    return all;
  }
  // The step and the buttons that can be pressed.
  std::string Where() const {
    return Text(Dialog.CurrentStep()) + " " + (Dialog.cmdBack.Enabled ? "B" : "-") +
           (Dialog.cmdNext.Enabled ? "N" : "-") + (Dialog.cmdFinish.Enabled ? "F" : "-") +
           (Dialog.cmdCancel.Enabled ? "C" : "-");
  }
};

}  // namespace formwizard::tests
