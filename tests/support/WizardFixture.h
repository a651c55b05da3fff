// The wizard over a fake server and a fake environment.
#pragma once

#include "tests/support/FakeDesktop.h"
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
  FakeIde Ide;
  NoLibraries Libraries;
  support::Strings Strings{Libraries, ""};
  support::Localization Localization{Strings, Libraries};
  wizard::AddInState State;
  wizard::frmWizard Dialog{{Desktop, Measure, Profile, "outility.ini", Server, Strings, Localization, "", State}, Ide};

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
  // Walks to the Properties step of Sample.Person.
  void GoToProperties() {
    Next(2);
    ChooseClass("Sample.Person");
    Next();
  }
  static void DoubleClick(ui::TreeView& tree, ui::Node& node) {
    tree.ClickNode(node);
    tree.DoubleClick();
  }
  void ChooseClass(const std::string& name) { Dialog.tvwClasses.ClickNode(NodeWithTag(Dialog.tvwClasses, name)); }
  static ui::Node& NodeWithTag(ui::TreeView& tree, const std::string& tag) {
    for (ui::Node& node : tree.Nodes.All()) {
      if (node.Tag == tag) return node;
    }
    throw std::runtime_error("no node " + tag);
  }
  ui::Node& Property(const std::string& text) {
    for (ui::Node& node : Dialog.tvwAttributes.Nodes.All()) {
      if (node.Text == text) return node;
    }
    throw std::runtime_error("no property " + text);
  }
  void Select(const std::string& text) {
    Dialog.tvwAttributes.ClickNode(Property(text));
    Dialog.cmdSelectOne.Click();
  }
  std::string Status() const { return Dialog.barStatus.Panels[0]; }
  std::string Connected() const { return Dialog.barStatus.Panels[1]; }
  std::string Step() const { return Text(Dialog.CurrentStep()); }
  static std::string Entries(const ui::ListBox& list) {
    std::string all;
    for (int i = 0; i < list.ListCount(); ++i) all += (i == list.ListIndex() ? "*" : "") + list.List(i) + " ";
    return all;
  }
  std::string Buttons() const {
    return std::string(Dialog.cmdBack.Enabled ? "B" : "-") + (Dialog.cmdNext.Enabled ? "N" : "-") +
           (Dialog.cmdFinish.Enabled ? "F" : "-") + (Dialog.cmdCancel.Enabled ? "C" : "-");
  }
};

}  // namespace formwizard::tests
