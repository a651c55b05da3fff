// A pass through the wizard's windows, whatever shows them and whoever uses them.
#pragma once

#include "tests/support/WizardFixture.h"

namespace formwizard::tests {

// The dialogs as they are designed; windows are found by their controls.
inline const wizard::frmWizard& WizardDesign() {
  static const WizardFixture fixture;
  return fixture.Dialog;
}
inline const settings::frmSettings& SettingsDesign() {
  static WizardFixture fixture;
  static const settings::frmSettings settings(fixture.Desktop, fixture.Profile, "outility.ini",
                                              fixture.Services.Localization);
  return settings;
}

// Somebody at the windows of one toolkit. Each action returns when the windows have nothing more to do. What cannot be
// done is a std::runtime_error.
class User {
 public:
  virtual ~User() = default;
  // A button or a check box.
  virtual void Press(const ui::Control& button) = 0;
  virtual void PressAccessKeyOf(const ui::Control& button) { Press(button); }
  // A button that opens a dialog, which is closed when `inside` returns.
  virtual void PressToOpen(const ui::Control& button, const std::function<void()>& inside) {
    PressAccessKeyOf(button);
    inside();
  }
  // Shows what is below a node.
  virtual void Open(const ui::Control& tree, const std::string& node) { Take(tree, node, "", tree); }
  // Chooses a node and goes on from the step.
  virtual void GoOnWith(const ui::Control& tree, const std::string& node) { Take(tree, node, "", tree); }
  // Chooses a node, which may stand below another one, and presses the button that takes it. By mouse a double click
  // does it, as it opens a node or goes on.
  virtual void Take(const ui::Control& tree, const std::string& node, const std::string& below,
                    const ui::Control& button) = 0;
  virtual void ChooseRow(const ui::Control& list, int row) = 0;
  virtual void ChooseInCombo(const ui::Control& combo, const std::string& entry) = 0;
  virtual void TypeOver(const ui::Control& box, const std::string& text) = 0;
  // One more in the box beside the arrows.
  virtual void Raise(const ui::UpDown& arrows) = 0;
};

// Somebody with a keyboard alone.
class Keyboard : public User {
 public:
  void Press(const ui::Control& button) override { StrikeIn(button, Key::Space); }
  void Open(const ui::Control& tree, const std::string& node) override {
    Choose(tree, "", node);
    Strike(Key::Right);
  }
  void GoOnWith(const ui::Control& tree, const std::string& node) override {
    Choose(tree, "", node);
    Strike(Key::Enter);
  }
  void Take(const ui::Control& tree, const std::string& node, const std::string& below,
            const ui::Control& button) override {
    Choose(tree, below, node);
    Press(button);
  }
  void ChooseRow(const ui::Control& list, int row) override {
    StrikeIn(list, Key::Home);
    for (int i = 0; i < row; ++i) Strike(Key::Down);
  }
  void ChooseInCombo(const ui::Control& combo, const std::string& entry) override {
    GoTo(combo);
    StrikeUntil(entry);
  }
  void TypeOver(const ui::Control& box, const std::string& text) override {
    GoTo(box);  // the tab key selects what is there
    Type(text);
  }
  void Raise(const ui::UpDown& arrows) override { StrikeIn(*arrows.Buddy, Key::Up); }
  void GoTo(const ui::Control& control) {
    for (int i = 0; i < 40 && !HasFocus(control); ++i) Strike(Key::Tab);
    if (!HasFocus(control)) throw std::runtime_error("the tab key does not reach " + control.Name);
  }

 protected:
  enum class Key { Space, Enter, Right, Up, Down, Home, Tab };
  virtual void Strike(Key key) = 0;
  virtual void Type(const std::string& text) = 0;
  virtual bool HasFocus(const ui::Control& control) = 0;
  virtual std::string ChosenText() = 0;  // of the tree or combo box that has the focus

 private:
  void StrikeIn(const ui::Control& control, Key key) {
    GoTo(control);
    Strike(key);
  }
  void StrikeUntil(const std::string& wanted) {
    for (int i = 0; i < 60 && ChosenText() != wanted; ++i) Strike(Key::Down);
    if (ChosenText() != wanted) throw std::runtime_error("there is no " + wanted);
  }
  void Choose(const ui::Control& tree, const std::string& below, const std::string& node) {
    StrikeIn(tree, Key::Home);
    if (!below.empty()) StrikeUntil(below);
    StrikeUntil(node);
  }
};

// Chooses what makes the form of golden/addin-project, up to the step in which it is made. `look` is called in each
// step with its number when all is chosen there, and in the settings with 0.
inline void PassThroughWizard(
    User& user, const std::function<void(int step)>& look = [](int) {}) {
  const wizard::frmWizard& dialog = WizardDesign();
  const settings::frmSettings& settings = SettingsDesign();
  look(1);
  user.PressToOpen(dialog.cmdSettings, [&] {
    user.Raise(settings.spnNumColumns);
    look(0);
    user.Press(settings.cmdOK);
  });
  user.Press(dialog.cmdNext);
  look(2);
  user.GoOnWith(dialog.tvwConnection, "Samples");
  look(3);
  user.GoOnWith(dialog.tvwClasses, "Person");
  for (const std::string property : {"*Name", "Home.*City", "Age", "Notes", "Spouse.*Name"}) {
    const std::size_t dot = property.find('.');
    const std::string owner = dot == std::string::npos ? "" : property.substr(0, dot);
    if (!owner.empty()) user.Open(dialog.tvwAttributes, owner);
    user.Take(dialog.tvwAttributes, property.substr(dot + 1), owner, dialog.cmdSelectOne);
  }
  look(4);
  user.PressAccessKeyOf(dialog.cmdNext);
  user.ChooseRow(dialog.lstFields, 1);
  user.TypeOver(dialog.txtCaption[0], "Town");
  user.ChooseRow(dialog.lstFields, 2);
  user.ChooseInCombo(dialog.lstUpdateAfter, "Name");
  user.ChooseRow(dialog.lstFields, 3);
  user.TypeOver(dialog.txtRowHeight[4], "7");
  user.ChooseRow(dialog.lstFields, 4);
  user.Press(dialog.chkRefCombo);
  user.ChooseInCombo(dialog.lstQueryName, "ByName");
  user.ChooseInCombo(dialog.lstQueryColumn, "Name");
  look(5);
  user.PressAccessKeyOf(dialog.cmdNext);
  look(6);
}

}  // namespace formwizard::tests
