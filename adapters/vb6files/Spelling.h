// Finds files whose names a project spells in other letter cases than the folder does.
#pragma once

#include "system/FileSystem.h"

#include <optional>
#include <string>
#include <unordered_map>

namespace formwizard::adapters::vb6files {

// Reads each folder once, however many of its files are looked for.
class Spelling {
 public:
  // `files` must outlive this object.
  explicit Spelling(const system::FileSystem& files) : files_(files) {}

  // The path as file and folders are really spelled; what is not there keeps its spelling.
  std::string Of(const std::string& path);
  // Of such a path where nothing is: whether something is there that has only other letters beyond ASCII, as when the
  // path was read in a code page that it was not written in.
  bool HasOtherLetters(const std::string& path);

 private:
  using Names = std::unordered_map<std::string, std::string>;  // by the name itself, its lower case and its ASCII

  // Null when there is no such folder.
  const Names* NamesIn(const std::string& folder);

  const system::FileSystem& files_;
  std::unordered_map<std::string, std::optional<Names>> folders_;
};

}  // namespace formwizard::adapters::vb6files
