#include "apps/forms/KeptDescription.h"

#include "apps/forms/Choices.h"
#include "apps/forms/DescriptionText.h"
#include "runtime/Conversions.h"

#include <cstddef>

namespace formwizard::apps::forms {
namespace {

// As the wizard spells names, which a description may have in any case of their letters.
std::vector<FieldChoice> FieldsAsChosen(const FormDescription& asked, const model::FormModel& model) {
  std::vector<FieldChoice> fields = asked.Fields;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const model::FieldRecord& record = model.Fields[model.SelectedFields[runtime::Int16(static_cast<int>(i + 1))]];
    FieldChoice& field = fields[i];
    field.Property.Value = record.DisplayName;
    if (field.UpdateAfter && record.UpdateAfter > runtime::Int16(0)) {
      field.UpdateAfter->Value = model.Fields[record.UpdateAfter].DisplayName;
    }
    if (field.Combo) {
      field.Combo->Query.Value = record.QueryName;
      field.Combo->Column.Value = record.QueryColumn;
    }
  }
  return fields;
}

}  // namespace

FormDescription KeptDescription(const FormDescription& asked, const kept::FormTexts& form, Workshop& workshop,
                                const MadeBy& by) {
  const wizard::AddInState& state = workshop.State();
  FormDescription description;
  description.Class.Value = state.Form.ClassName;
  description.System = {workshop.System(), {}};
  description.Language = {workshop.Language(), {}};
  description.CodePage = {by.CodePage, {}};
  description.Settings = TextsOf(state.Settings);
  description.Fields = FieldsAsChosen(asked, state.Form);
  MadeForm& made = description.Made.emplace();
  made.Program = by.Program;
  made.Form = SumOf(form.Frm);
  if (!form.Frx.empty()) made.Pictures = SumOf(form.Frx);
  made.Fields = SumOfFields(description);
  made.Settings = SumOfSettings(description);
  made.IsReused = by.IsReused;
  made.Class = workshop.OfferedBy(description.System->Value, description.Class.Value).Properties;
  return description;
}

}  // namespace formwizard::apps::forms
