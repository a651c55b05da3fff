// What the benchmarks run the command line program on: dictionaries, form descriptions and projects in a folder of
// their own, and the template from which the reference program makes the same forms.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace benchmarks {

namespace fs = std::filesystem;

[[noreturn]] void Die(const std::string& message);

std::string ReadFile(const fs::path& path);
void WriteFile(const fs::path& path, const std::string& text);

// Some forms of 20 fields for one project.
struct Job {
  int Forms = 1;
  int Classes = 1;       // of the dictionary
  bool OneClass = true;  // else every form is of another class
  int Components = 0;    // that the project has besides
  int Properties = 20;   // of each class
  std::string Option{};  // of the program, such as "--json"
};

class Workload {
 public:
  static constexpr int UsualWidth = 50;  // of a property, in characters

  // `folder` is made anew, and removed at the end; `programs` is the folder of the built programs.
  Workload(fs::path folder, fs::path programs);
  ~Workload();
  Workload(const Workload&) = delete;
  Workload& operator=(const Workload&) = delete;

  // Makes a dictionary unless it is there, with a caption for the first property of each class where they have another
  // width; the arguments that make it anew, and those that export it to a file.
  std::string Dictionary(int classes, int properties, int width = UsualWidth) const;
  std::vector<std::string> Import(int classes, int properties, int width = UsualWidth) const;
  std::vector<std::string> Export(int classes, int properties, const fs::path& to) const;
  // Of a dictionary with one that has the same classes.
  std::vector<std::string> Compare(int classes, int properties) const;
  // Makes a new project for a job; called before each run. Its name tells it from those of other runs.
  fs::path NewProject(const Job& job, const std::string& name = "project") const;
  // What makes the forms of a job in a new project: the program, and the reference, which knows no options.
  std::vector<std::string> Generate(const Job& job, const fs::path& project) const;
  std::vector<std::string> Reference(const Job& job, const fs::path& project) const;
  // `command` on forms that are made and kept in a new project: "status" where nothing has changed, "update" where
  // every form was edited, every property has another width and the first another caption, so that each is merged.
  std::vector<std::string> Kept(const std::string& command, const Job& job, const fs::path& project) const;
  // Whether both make the same files. Needed before a reference is run, as it makes the template.
  void CheckReference() const;

  // Of a program beside the one that makes forms; nothing where it is not built. What it keeps for later runs, it keeps
  // in the folder of this workload.
  std::vector<std::string> Other(const std::string& program, const std::vector<std::string>& arguments) const;

  const fs::path& Home() const { return home_; }

 private:
  void MakeDescriptions(int count) const;
  void MakeTemplate() const;
  std::vector<std::string> Descriptions(const Job& job) const;

  fs::path home_, programs_;
};

// Runs a program to its end, its output into `output`, and gives its exit status.
int Run(const std::vector<std::string>& arguments, const std::string& output = "/dev/null");
// The number of instructions of such a run, by valgrind; nothing where that is not installed or the run fails.
std::optional<double> Instructions(const std::vector<std::string>& arguments, const fs::path& log);
// The same in two steps, for runs beside each other: what is to be run, and what it has logged.
std::vector<std::string> Counted(const std::vector<std::string>& arguments, const fs::path& log);
std::optional<double> CountIn(const fs::path& log);
// Which sources the programs were built from.
std::string Commit();
// Becomes that program, in a process that was made for it.
[[noreturn]] void Become(const std::vector<std::string>& arguments, const std::string& output = "/dev/null");

}  // namespace benchmarks
