#include "apps/common/Paths.h"

#include "apps/common/Platform.h"
#include "settings/Profile.h"

namespace formwizard::apps::common {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t LongestPath = 4096;

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

}  // namespace

fs::path NativePath(const std::string& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string ProgramFolder() {
  const fs::path program = RunningProgram();
  return program.empty() ? "./" : Utf8(program.parent_path() / "");
}

std::string PathProblem(const std::string& path) {
  if (path.empty()) return "the name of a file must not be empty";
  if (path.size() <= LongestPath) return "";
  return "a path has at most " + std::to_string(LongestPath) + " bytes, found " + std::to_string(path.size());
}

std::string DefaultProfile() {
  const fs::path beside = NativePath(ProgramFolder()) / settings::ProfileName;
  std::error_code error;
  if (fs::exists(beside, error)) return Utf8(beside);
  const fs::path root = ConfigurationRoot();
  return root.empty() ? "" : Utf8(root / "ostrel-form-wizard" / settings::ProfileName);
}

std::string Resolved(const std::string& project) {
  std::error_code error;
  if (!fs::is_symlink(NativePath(project), error)) return project;
  const fs::path target = fs::canonical(NativePath(project), error);
  return error ? project : Utf8(target);
}

}  // namespace formwizard::apps::common
