// The wizard: six steps from the welcome page to the finished form.
#pragma once

#include "settings/frmSettings.h"
#include "support/ErrorReport.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/ListBox.h"
#include "ui/TreeView.h"
#include "wizard/WizardServices.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace formwizard::wizard {

using runtime::Int16;
using runtime::Int32;

// The steps by number.
namespace step {
inline constexpr Int16 Welcome(1);
inline constexpr Int16 Connection(2);
inline constexpr Int16 Class(3);
inline constexpr Int16 Properties(4);
inline constexpr Int16 Attributes(5);
inline constexpr Int16 Finish(6);
}  // namespace step
inline constexpr std::size_t LastStep = 6;

// The record index at the start of a node's key: "12key" gives 12.
Int16 RecordIndexOf(const ui::Node& node);

class frmWizard : public ui::Form {
 public:
  // Both must outlive the dialog.
  frmWizard(WizardServices& services, generator::ide::Vbe& environment);

  // Frame
  ui::PictureBox picMain;                   // shows one of two pictures
  ui::Label lblLabelWidth;                  // hidden, measures texts
  std::array<ui::Frame, LastStep> frmStep;  // the panels, by step - 1
  ui::Frame frmCommand;
  ui::CommandButton cmdBack, cmdNext, cmdFinish, cmdCancel, cmdSettings;
  ui::StatusBar barStatus;  // panel 0: messages; panel 1: the connected system, empty without a connection

  // Welcome, connection, class
  ui::Label lblStep1_1, lblStep1_2, lblStep2A_1, lblStep2_1, lblStep2_2;
  ui::TreeView tvwConnection, tvwClasses;

  // Properties
  ui::Label lblStep3_1, lblStep3_2, lblStep3_3;
  ui::TreeView tvwAttributes;
  ui::ListBox lstSelected;  // item data: record index
  ui::CommandButton cmdSelectOne, cmdSelectAll, cmdDeSelectOne, cmdDeSelectAll, cmdMoveUp, cmdMoveDown;

  // Attributes, by panel: 0 simple, 1 reference, 2 list and array, 3 picture, 4 multi-line text
  static constexpr std::size_t FirstPanelWithRows = 2;
  ui::Label lblStep4_1, lblStep4_2;
  ui::ListBox lstFields;  // item data: record index
  std::array<ui::Frame, 5> frmProperty;
  std::array<ui::Label, 5> lblCaption, lblRowHeight;
  std::array<ui::TextBox, 5> txtCaption, txtRowHeight;  // row heights from FirstPanelWithRows on
  ui::CheckBox chkReadOnly, chkRefCombo;
  ui::Label lblUpdateAfter, lblComboMsg, lblComboQuery, lblComboColumn;
  ui::ComboBox lstUpdateAfter;  // item data: record index
  ui::ComboBox lstQueryName;    // item data: which column holds the object id
  ui::ComboBox lstQueryColumn;

  // Finish
  ui::Label lblStep5_1, lblStep5_2, lblStep5_3;

  // Each of these is one rule of the wizard; the events of the controls call them.
  void Form_Load();
  void Form_Unload() { CloseConnection(); }
  void SetStep(Int16 step);
  void MoveStep(Int16 delta);  // shows another step; does not run its entry work
  void InitStep();             // entry work of the current step
  void LeaveStep();            // exit work of the current step
  void PopulateFields();
  // The name of a property as the base of a control name: "." removed, "%" replaced by "sys_".
  static std::string ConvertKeyNameToIntName(std::string_view name);
  void StatusMessage(std::string_view text) { barStatus.Panels[0] = std::string(text); }
  Int16 CurrentStep() const { return currentStep_; }
  bool IsConnected() const { return !barStatus.Panels[1].Get().empty(); }
  // The attribute panel that is shown.
  std::size_t FrontPanel() const;

  // The description behind an entry of lstSelected or lstFields.
  model::FieldRecord& RecordOf(const ui::ListBox& list, int index) { return Record(list.ItemData(index)); }

 protected:
  void OnLoad() override { Form_Load(); }
  void OnUnload() override { Form_Unload(); }

 private:
  void Design();
  void DesignFirstSteps();
  void DesignPropertiesStep();
  void DesignAttributesStep();
  void ConnectEvents();
  void PlaceFrames();
  void SetToolTips();
  model::FormModel& Model() { return services_.State.Form; }
  model::FieldRecord& Record(int index) { return Model().Fields[Int16(index)]; }
  std::string Text(int id) const { return services_.Strings.LoadResStringLocal(id); }
  void SetBusy(bool busy);
  void LoadSettings();
  // Whether Back, Next or Finish can be pressed; once a generation has begun none of them ever can.
  void Allow(ui::CommandButton& button, bool allowed) { button.Enabled = allowed && !isGenerating_; }

  // Frame
  void cmdBack_Click();
  void cmdNext_Click();
  void cmdFinish_Click();
  void cmdCancel_Click() { Unload(); }
  void cmdSettings_Click();
  void EnterClassStep();
  void EnterPropertiesStep();
  void EnterAttributesStep();
  void EnterFinishStep();

  // Connection
  void PopulateConnection();
  void FillConnectionTree(std::string_view remembered);
  void ConnectToSystem();
  bool Connect(ui::Node& system);
  bool OpenConnection(const std::string& connectString);
  // Error 91 without one.
  factory::ObjectFactory& Factory() const;
  void CloseConnection();

  // Class
  void PopulateClassList();
  void ClearClassList();
  void AddClassNodes();
  static bool IsClass(const ui::Node& node);
  void tvwClasses_NodeClick(ui::Node& node);
  void tvwClasses_DblClick();

  // Properties
  void PopulateAttributeList(ui::Node* parent, const std::string& className, bool dataTypesOnly);
  void ReadProperties(ui::Node* parent, const std::string& className, bool dataTypesOnly);
  void AddProperty(ui::Node* parent, factory::ResultSet& row);
  void tvwAttributes_Expand(ui::Node& node);
  void tvwAttributes_DblClick();
  void SelectProperty(ui::Node& node);
  void cmdSelectAll_Click();
  void cmdDeSelectOne_Click();
  void cmdDeSelectAll_Click();
  void MoveSelected(int by);

  // Attributes
  model::FieldRecord* CurrentField();
  void lstFields_Click();
  void ShowChoice(ui::CheckBox& box, bool made);
  void chkReadOnly_Click();
  void chkRefCombo_Click();
  void lstUpdateAfter_Click();
  void lstQueryName_Click();
  void lstQueryColumn_Click();
  void txtRowHeight_Change(std::size_t panel);
  void PopulateQueryList();
  void ReadQueries();
  void ReadColumns();
  void ShowComboSpecification(bool visible);
  void LetLeaveField(bool allowed);
  bool AskForQueryAndColumn(bool needsColumn);

  // Finish
  void FreezeButtons();
  void TakeSelection();
  void Generate();

  WizardServices& services_;
  generator::ide::Vbe& environment_;
  support::ErrorReport report_;
  std::unique_ptr<factory::ObjectFactory> factory_;
  Int16 currentStep_;
  bool isGenerating_ = false;  // or it has failed
  std::string readyText_;
  std::string populatedClass_;  // the class whose properties are loaded; empty after a connection attempt
  ui::Node* selectedClass_ = nullptr;
  float classesX_ = 0, classesY_ = 0;  // where the mouse was last pressed in tvwClasses
  std::unique_ptr<settings::frmSettings> settingsDialog_;

  // While the combo box of a reference is specified
  std::string comboClass_, comboQuery_, comboColumn_;
  Int16 comboParamCount_;
};

}  // namespace formwizard::wizard
