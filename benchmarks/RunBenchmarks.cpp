// Measures whole runs of the command line program, each beside two floors: a process that does nothing but write the
// same bytes to the same places, and the reference program. Usage: run-benchmarks PROGRAMS [FOLDER]: the folder of the
// built programs, and one on a memory file system (/dev/shm).
#include "benchmarks/Workload.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace benchmarks;

struct Cost {
  double Milliseconds;  // of process time, user and system
  double Mebibytes;     // of memory at its peak
};

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

// The median time and the greatest memory of some runs.
Cost Measured(int rounds, const std::function<void()>& before, const std::function<void()>& child) {
  std::vector<double> times;
  double memory = 0;
  for (int round = 0; round < rounds; ++round) {
    before();
    const Cost cost = Measured(child);
    times.push_back(cost.Milliseconds);
    memory = std::max(memory, cost.Mebibytes);
  }
  std::ranges::sort(times);
  return {times[times.size() / 2], memory};
}

class Bench {
 public:
  Bench(const fs::path& programs, const fs::path& folder) : work_(folder, programs) { work_.CheckReference(); }

  void Measure(const Job& job) const {
    const int rounds = job.Forms <= 100 ? 9 : 3;
    work_.Dictionary(job.Classes, job.Properties);
    fs::path project;
    const auto before = [&] { project = work_.NewProject(job); };
    const auto once = [&](auto makes) {
      return Measured(rounds, before, [&] { Become((work_.*makes)(job, project)); });
    };
    const Cost reference = job.Components == 0 ? once(&Workload::Reference) : Cost{};
    const Cost cost = once(&Workload::Generate);
    const double floor = Floor(project);
    std::printf("%6d forms of %5d classes%s, %5d other components %-14s %9.2f ms %8.4f ms/form %5.1f MiB", job.Forms,
                job.Classes, job.OneClass ? " (one used)" : "           ", job.Components, job.Option.c_str(),
                cost.Milliseconds, cost.Milliseconds / job.Forms, cost.Mebibytes);
    std::printf("  floor %8.2f ms  x%5.1f", floor, cost.Milliseconds / floor);
    if (job.Components == 0) {  // the reference program knows none
      std::printf("  reference %8.2f ms  x%5.1f", reference.Milliseconds, cost.Milliseconds / reference.Milliseconds);
    }
    std::printf("\n");
  }

  void MeasureImport(int classes, int properties) const {
    const Cost cost = Measured([&] { Become(work_.Import(classes, properties)); });
    std::printf("import of %d classes with %d properties: %.0f ms, %.1f MiB\n", classes, classes * properties,
                cost.Milliseconds, cost.Mebibytes);
  }

 private:
  // Writes what the last run has left in the project's folder once more, elsewhere. In a process of its own: what it
  // reads must not count as memory of the processes measured later, which inherit the peak of their parent.
  double Floor(const fs::path& project) const {
    int ends[2];
    if (pipe(ends) != 0) Die("no pipe");
    std::fflush(stdout);
    const pid_t process = fork();
    if (process == 0) {
      const double result = FloorHere(project);
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

  double FloorHere(const fs::path& project) const {
    std::vector<std::pair<std::string, std::string>> files;
    const fs::path copy = work_.Home() / "floor";
    for (const auto& entry : fs::directory_iterator(project)) {
      const std::string name = entry.path().filename().string();
      if (name.starts_with("frmThing") || name.ends_with(".vbp"))
        files.emplace_back(copy / name, ReadFile(entry.path()));
    }
    const auto before = [&] {
      fs::remove_all(copy);
      fs::create_directories(copy);
    };
    const Cost cost = Measured(5, before, [&] {
      for (const auto& [path, text] : files) {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
        if (write(file, text.data(), text.size()) < 0 || close(file) != 0) _exit(1);
      }
    });
    fs::remove_all(copy);
    return cost.Milliseconds;
  }

  Workload work_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) Die("usage: run-benchmarks PROGRAMS [FOLDER]");
  const Bench bench(argv[1], fs::path(argc > 2 ? argv[2] : "/dev/shm") / "ostrel-form-wizard-benchmarks");
  for (const int forms : {1, 10, 100, 1000, 10000}) bench.Measure({.Forms = forms});
  for (const int forms : {100, 1000, 10000}) bench.Measure({.Forms = forms, .Classes = forms, .OneClass = false});
  for (const int forms : {1, 1000}) bench.Measure({.Forms = forms, .Classes = 20000, .OneClass = false});
  for (const char* option : {"--json", "--journal", "--language DEU"}) {
    for (const int forms : {100, 1000, 10000}) bench.Measure({.Forms = forms, .Option = option});
  }
  bench.Measure({.Components = 5000});
  bench.MeasureImport(20000, 30);
  bench.Measure({.Classes = 20000, .Properties = 30});
}
