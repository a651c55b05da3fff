// A dialog whose controls a test places, and views that note what they are told.
#pragma once

#include "tests/support/FakeDesktop.h"
#include "ui/Form.h"
#include "ui/ListBox.h"
#include "ui/TreeView.h"

namespace formwizard::tests {

// What a view is told: "~" a change, "+1" an insertion, "-1" a removal, "0" everything is gone.
struct ListNotes : ui::ListObserver {
  void Changed() override { Notes += "~ "; }
  void ItemInserted(int index) override { Notes += "+" + std::to_string(index) + " "; }
  void ItemRemoved(int index) override { Notes += "-" + std::to_string(index) + " "; }
  void Cleared() override { Notes += "0 "; }
  std::string Notes;
};

struct TreeNotes : ui::TreeObserver {
  void Changed() override { Notes += "~ "; }
  void NodeAdded(ui::Node& node) override { Notes += "+" + node.Text.Get() + " "; }
  void NodeChanged(ui::Node& node) override { Notes += "~" + node.Text.Get() + " "; }
  void NodeRemoved(ui::Node& node) override { Notes += "-" + node.Text.Get() + " "; }
  void Cleared() override { Notes += "0 "; }
  ui::Node* NodeAt(float x, float y) const override { return x == 3 && y == 5 ? Drawn : nullptr; }
  std::string Notes;
  ui::Node* Drawn = nullptr;  // at the point (3, 5)
};

struct OwnDesktop {
  FakeDesktop Desktop;
};

class TestForm : public OwnDesktop, public ui::Form {
 public:
  TestForm() : Form(Desktop) {}

  void Place(ui::Control& control, std::string_view name, ui::Control* container = nullptr) {
    Add(control, {name, container, 0, 0, 0, 0, ""});
  }
  // Under its caption as its name.
  void Place(ui::CaptionedControl& control, std::string_view caption, ui::Control* container = nullptr) {
    Place(static_cast<ui::Control&>(control), caption, container);
    control.Caption = std::string(caption);
  }
  // The name of the control with the focus.
  std::string Focus() const { return ActiveControl() ? ActiveControl()->Name : "none"; }
  using Form::Guarded;

  int Unloads = 0, FailOnUnload = 0;

 protected:
  void OnUnload() override {
    ++Unloads;
    if (FailOnUnload != 0) runtime::Raise(FailOnUnload);
  }
};

}  // namespace formwizard::tests
