#include "adapters/vb6files/ProjectFiles.h"

#include "adapters/vb6files/FilePath.h"
#include "adapters/vb6files/FormReader.h"
#include "support/Failures.h"
#include "system/Paths.h"

namespace formwizard::adapters::vb6files {
namespace {

constexpr std::size_t NameIsWithin = 4096;  // bytes at the start of a form file

}  // namespace

FileGone::FileGone(const std::string& path)
    : InputError("the file " + path + " is not there; restore it or take its line out of the project") {}

std::string_view StemOf(std::string_view projectPath) {
  projectPath.remove_prefix(projectPath.find_last_of('\\') + 1);
  return projectPath.substr(0, projectPath.rfind('.'));
}

std::string ProjectFolderPart(std::string_view projectPath) {
  return std::string(projectPath.substr(0, projectPath.find_last_of('\\') + 1));
}

std::string NameInForm(std::string_view frm) { return std::string(ReadComponentName(frm.substr(0, NameIsWithin))); }

std::string_view FirstNameInForm(std::string_view frm) {
  constexpr std::string_view begins = "\n   LinkTopic       =   \"";
  frm = frm.substr(0, NameIsWithin);
  const std::size_t at = frm.find(begins);
  if (at == std::string_view::npos) return {};
  frm.remove_prefix(at + begins.size());
  return frm.substr(0, frm.find('"'));
}

ProjectFiles::ProjectFiles(system::FileSystem& files, const std::string& project, const system::CodePage& codePage)
    : files_(files), folder_(system::FolderPart(project)), codePage_(codePage), spelling_(files), read_(files) {}

std::string ProjectFiles::PathOf(std::string_view projectPath) const {
  return FileIn(folder_, codePage_.Decode(projectPath));
}

std::string ProjectFiles::Spelled(const std::string& path) const {
  return files_.KindOf(path) == system::FileKind::None ? spelling_.Of(path) : path;
}

std::string ProjectFiles::NewPathOf(std::string_view projectPath) const {
  std::string path = PathOf(projectPath);
  const std::string_view part = system::FolderPart(path);
  const std::string folder = system::FolderOf(path);
  if (part.empty() || files_.KindOf(folder) != system::FileKind::None) return path;
  return spelling_.Of(folder) + path.substr(part.size() - 1);
}

auto ProjectFiles::Found(std::string& path, auto read) const {
  if (IsForeign(path)) {
    throw support::InputError(path +
                              ": this is on a drive or a server of Windows, which this system does not reach; copy it "
                              "into the project's folder and change its line");
  }
  auto found = read(path);
  if (found) return found;
  path = spelling_.Of(path);
  return read(path);
}

std::optional<std::string> ProjectFiles::Read(std::string& path, ReadFor use) const {
  return Found(path,
               [&](const std::string& file) { return use == ReadFor::Saving ? read_.Read(file) : files_.Read(file); });
}

// A form that refers to none is no reason to look for its spelling.
std::string ProjectFiles::FrxBeside(const std::string& frmPath, std::string_view frm, ReadFor use) const {
  std::string path = frmPath.substr(0, frmPath.rfind('.')) + ".frx";
  if (HoldsReference(frm)) return Read(path, use).value_or("");
  return (use == ReadFor::Saving ? read_.Read(path) : files_.Read(path)).value_or("");
}

std::string ProjectFiles::NameIn(std::string_view projectPath) const {
  std::string path = PathOf(projectPath);
  const std::optional<std::string> head =
      Found(path, [&](const std::string& file) { return read_.ReadHead(file, NameIsWithin); });
  if (!head) RefuseAsGone(path);
  const std::string_view name = ReadComponentName(*head);
  return std::string(name.empty() ? StemOf(projectPath) : name);
}

void ProjectFiles::RefuseAsGone(const std::string& path) const {
  if (!spelling_.HasOtherLetters(path)) throw FileGone(path);
  throw support::InputError("the file " + path +
                            " is not there, but one with other letters beyond ASCII; give the code page in which the "
                            "project is written (--code-page)");
}

void ProjectFiles::CheckIsThere(std::string_view projectPath) const {
  try {
    std::string path = PathOf(projectPath);
    if (!Found(path, [&](const std::string& file) { return files_.StampOf(file); })) RefuseAsGone(path);
  } catch (const FileGone&) {
    throw;
  } catch (const support::InputError&) {
    return;  // of a module nothing is read, so that this is no matter here
  }
}

}  // namespace formwizard::adapters::vb6files
