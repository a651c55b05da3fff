// An input that must be a file: written anew for every run, best into memory (TMPDIR says where).
#pragma once

#include "fuzz/Property.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <unistd.h>

namespace formwizard::fuzz {

class TemporaryInput {
 public:
  TemporaryInput() : path_(std::filesystem::temp_directory_path() / ("fuzz-" + std::to_string(getpid()))) {}
  ~TemporaryInput() { std::filesystem::remove(path_); }
  TemporaryInput(const TemporaryInput&) = delete;
  TemporaryInput& operator=(const TemporaryInput&) = delete;

  std::string Write(const std::uint8_t* data, std::size_t size) const {
    std::ofstream out(path_, std::ios::binary);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    out.close();
    Require(out.good(), "the input can be written to the folder for temporary files");
    return Path();
  }
  std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace formwizard::fuzz
