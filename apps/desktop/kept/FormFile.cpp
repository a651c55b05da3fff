#include "apps/desktop/kept/FormFile.h"

#include "adapters/qt/Text.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "system/Paths.h"

#include <QDir>

#include <algorithm>
#include <set>

namespace formwizard::apps::desktop {
namespace {

bool MayBeCalledAfter(std::string_view file, std::string_view form) {
  return runtime::EqualIgnoringCase(file.substr(0, form.size()), form) &&
         runtime::EqualIgnoringCase(file.substr(file.size() - std::min<std::size_t>(file.size(), 4)), ".frm");
}

bool IsForm(const system::FileSystem& files, const std::string& path, const std::string& name) {
  try {
    const std::optional<std::string> text = files.Read(path);
    return text && runtime::EqualIgnoringCase(adapters::vb6files::NameInForm(*text), name);
  } catch (const support::InputError&) {
    return false;
  }
}

}  // namespace

std::string FileOfForm(const system::FileSystem& files, const adapters::vb6files::ProjectOnDisk& project,
                       const std::string& form) {
  const std::string home(system::FolderPart(project.Path()));
  std::set<std::string> folders{home}, listed;
  for (const adapters::vb6files::ComponentSummary& each : project.Summaries()) {
    folders.emplace(system::FolderPart(each.File));
    listed.insert(each.File);
  }
  const std::string name = project.ProjectCodePage().Encode(form);
  for (const std::string& folder : folders) {
    for (const std::string& file : files.NamesIn(system::FolderOf(folder)).value_or(std::vector<std::string>())) {
      const std::string path = folder + file;
      if (!MayBeCalledAfter(file, form) || listed.contains(path) || !IsForm(files, path, name)) continue;
      return adapters::qt::Utf8(
          QDir(adapters::qt::Text(home)).relativeFilePath(adapters::qt::Text(path)).replace('/', '\\'));
    }
  }
  return "";
}

}  // namespace formwizard::apps::desktop
