#include "apps/cli/DescriptionFiles.h"

#include "apps/common/TextInput.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Limits.h"
#include "system/Paths.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>

namespace formwizard::apps::cli {
namespace {

using support::InputError;

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.empty()) lines.emplace_back(line);
  }
  return lines;
}

// Standard input cannot be read a second time.
void CheckHasNoInput(const std::vector<std::string>& files) {
  if (std::ranges::find(files, "-") == files.end()) return;
  throw InputError("standard input: this is the list of form descriptions and cannot be one of them; name it once");
}

std::vector<std::string> ReadList(const std::string& list) {
  std::vector<std::string> files = LinesOf(common::ReadText(list, "list of form descriptions", system::LargestList));
  if (files.empty()) throw InputError(common::NameOf(list) + ": no form description is listed; write one path a line");
  for (const std::string& file : files) system::CheckPath(file);
  return files;
}

bool IsFolder(const std::string& path) {
  std::error_code error;
  return path != "-" && std::filesystem::is_directory(system::NativePath(path), error);
}

bool IsDescription(std::string_view name) {
  constexpr std::string_view ending = ".json";
  return !name.starts_with('.') && name.size() > ending.size() &&
         runtime::EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

void AddFolder(const std::string& folder, std::vector<std::string>& files) {
  std::vector<std::string> names = system::RealFileSystem().NamesIn(folder).value_or(std::vector<std::string>());
  std::erase_if(names, [](const std::string& name) { return !IsDescription(name); });
  if (names.empty()) throw InputError(folder + ": no form description is in this folder; their names end in \".json\"");
  std::ranges::sort(names);
  const std::string begin = folder.ends_with('/') ? folder : folder + "/";
  for (const std::string& name : names) files.push_back(begin + name);
}

}  // namespace

std::vector<std::string> DescriptionFiles(std::vector<std::string> named, const std::string& list) {
  if (list == "-") CheckHasNoInput(named);
  if (!list.empty()) std::ranges::move(ReadList(list), std::back_inserter(named));
  if (list == "-") CheckHasNoInput(named);
  std::vector<std::string> files;
  files.reserve(named.size());
  for (std::string& each : named) {
    if (IsFolder(each)) {
      AddFolder(each, files);
    } else {
      files.push_back(std::move(each));
    }
  }
  return files;
}

}  // namespace formwizard::apps::cli
