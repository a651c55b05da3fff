// Measures whole runs of the command line program, each beside a floor: a process that does nothing but write the same
// bytes to the same places. Usage: run-benchmarks PROGRAM [FOLDER], the folder on a memory file system (/dev/shm).
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Cost {
  double Milliseconds;  // of process time, user and system
  double Mebibytes;     // of memory at its peak
};

[[noreturn]] void Die(const std::string& message) {
  std::fprintf(stderr, "%s\n", message.c_str());
  std::exit(1);
}

Cost Measured(const std::function<void()>& child) {
  std::fflush(stdout);
  const pid_t process = fork();
  if (process == 0) {
    child();
    _exit(0);
  }
  int status = 0;
  rusage used{};
  if (wait4(process, &status, 0, &used) != process || status != 0) Die("a measured process failed");
  const auto milliseconds = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
  };
  return {milliseconds(used.ru_utime) + milliseconds(used.ru_stime), static_cast<double>(used.ru_maxrss) / 1024};
}

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

class Bench {
 public:
  Bench(std::string program, fs::path folder) : program_(std::move(program)), home_(std::move(folder)) {
    fs::remove_all(home_);
    fs::create_directories(home_);
    WriteDictionary("small", 1, 20);
    std::ofstream(home_ / "form.json") << R"({"class":"Bench.Thing0","fields":[)" << FieldNames(20) << "]}";
  }
  ~Bench() {
    std::error_code error;
    fs::remove_all(home_, error);
  }

  // `forms` forms of 20 fields into one project that has `components` others.
  void Batch(int forms, int components, const std::string& dictionary = "small") {
    std::vector<double> times;
    double memory = 0;
    const int rounds = forms <= 100 ? 9 : 3;
    for (int round = 0; round < rounds; ++round) {
      NewProject(components);
      const Cost cost = Measured([&] { Generate(forms, dictionary); });
      times.push_back(cost.Milliseconds);
      memory = std::max(memory, cost.Mebibytes);
    }
    std::ranges::sort(times);
    const double median = times[times.size() / 2];
    const double floor = Floor();
    std::printf(
        "%6d forms, %5d other components, %-6s dictionary: %9.2f ms %8.4f ms/form  floor %8.2f ms  x%5.1f  %5.1f MiB\n",
        forms, components, dictionary.c_str(), median, median / forms, floor, median / floor, memory);
  }

  void WriteDictionary(const std::string& name, int classes, int properties) {
    const fs::path json = home_ / (name + ".json");
    {
      std::ofstream out(json);
      out << R"({"systems":[{"name":"S","connect":"c","classes":[)";
      for (int c = 0; c < classes; ++c) {
        out << (c ? ",\n" : "\n") << R"({"Name":"Bench.Thing)" << c << R"(","properties":[)";
        for (int p = 0; p < properties; ++p) out << (p ? "," : "") << R"({"Name":"Field)" << p << R"(","MaxLen":50})";
        out << "]}";
      }
      out << "]}]}";
    }
    const Cost cost = Measured([&] { Run({"dictionary", "import", json.string(), Dictionary(name)}); });
    std::printf("import of %d classes with %d properties: %.0f ms, %.1f MiB\n", classes, classes * properties,
                cost.Milliseconds, cost.Mebibytes);
  }

 private:
  std::string Dictionary(const std::string& name) const { return (home_ / (name + ".sqlite")).string(); }

  static std::string FieldNames(int count) {
    std::string names;
    for (int i = 0; i < count; ++i) names += (i ? ",\"Field" : "\"Field") + std::to_string(i) + "\"";
    return names;
  }

  void Run(const std::vector<std::string>& arguments) const {
    std::vector<char*> argv{const_cast<char*>(program_.c_str())};
    for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, 1);
    execv(program_.c_str(), argv.data());
    _exit(127);
  }

  void Generate(int forms, const std::string& dictionary) const {
    std::vector<std::string> arguments{"generate",
                                       "--project",
                                       (Project() / "Project1.vbp").string(),
                                       "--dictionary",
                                       Dictionary(dictionary),
                                       "--profile",
                                       (home_ / "outility.ini").string(),
                                       "--toolbox",
                                       FORMWIZARD_SOURCE_DIR "/samples/toolbox.ini"};
    arguments.insert(arguments.end(), static_cast<std::size_t>(forms), (home_ / "form.json").string());
    Run(arguments);
  }

  fs::path Project() const { return home_ / "project"; }

  void NewProject(int components) const {
    fs::remove_all(Project());
    fs::copy(FORMWIZARD_SOURCE_DIR "/samples/new-project", Project());
    if (components == 0) return;
    std::string project = ReadFile(Project() / "Project1.vbp");
    const std::string form = ReadFile(Project() / "Form1.frm");
    std::string items;
    for (int i = 0; i < components; ++i) {
      const std::string name = "frmOther" + std::to_string(i);
      std::string text = form;
      for (std::size_t at; (at = text.find("Form1")) != std::string::npos;) text.replace(at, 5, name);
      std::ofstream(Project() / (name + ".frm"), std::ios::binary) << text;
      items += "Form=" + name + ".frm\r\n";
    }
    project.insert(project.find("Startup="), items);
    std::ofstream(Project() / "Project1.vbp", std::ios::binary) << project;
  }

  // Writes what the last run has left in the project's folder once more, elsewhere. In a process of its own: what it
  // reads must not count as memory of the processes measured later, which inherit the peak of their parent.
  double Floor() const {
    int ends[2];
    if (pipe(ends) != 0) Die("no pipe");
    std::fflush(stdout);
    const pid_t process = fork();
    if (process == 0) {
      const double result = FloorHere();
      _exit(write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    double result = 0;
    const bool done = read(ends[0], &result, sizeof result) == sizeof result;
    waitpid(process, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    if (!done) Die("the floor failed");
    return result;
  }

  double FloorHere() const {
    std::vector<std::pair<std::string, std::string>> files;
    const fs::path copy = home_ / "floor";
    for (const auto& entry : fs::directory_iterator(Project())) {
      const std::string name = entry.path().filename().string();
      if (name.starts_with("frmThing") || name.ends_with(".vbp"))
        files.emplace_back(copy / name, ReadFile(entry.path()));
    }
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
      fs::remove_all(copy);
      fs::create_directories(copy);
      times.push_back(Measured([&] {
                        for (const auto& [path, text] : files) {
                          const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
                          if (write(file, text.data(), text.size()) < 0 || close(file) != 0) _exit(1);
                        }
                      }).Milliseconds);
    }
    fs::remove_all(copy);
    std::ranges::sort(times);
    return times[times.size() / 2];
  }

  std::string program_;
  fs::path home_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) Die("usage: run-benchmarks PROGRAM [FOLDER]");
  Bench bench(argv[1], fs::path(argc > 2 ? argv[2] : "/dev/shm") / "ostrel-form-wizard-benchmarks");
  for (const int forms : {1, 10, 100, 1000, 10000}) bench.Batch(forms, 0);
  bench.Batch(1, 5000);
  bench.WriteDictionary("large", 20000, 30);
  bench.Batch(1, 0, "large");
}
