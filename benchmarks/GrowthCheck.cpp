// Counts the instructions of runs of growing size, which do not depend on the load of the machine, and fails when one
// more form, class, property or component costs more the more there are. Usage: growth-check PROGRAMS: the folder of
// the built programs. Needs valgrind.
#include "benchmarks/Texts.h"
#include "benchmarks/Workload.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace benchmarks;

constexpr std::size_t SizeCount = 3;

using Arguments = std::vector<std::string>;

// What grows twice by the same factor.
struct Growth {
  std::string Name;
  std::array<int, SizeCount> Sizes;
  // A run of that size, whose files go by `name`; nothing where the program is not built.
  std::function<Arguments(const Workload&, int size, const std::string& name)> RunOf;
  double Most = 1.01;  // times what one more costs at the smaller sizes; numbers in names get longer
};

constexpr std::array Batches{10, 100, 1000}, Small{10, 40, 160}, Long{500, 2000, 8000};
constexpr double Kept = 1.2;   // in order, which takes a little more the more there is
constexpr double Tree = 1.05;  // of pages, which gets higher

auto Forms(Job (*jobOf)(int size)) {
  return [jobOf](const Workload& work, int size, const std::string& name) {
    const Job job = jobOf(size);
    return work.Generate(job, work.NewProject(job, name));
  };
}
Growth OfKept(const char* command) {
  return {std::string("a kept form, ") + command, Batches,
          [command](const Workload& work, int size, const std::string& name) {
            const Job job{.Forms = size};
            return work.Kept(command, job, work.NewProject(job, name));
          },
          Kept};
}
Growth WithOption(const char* option) {
  return {std::string("a form with ") + option, Small,
          [option](const Workload& work, int size, const std::string& name) {
            const Job job{.Forms = size, .Option = option};
            return work.Generate(job, work.NewProject(job, name));
          }};
}
// In a window. The first run is not counted: it makes the dictionary for the one that is.
Growth InWindow(const char* program, const char* what, const std::string& each, double most,
                const Arguments& more = {}) {
  return {each + ", " + what, Long,
          [program, what, more](const Workload& work, int size, const std::string&) {
            Arguments arguments = work.Other(program, {what, std::to_string(size)});
            if (!arguments.empty()) arguments.insert(arguments.end(), more.begin(), more.end());
            if (!arguments.empty() && Run(arguments) != 0) Die(std::string(what) + " failed");
            return arguments;
          },
          most};
}

Growth OfTexts(const char* command, const std::string& each, const std::array<int, SizeCount>& sizes) {
  return {
      each, sizes,
      [command](const Workload& work, int size, const std::string& name) { return TextRun(work, command, size, name); },
      Tree};
}

const std::vector<Growth> Growths{
    {"a form", Batches, Forms([](int n) { return Job{.Forms = n}; })},
    {"a form by the reference program", Batches,
     [](const Workload& work, int size, const std::string& name) {
       const Job job{.Forms = size};
       return work.Reference(job, work.NewProject(job, name));
     }},
    {"a form and 20 classes", {5, 50, 500}, Forms([](int n) {
       return Job{.Forms = n, .Classes = 20 * n, .OneClass = false};
     })},
    OfKept("status"),
    OfKept("update"),
    WithOption("--json"),
    WithOption("--journal"),
    WithOption("--language DEU"),
    {"a class, for 50 forms", {100, 1000, 10000}, Forms([](int n) {
       return Job{.Forms = 50, .Classes = n, .OneClass = false};
     })},
    {"a component, for a form", {20, 200, 2000}, Forms([](int n) { return Job{.Components = n}; }), Kept},
    {"a class, imported", Long,
     [](const Workload& work, int size, const std::string&) { return work.Import(size, 10); }, Tree},
    {"a class, exported", Long,
     [](const Workload& work, int size, const std::string& name) { return work.Export(size, 5, work.Home() / name); },
     Tree},
    {"a class, compared", Long,
     [](const Workload& work, int size, const std::string&) { return work.Compare(size, 5); }, Tree},
    OfTexts("merge", "a control and procedure, merged", {100, 400, 1600}),
    OfTexts("compare", "a control and procedure, compared", {100, 400, 1600}),
    OfTexts("lint", "a form, looked at", Batches),
    InWindow("dialog-benchmarks", "class step", "a class", Tree),
    InWindow("dialog-benchmarks", "property list", "a property", Tree),
    InWindow("dialog-benchmarks", "Select All", "a property", Tree),
    InWindow("dialog-benchmarks", "Deselect All", "a property", Tree),
    InWindow("dictionary-benchmarks", "dictionary", "a class", Tree, {"at-once"}),
    InWindow("dictionary-benchmarks", "search", "a class", Tree, {"at-once"}),
    InWindow("main-window-benchmarks", "components", "a component", Kept),
};

class Check {
 public:
  Check(const fs::path& programs, const fs::path& folder) : work_(folder, programs) { work_.CheckReference(); }

  int Run() {
    for (const Growth& growth : Growths) {
      for (const int size : growth.Sizes) Start(growth, size);
    }
    while (!running_.empty()) Wait();
    int failures = 0;
    for (const Growth& growth : Growths) failures += Judge(growth) ? 0 : 1;
    return failures == 0 ? 0 : 1;
  }

 private:
  static std::string NameOf(const Growth& growth, int size) { return growth.Name + ", " + std::to_string(size); }

  // As many at once as there are processors.
  void Start(const Growth& growth, int size) {
    const std::string name = NameOf(growth, size);
    const Arguments run = growth.RunOf(work_, size, name);
    if (run.empty()) return;
    while (running_.size() >= std::max(1U, std::thread::hardware_concurrency())) Wait();
    std::fflush(stdout);
    const pid_t process = fork();
    if (process == 0) Become(Counted(run, LogOf(name)));
    running_[process] = name;
  }

  void Wait() {
    int status = 0;
    const pid_t process = wait(&status);
    const std::string name = running_.at(process);
    running_.erase(process);
    const std::string log = ReadFile(LogOf(name));
    if (status != 0) Die("the run of " + name + " failed: " + log);
    const std::optional<double> count = CountIn(LogOf(name));
    if (!count) Die("valgrind has not counted: " + log);
    counts_[name] = *count;
    fs::remove_all(work_.Home() / name);
  }

  std::string LogOf(const std::string& name) const { return (work_.Home() / (name + ".log")).string(); }

  // Compares what one more costs between the smaller two sizes and between the larger two.
  bool Judge(const Growth& growth) const {
    if (!counts_.contains(NameOf(growth, growth.Sizes[0]))) {
      std::printf("%-32s not counted: its program is not built\n", growth.Name.c_str());
      return true;
    }
    const auto each = [&](std::size_t from, std::size_t to) {
      return (counts_.at(NameOf(growth, growth.Sizes[to])) - counts_.at(NameOf(growth, growth.Sizes[from]))) /
             (growth.Sizes[to] - growth.Sizes[from]);
    };
    const double first = each(0, 1), then = each(1, 2);
    const bool isLinear = then <= first * growth.Most;
    std::printf("%-32s %11.0f instructions at %5d to %5d, %11.0f at %5d to %5d  x%5.3f%s\n", growth.Name.c_str(), first,
                growth.Sizes[0], growth.Sizes[1], then, growth.Sizes[1], growth.Sizes[2], then / first,
                isLinear ? "" : "  MORE THAN LINEAR");
    return isLinear;
  }

  Workload work_;
  std::map<pid_t, std::string> running_;
  std::map<std::string, double> counts_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) Die("usage: growth-check PROGRAMS");
  return Check(argv[1], fs::temp_directory_path() / "ostrel-form-wizard-growth").Run();
}
