// A file system in memory that can fail, stop or tear at any of its changing operations.
#pragma once

#include "adapters/vb6files/FilePath.h"
#include "adapters/vb6files/FileSystem.h"
#include "support/Failures.h"

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::tests {

class MemoryFileSystem : public adapters::vb6files::FileSystem {
 public:
  enum class Trouble { None, Fails, TearsAndFails, Stops };
  using Contents = std::map<std::string, std::string>;

  // Trouble strikes once, at the changing operation of this number, counted from 1. Once the machine has stopped,
  // nothing that is called does anything.
  explicit MemoryFileSystem(Contents files = {}, Trouble kind = Trouble::None, int troubleAt = 0)
      : Files(std::move(files)), durable_(Files), kind_(kind), troubleAt_(troubleAt) {}

  Contents Files;
  std::set<std::string> Folders;  // only those that were created here
  bool IsLocked = false, IsStopped = false;
  int Operations = 0;  // changing ones so far
  mutable int FilesRead = 0, FoldersRead = 0;

  // What a machine that stopped now may find afterwards: of every folder either all changes or only the flushed ones.
  std::vector<Contents> AfterCrash() const {
    std::map<std::string, std::array<Contents, 2>> folders;
    for (const auto& file : Files) folders[FolderOf(file.first)][0].insert(file);
    for (const auto& file : durable_) folders[FolderOf(file.first)][1].insert(file);
    std::vector<Contents> found{{}};
    for (const auto& [folder, states] : folders) {
      for (const Contents& before : std::exchange(found, {})) {
        for (const Contents& state : states) found.emplace_back(before).insert(state.begin(), state.end());
      }
    }
    return found;
  }

  std::optional<std::string> Read(const std::string& path, std::size_t limit) const override {
    const auto found = Files.find(path);
    if (found == Files.end()) return std::nullopt;
    ++FilesRead;
    return found->second.substr(0, limit);
  }
  std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const override {
    ++FoldersRead;
    std::set<std::string> names;
    for (const auto& [path, bytes] : Files) {
      if (!path.starts_with(folder + "/")) continue;
      const std::size_t start = folder.size() + 1;
      names.insert(path.substr(start, path.find('/', start) - start));
    }
    if (names.empty()) return std::nullopt;
    return std::vector<std::string>(names.begin(), names.end());
  }

  std::unique_ptr<adapters::vb6files::FileLock> LockFolder(const std::string&) override {
    struct Lock : adapters::vb6files::FileLock {};
    return IsLocked ? nullptr : std::make_unique<Lock>();
  }
  void CreateFolder(const std::string& folder) override {
    if (Begin(folder)) Folders.insert(folder);
  }
  void WriteNew(const std::string& path, std::string_view bytes, const std::string&) override {
    const bool tears = kind_ == Trouble::TearsAndFails && Operations + 1 == troubleAt_;
    if (tears) Files[path] = bytes.substr(0, bytes.size() / 2);
    if (Begin(path) && !Files.emplace(path, bytes).second) throw support::SaveError(path + ": it exists already");
  }
  bool MoveNew(const std::string& from, const std::string& to) override {
    if (!Begin(to)) return true;
    if (Files.contains(to)) return false;
    Move(from, to);
    return true;
  }
  void Replace(const std::string& from, const std::string& to) override {
    if (Begin(to)) Move(from, to);
  }
  void FlushFolder(const std::string& folder) override {
    if (!Begin(folder)) return;
    const auto isInside = [&](const auto& file) { return FolderOf(file.first) == folder; };
    std::erase_if(durable_, isInside);
    for (const auto& file : Files) {
      if (isInside(file)) durable_.insert(file);
    }
  }
  void Remove(const std::string& path) override {
    if (Begin(path)) Files.erase(path);
  }
  void RemoveFolder(const std::string& folder) override {
    if (!Begin(folder)) return;
    std::erase_if(Files, [&](const auto& file) { return file.first.starts_with(folder + "/"); });
    Folders.erase(folder);
  }

 private:
  static std::string FolderOf(const std::string& path) { return adapters::vb6files::FolderOf(path); }

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

  Contents durable_;
  Trouble kind_;
  int troubleAt_;
};

}  // namespace formwizard::tests
