#include "apps/common/Paths.h"

#include "apps/common/Platform.h"
#include "settings/Profile.h"
#include "system/FileSystem.h"
#include "system/Paths.h"

#include <filesystem>

namespace formwizard::apps::common {
namespace {

namespace fs = std::filesystem;
using system::NativePath;
using system::Utf8;

}  // namespace

std::string ProgramFolder() {
  const fs::path program = RunningProgram();
  return program.empty() ? "./" : Utf8(program.parent_path() / "");
}

std::string DefaultProfile() {
  const fs::path beside = NativePath(ProgramFolder()) / settings::ProfileName;
  if (system::RealFileSystem().StampOf(Utf8(beside))) return Utf8(beside);
  const fs::path root = ConfigurationRoot();
  return root.empty() ? "" : Utf8(root / "ostrel-form-wizard" / settings::ProfileName);
}

std::string Resolved(const std::string& project) { return system::RealFileSystem().BehindLinks(project); }

}  // namespace formwizard::apps::common
