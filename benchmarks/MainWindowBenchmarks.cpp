// Opens a large project in the desktop program's main window, once. Usage: main-window-benchmarks start|components|code
// SIZE: how many components it has, or how many million bytes of code its module. Prints the milliseconds of process
// time, with "start" from the beginning of the process, and the greatest memory in MiB.
#include "apps/desktop/window/MainWindow.h"

#include <QApplication>

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;
using namespace formwizard;

struct Project {
  Project() : folder(fs::temp_directory_path() / ("ostrel-form-wizard-project-" + std::to_string(getpid()))) {
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

double Milliseconds() { return static_cast<double>(std::clock()) * 1e3 / CLOCKS_PER_SEC; }

bool OpenProject(const Project& project, bool fromStart) {
  const QString file = project.File();
  apps::desktop::MainWindow window(
      apps::desktop::EnvironmentOptions{.Profile = (project.folder / "outility.ini").string(),
                                        .Language = fromStart ? "DEU" : "ENU",
                                        .Toolbox = "",
                                        .Memory = (project.folder / "desktop.ini").string()});
  window.show();
  QApplication::processEvents();
  const double start = Milliseconds();
  const bool isOpen = window.OpenProject(file);
  QApplication::processEvents();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("%.2f %.1f\n", Milliseconds() - (fromStart ? 0 : start), static_cast<double>(usage.ru_maxrss) / 1024);
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
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.warning=false");  // about what this platform lacks
  const QApplication application(argc, argv);
  const std::string what = argc == 3 ? argv[1] : "";
  if (what != "start" && what != "components" && what != "code") {
    std::fputs("usage: main-window-benchmarks start|components|code SIZE\n", stderr);
    return 2;
  }
  Project project;
  (what == "code" ? AddCode : AddModules)(project, std::atoi(argv[2]));
  return OpenProject(project, what == "start") ? 0 : 1;
}
