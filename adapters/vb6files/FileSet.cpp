#include "adapters/vb6files/FileSet.h"

#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "system/Aside.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <cstdint>
#include <set>

namespace formwizard::adapters::vb6files {
namespace {

using support::SaveError;

constexpr const char* Copied = ".old";  // of a file that could not change places

}  // namespace

void FailChanged(const std::string& path) {
  throw support::ChangedMeanwhile(
      path + ": another program has changed this file since it was read; open the project again and retry");
}

void FileSet::MoveIntoPlace() const {
  for (const SaveRecord::File& file : record_.Files) {
    if (file.IsFolder()) place_.Files.CreateFolder(place_.PathOf(file));
  }
  for (std::size_t number = 0; number < record_.Files.size(); ++number) Move(number);
  FlushFolders();
}

void FileSet::Move(std::size_t number) const {
  const SaveRecord::File& file = record_.Files[number];
  const std::string path = place_.PathOf(file), aside = folder_ + PreparedName(number);
  if (file.IsFolder()) return;
  if (file.Old == 0) {
    if (place_.Files.MoveNew(aside, path)) return;
    throw SaveError(path + ": another program has just made this file; move it away, then try again");
  } else if (file.Sum == 0) {
    if (!MoveAway(path, aside) || place_.SumOf(aside) != file.Old) FailChanged(path);
  } else if (file.Sum != file.Old) {
    MoveOver(aside, path, file);
  }
}

// Messages name the file that the user knows.
bool FileSet::MoveAway(const std::string& path, const std::string& aside) const {
  try {
    return place_.Files.MoveNew(path, aside);
  } catch (const SaveError& error) {
    throw SaveError(system::AboutTarget(error.what(), aside, path));
  }
}

// Where two files cannot change places the old one is copied first; a change in between is then lost.
void FileSet::MoveOver(const std::string& aside, const std::string& path, const SaveRecord::File& file) const {
  if (place_.Files.Exchange(aside, path)) {
    if (place_.SumOf(aside) != file.Old) FailChanged(path);
    return;
  }
  const std::optional<std::string> old = place_.Files.Read(path);
  if (!old || record_.Sum(*old) != file.Old) FailChanged(path);
  system::WriteNewFile(place_.Files, aside + Copied, *old, path);
  place_.Files.FlushFolder(folder_);
  place_.Files.Replace(aside, path);
}

// What was replaced first.
void FileSet::FlushFolders() const {
  place_.Files.FlushFolder(folder_);
  std::set<std::string> folders;
  for (const SaveRecord::File& file : record_.Files) folders.insert(system::FolderOf(place_.PathOf(file)));
  for (const std::string& folder : folders) {
    // Where something else stands in its place nothing was moved.
    const bool isThere = place_.Files.KindOf(place_.Files.BehindLinks(folder)) == system::FileKind::Folder;
    if (isThere) place_.Files.FlushFolder(folder);
  }
}

// What changes places does so by way of a third name on some systems.
std::string FileSet::OldContentOf(std::size_t number) const {
  const SaveRecord::File& file = record_.Files[number];
  std::string aside = folder_ + PreparedName(number);
  const auto isOld = [&](const std::string& path) {
    const std::uint64_t sum = place_.SumOf(path, record_);
    return sum != 0 && sum != file.Sum;
  };
  if (isOld(aside)) return aside;
  if (isOld(aside + Copied)) return aside + Copied;
  const std::string path = place_.PathOf(file);
  for (const std::string& name : place_.Files.NamesIn(folder_).value_or(std::vector<std::string>())) {
    if (system::IsAsideName(name, NameIn(path)) && isOld(folder_ + "/" + name)) return folder_ + "/" + name;
  }
  return "";
}

bool FileSet::IsWithinReach(const SaveRecord::File& file) {
  const std::string path = "/" + runtime::ReplaceAll(file.Path, "\\", "/") + "/";
  if (!system::IsAbsolute(file.Path) && path.find("/../") == std::string::npos) return true;
  const std::string_view extension = std::string_view(path).substr(path.size() - 5);
  return runtime::EqualIgnoringCase(extension, ".frm/") || runtime::EqualIgnoringCase(extension, ".frx/");
}

void FileSet::BringBack(std::size_t number, const std::string& path) const {
  const SaveRecord::File& file = record_.Files[number];
  const std::uint64_t current = place_.SumOf(path, record_);
  if (current == file.Old || (current != file.Sum && current != 0)) return;
  if (file.Old == 0) return place_.Files.Remove(path);
  const std::string old = OldContentOf(number);
  if (old.empty()) throw SaveError(path + ": what stood there is gone");
  if (current != 0) return place_.Files.Replace(old, path);
  if (!place_.Files.MoveNew(old, path)) FailChanged(path);
}

bool FileSet::TakeBack() const {
  bool isComplete = true;
  const auto attempt = [&](const auto& action) {
    try {
      action();
    } catch (const support::InputError&) {
      isComplete = false;
    } catch (const SaveError&) {
      isComplete = false;
    }
  };
  for (std::size_t number = 0; number < record_.Files.size(); ++number) {
    const SaveRecord::File& file = record_.Files[number];
    const std::string path = place_.PathOf(file);
    if (!IsWithinReach(file)) continue;
    attempt([&] {
      if (!file.IsFolder()) return BringBack(number, path);
      place_.Files.RemoveFolder(path);  // unless something is in it; folders stand behind what is in them
    });
  }
  attempt([&] { FlushFolders(); });
  return isComplete;
}

}  // namespace formwizard::adapters::vb6files
