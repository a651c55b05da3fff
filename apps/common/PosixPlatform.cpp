#include "adapters/satellite/Satellites.h"
#include "apps/common/MemoryProfile.h"
#include "apps/common/Platform.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

namespace formwizard::apps::common {
namespace {

namespace fs = std::filesystem;

// An absolute path; empty for any other text.
fs::path Folder(const char* text) {
  fs::path folder(text ? text : "");
  return folder.is_absolute() ? folder : fs::path();
}

fs::path HomeFolder() {
  fs::path home = Folder(std::getenv("HOME"));
  if (!home.empty()) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user ? Folder(user->pw_dir) : home;
}

}  // namespace

fs::path RunningProgram() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

fs::path ConfigurationRoot() {
  fs::path configured = Folder(std::getenv("XDG_CONFIG_HOME"));
  if (!configured.empty()) return configured;
  const fs::path home = HomeFolder();
  return home.empty() ? home : home / ".config";
}

std::vector<std::string> Arguments(int argc, char** argv) { return {argv + (argc > 0 ? 1 : 0), argv + argc}; }

std::vector<std::string> FilesMeant(std::vector<std::string> names) { return names; }

std::unique_ptr<settings::ProfileStore> PlatformProfile(const std::string& profile) {
  if (profile.empty()) return std::make_unique<MemoryProfile>();
  return std::make_unique<adapters::profile::ProfileFiles>();
}

std::vector<adapters::profile::ProfileKey> ProfileKeys(const std::string& profile, std::string_view section) {
  return adapters::profile::ProfileFiles().KeysIn(section, profile);
}

bool IsTerminal(Output output) {
  const char* const kind = std::getenv("TERM");
  const bool isDumb = !kind || *kind == '\0' || std::string_view(kind) == "dumb";
  return !isDumb && ::isatty(output == Output::Error ? STDERR_FILENO : STDOUT_FILENO) == 1;
}

std::unique_ptr<support::ResourceLibraries> PlatformLibraries() {
  return std::make_unique<adapters::satellite::Satellites>();
}

bool CanHaveServer() { return false; }
std::unique_ptr<wizard::factory::FactoryCreator> InstalledServer() { runtime::Raise(runtime::CannotCreateObject); }

std::shared_ptr<void> UseStandardStreams() {
  // What is opened gets the lowest free number; the other way round, so that reading or writing fails.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) >= 0 || errno != EBADF) continue;
    static_cast<void>(::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY));
  }
  return nullptr;
}

bool IsTerminal(StandardStream stream) {
  return ::isatty(stream == StandardStream::Output ? STDOUT_FILENO : STDERR_FILENO) == 1;
}

void SurviveFailedWrites() {
  for (const int end : {SIGPIPE, SIGXFSZ}) static_cast<void>(std::signal(end, SIG_IGN));
}

}  // namespace formwizard::apps::common
