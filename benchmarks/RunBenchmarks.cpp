// Measures whole runs of the command line program, each beside two floors, a process that does nothing but write the
// same bytes to the same places and the reference program, and single steps in windows; prints tables for the README.
// Usage: run-benchmarks PROGRAMS [FOLDER]: the folder of the built programs, and one on a memory file system
// (/dev/shm).
#include "benchmarks/Texts.h"
#include "benchmarks/Workload.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
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

std::string Number(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

// "20,000".
std::string Count(int number) {
  std::string text = std::to_string(number);
  for (std::size_t at = text.size(); at > 3; at -= 3) text.insert(at - 3, ",");
  return text;
}

void PrintRow(const std::vector<std::string>& cells) {
  for (const std::string& cell : cells) std::printf("| %s ", cell.c_str());
  std::printf("|\n");
  std::fflush(stdout);
}

void PrintHead(const std::vector<std::string>& names) {
  std::printf("\n");
  PrintRow(names);
  PrintRow(std::vector<std::string>(names.size(), "---"));
}

double Load() {
  double load = 0;
  getloadavg(&load, 1);
  return load;
}

class Bench {
 public:
  Bench(const fs::path& programs, const fs::path& folder) : work_(folder, programs) { work_.CheckReference(); }

  // A row of a table.
  void Measure(const std::string& what, const Job& job) const {
    const int rounds = job.Forms <= 100 && job.Components <= 5000 ? 9 : 3;
    work_.Dictionary(job.Classes, job.Properties);
    fs::path project;
    const auto once = [&](auto makes) {
      std::vector<std::string> run;  // which is put together before it is measured
      const auto before = [&] { run = (work_.*makes)(job, project = work_.NewProject(job)); };
      return Measured(rounds, before, [&] { Become(run); });
    };
    // The reference program knows no other components.
    const Cost reference = job.Components == 0 ? once(&Workload::Reference) : Cost{};
    const Cost cost = once(&Workload::Generate);
    const double floor = Floor(project);
    std::optional<double> instructions;
    if (job.Forms <= 1000) {
      instructions = Instructions(work_.Generate(job, work_.NewProject(job)), work_.Home() / "instructions");
    }
    PrintRow({what, Number("%.2f ms", cost.Milliseconds), Number("%.3f ms", cost.Milliseconds / job.Forms),
              instructions ? Number("%.2f M", *instructions / job.Forms / 1e6) : "",
              Number("%.1f", cost.Milliseconds / floor),
              job.Components == 0 ? Number("%.1f", cost.Milliseconds / reference.Milliseconds) : "",
              Number("%.1f MiB", cost.Mebibytes)});
  }

  // Beside generating as many forms, without and with keeping them.
  void MeasureKept(const char* command, int forms) const {
    const Job job{.Forms = forms}, keeping{.Forms = forms, .Option = "--keep"};
    std::vector<std::string> run;
    const auto measured = [&](auto&& runIn) {
      return Measured(
          3, [&] { run = runIn(work_.NewProject(job)); }, [&] { Become(run); });
    };
    const Cost generate = measured([&](const fs::path& project) { return work_.Generate(job, project); });
    const Cost keep = measured([&](const fs::path& project) { return work_.Generate(keeping, project); });
    const Cost cost = measured([&](const fs::path& project) { return work_.Kept(command, job, project); });
    PrintRow({"`" + std::string(command) + "` of " + Count(forms) + " kept forms",
              Number("%.0f ms, ", cost.Milliseconds) +
                  Number("%.2f times generating them, ", cost.Milliseconds / generate.Milliseconds) +
                  Number("%.2f with `--keep`", cost.Milliseconds / keep.Milliseconds),
              Number("%.3f ms", cost.Milliseconds / forms), "", "", "", Number("%.1f MiB", cost.Mebibytes)});
  }

  void MeasureImport(int classes, int properties) const {
    std::vector<std::string> run = work_.Import(classes, properties);
    const Cost import = Measured([&] { Become(run); });
    PrintRow({"import of " + Count(classes) + " classes, " + Count(classes * properties) + " properties",
              Number("%.0f ms", import.Milliseconds), "", "", "", "", Number("%.1f MiB", import.Mebibytes)});
    run = work_.Export(classes, properties, work_.Home() / "export");
    const Cost back = Measured([&] { Become(run); });
    PrintRow(
        {"export of it", Number("%.0f ms", back.Milliseconds), "", "", "", "", Number("%.1f MiB", back.Mebibytes)});
    fs::remove(work_.Home() / "export");
    run = work_.Compare(classes, properties);
    const Cost same = Measured([&] { Become(run); });
    PrintRow({"diff of it with one that has the same", Number("%.0f ms", same.Milliseconds), "", "", "", "",
              Number("%.1f MiB", same.Mebibytes)});
  }

  void MeasureTexts(const char* command, int size, const std::string& what) const {
    const std::vector<std::string> run = TextRun(work_, command, size, command);
    const Cost cost = Measured(
        9, [] {}, [&] { Become(run); });
    PrintRow({what, Number("%.1f ms", cost.Milliseconds), "", "", "", "", Number("%.1f MiB", cost.Mebibytes)});
    fs::remove_all(work_.Home() / command);
  }

  // A row of what a program measures itself, at a tenth of a size and at that size.
  void MeasureStep(const char* program, const std::string& what, int size, const char* unit) const {
    double small[3]{}, large[3]{};
    if (!Told(program, what, size / 10, small) || !Told(program, what, size, large)) return;
    PrintRow({what, Count(size) + unit, Number("%.1f ms", large[0]), Number("%.1f ms", small[0]),
              Number("%.1f", large[0] / small[0]), large[1] > 0 ? Number("%.0f MiB", large[1]) : "",
              large[2] > 0 ? Number("%.1f ms", large[2]) : ""});
  }

 private:
  // What the program prints: the median of the first number, the greatest of the others. False where it is not built.
  bool Told(const char* program, const std::string& what, int size, double (&result)[3]) const {
    const std::vector<std::string> run = work_.Other(program, {what, std::to_string(size)});
    const fs::path output = work_.Home() / "output";
    std::vector<double> times;
    for (int round = 0; round < (run.empty() ? 0 : 3); ++round) {
      if (Run(run, output.string()) != 0) Die(what + " failed");
      std::istringstream numbers(ReadFile(output));
      double memory = 0, longest = 0;
      numbers >> times.emplace_back() >> memory >> longest;
      result[1] = std::max(result[1], memory);
      result[2] = std::max(result[2], longest);
    }
    if (times.empty()) return false;
    std::ranges::sort(times);
    result[0] = times[times.size() / 2];
    return true;
  }

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

void MeasureRuns(const Bench& bench) {
  PrintHead({"run", "time", "per form", "instructions a form", "times the floor", "times the reference program",
             "peak memory"});
  for (const int forms : {1, 10, 100, 1000, 10000}) {
    bench.Measure(Count(forms) + (forms == 1 ? " form, cold start" : " forms of one class"), {.Forms = forms});
  }
  for (const int forms : {100, 1000, 10000}) {
    bench.Measure(Count(forms) + " forms, a class each", {.Forms = forms, .Classes = forms, .OneClass = false});
  }
  for (const int forms : {1, 1000}) {
    bench.Measure(Count(forms) + " of 20,000 classes", {.Forms = forms, .Classes = 20000, .OneClass = false});
  }
  for (const char* option : {"--json", "--journal", "--language DEU"}) {
    for (const int forms : {100, 1000, 10000}) {
      bench.Measure(Count(forms) + " forms, `" + option + "`", {.Forms = forms, .Option = option});
    }
  }
  for (const int components : {5000, 50000}) {
    bench.Measure("1 form into " + Count(components) + " components", {.Components = components});
  }
  bench.Measure("1 form of 20,000 classes, 600,000 properties", {.Classes = 20000, .Properties = 30});
  for (const char* command : {"status", "update"}) {
    for (const int forms : {100, 1000}) bench.MeasureKept(command, forms);
  }
  bench.MeasureImport(20000, 30);
  bench.MeasureImport(200000, 30);
  bench.MeasureTexts("merge", 500, "merge of 10,000 lines, 50 places changed on each side");
  bench.MeasureTexts("compare", 500, "compare of 10,000 lines");
  bench.MeasureTexts("lint", 1000, "lint of a project of 1,000 forms of 460 lines");
}

void MeasureSteps(const Bench& bench) {
  PrintHead({"in a window", "size", "time", "a tenth of the size", "growth", "peak memory", "longest wait"});
  bench.MeasureStep("dialog-benchmarks", "class step", 200000, " classes");
  for (const char* step : {"property list", "Select All", "Deselect All", "100 moves"}) {
    bench.MeasureStep("dialog-benchmarks", step, 20000, " properties");
  }
  for (const char* step : {"dictionary", "package", "search", "letter"}) {
    bench.MeasureStep("dictionary-benchmarks", step, 200000, " classes");
  }
  bench.MeasureStep("main-window-benchmarks", "start", 10, " components");
  bench.MeasureStep("main-window-benchmarks", "components", 5000, " components");
  bench.MeasureStep("dialog-benchmarks", "preview", 100, " fields");
  bench.MeasureStep("main-window-benchmarks", "components", 50000, " components");
  bench.MeasureStep("main-window-benchmarks", "kept", 1000, " kept forms");
  bench.MeasureStep("main-window-benchmarks", "code", 10, " MB");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) Die("usage: run-benchmarks PROGRAMS [FOLDER]");
  const Bench bench(argv[1], fs::path(argc > 2 ? argv[2] : "/dev/shm") / "ostrel-form-wizard-benchmarks");
  std::printf("Commit %s, %u processors, load %.1f at the start; process time, medians.\n", Commit().c_str(),
              std::thread::hardware_concurrency(), Load());
  MeasureRuns(bench);
  MeasureSteps(bench);
  std::printf("\nLoad %.1f at the end.\n", Load());
}
