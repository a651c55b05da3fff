// The real files with a scratch one beside them, which is in memory alone. Nothing can be written.
#pragma once

#include "system/FileSystem.h"

#include <functional>
#include <string>

namespace formwizard::apps::desktop {

class ScratchFiles : public system::FileSystem {
 public:
  ScratchFiles(const system::FileSystem& files, std::string path, std::string bytes)
      : files_(files), path_(std::move(path)), bytes_(std::move(bytes)) {}

  std::optional<system::FileContent> ReadWhole(const std::string& path, std::size_t most) const override;
  std::optional<system::FileContent> ReadHead(const std::string& path, std::size_t count) const override;
  std::optional<system::FileStamp> StampOf(const std::string& path) const override;
  system::FileKind KindOf(const std::string& path) const override;
  std::optional<std::vector<std::string>> NamesIn(const std::string& folder) const override;
  std::string BehindLinks(const std::string& path) const override;

  std::unique_ptr<system::FileLock> LockFolder(const std::string& folder) override;
  void CreateFolder(const std::string& folder) override;
  void CreateFolders(const std::string& folder) override;
  std::unique_ptr<system::OutputFile> Create(const std::string& path, const std::string& like) override;
  bool MoveNew(const std::string& from, const std::string& to) override;
  void Replace(const std::string& from, const std::string& to) override;
  bool Exchange(const std::string& path, const std::string& other) override;
  void FlushFolder(const std::string& folder) override;
  void Remove(const std::string& path) override;
  void RemoveAbandoned(const std::string& path) override;
  bool RemoveFolder(const std::string& folder) override;

 private:
  const system::FileSystem& files_;
  std::string path_, bytes_;
};

}  // namespace formwizard::apps::desktop
