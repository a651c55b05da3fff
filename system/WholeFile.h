// Writing a file as a whole: whoever reads it finds the old content or the new one.
#pragma once

#include "system/FileSystem.h"

#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace formwizard::system {

// The new content is prepared beside the file under a name that nobody can foresee, flushed and moved into place as the
// last step; then the folder is flushed. The file keeps its permissions, and a link to it stays a link to it. Two that
// write one file at once do not see each other: the last one wins, as a whole. What a crash has left behind goes when
// the file is written the next time. All errors are support::SaveError, after which the file is as it was before.
class WholeFile {
 public:
  // Creates an empty file beside it, in a folder that is there. What stands at `path` and is neither a file nor a link
  // to one is refused, and so is a file that this user may not change. `files` must outlive this object.
  WholeFile(FileSystem& files, const std::string& path);
  // Without a commit everything that was prepared goes.
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  // Appends to the new content.
  void Write(std::string_view bytes);
  // The same as a stream, for large contents; the SaveError of a failed write comes through it.
  std::ostream& Stream();
  // The path of the new content, which somebody else then writes to, a database for example, and which is closed again
  // before the commit.
  const std::string& Lend();

  // Puts the new content into the file's place.
  void Commit();
  // The same, as long as the file holds `expected`, nothing for no file; else false, with the file left alone.
  bool CommitOver(const std::optional<std::string>& expected);

 private:
  class Buffer;

  template <typename Action>
  auto Try(Action&& action) const;
  void CleanUp();
  void Finish();
  void Discard();
  void Settle();

  FileSystem& files_;
  std::string path_, target_, folder_, aside_;
  std::unique_ptr<OutputFile> output_;
  std::unique_ptr<Buffer> buffer_;
  std::unique_ptr<std::ostream> stream_;
};

// The folder that a file of this path would stand in, with those above it.
void MakeFolderOf(FileSystem& files, const std::string& path);

// All at once.
void WriteWholeFile(FileSystem& files, const std::string& path, std::string_view bytes);

// A new file of its own with these bytes, flushed.
void WriteNewFile(FileSystem& files, const std::string& path, std::string_view bytes, const std::string& like = "");

// Puts the file `aside` into the place of `target` if `isExpected` is true of the old file, which is asked with the
// path where that stands just then: before the step, and after it again where the two can change places, so that no
// change in between is lost. False, with `target` left alone, otherwise. `aside` may hold the old file afterwards.
bool ReplaceIf(FileSystem& files, const std::string& aside, const std::string& target,
               const std::function<bool(const std::string& path)>& isExpected);

}  // namespace formwizard::system
