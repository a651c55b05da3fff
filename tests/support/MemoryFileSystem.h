// A file system in memory that can fail, stop or tear at any of its operations.
#pragma once

#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Paths.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::tests {

class MemoryFileSystem : public system::FileSystem {
 public:
  enum class Trouble { None, Fails, TearsAndFails, Stops };
  using Contents = std::map<std::string, std::string>;

  // Trouble strikes once, at the changing operation of this number, counted from 1. Once the machine has stopped,
  // nothing that is called does anything.
  explicit MemoryFileSystem(Contents files = {}, Trouble kind = Trouble::None, int troubleAt = 0)
      : Files(std::move(files)), durable_(Files), kind_(kind), troubleAt_(troubleAt) {}

  Contents Files;
  std::set<std::string> Folders;  // only those that were created here
  std::map<std::string, std::string> Links;
  bool IsLocked = false, IsStopped = false, CanExchange = true;
  int Operations = 0;   // changing ones so far
  int FailsToRead = 0;  // the looking operation of this number fails, counted from 1
  mutable int Looks = 0, FilesRead = 0, FoldersRead = 0;
  std::function<void()> BeforeExchange;  // what another program does just then

  // What a machine that stopped now may find afterwards: of every folder either all changes or only the flushed ones,
  // the same of those between which files have changed places or have been taken away: a file system renames in one
  // step.
  std::vector<Contents> AfterCrash() const {
    std::map<std::string, std::array<Contents, 2>> folders;
    for (const auto& file : Files) folders[JointOf(FolderOf(file.first))][0].insert(file);
    for (const auto& file : durable_) folders[JointOf(FolderOf(file.first))][1].insert(file);
    std::vector<Contents> found{{}};
    for (const auto& [folder, states] : folders) {
      for (const Contents& before : std::exchange(found, {})) {
        for (const Contents& state : states) found.emplace_back(before).insert(state.begin(), state.end());
      }
    }
    return found;
  }

  std::optional<system::FileContent> ReadWhole(const std::string& path, std::size_t most) const override {
    auto content = ReadHead(path, std::string::npos);
    if (content && content->Bytes.size() > most) system::FailTooLarge(path, content->Bytes.size(), most);
    return content;
  }
  std::optional<system::FileContent> ReadHead(const std::string& path, std::size_t count) const override {
    const auto stamp = StampOf(path);
    if (!stamp) return std::nullopt;
    ++FilesRead;
    return system::FileContent{Files.at(path).substr(0, count), *stamp, true};
  }
  std::optional<system::FileStamp> StampOf(const std::string& path) const override {
    Look(path);
    const auto found = Files.find(path);
    if (found == Files.end()) return std::nullopt;
    const auto changed = static_cast<std::int64_t>(std::hash<std::string>()(found->second));
    return system::FileStamp{1, 1, found->second.size(), changed, changed};
  }
  system::FileKind KindOf(const std::string& path) const override {
    Look(path);
    if (Links.contains(path)) return system::FileKind::Link;
    if (Files.contains(path)) return system::FileKind::File;
    const auto below = Files.lower_bound(path + "/");
    const bool isFolder = Folders.contains(path) || (below != Files.end() && below->first.starts_with(path + "/"));
    return isFolder ? system::FileKind::Folder : system::FileKind::None;
  }
  std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const override {
    Look(folder);
    ++FoldersRead;
    std::set<std::string> names;
    const auto add = [&](const std::string& path) {
      if (!path.starts_with(folder + "/")) return;
      const std::size_t start = folder.size() + 1;
      names.insert(path.substr(start, path.find('/', start) - start));
    };
    for (const auto& [path, bytes] : Files) add(path);
    for (const std::string& path : Folders) add(path);
    if (names.empty() && !Folders.contains(folder)) return std::nullopt;
    return std::vector<std::string>(names.begin(), names.end());
  }
  std::string BehindLinks(const std::string& path) const override {
    const auto link = Links.find(path);
    return link == Links.end() ? path : BehindLinks(link->second);
  }

  std::unique_ptr<system::FileLock> LockFolder(const std::string&) override {
    struct Lock : system::FileLock {};
    return IsLocked ? nullptr : std::make_unique<Lock>();
  }
  void CreateFolder(const std::string& folder) override {
    if (Begin(folder)) Folders.insert(folder);
  }
  void CreateFolders(const std::string&) override {}
  std::unique_ptr<system::OutputFile> Create(const std::string& path, const std::string&) override {
    if (!Begin(path)) return std::make_unique<Output>(*this, path);
    if (!Files.emplace(path, "").second) throw support::SaveError(path + ": it exists already");
    open_.insert(path);
    return std::make_unique<Output>(*this, path);
  }
  bool MoveNew(const std::string& from, const std::string& to) override {
    if (!Begin(to)) return true;
    if (Files.contains(to)) return false;
    if (durable_.contains(from)) Join(FolderOf(from), FolderOf(to));
    Move(from, to);
    return true;
  }
  void Replace(const std::string& from, const std::string& to) override {
    if (!Begin(to)) return;
    if (Folders.contains(from)) return MoveFolder(from, to);
    Move(from, to);
  }
  bool Exchange(const std::string& path, const std::string& other) override {
    if (!Begin(other)) return true;
    if (!CanExchange) return false;
    if (BeforeExchange) std::exchange(BeforeExchange, {})();
    std::swap(Files.at(path), Files.at(other));
    Join(FolderOf(path), FolderOf(other));
    return true;
  }
  void FlushFolder(const std::string& folder) override {
    if (!Begin(folder)) return;
    const auto isInside = [&](const auto& file) { return JointOf(FolderOf(file.first)) == JointOf(folder); };
    std::erase_if(durable_, isInside);
    for (const auto& file : Files) {
      if (isInside(file)) durable_.insert(file);
    }
  }
  void Remove(const std::string& path) override {
    if (Begin(path)) Files.erase(path);
  }
  void RemoveAbandoned(const std::string& path) override {
    if (!open_.contains(path)) Remove(path);
  }
  bool RemoveFolder(const std::string& folder) override {
    if (!Begin(folder)) return true;
    const auto below = Files.lower_bound(folder + "/");
    if (below != Files.end() && below->first.starts_with(folder + "/")) return false;
    Folders.erase(folder);
    return true;
  }

 private:
  class Output : public system::OutputFile {
   public:
    Output(MemoryFileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}
    ~Output() override { files_.open_.erase(path_); }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void Write(std::string_view bytes) override {
      const bool tears = files_.kind_ == Trouble::TearsAndFails && files_.Operations + 1 == files_.troubleAt_;
      if (tears) files_.Files[path_] += bytes.substr(0, bytes.size() / 2);
      if (files_.Begin(path_)) files_.Files[path_] += bytes;
    }
    void Lend() override {}
    void Flush() override { files_.Begin(path_); }

   private:
    MemoryFileSystem& files_;
    std::string path_;
  };

  static std::string FolderOf(const std::string& path) { return system::FolderOf(path); }

  void Look(const std::string& path) const {
    if (++Looks == FailsToRead) throw support::InputError(path + ": no access");
  }
  // False once the machine has stopped.
  bool Begin(const std::string& path) {
    if (IsStopped) return false;
    if (++Operations != troubleAt_ || kind_ == Trouble::None) return true;
    if (kind_ == Trouble::Stops) {
      IsStopped = true;
      return false;
    }
    throw support::SaveError(path + ": no space left");
  }
  void Move(const std::string& from, const std::string& to) {
    Files[to] = Files.at(from);
    Files.erase(from);
  }
  void MoveFolder(const std::string& from, const std::string& to) {
    if (Folders.contains(to)) throw support::SaveError(to + ": it exists already");
    for (Contents* files : {&Files, &durable_}) {
      Contents moved;
      for (const auto& [path, bytes] : *files) {
        moved[FolderOf(path) == from ? to + path.substr(from.size()) : path] = bytes;
      }
      *files = std::move(moved);
    }
    Folders.erase(from);
    Folders.insert(to);
  }
  std::string JointOf(const std::string& folder) const {
    const auto joint = joint_.find(folder);
    return joint == joint_.end() ? folder : JointOf(joint->second);
  }
  void Join(const std::string& folder, const std::string& other) {
    if (JointOf(folder) != JointOf(other)) joint_[JointOf(folder)] = JointOf(other);
  }

  Contents durable_;
  std::map<std::string, std::string> joint_;  // folders that changed together, by one of them
  std::set<std::string> open_;
  Trouble kind_;
  int troubleAt_;
};

}  // namespace formwizard::tests
