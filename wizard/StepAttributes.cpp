#include "runtime/Conversions.h"
#include "wizard/frmWizard.h"

#include <algorithm>
#include <initializer_list>

namespace formwizard::wizard {
namespace {

namespace kind = model::kind;

}  // namespace

// One row a panel. With fewer rows it does not compile.
constexpr std::array<frmWizard::Panel, frmWizard::PanelCount> frmWizard::Panels = std::to_array<frmWizard::Panel>({
    {"110", kind::TextBox, kind::ReadOnlyLabel, &frmWizard::DesignReadOnly},
    {"111", kind::ReferenceLabel, kind::ReferenceCombo, &frmWizard::DesignRefCombo},
    {"113", kind::ListBox, kind::ListView, &frmWizard::DesignRowHeight},
    {"112", kind::Picture, kind::Picture, &frmWizard::DesignRowHeight},
    {"122", kind::MultiLine, kind::MultiLine, &frmWizard::DesignRowHeight},
});

void frmWizard::ConnectAttributesEvents() {
  lstFields.OnClick = Guarded([this] { lstFields_Click(); });
  chkReadOnly.OnClick = Guarded([this] { chkReadOnly_Click(); });
  chkRefCombo.OnClick = Guarded([this] { chkRefCombo_Click(); });
  lstUpdateAfter.OnClick = Guarded([this] { lstUpdateAfter_Click(); });
  lstQueryName.OnClick = Guarded([this] { lstQueryName_Click(); });
  lstQueryColumn.OnClick = Guarded([this] { lstQueryColumn_Click(); });
  for (std::size_t panel = 0; panel < txtCaption.size(); ++panel) {
    txtCaption[panel].Change = Guarded([this, panel] {
      if (model::FieldRecord* field = CurrentField()) field->Caption = txtCaption[panel].Text();
    });
    txtRowHeight[panel].Change = Guarded([this, panel] { txtRowHeight_Change(panel); });
  }
}

void frmWizard::EnterAttributes() {
  PopulateFields();
  chkReadOnly.SetValue(0);
  if (lstFields.ListCount() > 0) lstFields.SetListIndex(0);
}

// While no field is the current one, so that the events change none.
void frmWizard::ForgetAttributes() {
  for (ui::ListBox* list :
       std::initializer_list<ui::ListBox*>{&lstFields, &lstUpdateAfter, &lstQueryName, &lstQueryColumn}) {
    list->Clear();
  }
  for (ui::CheckBox* box : {&chkReadOnly, &chkRefCombo}) box->SetValue(0);
  for (std::size_t panel = 0; panel < PanelCount; ++panel) {
    txtCaption[panel].SetText("");
    txtRowHeight[panel].SetText("");
  }
  lblUpdateAfter.Enabled = false;  // until the field is made read-only
  lstUpdateAfter.Enabled = false;
  ShowComboSpecification(false);
  ui::ShowOnly(frmProperty, 0);
  LetLeaveField(true);
}

// Any other kind shows the first panel.
std::size_t frmWizard::PanelOf(Int16 fieldKind) {
  static constexpr auto isFor = [](const Panel& panel, Int16 wanted) {
    return wanted >= panel.FirstKind && wanted <= panel.LastKind;
  };
  static_assert(
      [] {
        for (Int16 each(1); each <= kind::Last; each += Int16(1)) {
          if (std::ranges::count_if(Panels, [&](const Panel& panel) { return isFor(panel, each); }) != 1) return false;
        }
        return true;
      }(),
      "each kind of control has one panel");
  const auto found = std::ranges::find_if(Panels, [&](const Panel& panel) { return isFor(panel, fieldKind); });
  return found == Panels.end() ? 0 : static_cast<std::size_t>(found - Panels.begin());
}

std::size_t frmWizard::FrontPanel() const {
  const auto front = std::ranges::find_if(frmProperty, [](const ui::Frame& panel) { return panel.Visible.Get(); });
  return static_cast<std::size_t>(front - frmProperty.begin());
}

void frmWizard::PopulateFields() {
  SetBusy(true);
  lstFields.Clear();
  lstUpdateAfter.Clear();
  for (int i = 0; i < lstSelected.ListCount(); ++i) {
    const int index = lstSelected.ItemData(i);
    lstFields.AddItem(lstSelected.List(i), index);
    lstUpdateAfter.AddItem(lstSelected.List(i), index);
    NameControls(Record(index));
  }
  SetBusy(false);
}

model::FieldRecord* frmWizard::CurrentField() {
  return lstFields.ListIndex() < 0 ? nullptr : &RecordOf(lstFields, lstFields.ListIndex());
}

void frmWizard::lstFields_Click() {
  model::FieldRecord& field = *CurrentField();
  const std::size_t panel = PanelOf(field.FieldKind);
  ui::ShowOnly(frmProperty, panel);  // first, because what follows may put the focus there
  if (field.FieldKind == kind::TextBox || field.FieldKind == kind::ReadOnlyLabel) {
    ShowChoice(chkReadOnly, field.FieldKind == kind::ReadOnlyLabel);
  } else if (field.FieldKind == kind::ReferenceLabel || field.FieldKind == kind::ReferenceCombo) {
    ShowChoice(chkRefCombo, field.FieldKind == kind::ReferenceCombo);
  } else if (HasRows(panel)) {
    txtRowHeight[panel].SetText(runtime::Text(field.RowCount));
  }
  txtCaption[panel].SetText(field.Caption);
}

// The lists of a choice that is made are filled from the record, also when the box shows it already.
void frmWizard::ShowChoice(ui::CheckBox& box, bool made) {
  if (made && box.Value() == 1) {
    box.OnClick();
  } else {
    box.SetValue(made ? 1 : 0);
  }
}

void frmWizard::txtRowHeight_Change(std::size_t panel) {
  model::FieldRecord* field = CurrentField();
  if (!field) return;
  try {
    field->RowCount = runtime::ToInt16(txtRowHeight[panel].Text());
  } catch (const runtime::RuntimeError&) {
    // A text that is no 16-bit number, such as one that is just being typed: the record keeps its rows.
    return;
  }
}

void frmWizard::chkReadOnly_Click() {
  model::FieldRecord* field = CurrentField();
  if (!field) return;
  const bool readOnly = chkReadOnly.Value() != 0;
  field->FieldKind = readOnly ? kind::ReadOnlyLabel : kind::TextBox;
  lblUpdateAfter.Enabled = readOnly;
  lstUpdateAfter.Enabled = readOnly;
  lstUpdateAfter.SetListIndex(-1);
  if (readOnly) lstUpdateAfter.SelectData(field->UpdateAfter.Value());
}

void frmWizard::lstUpdateAfter_Click() {
  if (model::FieldRecord* field = CurrentField()) {
    field->UpdateAfter = Int16(lstUpdateAfter.ItemData(lstUpdateAfter.ListIndex()));
  }
}

// While a combo box is half specified the user can neither leave the field nor the step.
void frmWizard::LetLeaveField(bool allowed) {
  lstFields.Enabled = allowed;
  Allow(cmdNext, allowed);
  Allow(cmdBack, allowed);
  Allow(cmdFinish, allowed);
}

void frmWizard::ShowComboSpecification(bool visible) {
  for (ui::Control* control : std::initializer_list<ui::Control*>{&lblComboQuery, &lstQueryName, &lblComboColumn,
                                                                  &lstQueryColumn, &lblComboMsg}) {
    control->Visible = visible;
  }
}

void frmWizard::chkRefCombo_Click() {
  ShowComboSpecification(chkRefCombo.Value() != 0);
  model::FieldRecord* field = CurrentField();
  if (!field) return;
  if (chkRefCombo.Value() == 0) {
    LetLeaveField(true);
    lstQueryName.Clear();
    lstQueryColumn.Clear();
    field->FieldKind = kind::ReferenceLabel;
    return;
  }
  comboClass_ = field->ReferenceClass;
  comboQuery_ = field->QueryName;
  comboColumn_ = field->QueryColumn;
  lstQueryColumn.Clear();  // they may be those of another field
  PopulateQueryList();
  lstQueryName.SelectText(comboQuery_);  // loads the columns
  lstQueryColumn.SelectText(comboColumn_);
  if (lstQueryName.ListIndex() < 0 || lstQueryColumn.ListIndex() < 0) LetLeaveField(false);
}

void frmWizard::PopulateQueryList() {
  SetBusy(true);
  lstQueryName.Clear();
  support::LeaveOnError(
      report_, "PopulateQueryList", [&] { ReadQueries(); }, [&] { SetBusy(false); });
  SetBusy(false);
}

void frmWizard::ReadQueries() {
  const auto rows = Factory().ResultSet("%CompiledQuery", "QueryInfo");
  rows->Execute({comboClass_});
  while (rows->Next()) {
    const runtime::Variant containId = rows->GetData(factory::QueryColumn("ContainId"));
    if (!runtime::IsTrue(containId)) continue;  // a query that does not return the object id cannot fill a combo box
    lstQueryName.AddItem(runtime::ToText(rows->GetData(factory::QueryColumn("Name"))),
                         runtime::RoundToInt32(runtime::ToNumber(containId)).Value());
  }
  rows->Close();
}

bool frmWizard::AskForQueryAndColumn(bool needsColumn) {
  const bool queryMissing = lstQueryName.Text().empty();
  if (!queryMissing && !(needsColumn && lstQueryColumn.Text().empty())) return false;
  const ui::Label& title = queryMissing ? lblComboQuery : lblComboColumn;
  services_.Desktop.ShowMessage(Text(600), ui::Information, title.Caption);
  SetFocus(queryMissing ? lstQueryName : lstQueryColumn);
  return true;
}

void frmWizard::lstQueryName_Click() {
  if (AskForQueryAndColumn(false)) return;
  SetBusy(true);
  support::LeaveOnError(
      report_, "lstQueryName_Click", [&] { ReadColumns(); },
      [&] {
        SetBusy(false);
        lstQueryColumn.Clear();  // no column of another query can be chosen for this one
      });
  SetBusy(false);
}

void frmWizard::ReadColumns() {
  const auto query = Factory().ResultSet(comboClass_, lstQueryName.Text());
  lstQueryColumn.Clear();
  const Int16 count = query->GetColumnCount();
  for (Int16 column(1); column <= count; column += Int16(1)) lstQueryColumn.AddItem(query->GetColumnName(column), 0);
  comboParamCount_ = query->GetParamCount();
}

void frmWizard::lstQueryColumn_Click() {
  if (AskForQueryAndColumn(true)) return;
  model::FieldRecord* field = CurrentField();
  if (!field) return;
  field->FieldKind = kind::ReferenceCombo;
  field->QueryName = lstQueryName.Text();
  field->QueryColumn = lstQueryColumn.Text();
  field->QueryContainId = Int16(lstQueryName.ItemData(lstQueryName.ListIndex()));
  field->QueryParamCount = comboParamCount_;
  LetLeaveField(true);
}

}  // namespace formwizard::wizard
