// Text that is to be printed later, kept out of memory.
#pragma once

#include "system/FileSystem.h"

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

namespace formwizard::apps::cli {

// What is more than a block goes to a file in the system's folder for such, which only this user can read and which
// goes with this object. Errors are support::SaveError.
class Spool {
 public:
  Spool() = default;
  ~Spool();
  Spool(const Spool&) = delete;
  Spool& operator=(const Spool&) = delete;

  void Add(std::string_view text);
  // Prints everything since the last call.
  void PrintTo(std::ostream& out);

 private:
  void Flush();
  void CopyTo(std::ostream& out) const;
  void RemoveFile();

  std::string text_;                          // behind what the file has
  std::string path_;                          // empty without a file
  std::unique_ptr<system::OutputFile> file_;  // while it is written
};

}  // namespace formwizard::apps::cli
