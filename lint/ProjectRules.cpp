// A project and the files that it lists.
#include "lint/Checks.h"
#include "lint/Listed.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace formwizard::lint {
namespace {

constexpr std::array<std::string_view, 9> FileKeys{
    "Form", "Module", "Class", "UserControl", "PropertyPage", "UserDocument", "Designer", "RelatedDoc", "ResFile32"};

}  // namespace

std::optional<std::string_view> ListedFileIn(const vbtext::ProjectEntry& entry) {
  const bool isFile =
      std::ranges::any_of(FileKeys, [&](std::string_view key) { return runtime::EqualIgnoringCase(key, entry.Key); });
  if (!entry.IsItem || !isFile) return std::nullopt;
  const std::string_view path =
      runtime::Trimmed(entry.Value.substr(entry.Value.find(';') + 1), " \t\"");  // behind the name of a module
  if (path.empty()) return std::nullopt;
  return path;
}

std::string_view ProjectNameIn(const std::vector<vbtext::ProjectEntry>& entries) {
  const auto name = std::ranges::find_if(entries, [](const vbtext::ProjectEntry& entry) {
    return entry.Section.empty() && runtime::EqualIgnoringCase(entry.Key, "Name");
  });
  return name == entries.end() ? std::string_view() : runtime::Trimmed(name->Value, " \t\"");
}

void CheckProjectLines(const Subject& subject, const Report& report) {
  if (subject.Broken() && subject.Kind() == vbtext::FileKind::Project) {
    report(subject.Broken()->Line, "expected " + subject.Broken()->Expected);
  }
}

void CheckListedFiles(const Subject& subject, const Report& report) {
  for (const vbtext::ProjectEntry& entry : subject.Entries()) {
    const auto file = ListedFileIn(entry);
    if (file && !subject.File().Around.SizeOf(*file)) {
      report(entry.Line, std::string(entry.Key) + " " + std::string(*file) + " is not there");
    }
  }
}

}  // namespace formwizard::lint
