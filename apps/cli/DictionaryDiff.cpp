#include "adapters/dictionary/Changes.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/Commands.h"
#include "apps/cli/KeptListing.h"
#include "apps/cli/Progress.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "apps/common/Paths.h"
#include "apps/forms/KeptFolder.h"
#include "apps/forms/TouchedForms.h"
#include "support/Messages.h"
#include "system/FileSystem.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <array>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using adapters::dictionary::AttributeChange;
using adapters::dictionary::Change;
using adapters::dictionary::ChangedThing;

struct DiffOptions {
  std::string Old, New, Project;
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

// The queries of both dictionaries that are gone or others in the new one.
class ChangedQueries {
 public:
  void Add(const Change& change) {
    const bool counts = change.What == ChangedThing::Query && change.Kind != adapters::dictionary::ChangeKind::Added;
    if (counts) queries_.insert(KeyOf(change.System, change.Class, change.Name));
  }
  bool Has(const std::string& system, const std::string& className, const std::string& query) const {
    return queries_.contains(KeyOf(system, className, query));
  }

 private:
  static std::string KeyOf(const std::string& system, const std::string& className, const std::string& query) {
    return system + '\n' + className + '\n' + query;
  }

  std::unordered_set<std::string> queries_;
};

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

  void Add(const forms::TouchedForm& form) {
    if (options_.Json) {
      Json json{{"form", form.Name}};
      AddTo(json, form.Class);
      json["queries"] = form.Queries;
      forms_.push_back(std::move(json));
    } else if (!options_.Quiet) {
      std::cout << "form " << support::Escaped(form.Name) << ":\n";
      for (const std::string& reason : ReasonsIn(form.Class)) std::cout << "  " << support::Escaped(reason) << '\n';
      for (const std::string& query : form.Queries) {
        std::cout << "  the query " << support::Escaped(query) << ", by which objects are chosen, is gone or another\n";
      }
    }
  }

  int Finish() {
    if (options_.Json) {
      std::cout << (isEqual_ ? "" : "\n  ") << "],\n";
      if (!options_.Project.empty()) std::cout << "  \"forms\": " << forms_.dump() << ",\n";
      std::cout << "  \"equal\": " << (isEqual_ ? "true" : "false") << "\n}\n";
    }
    return isEqual_ ? common::Done : common::Differs;
  }

 private:
  const DiffOptions& options_;
  bool isEqual_ = true;
  Json forms_ = Json::array();
};

int ShowDifference(const DiffOptions& options) {
  if (options.Old == "-" && options.New == "-") {
    throw common::UsageError("give \"-\" once: standard input holds one dictionary");
  }
  const auto onRead = [](std::size_t) { common::CheckInterrupted(); };
  const auto before = common::OpenAnyDictionary(options.Old, onRead);
  const auto after = common::OpenAnyDictionary(options.New, onRead);
  Progress progress(std::cerr, "comparing", ShowsProgress(options.Quiet, !options.Json));
  std::optional<forms::KeptFolder> kept;
  if (!options.Project.empty()) {
    const std::string project = common::Resolved(options.Project);
    const adapters::vb6files::ProjectOnDisk opened(system::RealFileSystem(), project, {});
    kept.emplace(system::RealFileSystem(), project);
  }
  ChangedQueries queries;
  Report report(options);
  adapters::dictionary::CompareDictionaries(
      {*before, options.Old}, {*after, options.New},
      [&](const Change& change) {
        report.Add(change);
        if (kept) queries.Add(change);
      },
      [&](double part) {
        common::CheckInterrupted();
        progress.Show(part, 1);
      });
  if (kept) {
    forms::ForEachTouchedForm(
        *kept, *before, *after,
        [&](const std::string& system, const std::string& ofClass, const std::string& query) {
          return queries.Has(system, ofClass, query);
        },
        [&](const forms::TouchedForm& form) {
          common::CheckInterrupted();
          report.Add(form);
        });
  }
  return report.Finish();
}

}  // namespace

void AddDictionaryDiff(CLI::App& command, Task& task) {
  const auto options = std::make_shared<DiffOptions>();
  AddStream(command, "old", options->Old, "class dictionary or JSON as it was, \"-\" for standard input")->required();
  AddStream(command, "new", options->New, "class dictionary or JSON as it is")->required();
  AddFile(command, "--project", options->Project,
          "a VB6 project file (.vbp): also say which of its kept forms it touches");
  AddJson(command, options->Json, "changes");
  command.add_flag("-q,--quiet", options->Quiet, "say nothing but errors: the exit status tells");
  command.callback([&task, options] {
    task = {[options] { return ShowDifference(*options); }, options->Old, false, true};
  });
}

}  // namespace formwizard::apps::cli
