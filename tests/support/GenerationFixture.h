// A generation into a project in memory, with a form model built from the few values that matter to a case.
#pragma once

#include "generator/Generation.h"
#include "model/Layout.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeLibraries.h"
#include "tests/support/MemoryProject.h"

#include <string>
#include <vector>

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

  // Lays the selection out and runs the first writing stage.
  generator::Generation WriteForm() {
    LayOut();
    generator::Generation run{Form, Settings, Strings, Report, Ide, State};
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
