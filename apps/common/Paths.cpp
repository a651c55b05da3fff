#include "apps/common/Paths.h"

#include <cstdlib>
#include <filesystem>

namespace formwizard::apps::common {
namespace {

namespace fs = std::filesystem;

constexpr const char* ProfileName = "outility.ini";

fs::path Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

fs::path ConfigurationFolder() {
  const fs::path configured = Environment("XDG_CONFIG_HOME");
  return (configured.is_absolute() ? configured : Environment("HOME") / ".config") / "ostrel-form-wizard";
}

}  // namespace

std::string ProgramFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  return error ? "./" : program.parent_path().string() + "/";
}

std::string DefaultProfile() {
  const std::string beside = ProgramFolder() + ProfileName;
  std::error_code error;
  return fs::exists(beside, error) ? beside : (ConfigurationFolder() / ProfileName).string();
}

std::string Resolved(const std::string& project) {
  std::error_code error;
  if (!fs::is_symlink(project, error)) return project;
  const fs::path target = fs::canonical(project, error);
  return error ? project : target.string();
}

}  // namespace formwizard::apps::common
