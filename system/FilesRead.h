// What a result rests on: the files that were read for it, so that it can be told whether they still are as they were.
#pragma once

#include "system/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::system {

// Keeps a stamp and a sum of each content, not the content. A file that was not there counts as well.
class FilesRead {
 public:
  // `files` must outlive this object.
  explicit FilesRead(const FileSystem& files) : files_(files) {}

  // As FileSystem reads.
  std::optional<std::string> Read(const std::string& path);
  std::optional<std::string> ReadHead(const std::string& path, std::size_t count);

  // The result no longer rests on this file.
  void Forget(const std::string& path);

  // A file that is no longer as it was read; empty when there is none. A file is read again only when its stamp does
  // not tell. support::InputError when it cannot be told.
  std::string Changed() const;

 private:
  struct State {
    bool ShowsChanges = false;
    std::optional<FileStamp> Stamp;  // nothing: there was no file
    std::uint64_t Sum = 0;
  };
  using Key = std::pair<std::string, std::size_t>;  // path, and how many bytes were read at most

  static State StateOf(const std::optional<FileContent>& content);
  std::optional<FileContent> Content(const Key& key) const;
  std::optional<std::string> Keep(Key key);

  const FileSystem& files_;
  std::map<Key, State> states_;
};

}  // namespace formwizard::system
