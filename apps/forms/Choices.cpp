#include "apps/forms/Choices.h"

#include "model/ControlKinds.h"
#include "wizard/OfferedProperties.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <type_traits>
#include <variant>

namespace formwizard::apps::forms {
namespace {

using model::FieldRecord;
using runtime::Int16;
namespace kind = model::kind;

class Choices {
 public:
  Choices(const wizard::AddInState& state, const std::vector<kept::Property>& offered, const FormDescription* before)
      : model_(state.Form), settings_(state.Settings) {
    for (const kept::Property& property : offered) offered_[property.Path] = &property;
    if (!before) return;
    for (const FieldChoice& field : before->Fields) before_[field.Property.Value] = &field;
  }

  std::vector<FieldChoice> Fields() const {
    std::vector<FieldChoice> fields;
    for (const Int16 index : model_.SelectedFields) fields.push_back(FieldOf(model_.Fields[index]));
    return fields;
  }

 private:
  static const auto& Known(const auto& all, const std::string& name, const auto& otherwise) {
    const auto found = all.find(name);
    return found == all.end() ? otherwise : *found->second;
  }

  FieldChoice FieldOf(const FieldRecord& record) const {
    static const FieldChoice none;
    static const kept::Property nothing;
    const FieldChoice& before = Known(before_, record.DisplayName, none);
    const kept::Property& offered = Known(offered_, record.DisplayName, nothing);
    FieldChoice field;
    field.Property.Value = record.DisplayName;
    if (record.Caption != offered.Caption || before.Caption == record.Caption) field.Caption = record.Caption;
    const bool isReadOnly = record.FieldKind == kind::ReadOnlyLabel;
    const bool canBeReadOnly = isReadOnly || record.FieldKind == kind::TextBox;
    const bool wasReadOnly = before.ReadOnly && before.ReadOnly->Value == isReadOnly;
    if (canBeReadOnly && (wasReadOnly || isReadOnly != offered.IsReadOnly)) field.ReadOnly = {isReadOnly, {}};
    if (isReadOnly && IsSelected(record.UpdateAfter)) {
      field.UpdateAfter = {model_.Fields[record.UpdateAfter].DisplayName, {}};
    }
    if (const auto rows = wizard::RowsSettingOf(record.FieldKind)) {
      const int count = record.RowCount.Value();
      const bool wasSaid = before.Rows && before.Rows->Value == count;
      if (wasSaid || record.RowCount != settings_.*rows) field.Rows = {count, {}};
    }
    if (record.FieldKind == kind::ReferenceCombo) {
      field.Combo = ComboChoice{{record.QueryName, {}}, {record.QueryColumn, {}}};
    }
    return field;
  }

  // A field that was taken out again cannot be waited for.
  bool IsSelected(Int16 record) const {
    return record > Int16(0) && std::ranges::find(model_.SelectedFields, record) != model_.SelectedFields.end();
  }

  const model::FormModel& model_;
  const settings::Settings& settings_;
  std::map<std::string_view, const kept::Property*> offered_;
  std::map<std::string_view, const FieldChoice*> before_;
};

}  // namespace

SettingTexts TextsOf(const settings::Settings& settings) {
  SettingTexts texts;
  for (const settings::SettingKey& key : settings::SettingKeys()) {
    texts[std::string(key.Key)] = std::visit(
        [&](auto member) {
          const auto value = settings.*member;
          if constexpr (std::is_same_v<std::remove_cv_t<decltype(value)>, bool>) {
            return std::string(value ? "1" : "0");
          } else {
            return std::to_string(value.Value());
          }
        },
        key.Member);
  }
  return texts;
}

FormDescription ChoicesIn(const wizard::AddInState& state, const std::string& system,
                          const std::vector<kept::Property>& offered, const FormDescription* before) {
  FormDescription choices;
  choices.Class.Value = state.Form.ClassName;
  choices.System = {system, {}};
  choices.Settings = TextsOf(state.Settings);
  choices.Fields = Choices(state, offered, before).Fields();
  return choices;
}

}  // namespace formwizard::apps::forms
