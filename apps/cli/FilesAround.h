// The files beside one that is looked at, found as Windows finds them.
#pragma once

#include "lint/Subject.h"
#include "system/CodePage.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace formwizard::apps::cli {

// The folders that were listed in search of a file, whose names were not spelled as the project does. For one run: what
// it knows it does not look up again.
class ListedFolders {
 public:
  // The path as the folders spell it; nothing when there is no such file.
  std::optional<std::string> Find(const std::string& path);

 private:
  using Names = std::unordered_map<std::string, std::string>;  // in small letters, to what stands there

  const Names& NamesIn(const std::string& folder);

  std::unordered_map<std::string, Names> folders_;
};

class FilesAround : public lint::Surroundings {
 public:
  // `path`: of the file that is looked at. `codePage`: null where it is not known, so that no name beyond ASCII is
  // missed. The others must outlive this object.
  FilesAround(std::string_view path, const system::CodePage* codePage, ListedFolders& folders);

  // A file on a drive or server that this system has not is not missed either.
  std::optional<std::uintmax_t> SizeOf(std::string_view file) const override;
  // Where it is; nothing when it is not there or cannot be reached.
  std::optional<std::string> Find(std::string_view file) const;

 private:
  std::string folder_;
  const system::CodePage* codePage_;
  ListedFolders& folders_;
};

}  // namespace formwizard::apps::cli
