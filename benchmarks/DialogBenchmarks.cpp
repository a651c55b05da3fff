// The wizard over a large dictionary: without a window, and in a real one.
#include "adapters/profile/ProfileFile.h"
#include "adapters/qt/WizardWindow.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/common/Dictionaries.h"
#include "wizard/frmWizard.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <filesystem>
#include <map>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using namespace formwizard;

class English : public support::ResourceLibraries {
 public:
  std::string UserLanguage() const override { return "ENU"; }
  int UserLocaleId() const override { return 1033; }
  std::unique_ptr<support::ResourceLibrary> LoadAsData(const std::string&) const override { return nullptr; }
};

// A desktop that shows changes as a real one does, and asks nothing.
class Shown : public ui::Desktop {
 public:
  void SetMousePointer(ui::MousePointer) override {}
  ui::MessageAnswer ShowMessage(std::string_view, int, std::string_view) override {
    ++Messages;
    return ui::MessageAnswer::Ok;
  }
  void ProcessMessages() override {
    if (!Window) return;
    Window->ShowChanges();
    QApplication::processEvents();
  }
  void ShowModal(ui::Form&, ui::Form*) override {}

  adapters::qt::FormWindow* Window = nullptr;
  int Messages = 0;
};

// A dictionary of that many classes in packages of a hundred, the first of which has that many properties.
const std::string& DictionaryOf(std::int64_t size) {
  static std::map<std::int64_t, std::string> made;
  std::string& path = made[size];
  if (!path.empty()) return path;
  std::ostringstream json;
  json << R"({"systems":[{"name":"Bench","connect":"bench","classes":[)";
  for (std::int64_t i = 0; i < size; ++i) {
    json << (i ? "," : "") << R"({"Name":"P)" << 1000000 + i / 100 << ".C" << 1000000 + i << "\"";
    if (i == 0) {
      json << R"(,"properties":[)";
      for (std::int64_t p = 0; p < size; ++p) json << (p ? "," : "") << R"({"Name":"Property)" << p << "\"}";
      json << "]";
    }
    json << "}";
  }
  json << "]}]}";
  std::istringstream in(json.str());
  path = (fs::temp_directory_path() / ("formwizard-bench-" + std::to_string(size) + ".sqlite")).string();
  fs::remove(path);
  apps::common::ImportDictionary(in, "bench", path);
  return path;
}

// The wizard on its class step.
struct Wizard {
  Wizard(std::int64_t size, bool inWindow) : server(apps::common::OpenDictionary(DictionaryOf(size))) {
    dialog.Load();
    if (inWindow) {
      window = std::make_unique<adapters::qt::WizardWindow>(dialog, nullptr);
      window->show();
      desktop.Window = window.get();
    }
    Click(dialog.cmdNext);
  }

  void Act(const std::function<void()>& action) {
    if (!window) {
      action();
      return;
    }
    window->Act(action);
    QApplication::processEvents();
  }
  void Click(ui::CommandButton& button) {
    Act([&] { button.Click(); });
  }

  Shown desktop;
  adapters::textmeasure::BuiltInTextMeasure measure;
  adapters::profile::ProfileFiles profiles;
  English libraries;
  std::unique_ptr<wizard::factory::FactoryCreator> server;
  adapters::vb6files::ProjectOnDisk project{
      system::RealFileSystem(), FORMWIZARD_SOURCE_DIR "/samples/new-project/Project1.vbp", {}};
  wizard::WizardServices services{{.Desktop = desktop,
                                   .Measure = measure,
                                   .Profiles = profiles,
                                   .Factories = *server,
                                   .Libraries = libraries,
                                   .ProfileFile = (fs::temp_directory_path() / "formwizard-bench.ini").string()}};
  wizard::frmWizard dialog{services, project};
  std::unique_ptr<adapters::qt::WizardWindow> window;
};

void CheckQuiet(benchmark::State& state, const Wizard& wizard) {
  if (wizard.desktop.Messages > 0) state.SkipWithError("the wizard reported a failure");
  state.SetComplexityN(state.range(0));
}

void ClassStep(benchmark::State& state, bool inWindow) {
  for (auto _ : state) {
    state.PauseTiming();
    auto wizard = std::make_unique<Wizard>(state.range(0), inWindow);
    state.ResumeTiming();
    wizard->Click(wizard->dialog.cmdNext);
    state.PauseTiming();
    CheckQuiet(state, *wizard);
    wizard.reset();
    state.ResumeTiming();
  }
}

// On the properties step, with everything selected when `select` has been run.
void Properties(benchmark::State& state, bool inWindow, const std::function<void(Wizard&)>& before,
                const std::function<void(Wizard&)>& measured) {
  for (auto _ : state) {
    state.PauseTiming();
    auto wizard = std::make_unique<Wizard>(state.range(0), inWindow);
    wizard->Click(wizard->dialog.cmdNext);
    before(*wizard);
    state.ResumeTiming();
    measured(*wizard);
    state.PauseTiming();
    CheckQuiet(state, *wizard);
    wizard.reset();
    state.ResumeTiming();
  }
}

void Next(Wizard& wizard) { wizard.Click(wizard.dialog.cmdNext); }
void SelectAll(Wizard& wizard) { wizard.Click(wizard.dialog.cmdSelectAll); }
void DeselectAll(Wizard& wizard) { wizard.Click(wizard.dialog.cmdDeSelectAll); }
void FirstOfAll(Wizard& wizard) {
  Next(wizard);
  SelectAll(wizard);
  wizard.Act([&] { wizard.dialog.lstSelected.ClickItem(0); });
}
// A hundred presses of the button.
void MoveDown(Wizard& wizard) {
  for (int i = 0; i < 100; ++i) wizard.Click(wizard.dialog.cmdMoveDown);
}

void Register(const std::string& suffix, bool inWindow) {
  const auto add = [&](const char* name, std::int64_t most, auto run) {
    benchmark::RegisterBenchmark((name + suffix).c_str(), run)
        ->Arg(most / 10)
        ->Arg(most)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(5)
        ->Complexity(benchmark::oN);
  };
  add("class step", 200000, [=](benchmark::State& state) { ClassStep(state, inWindow); });
  add("property list", 20000, [=](benchmark::State& state) {
    Properties(
        state, inWindow, [](Wizard&) {}, Next);
  });
  add("Select All", 20000, [=](benchmark::State& state) { Properties(state, inWindow, Next, SelectAll); });
  add("Deselect All", 20000, [=](benchmark::State& state) {
    Properties(
        state, inWindow,
        [](Wizard& wizard) {
          Next(wizard);
          SelectAll(wizard);
        },
        DeselectAll);
  });
  add("100 moves", 20000, [=](benchmark::State& state) { Properties(state, inWindow, FirstOfAll, MoveDown); });
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  Register("", false);
  Register(", in a window", true);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
