// The dialog that edits the generator's settings in the profile file.
#pragma once

#include "runtime/Conversions.h"
#include "settings/ProfileStore.h"
#include "settings/Settings.h"
#include "support/Localization.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/OptionButton.h"

#include <array>
#include <functional>
#include <string>
#include <variant>

namespace formwizard::settings {

using runtime::Int32;

class frmSettings : public ui::Form {
 public:
  // Everything referred to must outlive the dialog. `profileFile` is the path of "outility.ini".
  frmSettings(ui::Desktop& desktop, ProfileStore& profiles, std::string profileFile,
              support::Localization& localization);

  ui::Frame fraScreenLayout, fraLabelAlignment, fraFormLayout;
  ui::Label lblNumColumns, lblCollectionRows, lblImageRows, lblMultilineRows;
  ui::TextBox txtNumColumns, txtCollectionRows, txtImageRows, txtMutilineRows;
  ui::UpDown spnNumColumns, spnCollectionRows, spnImageRows, spnMultilineRows;
  ui::OptionButton optLabelAlignmentLeft, optLabelAlignmentRight;
  ui::CheckBox chkMenu, chkButton, chkToolbar, chkStatusbar, chkFormSizable;
  ui::CommandButton cmdOK, cmdCancel;

  // Error 13 for a stored value that does not convert, 6 for a number outside 16 bits, 380 for what is no state of a
  // check box.
  void Form_Load();

 protected:
  void OnLoad() override { Form_Load(); }

 private:
  // What a setting is edited with. A refused entry of a box falls back to the number of the last loading.
  struct NumberBox {
    ui::TextBox& Box;
    ui::UpDown& Spinner;
    Int16 LastAccepted;
  };
  struct OptionPair {
    ui::OptionButton& Yes;
    ui::OptionButton& No;
  };
  struct Binding {
    const SettingKey& Key;
    std::variant<NumberBox, OptionPair, ui::CheckBox*> Editor;
  };

  void Design();
  void ConnectEvents();
  static std::string TextOf(const NumberBox& number) { return number.Box.Text(); }
  static std::string TextOf(const OptionPair& pair) { return runtime::Text(pair.Yes.Value()); }
  static std::string TextOf(const ui::CheckBox* box) { return std::to_string(box->Value()); }
  std::string Read(const SettingKey& key) const;
  void ForEachNumber(const std::function<void(const SettingKey& key, NumberBox& number)>& action);
  void NumberBox_Change(NumberBox& number);
  void ValidateRange(const ui::TextBox& box, const ui::UpDown& spinner, bool& ok);
  void cmdOK_Click();

  ui::Desktop& desktop_;
  ProfileStore& profiles_;
  std::string profileFile_;
  support::Localization& localization_;
  std::array<Binding, 10> bindings_;  // in the order in which they are written
  bool loading_ = false;
};

}  // namespace formwizard::settings
