#include "generator/Generation.h"

#include "runtime/Conversions.h"

#include <algorithm>

namespace formwizard::generator {

void Generation::AddControl(std::string_view progId, std::string_view name) {
  CurrentControl = Required(FormDesigner).Add(progId, nullptr);
  SetProperty("Name", name);
}

void Generation::SetProperty(const ide::PropertyName& name, std::string_view text) {
  Required(CurrentControl).SetProperty(name, text);
}

void Generation::SetTabIndex() { SetProperty("TabIndex", runtime::Text(NextTabIndex())); }

void Generation::MoveIntoMainFrame() { Required(CurrentControl).SetContainer(MainFrame); }

Int16 Generation::NextTabIndex() {
  const Int16 index = State.TabIndexCounter;
  State.TabIndexCounter = index + Int16(1);
  return index;
}

const std::vector<Int16>& Generation::FieldsShowing(std::string_view propertyName) {
  if (fieldsByProperty_.empty()) {
    for (const Int16 field : Form.SelectedFields) fieldsByProperty_[Form.Fields[field].PropertyName].push_back(field);
  }
  return fieldsByProperty_[propertyName];
}

bool Generation::HasContextMenu(Int16 field) {
  const std::vector<Int16>& fields = FieldsShowing(Form.Fields[field].PropertyName);
  const auto first = std::ranges::find_if(
      fields, [this](Int16 shown) { return Form.Fields[shown].FieldKind == model::kind::ReferenceLabel; });
  return first != fields.end() && *first == field;
}

}  // namespace formwizard::generator
