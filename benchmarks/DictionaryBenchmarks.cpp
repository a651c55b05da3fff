// What a user does in the browser of a large dictionary, once. Usage: dictionary-benchmarks STEP SIZE [at-once]: how
// many classes of five properties it has, and that work is not done in slices, whose number depends on the time. Prints
// the milliseconds of process time that the step took, the greatest memory in MiB, and the longest time in which
// nothing else could be done.
#include "apps/common/Dictionaries.h"
#include "apps/desktop/dictionary/DictionaryPane.h"

#include <QApplication>

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;
using namespace formwizard;
using namespace formwizard::apps::desktop;

// Classes in packages of that many; made once in the folder for temporary files. The last class alone has a property
// with an "x".
std::string DictionaryOf(int size, int packageSize) {
  const fs::path path = fs::temp_directory_path() / ("ostrel-form-wizard-browser-" + std::to_string(size) + "-" +
                                                     std::to_string(packageSize) + ".sqlite");
  if (fs::exists(path)) return path.string();
  std::ostringstream json;
  json << R"({"systems":[{"name":"Bench","connect":"bench","classes":[)";
  for (int i = 0; i < size; ++i) {
    json << (i ? "," : "") << R"({"Name":"P)" << 1000000 + i / packageSize << ".C" << 1000000 + i
         << R"(","properties":[)";
    for (int p = 0; p < 5; ++p) json << (p ? "," : "") << R"({"Name":"Property)" << i % 100 << p << "\"}";
    json << (i + 1 == size ? R"(,{"Name":"Maximum"})" : "") << "]}";
  }
  json << "]}]}";
  std::istringstream in(json.str());
  apps::common::ImportDictionary(in, "bench", path.string());
  return path.string();
}

double Milliseconds() { return static_cast<double>(std::clock()) * 1e3 / CLOCKS_PER_SEC; }

struct Browser {
  Browser(int size, int packageSize) : dictionary(apps::common::OpenDictionary(DictionaryOf(size, packageSize))) {
    pane.resize(248, 600);
    pane.show();
    QApplication::processEvents();
  }

  // What the user does, and all that is done for it later.
  void Do(const std::function<void()>& action) {
    double before = Milliseconds();
    const auto wait = [&] {
      QApplication::processEvents();
      const double now = Milliseconds();
      longest = std::max(longest, now - before);
      before = now;
    };
    action();
    wait();
    while (model.IsBusy()) wait();
    for (int i = 0; i < 3; ++i) wait();  // what was put off
  }
  void Read() {
    Do([&] { pane.Show(dictionary.get()); });
  }
  void Type(const QString& text) {
    for (const QChar letter : text) {
      Do([&] { pane.findChild<QLineEdit*>()->insert(letter); });
    }
  }

  std::unique_ptr<wizard::factory::FactoryCreator> dictionary;
  Texts texts;
  DictionaryPane pane{texts, [] {}};
  DictionaryModel& model = dynamic_cast<DictionaryModel&>(*pane.findChild<QTreeView*>()->model());
  double longest = 0;
};

void Nothing(Browser&) {}
void Read(Browser& browser) { browser.Read(); }
void OpenPackage(Browser& browser) {
  auto* tree = browser.pane.findChild<QTreeView*>();
  browser.Do([&] { tree->expand(browser.model.index(0, 0, browser.model.index(0, 0, {}))); });
}
void SearchProperty(Browser& browser) { browser.Type("x"); }
void ReadAndSearch(Browser& browser) {
  Read(browser);
  SearchProperty(browser);
}
void TypeOn(Browser& browser) {
  browser.Type("i");
  browser.Do([&] { browser.pane.findChild<QLineEdit*>()->setText("p"); });  // which all have
}

struct Step {
  std::string_view Name;
  int PackageSize;
  void (*Before)(Browser&);
  void (*Do)(Browser&);
};
constexpr int All = 1 << 30;
constexpr std::array Steps{Step{"dictionary", 100, Nothing, Read}, Step{"package", All, Read, OpenPackage},
                           Step{"search", 100, Read, SearchProperty}, Step{"letter", 100, ReadAndSearch, TypeOn}};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.warning=false");  // about what this platform lacks
  const QApplication application(argc, argv);
  const auto* const step = std::ranges::find(Steps, std::string_view(argc > 1 ? argv[1] : ""), &Step::Name);
  if (step == Steps.end() || argc < 3 || (argc > 3 && argv[3] != std::string_view("at-once"))) {
    std::fputs("usage: dictionary-benchmarks dictionary|package|search|letter SIZE [at-once]\n", stderr);
    return 2;
  }
  Browser browser(std::atoi(argv[2]), step->PackageSize);
  if (argc > 3) browser.model.WorkInSlicesOf(std::numeric_limits<int>::max());
  step->Before(browser);
  browser.longest = 0;
  const double start = Milliseconds();
  step->Do(browser);
  const double took = Milliseconds() - start;
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("%.2f %.1f %.2f\n", took, static_cast<double>(usage.ru_maxrss) / 1024, browser.longest);
  return browser.model.rowCount({}) > 0 ? 0 : 1;
}
