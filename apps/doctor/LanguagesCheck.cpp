// Whether the satellites that are there can be read and have all texts.
#include "adapters/satellite/StringResources.h"
#include "apps/common/Languages.h"
#include "apps/common/Paths.h"
#include "apps/doctor/CommonChecks.h"
#include "resources/StringTable.h"
#include "support/Failures.h"
#include "system/FileSystem.h"

#include <algorithm>
#include <filesystem>
#include <ranges>

namespace formwizard::apps::doctor {
namespace {

constexpr bool IsWindows = std::filesystem::path::preferred_separator == '\\';

// What is wrong with a satellite; empty for nothing.
std::string FaultOf(const std::string& path) {
  try {
    const auto bytes = system::RealFileSystem().Read(path, system::LargestLibrary);
    const auto texts = adapters::satellite::ReadStringTable(bytes.value_or(""));
    if (!texts) return path + ": this is not a library with texts, or only part of one";
    const std::vector<int> ids = resources::StringTableIds();
    const auto missing = std::ranges::count_if(ids, [&](int id) { return !texts->contains(id); });
    if (missing == 0) return "";
    return path + ": " + std::to_string(missing) + " of " + std::to_string(ids.size()) + " texts are missing";
  } catch (const support::InputError& error) {
    return error.what();
  }
}

void Append(std::string& list, const std::string& separator, const std::string& text) {
  list += (list.empty() ? "" : separator) + text;
}

}  // namespace

Finding LanguagesIn(const std::string& folder) {
  std::vector<std::string> names = system::RealFileSystem().NamesIn(folder).value_or(std::vector<std::string>());
  std::ranges::sort(names);
  std::string whole, faults, commands;
  for (const std::string& name : names) {
    const std::string language = common::LanguageOfLibrary(name);
    if (language.empty()) continue;
    const std::string fault = FaultOf(folder + name);
    if (fault.empty()) {
      Append(whole, " ", language);
    } else {
      Append(faults, "; ", fault);
      const std::string path = folder + name;
      Append(commands, IsWindows ? " & " : "; ", (IsWindows ? "del \"" : "rm \"") + path + "\"");
    }
  }
  if (!faults.empty()) return {State::Fault, faults, "install the programs again, or for English " + commands};
  if (whole.empty()) return {State::Good, "English alone: there are no other languages in " + folder};
  return {State::Good, "English and, in " + folder + ", " + whole};
}

Finding OwnLanguages() { return LanguagesIn(common::ProgramFolder()); }

}  // namespace formwizard::apps::doctor
