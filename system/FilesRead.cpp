#include "system/FilesRead.h"

#include "system/ContentSum.h"

namespace formwizard::system {
namespace {

constexpr std::size_t Whole = std::string::npos;

}  // namespace

FilesRead::State FilesRead::StateOf(const std::optional<FileContent>& content) {
  if (!content) return {};
  return {content->ShowsChanges, content->Stamp, ContentSum(content->Bytes)};
}

std::optional<FileContent> FilesRead::Content(const Key& key) const {
  return key.second == Whole ? files_.ReadWhole(key.first, LargestFile) : files_.ReadHead(key.first, key.second);
}

std::optional<std::string> FilesRead::Keep(Key key) {
  std::optional<FileContent> content = Content(key);
  states_[std::move(key)] = StateOf(content);
  if (!content) return std::nullopt;
  return std::move(content->Bytes);
}

std::optional<std::string> FilesRead::Read(const std::string& path) { return Keep({path, Whole}); }

std::optional<std::string> FilesRead::ReadHead(const std::string& path, std::size_t count) {
  return Keep({path, count});
}

void FilesRead::Forget(const std::string& path) {
  states_.erase(states_.lower_bound({path, 0}), states_.upper_bound({path, Whole}));
}

std::string FilesRead::Changed() const {
  for (const auto& [key, state] : states_) {
    const std::optional<FileStamp> stamp = files_.StampOf(key.first);
    if (stamp == state.Stamp && (!stamp || state.ShowsChanges)) continue;
    const State now = StateOf(Content(key));
    if (now.Stamp.has_value() != state.Stamp.has_value() || now.Sum != state.Sum) return key.first;
  }
  return "";
}

}  // namespace formwizard::system
