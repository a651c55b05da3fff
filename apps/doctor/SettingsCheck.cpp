// Whether a profile can be read and written.
#include "apps/common/Paths.h"
#include "apps/doctor/CommonChecks.h"
#include "support/Failures.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

namespace formwizard::apps::doctor {
namespace {

namespace fs = std::filesystem;

constexpr bool IsWindows = fs::path::preferred_separator == '\\';

std::string Quoted(const fs::path& path) { return "\"" + system::Utf8(path) + "\""; }

// The file, or the folder that is there and that it or its folder would be made in.
fs::path WrittenFirst(const fs::path& profile) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(profile, error))) return profile;
  fs::path folder = profile.parent_path();
  while (!folder.empty() && folder.has_relative_path() && !fs::exists(fs::symlink_status(folder, error))) {
    folder = folder.parent_path();
  }
  return folder;
}

constexpr char OwnFolder[] = "set HOME or XDG_CONFIG_HOME to a folder of yours";

std::string RemedyFor(const fs::path& written, const fs::path& profile) {
  const bool isElsewhere = written != profile && written != profile.parent_path();
  if (!IsWindows && isElsewhere) return OwnFolder;  // that folder is not the user's to change
  if (!IsWindows) return "chmod u+rw " + Quoted(written) + ", as its owner";
  std::error_code error;
  const bool isProtected = (fs::status(written, error).permissions() & fs::perms::owner_write) == fs::perms::none;
  if (isProtected && fs::is_regular_file(written, error)) return "attrib -r " + Quoted(written);
  return "as an administrator, icacls " + Quoted(written) + " /grant \"%USERNAME%\":M";
}

}  // namespace

Finding SettingsIn(const std::string& profile, const std::string& program) {
  const fs::path path = system::NativePath(profile);
  const fs::path written = WrittenFirst(path);
  try {
    system::FileSystem& files = system::RealFileSystem();
    const bool isThere = files.Read(profile, system::LargestSettings).has_value();
    // The file that a change would be prepared in, which goes again.
    const system::WholeFile change(files, system::Utf8(isThere ? path : written / path.filename()));
    return {State::Good, profile + (isThere ? " can be written by " : " can be made by ") + program};
  } catch (const support::InputError& error) {
    return {State::Fault, program + " cannot read its settings: " + error.what(), RemedyFor(written, path)};
  } catch (const support::SaveError& error) {
    return {State::Fault, program + " cannot keep its settings: " + error.what(), RemedyFor(written, path)};
  }
}

Finding OwnSettings() {
  const std::string profile = common::DefaultProfile();
  if (!profile.empty()) return SettingsIn(profile, "the command line");
  return {State::Fault, "you have no folder for settings, and so they are not kept", OwnFolder};
}

}  // namespace formwizard::apps::doctor
