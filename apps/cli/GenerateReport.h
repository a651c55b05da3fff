// What a run that makes forms tells: of each form and file, and what the user is to look at.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/GenerateOptions.h"
#include "apps/cli/Spool.h"
#include "apps/cli/Summary.h"

#include <string>
#include <vector>

namespace formwizard::apps::cli {

// Notes and warnings go to standard error at once. The rest waits until the project is saved, so that nothing is said
// before it is true; a run that does not save has nothing to wait for.
class GenerateReport {
 public:
  // Both must outlive this object.
  GenerateReport(const GenerateOptions& options, const adapters::vb6files::ProjectOnDisk& project)
      : options_(options), project_(project) {}

  // A file that changes, of which what follows tells. Its texts are kept where they are to be looked at.
  void Note(adapters::vb6files::FileChange change);
  void KeepTexts(bool wanted) { keepsTexts_ = wanted; }
  // Those that nothing was told of yet.
  const std::vector<adapters::vb6files::FileChange>& Changes() const { return changes_; }
  // What the linter finds in them.
  std::vector<std::string> Findings() const;

  void Tell(const std::vector<std::string>& notes) const;
  void Warn(const std::string& message);
  // A form that is finished, with the files that have changed since the last one.
  void Add(FormResult result, const model::FormModel& form, const settings::Settings& settings,
           const ui::TextMeasure& measure);
  // The project file, when all forms are made and saved.
  void AddProject();
  // Once, at the end.
  void Print();

  // Whether a file has changed, or would have.
  bool ChangesFiles() const { return changesFiles_; }

 private:
  std::vector<std::string> ReportChanges();
  void ReportDifference(const Difference& difference);

  const GenerateOptions& options_;
  const adapters::vb6files::ProjectOnDisk& project_;
  std::vector<adapters::vb6files::FileChange> changes_;
  Spool waiting_;
  Summary summary_;
  std::vector<std::string> warnings_, projectNotes_;
  bool changesFiles_ = false, keepsTexts_ = false;
};

}  // namespace formwizard::apps::cli
