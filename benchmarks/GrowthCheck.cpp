// Counts the instructions of runs of growing size, which do not depend on the load of the machine, and fails when one
// more form or class costs more the more there are. Usage: growth-check PROGRAMS: the folder of the built programs.
// Needs valgrind.
#include "benchmarks/Workload.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace benchmarks;

constexpr std::size_t SizeCount = 3;

// What grows twice by the same factor.
struct Growth {
  std::string Name;
  bool IsReference;  // the reference program's, to be compared with
  std::array<int, SizeCount> Sizes;
  Job (*JobOf)(int size);
  double Most = 1.01;  // times what one more costs at the smaller sizes; numbers in names get longer
};

constexpr std::array Batches{10, 100, 1000}, Small{10, 40, 160};

const std::vector<Growth> Growths{
    {"a form", false, Batches, [](int n) { return Job{.Forms = n}; }},
    {"a form by the reference program", true, Batches, [](int n) { return Job{.Forms = n}; }},
    {"a form and 20 classes",
     false,
     {5, 50, 500},
     [](int n) { return Job{.Forms = n, .Classes = 20 * n, .OneClass = false}; }},
    {"a form with --json", false, Small, [](int n) { return Job{.Forms = n, .Option = "--json"}; }},
    {"a form with --journal", false, Small, [](int n) { return Job{.Forms = n, .Option = "--journal"}; }},
    {"a form with --language", false, Small, [](int n) { return Job{.Forms = n, .Option = "--language DEU"}; }},
    {"a class, for 50 forms",
     false,
     {100, 1000, 10000},
     [](int n) { return Job{.Forms = 50, .Classes = n, .OneClass = false}; }},
    {"a component, for a form",
     false,
     {20, 200, 2000},
     [](int n) { return Job{.Components = n}; },
     1.2},  // the files that were read are kept in order
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
    const Job job = growth.JobOf(size);
    const std::string name = NameOf(growth, size);
    const fs::path project = work_.NewProject(job, name);
    std::vector<std::string> arguments{"valgrind", "--tool=cachegrind", "--cache-sim=no",
                                       "--cachegrind-out-file=/dev/null", "--log-file=" + LogOf(name)};
    for (std::string& a : growth.IsReference ? work_.Reference(job, project) : work_.Generate(job, project)) {
      arguments.push_back(std::move(a));
    }
    while (running_.size() >= std::max(1U, std::thread::hardware_concurrency())) Wait();
    std::fflush(stdout);
    const pid_t process = fork();
    if (process == 0) Become(arguments);
    running_[process] = name;
  }

  void Wait() {
    int status = 0;
    const pid_t process = wait(&status);
    const std::string name = running_.at(process);
    running_.erase(process);
    const std::string log = ReadFile(LogOf(name));
    if (status != 0) Die("the run of " + name + " failed: " + log);
    counts_[name] = CountIn(log);
    fs::remove_all(work_.Home() / name);
  }

  std::string LogOf(const std::string& name) const { return (work_.Home() / (name + ".log")).string(); }

  static double CountIn(const std::string& log) {
    const std::string label = "I   refs:";
    const std::size_t at = log.find(label);
    if (at == std::string::npos) Die("valgrind has not counted: " + log);
    std::string digits;
    for (std::size_t i = at + label.size(); i < log.size() && log[i] != '\n'; ++i) {
      if (log[i] >= '0' && log[i] <= '9') digits += log[i];
    }
    return std::strtod(digits.c_str(), nullptr);
  }

  // Compares what one more costs between the smaller two sizes and between the larger two.
  bool Judge(const Growth& growth) const {
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
