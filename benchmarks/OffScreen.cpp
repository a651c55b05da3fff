#include "benchmarks/OffScreen.h"

#include "apps/common/Dictionaries.h"

#include <QApplication>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <sstream>

namespace benchmarks {
namespace {

namespace fs = std::filesystem;

int TellUsage(const Program& program) {
  std::string usage = "usage: " + std::string(program.Name) + " ";
  for (const std::string_view& step : program.Steps)
    usage.append(&step == program.Steps.data() ? "" : "|").append(step);
  usage += " SIZE";
  if (!program.Option.empty()) usage.append(" [").append(program.Option).append("]");
  std::fprintf(stderr, "%s\n", usage.c_str());
  return 2;
}

// Removes what it has made.
class OwnFolder {
 public:
  OwnFolder() : path_(fs::temp_directory_path() / ("ostrel-form-wizard-off-screen-" + std::to_string(getpid()))) {
    fs::create_directories(path_);
  }
  ~OwnFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;

  const fs::path& Path() const { return path_; }

 private:
  fs::path path_;
};

}  // namespace

int RunOffScreen(int argc, char** argv, const Program& program, const std::function<bool(const Task&)>& task) {
  const auto given = [&](int at) { return std::string_view(at < argc ? argv[at] : ""); };
  const auto step = std::ranges::find(program.Steps, given(1));
  const bool hasOption = argc == 4 && given(3) == program.Option;
  if (step == program.Steps.end() || (argc != 3 && !hasOption)) return TellUsage(program);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.warning=false");  // about what this platform lacks
  const QApplication application(argc, argv);
  const char* const shared = std::getenv("FORMWIZARD_BENCHMARKS");
  const auto own = shared ? nullptr : std::make_unique<OwnFolder>();
  const auto index = static_cast<std::size_t>(step - program.Steps.begin());
  return task({index, std::atoi(argv[2]), hasOption, own ? own->Path() : fs::path(shared)}) ? 0 : 1;
}

std::string DictionaryIn(const fs::path& folder, const std::string& name, const std::function<std::string()>& json) {
  std::string path = (folder / (name + ".sqlite")).string();
  if (fs::exists(path)) return path;
  std::istringstream in(json());
  formwizard::apps::common::ImportDictionary(in, "bench", path);
  return path;
}

double Milliseconds() { return static_cast<double>(std::clock()) * 1e3 / CLOCKS_PER_SEC; }

double Mebibytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace benchmarks
