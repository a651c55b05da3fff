#include "adapters/dictionary/Changes.h"
#include "apps/cli/Commands.h"
#include "apps/cli/Progress.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "support/Messages.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <utility>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using adapters::dictionary::AttributeChange;
using adapters::dictionary::Change;
using adapters::dictionary::ChangedThing;

struct DiffOptions {
  std::string Old, New;
  bool Json = false, Quiet = false;
};

const char* WordOf(adapters::dictionary::ChangeKind kind) {
  return std::array{"added", "removed", "changed"}.at(static_cast<std::size_t>(kind));
}

const char* WordOf(ChangedThing thing) {
  return std::array{"system", "class", "property", "query"}.at(static_cast<std::size_t>(thing));
}

// "60", "\"Full name\"", "ID, Name".
std::string ValueOf(const std::vector<std::string>& values, AttributeChange::Form form) {
  std::string text;
  for (const std::string& value : values) text += (text.empty() ? "" : ", ") + value;
  return form == AttributeChange::Form::Number ? text : '"' + text + '"';
}

// "Samples: property Sample.Person.Name changed: MaxLen 50 -> 60".
std::string LineOf(const Change& change) {
  std::string line = change.System.empty() ? "" : change.System + ": ";
  line += std::string(WordOf(change.What)) + " " + (change.Class.empty() ? "" : change.Class + ".") + change.Name +
          " " + WordOf(change.Kind);
  const char* before = ": ";
  for (const AttributeChange& attribute : change.Attributes) {
    line += std::exchange(before, ", ") + std::string(attribute.Name) + " " + ValueOf(attribute.Old, attribute.Is) +
            " -> " + ValueOf(attribute.New, attribute.Is);
  }
  return support::Escaped(line) + '\n';
}

Json JsonOf(const std::vector<std::string>& values, AttributeChange::Form form) {
  if (form == AttributeChange::Form::Names) return values;
  if (form == AttributeChange::Form::Number) return std::stol(values[0]);
  return values[0];
}

Json JsonOf(const Change& change) {
  Json json{{"change", WordOf(change.Kind)}, {"what", WordOf(change.What)}};
  if (!change.System.empty()) json["system"] = change.System;
  if (!change.Class.empty()) json["class"] = change.Class;
  json["name"] = change.Name;
  for (const AttributeChange& attribute : change.Attributes) {
    json["attributes"].push_back({{"name", attribute.Name},
                                  {"old", JsonOf(attribute.Old, attribute.Is)},
                                  {"new", JsonOf(attribute.New, attribute.Is)}});
  }
  return json;
}

// Prints what has changed as it is found.
class Report {
 public:
  explicit Report(const DiffOptions& options) : options_(options) {
    if (options_.Json) std::cout << "{\n  \"changes\": [";
  }

  void Add(const Change& change) {
    const bool isFirst = std::exchange(isEqual_, false);
    if (options_.Json) {
      std::cout << (isFirst ? "" : ",") << "\n    " << JsonOf(change).dump();
    } else if (!options_.Quiet) {
      std::cout << LineOf(change);
    }
  }

  int Finish() {
    if (options_.Json) {
      std::cout << (isEqual_ ? "" : "\n  ") << "],\n  \"equal\": " << (isEqual_ ? "true" : "false") << "\n}\n";
    }
    return isEqual_ ? common::Done : common::Differs;
  }

 private:
  const DiffOptions& options_;
  bool isEqual_ = true;
};

int ShowDifference(const DiffOptions& options) {
  if (options.Old == "-" && options.New == "-") {
    throw common::UsageError("give \"-\" once: standard input holds one dictionary");
  }
  const auto onRead = [](std::size_t) { common::CheckInterrupted(); };
  const auto before = common::OpenAnyDictionary(options.Old, onRead);
  const auto after = common::OpenAnyDictionary(options.New, onRead);
  Progress progress(std::cerr, "comparing", ShowsProgress(options.Quiet, !options.Json));
  Report report(options);
  adapters::dictionary::CompareDictionaries(
      {*before, options.Old}, {*after, options.New}, [&](const Change& change) { report.Add(change); },
      [&](double part) {
        common::CheckInterrupted();
        progress.Show(part, 1);
      });
  return report.Finish();
}

}  // namespace

void AddDictionaryDiff(CLI::App& command, Task& task) {
  const auto options = std::make_shared<DiffOptions>();
  AddStream(command, "old", options->Old, "class dictionary or JSON as it was, \"-\" for standard input")->required();
  AddStream(command, "new", options->New, "class dictionary or JSON as it is")->required();
  command.add_flag("--json", options->Json, "show the changes as JSON");
  command.add_flag("-q,--quiet", options->Quiet, "say nothing but errors: the exit status tells");
  command.callback([&task, options] {
    task = {[options] { return ShowDifference(*options); }, options->Old, false, true};
  });
}

}  // namespace formwizard::apps::cli
