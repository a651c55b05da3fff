#include "runtime/Conversions.h"
#include "wizard/TreePictures.h"
#include "wizard/frmWizard.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace formwizard::wizard {
namespace {

namespace kind = model::kind;
void DescribeOwn(model::FieldRecord& field, const OfferedProperty& property) {
  field.DisplayName = property.Name;
  field.PropertyName = property.Name;
  field.Caption = property.Caption;
  if (property.Kind.FieldKind == kind::ReferenceLabel) field.ReferenceClass = property.Type;
}

// A property inside a reference is shown through the reference itself, displaying that column of its object.
void DescribeChild(model::FieldRecord& field, const model::FieldRecord& parent, const OfferedProperty& property) {
  field.DisplayName = parent.DisplayName + "." + property.Name;
  field.Caption = parent.Caption + " " + property.Caption;
  if (parent.FieldKind == kind::ReferenceLabel) {
    field.PropertyName = parent.PropertyName;
    field.ReferenceClass = parent.ReferenceClass;
    field.ReferenceColumn = property.Name;
  } else {
    field.PropertyName = parent.PropertyName + "." + property.Name;
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
    PopulateAttributeList(nullptr, selectedClass_->Tag);
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

void frmWizard::PopulateAttributeList(ui::Node* parent, const std::string& className) {
  support::LeaveOnError(
      report_, "PopulateAttributeList",
      [&] {
        SetBusy(true);
        StatusMessage(Text(402));
        ReadProperties(parent, className);
      },
      [&] { SetBusy(false); });
  SetBusy(false);
  StatusMessage(readyText_);
}

void frmWizard::ReadProperties(ui::Node* parent, const std::string& className) {
  if (!parent && className == offeredOf_) {
    for (const OfferedProperty& property : offered_) AddProperty(parent, property);
    return;
  }
  if (!parent) ForgetOffered();
  const auto rows = Factory().ResultSet("%CompiledProperty", "PropertyInfo");
  rows->Execute({className});
  while (rows->Next()) {
    std::optional<OfferedProperty> property = ReadProperty(*rows, parent ? &RecordOf(*parent) : nullptr);
    if (!property) continue;
    AddProperty(parent, *property);
    if (!parent) offered_.push_back(std::move(*property));
  }
  rows->Close();
  if (!parent) offeredOf_ = className;
}

void frmWizard::ForgetOffered() {
  offeredOf_.clear();
  offered_.clear();
}

void frmWizard::AddProperty(ui::Node* parent, const OfferedProperty& property) {
  model::FormModel& model = Model();
  const Int16 index = model.AllocateFieldRecord();
  model::FieldRecord& field = model.Fields[index];
  if (parent) {
    DescribeChild(field, RecordOf(*parent), property);
  } else {
    DescribeOwn(field, property);
  }
  const OfferedKind& kind = property.Kind;
  field.FieldKind = kind.FieldKind;
  field.RowCount = kind.RowsSetting ? services_.State.Settings.*kind.RowsSetting : Int16(1);
  field.RequiredMark = property.IsRequired ? "*" : "";
  field.MaxWidth = runtime::RoundToInt32(property.MaxLen * model.CharWidth.Value());
  field.PropertyType = property.Type;

  ui::Node& node = tvwAttributes.Nodes.Add(parent, runtime::Text(index) + "key", field.RequiredMark + property.Name);
  node.Tag = property.Type;
  node.Image = property.IsObject ? picture::Object : picture::Property;
  if (property.IsObject)
    tvwAttributes.Nodes.Add(&node, "", "");  // so that it can be expanded before anything is loaded
}

void frmWizard::tvwAttributes_Expand(ui::Node& node) {
  if (node.Tag.empty()) return;
  if (ui::Node* placeholder = node.Child()) tvwAttributes.Nodes.Remove(*placeholder);
  PopulateAttributeList(&node, node.Tag);
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
