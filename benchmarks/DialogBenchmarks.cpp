// What a user does in the wizard over a large dictionary, once. Usage: dialog-benchmarks STEP SIZE [without-window]
// Prints the milliseconds of process time that the step took.
#include "adapters/profile/ProfileFile.h"
#include "adapters/qt/WizardWindow.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/common/Dictionaries.h"
#include "apps/desktop/preview/PreviewWindow.h"
#include "benchmarks/OffScreen.h"
#include "settings/Profile.h"
#include "wizard/frmWizard.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

namespace {

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

// That many classes in packages of a hundred, the first of which has that many properties.
std::string ClassesOf(int size) {
  std::ostringstream json;
  json << R"({"systems":[{"name":"Bench","connect":"bench","classes":[)";
  for (int i = 0; i < size; ++i) {
    json << (i ? "," : "") << R"({"Name":"P)" << 1000000 + i / 100 << ".C" << 1000000 + i << "\"";
    if (i == 0) {
      json << R"(,"properties":[)";
      for (int p = 0; p < size; ++p) json << (p ? "," : "") << R"({"Name":"Property)" << p << "\"}";
      json << "]";
    }
    json << "}";
  }
  json << "]}]}";
  return json.str();
}

// The wizard on its connection step.
struct Wizard {
  explicit Wizard(const benchmarks::Task& task)
      : server(apps::common::OpenDictionary(benchmarks::DictionaryIn(task.Folder, "wizard-" + std::to_string(task.Size),
                                                                     [&] { return ClassesOf(task.Size); }))),
        profile((task.Folder / "outility.ini").string()) {
    dialog.Load();
    if (!task.HasOption) {
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
  std::string profile;
  adapters::vb6files::ProjectOnDisk project{
      system::RealFileSystem(), FORMWIZARD_SOURCE_DIR "/samples/new-project/Project1.vbp", {}};
  wizard::WizardServices services{{.Desktop = desktop,
                                   .Measure = measure,
                                   .Profiles = profiles,
                                   .Factories = *server,
                                   .Libraries = libraries,
                                   .ProfileFile = profile}};
  wizard::frmWizard dialog{services, project};
  std::unique_ptr<adapters::qt::WizardWindow> window;
  apps::desktop::PreviewProject scratch =
      apps::desktop::ScratchFor(&project, {1252, FORMWIZARD_SOURCE_DIR "/samples/toolbox.ini"});
  std::unique_ptr<apps::desktop::PreviewWindow> preview;
};

void Next(Wizard& wizard) { wizard.Click(wizard.dialog.cmdNext); }
void SelectAll(Wizard& wizard) { wizard.Click(wizard.dialog.cmdSelectAll); }
void DeselectAll(Wizard& wizard) { wizard.Click(wizard.dialog.cmdDeSelectAll); }
// A hundred presses of the button.
void MoveDown(Wizard& wizard) {
  for (int i = 0; i < 100; ++i) wizard.Click(wizard.dialog.cmdMoveDown);
}

// A form of all properties is made beside the dialog and painted, once more after a choice.
void ShowPreview(Wizard& wizard) {
  if (!wizard.preview) {
    wizard.preview = std::make_unique<apps::desktop::PreviewWindow>(*wizard.window, apps::desktop::Texts());
    wizard.preview->resize(640, 480);
    wizard.preview->show();
  }
  wizard.preview->ShowForm(apps::desktop::MakePreview(wizard.dialog, wizard.scratch));
  QApplication::processEvents();
}

struct Step {
  std::string_view Name;
  void (*Before)(Wizard&);
  void (*Do)(Wizard&);
};

constexpr std::array Steps{
    Step{"class step", [](Wizard&) {}, Next},
    Step{"property list", Next, Next},
    Step{"Select All",
         [](Wizard& wizard) {
           Next(wizard);
           Next(wizard);
         },
         SelectAll},
    Step{"Deselect All",
         [](Wizard& wizard) {
           Next(wizard);
           Next(wizard);
           SelectAll(wizard);
         },
         DeselectAll},
    Step{"100 moves",
         [](Wizard& wizard) {
           Next(wizard);
           Next(wizard);
           SelectAll(wizard);
           wizard.Act([&] { wizard.dialog.lstSelected.ClickItem(0); });
         },
         MoveDown},
    Step{"preview",
         [](Wizard& wizard) {
           wizard.profiles.WriteProfileString(settings::ProfileSection, "Columns", "4", wizard.services.ProfileFile);
           Next(wizard);
           Next(wizard);
           SelectAll(wizard);
           ShowPreview(wizard);
         },
         ShowPreview},
};

}  // namespace

int main(int argc, char** argv) {
  const benchmarks::Program program{"dialog-benchmarks", benchmarks::NamesOf(Steps), "without-window"};
  return benchmarks::RunOffScreen(argc, argv, program, [](const benchmarks::Task& task) {
    Wizard wizard(task);
    const Step& step = Steps.at(task.Step);
    step.Before(wizard);
    const double start = benchmarks::Milliseconds();
    step.Do(wizard);
    std::printf("%.2f\n", benchmarks::Milliseconds() - start);
    return wizard.desktop.Messages == 0;
  });
}
