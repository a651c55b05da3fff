#include "adapters/vb6files/Saving.h"

#include "adapters/vb6files/Caseless.h"
#include "support/Failures.h"
#include "system/Aside.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

using support::SaveError;

constexpr const char* Record = "/record";
constexpr const char* Project = "/project";

// Whatever goes wrong, also with looking, is a save that did not happen.
template <typename Action>
void Try(Action&& action) {
  constexpr const char* unchanged = "; the project is as it was before";
  try {
    action();
  } catch (const support::InputError& error) {
    throw SaveError(std::string(error.what()) + unchanged);
  } catch (const SaveError& error) {
    throw SaveError(std::string(error.what()) + unchanged);
  }
}

std::string_view NameIn(std::string_view path) { return path.substr(system::FolderPart(path).size()); }

}  // namespace

Saving::Saving(system::FileSystem& files, const std::string& projectFile, const std::string& original,
               const system::FilesRead& read)
    : files_(files),
      projectFile_(projectFile),
      original_(original),
      read_(read),
      folder_(system::FolderOf(projectFile)),
      folderPart_(system::FolderPart(projectFile)),
      name_(NameIn(projectFile)) {}

Saving::~Saving() { Discard(); }

void Saving::Open() {
  if (!stagingFolder_.empty()) return;
  if (!lock_) lock_ = files_.LockFolder(folder_);  // kept when what follows failed the last time
  if (!lock_) throw SaveError(projectFile_ + ": another program is saving into this folder; try again when it is done");
  for (const std::string& name : files_.NamesIn(folder_).value_or(std::vector<std::string>())) {
    const std::string path = folderPart_ + name;
    const bool isOurs = system::IsAsideName(name, name_) && files_.KindOf(path) == system::FileKind::Folder;
    if (isOurs) Recover(path);
  }
  const std::string folder = folderPart_ + system::AsideName(name_);
  try {
    files_.CreateFolder(folder);
  } catch (const SaveError& error) {
    throw SaveError(system::AboutTarget(error.what(), folder, projectFile_));
  }
  stagingFolder_ = folder;
}

// Takes back what a save that was cut off has moved into place, unless its last step was done. Where that step replaced
// a project file that somebody had just changed, it is undone first.
void Saving::Recover(const std::string& folder) {
  const std::optional<SaveRecord> record = SaveRecord::Parse(files_.Read(folder + Record).value_or(""));
  if (record) {
    const std::uint64_t current = SumOf(projectFile_, *record), aside = SumOf(folder + Project, *record);
    const bool isDone = current == record->NewProject;
    const bool isOvertaken = isDone && aside != 0 && aside != record->OldProject && aside != record->NewProject;
    if (isOvertaken) files_.Replace(folder + Project, projectFile_);
    const bool isNotDone = !isDone && (current == record->OldProject || aside == record->NewProject);
    if ((isOvertaken || isNotDone) && !RollBack(*record)) return;  // the next save tries again
  }
  RemoveStaging(folder);
}

void Saving::Stage(const std::string& path, std::string_view bytes) {
  Try([&] {
    Open();
    system::WriteNewFile(files_, Aside(targets_.size()), bytes);
    const bool isInFolder = path.starts_with(folderPart_);
    targets_.push_back({{path.substr(isInFolder ? folderPart_.size() : 0), system::ContentSum(bytes)}});
  });
}

std::string Saving::PathOf(const SaveRecord::File& file) const {
  return system::IsAbsolute(file.Path) ? file.Path : folderPart_ + file.Path;
}

std::string Saving::Aside(std::size_t number) const { return stagingFolder_ + "/" + std::to_string(number); }

// As the record has sums; 0 for no file.
std::uint64_t Saving::SumOf(const std::string& path, const SaveRecord& record) const {
  const std::optional<std::string> bytes = files_.Read(path);
  return bytes ? record.Sum(*bytes) : 0;
}

void Saving::CheckTarget(Target& target, std::size_t number, const std::vector<std::string>& sameNames) {
  const std::string path = PathOf(target.File);
  const std::string_view name = NameIn(path);
  for (const std::string& other : sameNames) {
    if (other != name) {
      throw SaveError(PathOf(target.File) + ": the folder has a file of this name in other letter cases, " + other +
                      ", which does not belong to the project; move it away or add it to the project, then try again");
    }
    target.IsThere = files_.Read(path) == files_.Read(Aside(number));
    if (!target.IsThere) {
      throw SaveError(path +
                      ": this file exists and does not belong to the project; move it away or add it to the project, "
                      "then try again");
    }
  }
}

// Lists each folder once. A file of another system may be the same file under a name in other letter cases.
void Saving::CheckTargets() {
  std::map<std::string, std::vector<std::size_t>> byFolder;
  for (std::size_t number = 0; number < targets_.size(); ++number) {
    byFolder[system::FolderOf(PathOf(targets_[number].File))].push_back(number);
  }
  for (const auto& [folder, numbers] : byFolder) {
    std::unordered_map<std::string_view, std::size_t, CaselessHash, CaselessEqual> byName;
    byName.reserve(numbers.size());
    for (const std::size_t number : numbers) byName.emplace(NameIn(targets_[number].File.Path), number);
    std::map<std::size_t, std::vector<std::string>> inTheWay;
    for (std::string& name : files_.NamesIn(folder).value_or(std::vector<std::string>())) {
      const auto target = byName.find(name);
      if (target != byName.end()) inTheWay[target->second].push_back(std::move(name));
    }
    for (const auto& [number, names] : inTheWay) CheckTarget(targets_[number], number, names);
  }
}

// Before the first file is moved, the record of what will be is on the disk.
void Saving::Prepare(std::string_view text) {
  std::string record = SaveRecord::Begin(system::ContentSum(original_), system::ContentSum(text));
  for (const Target& target : targets_) {
    if (!target.IsThere) SaveRecord::Append(record, target.File);
  }
  SaveRecord::End(record);
  system::WriteNewFile(files_, stagingFolder_ + Project, text, projectFile_);
  system::WriteNewFile(files_, stagingFolder_ + Record, record);
  files_.FlushFolder(stagingFolder_);
  files_.FlushFolder(folder_);
}

void Saving::MoveIntoPlace() {
  std::set<std::string> folders;  // what the new project lists must be on the disk before the project is
  for (std::size_t number = 0; number < targets_.size(); ++number) {
    Target& target = targets_[number];
    const std::string path = PathOf(target.File);
    folders.insert(system::FolderOf(path));
    if (target.IsThere) continue;
    if (!files_.MoveNew(Aside(number), path)) {
      throw SaveError(path + ": another program has just made this file; move it away, then try again");
    }
    target.IsMoved = true;
  }
  for (const std::string& folder : folders) files_.FlushFolder(folder);
}

bool Saving::IsAsRead(const std::string& project, std::string& changed) const {
  changed = files_.Read(project) == original_ ? read_.Changed() : projectFile_;
  return changed.empty();
}

// A file that cannot be taken back stays, without anything that refers to it; false then. One that was changed since is
// somebody's.
bool Saving::RollBack(const SaveRecord& record) {
  bool isComplete = true;
  std::set<std::string> folders;
  for (const SaveRecord::File& file : record.Files) {
    const std::string path = PathOf(file);
    try {
      if (SumOf(path, record) != file.Sum) continue;
      files_.Remove(path);
      folders.insert(system::FolderOf(path));
    } catch (const support::InputError&) {
      isComplete = false;
    } catch (const SaveError&) {
      isComplete = false;
    }
  }
  for (const std::string& folder : folders) files_.FlushFolder(folder);
  return isComplete;
}

bool Saving::RollBackMoved() {
  SaveRecord moved;
  for (Target& target : targets_) {
    if (std::exchange(target.IsMoved, false)) moved.Files.push_back(target.File);
  }
  return RollBack(moved);
}

void Saving::Commit(std::string_view text) {
  Try([&] {
    Open();
    try {
      CheckTargets();
      Prepare(text);
      MoveIntoPlace();
      std::string changed;
      const auto isAsRead = [&](const std::string& project) { return IsAsRead(project, changed); };
      if (!system::ReplaceIf(files_, stagingFolder_ + Project, projectFile_, isAsRead)) {
        throw SaveError(changed +
                        ": another program has changed this file since it was read; open the project again and "
                        "retry");
      }
    } catch (const std::exception&) {
      if (!RollBackMoved()) stagingFolder_.clear();  // its record stays for the next save
      throw;
    }
  });
  // The new project is in place; a crash of the machine before the next flush may still bring back the old one.
  try {
    files_.FlushFolder(folder_);
  } catch (const SaveError&) {
    return;
  }
}

// Only what was made here, the record first: what has none needs nothing more than to be removed.
void Saving::RemoveStaging(const std::string& folder) {
  files_.Remove(folder + Record);
  for (const std::string& name : files_.NamesIn(folder).value_or(std::vector<std::string>())) {
    const bool isNumber = name.find_first_not_of("0123456789") == std::string::npos;
    const std::string path = std::string(folder).append("/").append(name);
    if (isNumber || path == folder + Project || system::IsAsideName(name, name_)) files_.Remove(path);
  }
  files_.RemoveFolder(folder);
}

// What stays behind is removed by the next save; nothing refers to it.
void Saving::Discard() noexcept {
  if (stagingFolder_.empty()) return;
  try {
    RemoveStaging(stagingFolder_);
  } catch (const support::InputError&) {
    return;
  } catch (const SaveError&) {
    return;
  }
}

}  // namespace formwizard::adapters::vb6files
