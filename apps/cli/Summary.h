// What a run has made, for people and for programs.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/Difference.h"
#include "apps/cli/Spool.h"
#include "model/FormModel.h"
#include "settings/Settings.h"
#include "ui/TextMeasure.h"

#include <ostream>
#include <string>
#include <vector>

namespace formwizard::apps::cli {

struct FormResult {
  std::string Component;
  std::vector<std::string> Files;
  std::vector<std::string> Failures;
  std::vector<std::string> Notes;  // what the user is to look at though nothing failed
};

// What a form has become, and what becomes of a file that changed, as a line for people.
std::string LineOf(const FormResult& result, const model::FormModel& form);
std::string LineOf(const adapters::vb6files::FileChange& change, bool isWritten);
// The same as a unified diff.
std::string DiffOf(const adapters::vb6files::FileChange& change);
// What became of each field of the form, in order, a line each.
std::string FieldLinesOf(const model::FormModel& form);

// The JSON summary of a run, written form by form.
class Summary {
 public:
  // A form: its component and files, the fields in order with what the layout gave them, the layout values under their
  // names, the failures and notes.
  void Add(const FormResult& result, const model::FormModel& form, const settings::Settings& settings,
           const ui::TextMeasure& measure);
  // What the run has written, or would write; in the order of the calls.
  void AddFiles(const std::vector<std::string>& paths);
  void Add(const Difference& difference);
  // Once, when everything is known; the notes are on the project file.
  void PrintTo(std::ostream& out, const std::vector<std::string>& warnings, const std::vector<std::string>& notes,
               const std::string& project);

 private:
  // The elements of an array that is a member of the summary, as text.
  struct Array {
    Spool Elements;
    bool IsEmpty = true;

    void Add(const std::string& json);
    void PrintTo(std::ostream& out);
  };

  Array forms_, files_, differences_;
};

}  // namespace formwizard::apps::cli
