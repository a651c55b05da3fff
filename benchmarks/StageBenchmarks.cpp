// Single stages in one process: forms of many fields, and opening a large project.
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "generator/Generation.h"
#include "model/Layout.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;
using namespace formwizard;
using adapters::vb6files::ProjectOnDisk;
using runtime::Int16;
using runtime::Int32;

class Silent : public ui::Desktop {
 public:
  void SetMousePointer(ui::MousePointer) override {}
  ui::MessageAnswer ShowMessage(std::string_view, int, std::string_view) override {
    ++Messages;
    return ui::MessageAnswer::Ok;
  }
  void ProcessMessages() override {}
  void ShowModal(ui::Form&, ui::Form*) override {}
  int Messages = 0;
};

class English : public support::ResourceLibraries {
 public:
  std::string UserLanguage() const override { return "ENU"; }
  int UserLocaleId() const override { return 1033; }
  std::unique_ptr<support::ResourceLibrary> LoadAsData(const std::string&) const override { return nullptr; }
};

model::FormModel FormOf(std::int64_t fields) {
  model::FormModel form;
  form.ResetFieldRecords();
  form.ClassName = "Bench.Thing";
  form.SelectedFields = runtime::OneBased<Int16>(Int16(fields));
  for (Int16 i(1); i <= Int16(fields); i += Int16(1)) {
    model::FieldRecord& field = form.Fields[form.AllocateFieldRecord()];
    field.FieldKind = model::kind::TextBox;
    field.PropertyName = field.Caption = field.IntName = "Field" + Text(i);
    // Of no rows: the 16-bit tops of a layout end at 90 rows a column, and it is the writing that is measured.
    field.RowCount = Int16(0);
    form.SelectedFields[i] = i;
  }
  return form;
}

void OneForm(benchmark::State& state) {
  const adapters::textmeasure::BuiltInTextMeasure measure;
  const English libraries;
  const support::Strings strings(libraries, "");
  Silent desktop;
  const support::ErrorReport report(desktop, strings);
  model::FormModel form = FormOf(state.range(0));
  for (auto _ : state) {
    ProjectOnDisk project(system::RealFileSystem(), FORMWIZARD_SOURCE_DIR "/samples/new-project/Project1.vbp",
                          {1252, FORMWIZARD_SOURCE_DIR "/samples/toolbox.ini"});
    project.OnChange([](const auto& change) { benchmark::DoNotOptimize(change.New->size()); }, true);
    settings::Settings settings;
    generator::GeneratorState counters;
    ComputePositions(form, settings);
    ComputeLayout(form, settings, measure, "Thing");
    generator::Generation run(form, settings, strings, report, project, counters);
    generator::WriteForm(run);
    generator::WriteProcedures(run);
    project.Save();
  }
  if (desktop.Messages > 0) state.SkipWithError("the environment refused something");
  state.SetComplexityN(state.range(0));
}
BENCHMARK(OneForm)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond)->Complexity(benchmark::oN);

void OpenProject(benchmark::State& state) {
  const fs::path folder = fs::temp_directory_path() / "ostrel-form-wizard-open";
  fs::create_directories(folder);
  {
    std::ofstream project(folder / "p.vbp", std::ios::binary);
    project << "Type=Exe\r\n";
    for (int i = 0; i < state.range(0); ++i) {
      const std::string name = "frm" + std::to_string(i);
      project << "Form=" << name << ".frm\r\n";
      std::ofstream(folder / (name + ".frm"), std::ios::binary)
          << "VERSION 5.00\r\nBegin VB.Form " << name << " \r\nEnd\r\nAttribute VB_Name = \"" << name
          << "\"\r\nAttribute VB_Exposed = False\r\n";
    }
  }
  for (auto _ : state) {
    ProjectOnDisk project(system::RealFileSystem(), (folder / "p.vbp").string(), {});
    // Asking for a name reads every component's.
    benchmark::DoNotOptimize(project.ActiveVBProject().Components().Find("none"));
  }
  fs::remove_all(folder);
}
BENCHMARK(OpenProject)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
