#include "apps/cli/GenerateReport.h"

#include "apps/cli/Difference.h"
#include "apps/cli/Findings.h"
#include "support/Messages.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <optional>
#include <utility>

namespace formwizard::apps::cli {

using adapters::vb6files::FileChange;

void GenerateReport::Note(FileChange change) {
  const bool keeps = options_.Diff || options_.Check || options_.Keep || keepsTexts_;
  for (std::optional<std::string>* text : {&change.Old, &change.New}) {
    if (!keeps && *text) *text = std::string();
  }
  changes_.push_back(std::move(change));
}

std::vector<std::string> GenerateReport::Findings() const { return FindingsIn(changes_, project_); }

void GenerateReport::Tell(const std::vector<std::string>& notes) const {
  if (options_.Tells.Quiet) return;
  for (const std::string& note : notes) std::cerr << "ostrel-form-wizard: note: " << support::Shown(note) << '\n';
}

void GenerateReport::Warn(const std::string& message) {
  if (!options_.Tells.Quiet) std::cerr << "ostrel-form-wizard: warning: " << support::Shown(message) << '\n';
  warnings_.push_back(message);
}

void GenerateReport::Add(FormResult result, const model::FormModel& form, const settings::Settings& settings,
                         const ui::TextMeasure& measure) {
  result.Files = ReportChanges();
  if (options_.Json) {
    summary_.Add(result, form, settings, measure);
  } else if (!options_.Diff && !options_.Tells.Quiet) {
    waiting_.Add(LineOf(result, form));
    if (options_.Tells.Verbose) waiting_.Add(FieldLinesOf(form));
  }
  if (!options_.Writes()) waiting_.PrintTo(std::cout);
}

void GenerateReport::AddProject() {
  projectNotes_ = project_.MissingFiles();
  if (!options_.Check) std::ranges::move(Findings(), std::back_inserter(projectNotes_));
  Tell(projectNotes_);
  ReportChanges();
}

void GenerateReport::Print() {
  waiting_.PrintTo(std::cout);
  if (options_.Json) summary_.PrintTo(std::cout, warnings_, projectNotes_, options_.Project);
}

// What becomes of each file that changed since the last call; their names.
std::vector<std::string> GenerateReport::ReportChanges() {
  std::vector<std::string> files;
  for (const FileChange& change : std::exchange(changes_, {})) {
    files.push_back(change.Path);
    if (options_.Diff) {
      waiting_.Add(DiffOf(change));
    } else if (options_.Check) {
      ReportDifference(FirstDifference(change, project_.ProjectCodePage()));
    } else if (!options_.Json && !options_.Tells.Quiet) {
      waiting_.Add(LineOf(change, options_.Writes()));
    }
  }
  if (!files.empty()) changesFiles_ = true;
  if (options_.Json) summary_.AddFiles(files);
  return files;
}

void GenerateReport::ReportDifference(const Difference& difference) {
  if (options_.Json) {
    summary_.Add(difference);
  } else if (!options_.Tells.Quiet) {
    waiting_.Add(LineOf(difference));
  }
}

}  // namespace formwizard::apps::cli
