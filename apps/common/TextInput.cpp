#include "apps/common/TextInput.h"

#include "apps/common/Platform.h"
#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Paths.h"
#include "system/Utf8Input.h"

#include <array>
#include <filesystem>
#include <system_error>
#include <utility>

namespace formwizard::apps::common {
namespace {

using support::InputError;

// Owns all that it reads through.
class TextFile : public std::istream {
 public:
  TextFile(std::unique_ptr<std::istream> input, std::string name, std::function<void(std::size_t)> onRead)
      : std::istream(nullptr), name_(std::move(name)), in_(std::move(input)), text_(*in_, name_, std::move(onRead)) {
    rdbuf(&text_);
    exceptions(std::ios::badbit);  // what the buffer raises is not to be lost
  }

 private:
  std::string name_;
  std::unique_ptr<std::istream> in_;
  system::Utf8Input text_;
};

std::string ReadStream(std::istream& in, const std::string& name, const std::string& what, std::size_t most) {
  std::string text;
  std::array<char, 4096> part;  // NOLINT(cppcoreguidelines-pro-type-member-init): only what was read is looked at
  while (in.read(part.data(), part.size()), in.gcount() > 0) {
    text.append(part.data(), static_cast<std::size_t>(in.gcount()));
    if (text.size() <= most) continue;
    throw InputError(std::string(name).append(": a ").append(what).append(" has at most ") + std::to_string(most) +
                     " bytes");
  }
  return text;
}

}  // namespace

std::string NameOf(const std::string& file) { return file == "-" ? "standard input" : file; }

std::unique_ptr<std::istream> OpenText(const std::string& file, std::function<void(std::size_t)> onRead) {
  std::unique_ptr<std::istream> in = common::OpenInput(file);
  return in ? std::make_unique<TextFile>(std::move(in), NameOf(file), std::move(onRead)) : nullptr;
}

std::string ReadText(const std::string& file, const std::string& what, std::size_t most) {
  if (file == "-") return ReadStream(*OpenText(file), NameOf(file), what, most);
  if (!system::RealFileSystem().StampOf(file)) throw InputError(file + ": there is no such file; check the path");
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::file_type type = fs::status(system::NativePath(file), error).type();
  if (!error && type != fs::file_type::regular && type != fs::file_type::fifo) {
    throw InputError(file + ": this is a folder or a device; a " + what + " is a file, or \"-\"");
  }
  const auto in = OpenText(file);
  if (!in) throw InputError(file + ": the " + what + " cannot be read; check the permissions");
  return ReadStream(*in, file, what, most);
}

}  // namespace formwizard::apps::common
