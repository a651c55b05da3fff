// The wizard: six steps from the welcome page to the finished form.
#pragma once

#include "settings/frmSettings.h"
#include "support/ErrorReport.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/ListBox.h"
#include "ui/TreeView.h"
#include "wizard/OfferedProperties.h"
#include "wizard/WizardServices.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::wizard {

using runtime::Int16;
using runtime::Int32;

inline constexpr std::size_t LastStep = 6;  // steps count from 1

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

  // Attributes, by panel
  static constexpr std::size_t PanelCount = 5;
  ui::Label lblStep4_1, lblStep4_2;
  ui::ListBox lstFields;  // item data: record index
  std::array<ui::Frame, PanelCount> frmProperty;
  std::array<ui::Label, PanelCount> lblCaption, lblRowHeight;
  std::array<ui::TextBox, PanelCount> txtCaption, txtRowHeight;
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
  // For a program that has the next form made by the same dialog. Loads it once more and connects it as it was; shows
  // its class step as a new dialog would that somebody has brought there. Texts, fonts, the lists of systems and of
  // classes, and the properties of a class that is chosen again at once are not read again. False when they have not
  // been read to their end, or the connection fails: only a new dialog will do then.
  bool LoadAgain();
  void SetStep(Int16 step);
  void MoveStep(Int16 delta);  // shows another step; does not run its entry work
  void InitStep();             // entry work of the current step
  bool LeaveStep();            // exit work of the current step; false when the user has to stay
  void PopulateFields();
  // The name of a property as the base of a control name: "." removed, "%" replaced by "sys_".
  static std::string ConvertKeyNameToIntName(std::string_view name);
  void StatusMessage(std::string_view text) { barStatus.Panels[0] = std::string(text); }
  Int16 CurrentStep() const { return currentStep_; }
  bool IsConnected() const { return !barStatus.Panels[1].Get().empty(); }
  // The attribute panel that is shown.
  std::size_t FrontPanel() const;
  // Whether an attribute panel has a box for the rows.
  bool HasRows(std::size_t panel) const { return txtRowHeight[panel].Container != nullptr; }

  // What Finish would leave behind if the properties that are chosen now were taken: made in `environment`, failures
  // are shown on `desktop`. Nothing of the dialog changes. Error 91 before a class is chosen.
  AddInState Rehearse(generator::ide::Vbe& environment, ui::Desktop& desktop) const;

  // The description behind an entry of lstSelected or lstFields.
  model::FieldRecord& RecordOf(const ui::ListBox& list, int index) { return Record(list.ItemData(index)); }

 protected:
  void OnLoad() override { Form_Load(); }
  void OnUnload() override { Form_Unload(); }

 private:
  // What a step is besides the controls in its panel. What is null is not needed.
  struct Step {
    Int16 Picture = Int16(0);                     // of picMain; 0: the one that is shown stays
    bool MayFinish = false;                       // whether Finish can be pressed here before properties are selected
    void (frmWizard::*Design)(ui::Frame& panel);  // always there
    void (frmWizard::*ConnectEvents)() = nullptr;
    void (frmWizard::*Enter)() = nullptr;
    bool (frmWizard::*Leave)() = nullptr;  // false when the user has to stay
  };
  static const std::array<Step, LastStep> Steps;
  const Step& CurrentStepRow() const { return Steps.at(static_cast<std::size_t>(currentStep_.Value()) - 1); }

  // What an attribute panel has besides the caption, and for which kinds of fields it is shown.
  struct Panel {
    std::string_view Title;  // string id
    Int16 FirstKind, LastKind;
    void (frmWizard::*Design)(std::size_t panel);
  };
  static const std::array<Panel, PanelCount> Panels;
  static std::size_t PanelOf(Int16 fieldKind);

  void Design();
  void DesignWelcome(ui::Frame& step);
  void DesignConnection(ui::Frame& step);
  void DesignClass(ui::Frame& step);
  void DesignProperties(ui::Frame& step);
  void DesignAttributes(ui::Frame& step);
  void DesignReadOnly(std::size_t panel);
  void DesignRefCombo(std::size_t panel);
  void DesignRowHeight(std::size_t panel);
  void DesignFinish(ui::Frame& step);
  void ConnectEvents();
  void PlaceFrames();
  void SetToolTips();
  model::FormModel& Model() { return services_.State.Form; }
  model::FieldRecord& RecordOf(const ui::Node& node) { return Model().Fields[RecordIndexOf(node)]; }
  model::FieldRecord& Record(int index) { return Model().Fields[Int16(index)]; }
  std::string Text(int id) const { return services_.Strings.LoadResStringLocal(id); }
  void SetBusy(bool busy);
  void LoadSettings();
  void MeasureCharacters();
  void ForgetChoices();
  // Whether Back, Next or Finish can be pressed; once a generation has begun none of them ever can.
  void Allow(ui::CommandButton& button, bool allowed) { button.Enabled = allowed && !isGenerating_; }

  // Frame
  void cmdBack_Click();
  void cmdNext_Click();
  void cmdFinish_Click();
  void cmdCancel_Click() { Unload(); }
  void cmdSettings_Click();

  // Connection
  void ConnectConnectionEvents();
  void EnterConnection();
  bool LeaveConnection();
  void PopulateConnection();
  void FillConnectionTree(std::string_view remembered);
  void ConnectToSystem();
  bool Connect(ui::Node& system);
  bool OpenConnection(const std::string& connectString);
  // Error 91 without one.
  factory::ObjectFactory& Factory() const;
  void CloseConnection();

  // Class
  void ConnectClassEvents();
  void EnterClass();
  void PopulateClassList();
  void ClearClassList();
  void AddClassNodes();
  void ChooseFirstClass();
  void ForgetClass();
  static bool IsClass(const ui::Node& node);
  void tvwClasses_NodeClick(ui::Node& node);
  void tvwClasses_DblClick();

  // Properties
  void ConnectPropertiesEvents();
  void EnterProperties();
  void ForgetProperties();
  void PopulateAttributeList(ui::Node* parent, const std::string& className);
  void ReadProperties(ui::Node* parent, const std::string& className);
  void ForgetOffered();
  void AddProperty(ui::Node* parent, const OfferedProperty& property);
  void tvwAttributes_Expand(ui::Node& node);
  void tvwAttributes_DblClick();
  void SelectProperty(ui::Node& node);
  void cmdSelectAll_Click();
  void cmdDeSelectOne_Click();
  void cmdDeSelectAll_Click();
  void MoveSelected(int by);

  // Attributes
  void ConnectAttributesEvents();
  void EnterAttributes();
  void ForgetAttributes();
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
  void EnterFinish();
  void FreezeButtons();
  void TakeSelection();
  // Takes the entries of a list as the fields of the form, with the names of their controls.
  static void Select(model::FormModel& form, const ui::ListBox& list);
  static void NameControls(model::FieldRecord& field) { field.IntName = ConvertKeyNameToIntName(field.DisplayName); }
  void Generate(AddInState& state, generator::ide::Vbe& environment, const support::ErrorReport& report,
                const std::function<void(int text)>& say) const;

  WizardServices& services_;
  generator::ide::Vbe& environment_;
  support::ErrorReport report_;
  std::unique_ptr<factory::ObjectFactory> factory_;
  Int16 currentStep_;
  bool isGenerating_ = false;  // or it has failed
  std::string readyText_;
  std::string populatedClass_;  // the class whose properties are loaded; empty after a connection attempt
  bool hasAllClasses_ = false;  // the class list was read to its end
  std::string offeredOf_;       // the class whose own properties were read last, to their end
  std::vector<OfferedProperty> offered_;
  ui::Node* selectedClass_ = nullptr;
  float classesX_ = 0, classesY_ = 0;  // where the mouse was last pressed in tvwClasses
  std::unique_ptr<settings::frmSettings> settingsDialog_;

  // While the combo box of a reference is specified
  std::string comboClass_, comboQuery_, comboColumn_;
  Int16 comboParamCount_;
};

}  // namespace formwizard::wizard
