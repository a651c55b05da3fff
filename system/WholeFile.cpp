#include "system/WholeFile.h"

#include "support/Failures.h"
#include "system/Aside.h"
#include "system/Paths.h"

#include <array>
#include <streambuf>
#include <utility>

namespace formwizard::system {
namespace {

using support::InputError;
using support::SaveError;

}  // namespace

// Hands full blocks to the file.
class WholeFile::Buffer : public std::streambuf {
 public:
  explicit Buffer(WholeFile& file) : file_(file) { Empty(); }

 protected:
  int_type overflow(int_type c) override {
    sync();
    if (!traits_type::eq_int_type(c, traits_type::eof())) sputc(traits_type::to_char_type(c));
    return traits_type::not_eof(c);
  }
  int sync() override {
    const std::string_view bytes(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    Empty();
    file_.Write(bytes);
    return 0;
  }

 private:
  void Empty() { setp(block_.data(), block_.data() + block_.size()); }

  WholeFile& file_;
  std::array<char, 1 << 16> block_{};
};

// What cannot be looked at cannot be written either.
template <typename Action>
auto WholeFile::Try(Action&& action) const {
  const auto fail = [&](const std::exception& error) {
    const std::string state = "; " + path_ + " is as it was before";
    std::string message = AboutTarget(error.what(), aside_, path_);
    if (!message.ends_with(state)) message += state;  // a stream's last bytes are written when it ends
    throw SaveError(message);
  };
  try {
    return action();
  } catch (const InputError& error) {
    fail(error);
    throw;
  } catch (const SaveError& error) {
    fail(error);
    throw;
  }
}

WholeFile::WholeFile(FileSystem& files, const std::string& path) : files_(files), path_(path) {
  Try([&] {
    target_ = files_.BehindLinks(path);
    folder_ = FolderOf(target_);
    const FileKind kind = files_.KindOf(target_);
    if (kind == FileKind::Folder) throw SaveError(path_ + ": this is a folder; name a file");
    if (kind == FileKind::Other) throw SaveError(path_ + ": this is a pipe or a device; name a file");
    if (kind == FileKind::None && files_.KindOf(folder_) == FileKind::None) {
      throw SaveError(path_ + ": there is no folder " + folder_ + "; make it, or name another one");
    }
    CleanUp();
    const std::string_view part = FolderPart(target_);
    aside_ = std::string(part) + AsideName(std::string_view(target_).substr(part.size()));
    output_ = files_.Create(aside_, kind == FileKind::None ? "" : target_);
  });
}

WholeFile::~WholeFile() { Discard(); }

void WholeFile::Discard() {
  stream_.reset();
  output_.reset();
  try {
    if (!aside_.empty()) files_.Remove(std::exchange(aside_, {}));
  } catch (const SaveError&) {
    return;  // the next one that writes the file removes it
  }
}

// A folder that cannot be listed holds nothing that could be cleaned up.
void WholeFile::CleanUp() {
  try {
    const std::string_view part = FolderPart(target_);
    const std::string_view name = std::string_view(target_).substr(part.size());
    for (const std::string& other : files_.NamesIn(folder_).value_or(std::vector<std::string>())) {
      if (IsAsideName(other, name)) files_.RemoveAbandoned(std::string(part) + other);
    }
  } catch (const InputError&) {
    return;
  } catch (const SaveError&) {
    return;
  }
}

void WholeFile::Write(std::string_view bytes) {
  Try([&] { output_->Write(bytes); });
}

std::ostream& WholeFile::Stream() {
  if (!stream_) {
    buffer_ = std::make_unique<Buffer>(*this);
    stream_ = std::make_unique<std::ostream>(buffer_.get());
    stream_->exceptions(std::ios::badbit);
  }
  return *stream_;
}

const std::string& WholeFile::Lend() {
  output_->Lend();
  return aside_;
}

void WholeFile::Finish() {
  if (stream_) stream_->flush();
  output_->Flush();
  output_->Lend();
}

void WholeFile::Commit() {
  Try([&] {
    Finish();
    files_.Replace(aside_, target_);
    aside_.clear();
  });
  Settle();
}

bool WholeFile::CommitOver(const std::optional<std::string>& expected) {
  const bool isDone = Try([&] {
    Finish();
    if (!expected) return files_.MoveNew(aside_, target_);
    return ReplaceIf(files_, aside_, target_, [&](const std::string& path) { return files_.Read(path) == expected; });
  });
  if (isDone) Settle();
  return isDone;
}

// The new content is in place; if the flush fails, only a crash of the machine may bring the old one back.
void WholeFile::Settle() {
  Discard();
  try {
    files_.FlushFolder(folder_);
  } catch (const SaveError&) {
    return;
  }
}

void MakeFolderOf(FileSystem& files, const std::string& path) {
  files.CreateFolders(FolderOf(files.BehindLinks(path)));
}

void WriteWholeFile(FileSystem& files, const std::string& path, std::string_view bytes) {
  WholeFile file(files, path);
  file.Write(bytes);
  file.Commit();
}

void WriteNewFile(FileSystem& files, const std::string& path, std::string_view bytes, const std::string& like) {
  const std::unique_ptr<OutputFile> file = files.Create(path, like);
  file->Write(bytes);
  file->Flush();
}

bool ReplaceIf(FileSystem& files, const std::string& aside, const std::string& target,
               const std::function<bool(const std::string& path)>& isExpected) {
  if (!isExpected(target)) return false;
  if (!files.Exchange(aside, target)) {
    files.Replace(aside, target);
    return true;
  }
  try {
    if (isExpected(aside)) return true;
  } catch (const InputError&) {
    files.Replace(aside, target);  // what cannot be looked at goes back
    throw;
  }
  files.Replace(aside, target);
  return false;
}

}  // namespace formwizard::system
