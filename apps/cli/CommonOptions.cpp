#include "apps/cli/Commands.h"
#include "system/Paths.h"

#include <CLI/CLI.hpp>

namespace formwizard::apps::cli {

CLI::Option* AddFile(CLI::App& command, const char* name, std::string& file, const char* about) {
  return command.add_option(name, file, about)->type_name("FILE")->check(CheckedPath);
}

std::string CheckedPath(const std::string& path) {
  system::CheckPath(path);
  return "";
}

}  // namespace formwizard::apps::cli
