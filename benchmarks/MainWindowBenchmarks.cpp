// Opens a large project in the desktop program's main window, once. Usage: main-window-benchmarks
// start|components|code|kept SIZE: how many components it has, how many million bytes of code its module, or how many
// kept forms, half of which were edited and are outdated. Prints the milliseconds of process time, with "start" from
// the beginning of the process, the greatest memory in MiB, and with "kept", which counts until all states are known,
// the longest time in which nothing else could be done.
#include "apps/desktop/window/MainWindow.h"
#include "benchmarks/OffScreen.h"

#include <QApplication>
#include <QProcess>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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
  // Half of them are edited, of a class that has changed since.
  void AddKept(int count) const {
    static_cast<void>(File());
    std::ofstream forms(folder / "forms.json");
    for (int i = 0; i < count; ++i) {
      forms << (i == 0 ? "[" : ",")
            << (i % 2 == 0 ? R"({"class":"Sample.Person","fields":["Name","SSN","Home.City","Age"]})"
                           : R"({"class":"Sample.Employee","fields":["Name","Title","Salary"]})");
    }
    forms << "]";
    forms.close();
    const fs::path samples = FORMWIZARD_SOURCE_DIR "/samples", classes = folder / "classes.json",
                   dictionary = folder / "classes.sqlite";
    fs::copy_file(samples / "dictionary.json", classes);
    const auto import = [&] { RunProgram({"dictionary", "import", "--force", classes, dictionary}); };
    import();
    RunProgram({"generate", "--quiet", "--keep", "--project", folder / "Project1.vbp", "--dictionary", dictionary,
                "--toolbox", samples / "toolbox.ini", folder / "forms.json"});
    Replace(classes, R"("Caption": "Social Security No.")", R"("Caption": "Security No.")");
    import();
    for (const auto& file : fs::directory_iterator(folder)) {
      if (file.path().filename().string().starts_with("frmPerson"))
        Replace(file.path(), "Private Sub cmd__Save_Click()\r\n", "Private Sub cmd__Save_Click()\r\n    Beep\r\n");
    }
  }
  QString File() const {
    const fs::path path = folder / "Project1.vbp";
    std::ofstream(path) << "Type=Exe\r\n" << list.str() << "Startup=\"Sub Main\"\r\nName=\"Project1\"\r\n";
    return QString::fromStdString(path.string());
  }

  fs::path folder;
  std::ostringstream list;

 private:
  static void RunProgram(const std::vector<std::string>& arguments) {
    QStringList shown;
    for (const std::string& argument : arguments) shown << QString::fromStdString(argument);
    QProcess program;
    program.start(QApplication::applicationDirPath() + "/ostrel-form-wizard", shown);
    if (program.waitForFinished(-1) && program.exitCode() == 0) return;
    std::fputs(program.readAllStandardError().constData(), stderr);
    std::exit(1);
  }
  static void Replace(const fs::path& path, const std::string& from, const std::string& to) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    std::string bytes = text.str();
    bytes.replace(bytes.find(from), from.size(), to);
    std::ofstream(path) << bytes;
  }
};

// Until all states are known; the longest of what the events wait for.
double ShowStates(apps::desktop::MainWindow& window, const fs::path& folder) {
  double longest = 0, before = benchmarks::Milliseconds();
  const auto wait = [&] {
    QApplication::processEvents();
    const double now = benchmarks::Milliseconds();
    longest = std::max(longest, now - std::exchange(before, now));
  };
  wait();
  window.OpenDictionary(QString::fromStdString((folder / "classes.sqlite").string()));
  while (!window.Kept().IsDone()) wait();
  for (int i = 0; i < 3; ++i) wait();  // what was put off
  return longest;
}

bool OpenProject(const Project& project, bool fromStart, bool isKept) {
  const QString file = isKept ? QString::fromStdString((project.folder / "Project1.vbp").string()) : project.File();
  apps::desktop::MainWindow window(
      apps::desktop::EnvironmentOptions{.Profile = (project.folder / "outility.ini").string(),
                                        .Language = fromStart ? "DEU" : "ENU",
                                        .Toolbox = "",
                                        .Memory = (project.folder / "desktop.ini").string()});
  window.show();
  QApplication::processEvents();
  const double start = benchmarks::Milliseconds();
  const bool isOpen = window.OpenProject(file);
  const double opened = benchmarks::Milliseconds() - start;
  QApplication::processEvents();
  const double longest = isKept ? std::max(opened, ShowStates(window, project.folder)) : 0;
  std::printf("%.2f %.1f %.2f\n", benchmarks::Milliseconds() - (fromStart ? 0 : start), benchmarks::Mebibytes(),
              longest);
  return isOpen;
}

void AddModules(Project& project, int count) {
  for (int i = 0; i < count; ++i) project.AddModule("Module" + std::to_string(i), "");
}

void AddKept(Project& project, int count) { project.AddKept(count); }

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
  enum Step : std::size_t { Start, Components, Code, Kept };
  const benchmarks::Program program{"main-window-benchmarks", {"start", "components", "code", "kept"}};
  return benchmarks::RunOffScreen(argc, argv, program, [](const benchmarks::Task& task) {
    Project project(task.Folder);
    constexpr std::array make{AddModules, AddModules, AddCode, AddKept};
    make.at(task.Step)(project, task.Size);
    return OpenProject(project, task.Step == Start, task.Step == Kept);
  });
}
