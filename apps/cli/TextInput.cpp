#include "apps/cli/TextInput.h"

#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Paths.h"
#include "system/Utf8Input.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

namespace formwizard::apps::cli {
namespace {

using support::InputError;

// Owns all that it reads through.
class TextFile : public std::istream {
 public:
  explicit TextFile(const std::string& file)
      : std::istream(nullptr), name_(NameOf(file)), in_(file == "-" ? std::cin : file_), text_(in_, name_) {
    if (file != "-") file_.open(system::NativePath(file), std::ios::binary);
    rdbuf(&text_);
    exceptions(std::ios::badbit);  // what the buffer raises is not to be lost
    if (!in_) setstate(std::ios::failbit);
  }

 private:
  std::string name_;
  std::ifstream file_;
  std::istream& in_;
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

std::unique_ptr<std::istream> OpenText(const std::string& file) { return std::make_unique<TextFile>(file); }

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
  if (!*in) throw InputError(file + ": the " + what + " cannot be read; check the permissions");
  return ReadStream(*in, file, what, most);
}

}  // namespace formwizard::apps::cli
