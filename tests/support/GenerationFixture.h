// A generation into a project in memory, with a form model built from the few values that matter to a case.
#pragma once

#include "generator/Generation.h"
#include "model/Layout.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeLibraries.h"
#include "tests/support/MemoryProject.h"

namespace formwizard::tests {

namespace kind = model::kind;

// Ten twips a character, so that widths can be computed in the head.
class TenTwipsACharacter : public ui::TextMeasure {
 public:
  double WidthOf(std::string_view caption) const override { return 10.0 * static_cast<double>(caption.size()); }
};

struct GenerationFixture {
  explicit GenerationFixture(const MemoryProject::Forms& forms = {}) : Ide(forms) {
    Form.ResetFieldRecords();
    Form.ClassName = "Sample.Person";
    Form.ClassCaption = "Person";
    Form.SixCharWidth = Int16(720);
  }

  FakeDesktop Desktop;
  FakeLibraries Libraries;
  support::Strings Strings{Libraries, ""};
  support::ErrorReport Report{Desktop, Strings};
  MemoryProject Ide;
  ide::Vbe* Environment = &Ide;  // what is written to
  model::FormModel Form;
  settings::Settings Settings;
  generator::GeneratorState State;

  // A field whose texts all derive from its path: "Home.City" gives IntName HomeCity and the caption "Home City".
  model::FieldRecord& AddField(Int16 kind, const std::string& path, int rows = 1) {
    const Int16 index = Form.AllocateFieldRecord();
    model::FieldRecord& field = Form.Fields[index];
    field.FieldKind = kind;
    field.DisplayName = field.PropertyName = field.Caption = field.IntName = path;
    std::ranges::replace(field.Caption, '.', ' ');
    std::erase(field.IntName, '.');
    field.PropertyType = "%Library.String";
    field.RowCount = Int16(rows);
    selected_.push_back(index);
    return field;
  }

  // A field of every kind, with everything that a kind has.
  void AddEveryKind() {
    const auto add = [this](Int16 kind, const char* path, const std::string& property, const std::string& type,
                            int rows = 1) -> model::FieldRecord& {
      model::FieldRecord& field = AddField(kind, path, rows);
      field.PropertyName = property;
      (kind == kind::ReferenceLabel || kind == kind::ReferenceCombo ? field.ReferenceClass : field.PropertyType) = type;
      field.ReferenceColumn = "Name";
      return field;
    };
    const std::string text = "%Library.String";
    add(kind::TextBox, "Name", "Name", text).RequiredMark = "*";
    add(kind::TextBox, "DOB", "DOB", "%Library.Date");
    add(kind::TextBox, "Home.City", "Home.City", text);
    add(kind::ReadOnlyLabel, "Age", "Age", text).UpdateAfter = Int16(2);
    add(kind::ReferenceLabel, "Spouse.Name", "Spouse", "Sample.Person");
    model::FieldRecord& company = add(kind::ReferenceCombo, "Company.Name", "Company", "Sample.Company");
    company.QueryName = "ByName";
    company.QueryColumn = "CompanyName";
    company.QueryParamCount = Int16(3);
    company.QueryContainId = Int16(1);
    add(kind::ListBox, "Colors", "Colors", text, 3);
    add(kind::ListView, "Phones", "Phones", text, 3);
    add(kind::Picture, "Photo", "Photo", text, 5);
    add(kind::MultiLine, "Notes", "Notes", text, 5);
  }

  // Lays the selection out and runs the first writing stage.
  generator::Generation WriteForm() {
    LayOut();
    generator::Generation run{Form, Settings, Strings, Report, *Environment, State};
    generator::WriteForm(run);
    return run;
  }
  void Generate() {
    generator::Generation run = WriteForm();
    generator::WriteProcedures(run);
  }
  void LayOut() {
    Form.SelectedFields = runtime::OneBased<Int16>(Int16(selected_.size()));
    for (std::size_t i = 0; i < selected_.size(); ++i) Form.SelectedFields[Int16(i + 1)] = selected_[i];
    ComputePositions(Form, Settings);
    ComputeLayout(Form, Settings, Measure, Form.ClassCaption);
  }

  bool Writes(std::string_view code) { return Ide.Code().find(code) != std::string::npos; }

  TenTwipsACharacter Measure;

 private:
  std::vector<Int16> selected_;
};

}  // namespace formwizard::tests
