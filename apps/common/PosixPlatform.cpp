#include "adapters/profile/ProfileFile.h"
#include "adapters/satellite/Satellites.h"
#include "apps/common/Platform.h"

#include <cstdlib>
#include <system_error>

namespace formwizard::apps::common {
namespace {

namespace fs = std::filesystem;

fs::path Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace

fs::path RunningProgram() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

fs::path ConfigurationRoot() {
  const fs::path configured = Environment("XDG_CONFIG_HOME");
  return configured.is_absolute() ? configured : Environment("HOME") / ".config";
}

std::vector<std::string> Arguments(int argc, char** argv) { return {argv + (argc > 0 ? 1 : 0), argv + argc}; }

std::unique_ptr<settings::ProfileStore> PlatformProfile() {
  return std::make_unique<adapters::profile::ProfileFiles>();
}

std::unique_ptr<support::ResourceLibraries> PlatformLibraries() {
  return std::make_unique<adapters::satellite::Satellites>();
}

bool CanHaveServer() { return false; }
std::unique_ptr<wizard::factory::FactoryCreator> InstalledServer() { runtime::Raise(runtime::CannotCreateObject); }

std::shared_ptr<void> UseUtf8Streams() { return nullptr; }

}  // namespace formwizard::apps::common
