#include "generator/Writers.h"
#include "generator/ide/ActiveX.h"
#include "model/Layout.h"

#include <algorithm>
#include <array>
#include <span>

namespace formwizard::generator {
namespace {

// Where a property of a data control gets its value from.
enum class From { Literal, ControlName, ControlHeight, RowsHeight, NextTabIndex };

struct PropertyRow {
  ide::PropertyName Name;
  From Source;
  std::string_view Literal = "";
};

using enum From;

constexpr std::array TextBoxRows{PropertyRow{"Name", ControlName}, PropertyRow{"Height", ControlHeight},
                                 PropertyRow{"TabIndex", NextTabIndex}, PropertyRow{"Text", ControlName}};
constexpr std::array LabelRows{PropertyRow{"Name", ControlName}, PropertyRow{"BorderStyle", Literal, "1"},
                               PropertyRow{"Height", ControlHeight}, PropertyRow{"TabIndex", NextTabIndex},
                               PropertyRow{"Caption", ControlName}};
constexpr std::array ComboBoxRows{PropertyRow{"Name", ControlName}, PropertyRow{"Style", Literal, "2"},
                                  PropertyRow{"TabIndex", NextTabIndex}};
constexpr std::array ListBoxRows{PropertyRow{"Name", ControlName}, PropertyRow{"Height", RowsHeight},
                                 PropertyRow{"TabIndex", NextTabIndex}};
constexpr std::array ListViewRows{PropertyRow{"Name", ControlName},
                                  PropertyRow{"Height", RowsHeight},
                                  PropertyRow{"TabIndex", NextTabIndex},
                                  PropertyRow{"View", Literal, "3"},
                                  PropertyRow{"FullRowSelect", Literal, "True"},
                                  PropertyRow{"LabelEdit", Literal, "1"}};
// An image takes no tab index.
constexpr std::array ImageRows{PropertyRow{"Name", ControlName}, PropertyRow{"Height", RowsHeight},
                               PropertyRow{"BorderStyle", Literal, "1"}, PropertyRow{"Stretch", Literal, "0"}};
constexpr std::array MultiLineRows{PropertyRow{"Name", ControlName},        PropertyRow{"Height", RowsHeight},
                                   PropertyRow{"TabIndex", NextTabIndex},   PropertyRow{"Text", ControlName},
                                   PropertyRow{"MultiLine", Literal, "-1"}, PropertyRow{"ScrollBars", Literal, "3"}};

// How the data control of a kind is created.
struct KindControl {
  Int16 FieldKind;
  std::string_view Prefix;
  std::string_view ProgId;
  std::span<const PropertyRow> Properties;
};

constexpr model::KindTable<KindControl> Kinds{{
    KindControl{model::kind::TextBox, "txt", "VB.TextBox", TextBoxRows},
    KindControl{model::kind::ReadOnlyLabel, "con", "VB.Label", LabelRows},
    KindControl{model::kind::ReferenceLabel, "ref", "VB.Label", LabelRows},
    KindControl{model::kind::ReferenceCombo, "cmb", "VB.ComboBox", ComboBoxRows},
    KindControl{model::kind::ListBox, "lst", "VB.ListBox", ListBoxRows},
    KindControl{model::kind::ListView, "lvw", ide::ListView.Class, ListViewRows},
    KindControl{model::kind::Picture, "img", "VB.Image", ImageRows},
    KindControl{model::kind::MultiLine, "txt", "VB.TextBox", MultiLineRows},
}};

std::string ValueOf(const PropertyRow& row, Generation& run, const FieldRecord& field) {
  switch (row.Source) {
    case ControlName:
      return field.ControlName;
    case ControlHeight:
      return Text(run.Settings.ControlHeight);
    case RowsHeight:
      return Text(field.RowCount * Int32(model::RowPitch) - Int16(45));
    case NextTabIndex:
      return Text(run.NextTabIndex());
    case Literal:
      break;
  }
  return std::string(row.Literal);
}

// A maximum width of 0 is an unknown one: six characters, but a multi-line text takes the whole width.
Int32 WidthOf(const FieldRecord& field, const model::FormModel& form) {
  if (field.MaxWidth == Int32(0) && field.FieldKind != model::kind::MultiLine) return form.SixCharWidth;
  if (field.MaxWidth > Int32(0)) return std::min(field.MaxWidth, form.ControlWidth);
  return form.ControlWidth;
}

void WriteLabel(Generation& run, Int16 column, const FieldRecord& field, auto& step) {
  const model::FormModel& form = run.Form;
  const std::string name = "lbl" + field.IntName;
  step([&] { run.AddControl("VB.Label", name); });
  step([&] { run.SetProperty("Name", name); });
  if (!run.Settings.LabelAlignLeft) step([&] { run.SetProperty("Alignment", "1"); });
  step([&] { run.SetProperty("Caption", field.Caption); });  // without the required mark
  step([&] { run.SetProperty("Height", Text(run.Settings.ControlHeight)); });
  step([&] { run.SetProperty("Left", Text(form.ColumnLefts[column] + run.Settings.Spacing)); });
  step([&] { run.SetTabIndex(); });
  step([&] { run.SetProperty("Top", Text(field.ControlTop)); });
  step([&] { run.SetProperty("Width", Text(form.LabelWidths[column])); });
  step([&] { run.MoveIntoMainFrame(); });
}

void WriteDataControl(Generation& run, FieldRecord& field, auto& step) {
  const KindControl* kind = Kinds.Find(field.FieldKind);
  if (!kind) return;
  step([&] { field.ControlName = std::string(kind->Prefix) + field.IntName; });
  step([&] { run.AddControl(kind->ProgId, field.ControlName); });
  for (const PropertyRow& row : kind->Properties) {
    step([&] { run.SetProperty(row.Name, ValueOf(row, run, field)); });
  }
}

}  // namespace

void WriteConField(Generation& run, Int16 column, FieldRecord& field) {
  // The label fails under the name that the record has from before: an earlier generation's, or none.
  const support::ResumeNext step(run.Report, [&] { return "WriteConField - name is " + field.ControlName; });
  const model::FormModel& form = run.Form;
  WriteLabel(run, column, field, step);
  WriteDataControl(run, field, step);
  step([&] {
    run.SetProperty("Left",
                    Text(form.ColumnLefts[column] + form.LabelWidths[column] + Int16(2) * run.Settings.Spacing));
  });
  step([&] { run.SetProperty("Top", Text(field.ControlTop)); });
  step([&] { run.SetProperty("Width", Text(WidthOf(field, form))); });
  step([&] { run.MoveIntoMainFrame(); });
}

}  // namespace formwizard::generator
