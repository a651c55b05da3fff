// The file that a run's journal goes to.
#pragma once

#include <fstream>
#include <ostream>
#include <string>

namespace formwizard::apps::cli {

// Replaces an older journal, and nothing else unless `force` says so.
class JournalFile {
 public:
  // support::InputError when a file of that name is no journal, support::SaveError when it cannot be written.
  JournalFile(const std::string& file, bool force);

  std::ostream& Out() { return out_; }
  // support::SaveError when what was written did not arrive.
  void Keep();

 private:
  std::string file_;
  std::ofstream out_;
};

}  // namespace formwizard::apps::cli
