// The desktop program's main window: a project of many components, and a module with much code.
#include "apps/desktop/MainWindow.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <sys/resource.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace formwizard;

struct Project {
  Project() : folder(fs::temp_directory_path() / "formwizard-bench-project") {
    fs::remove_all(folder);
    fs::create_directory(folder);
  }
  ~Project() { fs::remove_all(folder); }

  void AddModule(const std::string& name, const std::string& code) {
    list << "Module=" << name << "; " << name << ".bas\r\n";
    std::ofstream(folder / (name + ".bas")) << "Attribute VB_Name = \"" << name << "\"\r\n" << code;
  }
  QString File() const {
    const fs::path path = folder / "Project1.vbp";
    std::ofstream(path) << "Type=Exe\r\n" << list.str() << "Startup=\"Sub Main\"\r\nName=\"Project1\"\r\n";
    return QString::fromStdString(path.string());
  }

  fs::path folder;
  std::ostringstream list;
};

void OpenProject(benchmark::State& state, const Project& project) {
  const QString file = project.File();
  for (auto _ : state) {
    state.PauseTiming();
    auto window = std::make_unique<apps::desktop::MainWindow>(
        apps::desktop::EnvironmentOptions{(project.folder / "outility.ini").string(), "ENU", ""});
    window->show();
    QApplication::processEvents();
    state.ResumeTiming();
    if (!window->OpenProject(file)) state.SkipWithError("the project could not be opened");
    QApplication::processEvents();
    state.PauseTiming();
    window.reset();
    state.ResumeTiming();
  }
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  state.counters["peak MiB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}

void ComponentList(benchmark::State& state) {
  Project project;
  for (std::int64_t i = 0; i < state.range(0); ++i) project.AddModule("Module" + std::to_string(i), "");
  OpenProject(state, project);
}

// Millions of bytes of code.
void CodeView(benchmark::State& state) {
  const std::string procedure =
      "Public Function Total(ByVal count As Long) As Long  ' of all rows _\r\n    and columns\r\n"
      "    Dim i As Long, text As String\r\n    For i = 1 To count\r\n        text = \"row \" & i & \" of \" & "
      "count\r\n"
      "        Total = Total + Len(text) * &H10\r\n    Next\r\nEnd Function\r\n\r\n";
  Project project;
  std::string code;
  while (code.size() < static_cast<std::size_t>(state.range(0)) * 1000000) code += procedure;
  project.AddModule("Large", code);
  OpenProject(state, project);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::RegisterBenchmark("code view, MB", CodeView)
      ->Arg(1)
      ->Arg(10)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(3);
  benchmark::RegisterBenchmark("component list", ComponentList)
      ->Arg(5000)
      ->Arg(50000)
      ->Unit(benchmark::kMillisecond)
      ->Iterations(3);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
