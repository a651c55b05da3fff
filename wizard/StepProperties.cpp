#include "runtime/Conversions.h"
#include "wizard/OfferedProperties.h"
#include "wizard/TreePictures.h"
#include "wizard/frmWizard.h"

#include <algorithm>

namespace formwizard::wizard {
namespace {

namespace kind = model::kind;
using factory::PropertyColumn;

void DescribeOwn(model::FieldRecord& field, factory::ResultSet& row, const settings::Settings& settings) {
  const std::string name = ToText(row.GetData(PropertyColumn("Name")));
  field.DisplayName = name;
  field.PropertyName = name;
  field.Caption = ToText(row.GetData(PropertyColumn("Caption")));
  const OfferedKind offered = KindOf(row);
  field.FieldKind = offered.FieldKind;
  if (offered.RowsSetting) field.RowCount = settings.*offered.RowsSetting;
  if (field.FieldKind == kind::ReferenceLabel) field.ReferenceClass = ToText(row.GetData(PropertyColumn("Type")));
}

// A property inside a reference is shown through the reference itself, displaying that column of its object.
void DescribeChild(model::FieldRecord& field, const model::FieldRecord& parent, factory::ResultSet& row) {
  const std::string name = ToText(row.GetData(PropertyColumn("Name")));
  field.DisplayName = parent.DisplayName + "." + name;
  field.Caption = parent.Caption + " " + TextOrEmpty(row, "caption");  // lower case, as it is asked for
  field.FieldKind = KindInside(parent.FieldKind, row).FieldKind;
  if (parent.FieldKind == kind::ReferenceLabel) {
    field.PropertyName = parent.PropertyName;
    field.ReferenceClass = parent.ReferenceClass;
    field.ReferenceColumn = name;
  } else {
    field.PropertyName = parent.PropertyName + "." + name;
  }
}

}  // namespace

void frmWizard::ConnectPropertiesEvents() {
  tvwAttributes.Expand = Guarded([this](ui::Node& node) { tvwAttributes_Expand(node); });
  tvwAttributes.DblClick = Guarded([this] { tvwAttributes_DblClick(); });
  lstSelected.DblClick = Guarded([this] { cmdDeSelectOne_Click(); });
  cmdSelectOne.OnClick = Guarded([this] {
    if (ui::Node* node = tvwAttributes.SelectedItem) SelectProperty(*node);
  });
  cmdSelectAll.OnClick = Guarded([this] { cmdSelectAll_Click(); });
  cmdDeSelectOne.OnClick = Guarded([this] { cmdDeSelectOne_Click(); });
  cmdDeSelectAll.OnClick = Guarded([this] { cmdDeSelectAll_Click(); });
  cmdMoveUp.OnClick = Guarded([this] { MoveSelected(-1); });
  cmdMoveDown.OnClick = Guarded([this] { MoveSelected(+1); });
}

void frmWizard::EnterProperties() {
  if (!selectedClass_) runtime::Raise(runtime::ObjectVariableNotSet);
  if (selectedClass_->Tag != populatedClass_) {
    ForgetProperties();
    services_.Desktop.ProcessMessages();
    Model().ResetFieldRecords();
    PopulateAttributeList(nullptr, selectedClass_->Tag, false);
    populatedClass_ = selectedClass_->Tag;
  }
  if (lstSelected.ListCount() == 0) Allow(cmdNext, false);
}

void frmWizard::ForgetProperties() {
  tvwAttributes.Nodes.Clear();
  lstSelected.Clear();
  lstFields.Clear();  // the records of its entries no longer exist
}

std::string frmWizard::ConvertKeyNameToIntName(std::string_view name) {
  return runtime::ReplaceAll(runtime::ReplaceAll(name, ".", ""), "%", "sys_");
}

Int16 RecordIndexOf(const ui::Node& node) { return runtime::RoundToInt16(runtime::LeadingNumber(node.Key())); }

void frmWizard::PopulateAttributeList(ui::Node* parent, const std::string& className, bool dataTypesOnly) {
  support::LeaveOnError(
      report_, "PopulateAttributeList",
      [&] {
        SetBusy(true);
        StatusMessage(Text(402));
        ReadProperties(parent, className, dataTypesOnly);
      },
      [&] { SetBusy(false); });
  SetBusy(false);
  StatusMessage(readyText_);
}

void frmWizard::ReadProperties(ui::Node* parent, const std::string& className, bool dataTypesOnly) {
  const auto rows = Factory().ResultSet("%CompiledProperty", "PropertyInfo");
  rows->Execute({className});
  while (rows->Next()) {
    if (IsOffered(*rows, dataTypesOnly)) AddProperty(parent, *rows);
  }
  rows->Close();
}

void frmWizard::AddProperty(ui::Node* parent, factory::ResultSet& row) {
  model::FormModel& model = Model();
  const Int16 index = model.AllocateFieldRecord();
  model::FieldRecord& field = model.Fields[index];
  field.RowCount = Int16(1);
  field.RequiredMark = IsNumber(row, "Required", 1) ? "*" : "";
  if (parent) {
    DescribeChild(field, model.Fields[RecordIndexOf(*parent)], row);
  } else {
    DescribeOwn(field, row, services_.State.Settings);
  }
  field.MaxWidth =
      runtime::RoundToInt32(runtime::NumericValue(row.GetData(PropertyColumn("MaxLen"))) * model.CharWidth.Value());
  field.PropertyType = ToText(row.GetData(PropertyColumn("Type")));

  ui::Node& node = tvwAttributes.Nodes.Add(parent, runtime::Text(index) + "key",
                                           field.RequiredMark + ToText(row.GetData(PropertyColumn("Name"))));
  node.Tag = field.PropertyType;
  const bool isObject = IsNumber(row, "Datatype", 0);
  node.Image = isObject ? picture::Object : picture::Property;
  if (isObject) tvwAttributes.Nodes.Add(&node, "", "");  // so that it can be expanded before anything is loaded
}

void frmWizard::tvwAttributes_Expand(ui::Node& node) {
  if (node.Tag.empty()) return;
  if (ui::Node* placeholder = node.Child()) tvwAttributes.Nodes.Remove(*placeholder);
  PopulateAttributeList(&node, node.Tag, true);
  node.Tag.clear();
}

void frmWizard::tvwAttributes_DblClick() {
  if (!tvwAttributes.SelectedItem.Get()) return;
  ui::Node& node = *tvwAttributes.SelectedItem.Get();
  if (node.Image == picture::Property) {
    cmdSelectOne.Click();
  } else if (node.Image == picture::SelectedProperty) {
    lstSelected.SelectData(RecordIndexOf(node).Value());
    cmdDeSelectOne_Click();
  }
}

void frmWizard::SelectProperty(ui::Node& node) {
  if (node.Image != picture::Property) return;
  const Int16 index = RecordIndexOf(node);
  lstSelected.AddItem(Model().Fields[index].DisplayName, index.Value());
  node.Image = picture::SelectedProperty;
  lstSelected.SetListIndex(lstSelected.ListCount() - 1);
  Allow(cmdNext, true);
  Allow(cmdFinish, true);
}

// Visible nodes only, and of the ancestors only the parent is looked at.
void frmWizard::cmdSelectAll_Click() {
  for (ui::Node& node : tvwAttributes.Nodes.All()) {
    if (node.Image == picture::Property && (!node.Parent() || node.Parent()->Expanded)) SelectProperty(node);
  }
}

void frmWizard::cmdDeSelectOne_Click() {
  const int current = lstSelected.ListIndex();
  if (current < 0) return;
  const int record = lstSelected.ItemData(current);
  lstSelected.RemoveItem(current);
  lstSelected.SetListIndex(std::min(current, lstSelected.ListCount() - 1));
  tvwAttributes.Nodes.Item(std::to_string(record) + "key").Image = picture::Property;
  Allow(cmdNext, lstSelected.ListCount() > 0);
  Allow(cmdFinish, cmdNext.Enabled);
}

void frmWizard::cmdDeSelectAll_Click() {
  while (lstSelected.ListCount() > 0) {
    lstSelected.SetListIndex(0);
    cmdDeSelectOne_Click();
  }
}

void frmWizard::MoveSelected(int by) {
  const int from = lstSelected.ListIndex();
  const int to = from + by;
  if (from < 0 || to < 0 || to >= lstSelected.ListCount()) return;
  ui::ListBox::Item item{lstSelected.List(from), lstSelected.ItemData(from)};
  lstSelected.RemoveItem(from);
  lstSelected.InsertItem(to, std::move(item));
  lstSelected.SetListIndex(to);
}

}  // namespace formwizard::wizard
