#include "apps/cli/Findings.h"

#include "apps/cli/FilesAround.h"
#include "apps/cli/VisualBasicFile.h"
#include "system/Paths.h"
#include "system/Text.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

namespace formwizard::apps::cli {
namespace {

using adapters::vb6files::FileChange;

// Those that are made need not be on the disk yet.
class MadeFiles : public lint::Surroundings {
 public:
  MadeFiles(const std::vector<FileChange>& made, const adapters::vb6files::ProjectOnDisk& project,
            const FilesAround& others)
      : made_(made), project_(project), others_(others) {}

  std::optional<std::uintmax_t> SizeOf(std::string_view file) const override {
    // The project itself knows which components are not there.
    if (project_.Lists(file) || vbtext::KindOfName(file) != vbtext::FileKind::Unknown)
      return std::numeric_limits<std::uintmax_t>::max();
    const std::string name = project_.ProjectCodePage().Decode(file);
    const auto found = std::ranges::find_if(made_, [&](const FileChange& change) {
      return change.New && change.Path.substr(system::FolderPart(change.Path).size()) == name;
    });
    return found == made_.end() ? others_.SizeOf(file) : found->New->size();
  }

 private:
  const std::vector<FileChange>& made_;
  const adapters::vb6files::ProjectOnDisk& project_;
  const FilesAround& others_;
};

}  // namespace

std::string MessageOf(const lint::Finding& finding, const system::CodePage& codePage) {
  return system::IsUtf8(finding.Message) ? finding.Message : codePage.Decode(finding.Message);
}

std::string LineOf(const std::string& path, const lint::Finding& finding, const system::CodePage& codePage) {
  const lint::Rule& rule = *finding.Broken;
  return PlaceOf(path, finding.Line - 1) + ": " + std::string(lint::WordOf(rule.HowBad)) + ": " +
         MessageOf(finding, codePage) + "; " + std::string(rule.Remedy) + " [" + std::string(rule.Id) + "]";
}

std::vector<std::string> FindingsIn(const std::vector<FileChange>& made,
                                    const adapters::vb6files::ProjectOnDisk& project) {
  const system::CodePage& codePage = project.ProjectCodePage();
  std::vector<std::string> lines;
  ListedFolders folders;
  for (const FileChange& change : made) {
    if (!change.New || vbtext::KindOfName(change.Path) == vbtext::FileKind::Unknown) continue;
    const FilesAround others(change.Path, &codePage, folders);
    const MadeFiles around(made, project, others);
    for (const lint::Finding& finding : lint::FindingsIn(lint::Subject({change.Path, *change.New, around}))) {
      lines.push_back(LineOf(change.Path, finding, codePage));
    }
  }
  return lines;
}

}  // namespace formwizard::apps::cli
