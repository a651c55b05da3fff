// What a user does in the browser of a large dictionary, once. Usage: dictionary-benchmarks STEP SIZE [at-once]: how
// many classes of five properties it has, and that work is not done in slices, whose number depends on the time. Prints
// the milliseconds of process time that the step took, the greatest memory in MiB, and the longest time in which
// nothing else could be done.
#include "apps/common/Dictionaries.h"
#include "apps/desktop/dictionary/DictionaryPane.h"
#include "benchmarks/OffScreen.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using namespace formwizard;
using namespace formwizard::apps::desktop;
using benchmarks::Milliseconds;

// Classes in packages of that many. The last class alone has a property with an "x".
std::string ClassesOf(int size, int packageSize) {
  std::ostringstream json;
  json << R"({"systems":[{"name":"Bench","connect":"bench","classes":[)";
  for (int i = 0; i < size; ++i) {
    json << (i ? "," : "") << R"({"Name":"P)" << 1000000 + i / packageSize << ".C" << 1000000 + i
         << R"(","properties":[)";
    for (int p = 0; p < 5; ++p) json << (p ? "," : "") << R"({"Name":"Property)" << i % 100 << p << "\"}";
    json << (i + 1 == size ? R"(,{"Name":"Maximum"})" : "") << "]}";
  }
  json << "]}]}";
  return json.str();
}

struct Browser {
  Browser(const benchmarks::Task& task, int packageSize)
      : dictionary(apps::common::OpenDictionary(benchmarks::DictionaryIn(
            task.Folder, "browser-" + std::to_string(task.Size) + "-" + std::to_string(packageSize),
            [&] { return ClassesOf(task.Size, packageSize); }))) {
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
  const benchmarks::Program program{"dictionary-benchmarks", benchmarks::NamesOf(Steps), "at-once"};
  return benchmarks::RunOffScreen(argc, argv, program, [](const benchmarks::Task& task) {
    const Step& step = Steps.at(task.Step);
    Browser browser(task, step.PackageSize);
    if (task.HasOption) browser.model.WorkInSlicesOf(std::numeric_limits<int>::max());
    step.Before(browser);
    browser.longest = 0;
    const double start = Milliseconds();
    step.Do(browser);
    const double took = Milliseconds() - start;
    std::printf("%.2f %.1f %.2f\n", took, benchmarks::Mebibytes(), browser.longest);
    return browser.model.rowCount({}) > 0;
  });
}
