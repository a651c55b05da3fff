#include "apps/cli/VisualBasicFile.h"

#include "support/Failures.h"
#include "system/FileSystem.h"

#include <utility>

namespace formwizard::apps::cli {

using support::InputError;

VisualBasicFile ReadVisualBasicFile(const std::string& path) {
  const system::FileSystem& files = system::RealFileSystem();
  std::optional<std::string> bytes = files.Read(path);
  if (!bytes) throw InputError(path + ": there is no such file; check the path");
  const std::string stem = path.substr(0, path.rfind('.'));
  std::optional<std::string> records = files.Read(stem + ".frx");
  if (!records) records = files.Read(stem + ".FRX");
  return {path, std::move(*bytes), std::move(records)};
}

vbtext::Document DocumentIn(const VisualBasicFile& file) {
  try {
    return vbtext::DocumentOf(file.Bytes);
  } catch (const vbtext::Fault& fault) {
    throw InputError(PlaceOf(file.Path, fault.Line) + ": expected " + fault.Expected +
                     "; give a form, control, class or module as Visual Basic 6 saves it");
  }
}

vbtext::FileKind KindOf(const VisualBasicFile& file) {
  const vbtext::FileKind kind = vbtext::KindOfName(file.Path);
  return kind == vbtext::FileKind::Unknown ? vbtext::KindOfText(vbtext::LinesOf(file.Bytes)) : kind;
}

std::string PlaceOf(const std::string& path, std::size_t line) { return path + ":" + std::to_string(line + 1); }

}  // namespace formwizard::apps::cli
