#include "apps/cli/TextInput.h"

#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Paths.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

namespace formwizard::apps::cli {
namespace {

using support::InputError;

std::string ReadStream(std::istream& in, const std::string& name, const std::string& what, std::size_t most) {
  std::string text;
  std::array<char, 4096> part;  // NOLINT(cppcoreguidelines-pro-type-member-init): only what was read is looked at
  while (in.read(part.data(), part.size()), in.gcount() > 0) {
    text.append(part.data(), static_cast<std::size_t>(in.gcount()));
    if (text.size() <= most) continue;
    throw InputError(std::string(name).append(": a ").append(what).append(" has at most ") + std::to_string(most) +
                     " bytes");
  }
  if (in.bad()) throw InputError(name + ": reading the " + what + " failed");
  return text;
}

}  // namespace

std::string NameOf(const std::string& file) { return file == "-" ? "standard input" : file; }

std::string ReadText(const std::string& file, const std::string& what, std::size_t most) {
  if (file == "-") return ReadStream(std::cin, NameOf(file), what, most);
  if (!system::RealFileSystem().StampOf(file)) throw InputError(file + ": there is no such file; check the path");
  namespace fs = std::filesystem;
  std::error_code error;
  const fs::file_type type = fs::status(system::NativePath(file), error).type();
  if (!error && type != fs::file_type::regular && type != fs::file_type::fifo) {
    throw InputError(file + ": this is a folder or a device; a " + what + " is a file, or \"-\"");
  }
  std::ifstream in(system::NativePath(file), std::ios::binary);
  if (!in) throw InputError(file + ": the " + what + " cannot be read; check the permissions");
  return ReadStream(in, file, what, most);
}

}  // namespace formwizard::apps::cli
