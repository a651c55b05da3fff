// The dialog that edits the generator's settings in the profile file.
#pragma once

#include "settings/ProfileStore.h"
#include "support/Localization.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/OptionButton.h"

#include <array>
#include <string>
#include <string_view>

namespace formwizard::settings {

using runtime::Int16;
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
  // A box, its spinner and the value that a refused entry falls back to: the one of the last loading.
  struct NumberBox {
    std::string_view Key;
    ui::TextBox& Box;
    ui::UpDown& Spinner;
    Int16 LastAccepted;
  };
  struct Choice {
    std::string_view Key;
    ui::CheckBox& Box;
  };

  void Design();
  void ConnectEvents();
  std::string Read(std::string_view key) const;
  void LoadChoice(const Choice& choice) const;
  void Write(std::string_view key, std::string value);
  void NumberBox_Change(NumberBox& number);
  void ValidateRange(const ui::TextBox& box, const ui::UpDown& spinner, bool& ok);
  void cmdOK_Click();

  ui::Desktop& desktop_;
  ProfileStore& profiles_;
  std::string profileFile_;
  support::Localization& localization_;
  std::array<NumberBox, 4> numbers_;
  std::array<Choice, 5> choices_;
  bool loading_ = false;
};

}  // namespace formwizard::settings
