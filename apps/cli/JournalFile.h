// The file that a run's journal goes to.
#pragma once

#include "system/WholeFile.h"

#include <ostream>
#include <string>
#include <vector>

namespace formwizard::apps::cli {

// common::UsageError when the journal is a file that the run reads. Not even --force replaces those: the run would read
// its own journal.
void CheckJournal(const std::string& journal, const std::vector<std::string>& inputs);

// Takes the place of an older journal when it is kept, and of nothing else unless `force` says so.
class JournalFile {
 public:
  // support::InputError when a file of that name is no journal, support::SaveError when it cannot be written.
  JournalFile(const std::string& file, bool force);

  // support::SaveError comes through it when something cannot be written.
  std::ostream& Out() { return file_.Stream(); }
  // support::SaveError with the old journal still there.
  void Keep() { file_.Commit(); }

 private:
  system::WholeFile file_;
};

}  // namespace formwizard::apps::cli
