// Opens a large project in the desktop program's main window, once. Usage: main-window-benchmarks start|components|code
// SIZE: how many components it has, or how many million bytes of code its module. Prints the milliseconds of process
// time, with "start" from the beginning of the process, and the greatest memory in MiB.
#include "apps/desktop/window/MainWindow.h"
#include "benchmarks/OffScreen.h"

#include <QApplication>

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace formwizard;

struct Project {
  explicit Project(const fs::path& home) : folder(home / ("project-" + std::to_string(getpid()))) {
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

bool OpenProject(const Project& project, bool fromStart) {
  const QString file = project.File();
  apps::desktop::MainWindow window(
      apps::desktop::EnvironmentOptions{.Profile = (project.folder / "outility.ini").string(),
                                        .Language = fromStart ? "DEU" : "ENU",
                                        .Toolbox = "",
                                        .Memory = (project.folder / "desktop.ini").string()});
  window.show();
  QApplication::processEvents();
  const double start = benchmarks::Milliseconds();
  const bool isOpen = window.OpenProject(file);
  QApplication::processEvents();
  std::printf("%.2f %.1f\n", benchmarks::Milliseconds() - (fromStart ? 0 : start), benchmarks::Mebibytes());
  return isOpen;
}

void AddModules(Project& project, int count) {
  for (int i = 0; i < count; ++i) project.AddModule("Module" + std::to_string(i), "");
}

void AddCode(Project& project, int megabytes) {
  const std::string procedure =
      "Public Function Total(ByVal count As Long) As Long  ' of all rows _\r\n    and columns\r\n"
      "    Dim i As Long, text As String\r\n    For i = 1 To count\r\n        text = \"row \" & i & \" of \" & "
      "count\r\n"
      "        Total = Total + Len(text) * &H10\r\n    Next\r\nEnd Function\r\n\r\n";
  std::string code;
  while (code.size() < static_cast<std::size_t>(megabytes) * 1000000) code += procedure;
  project.AddModule("Large", code);
}

}  // namespace

int main(int argc, char** argv) {
  enum Step : std::size_t { Start, Components, Code };
  const benchmarks::Program program{"main-window-benchmarks", {"start", "components", "code"}};
  return benchmarks::RunOffScreen(argc, argv, program, [](const benchmarks::Task& task) {
    Project project(task.Folder);
    (task.Step == Code ? AddCode : AddModules)(project, task.Size);
    return OpenProject(project, task.Step == Start);
  });
}
