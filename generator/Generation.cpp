#include "generator/Generation.h"

namespace formwizard::generator {

void Generation::AddControl(std::string_view progId, std::string_view name) {
  CurrentControl = Required(FormDesigner).Add(progId, nullptr);
  SetProperty("Name", name);
}

void Generation::SetProperty(std::string_view name, std::string_view text) {
  Required(CurrentControl).SetProperty(name, text);
}

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

bool Generation::HasContextMenu(Int16 field) { return FieldsShowing(Form.Fields[field].PropertyName).front() == field; }

}  // namespace formwizard::generator
