#include "apps/desktop/window/Sample.h"

#include "adapters/qt/Text.h"
#include "apps/common/Dictionaries.h"
#include "support/Failures.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <sstream>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Utf8;

const QString Source = ":/samples/";

void Copy(const QString& from, const QString& to) {
  QFile file(from);
  if (!QDir().mkpath(QFileInfo(to).absolutePath()) || !file.copy(to)) {
    throw support::SaveError(Utf8(to) + ": the file cannot be written: " + Utf8(file.errorString()) +
                             "; choose another folder");
  }
  QFile::setPermissions(to, QFile::permissions(to) | QFile::WriteOwner);  // what the program brings along is read-only
}

}  // namespace

Sample CopySample(const QString& folder) {
  const QString library = Source + "library";
  for (QDirIterator files(library, QDir::Files, QDirIterator::Subdirectories); files.hasNext();) {
    const QString file = files.next();
    Copy(file, folder + file.mid(library.size()));
  }
  Sample sample{folder + "/Lending.vbp", folder + "/samples.sqlite", folder + "/toolbox.ini"};
  Copy(Source + "toolbox.ini", sample.Toolbox);
  QFile dictionary(Source + "dictionary.json");
  static_cast<void>(dictionary.open(QIODevice::ReadOnly));
  std::istringstream json(dictionary.readAll().toStdString());
  common::ImportDictionary(json, "dictionary.json", Utf8(sample.Dictionary));
  return sample;
}

}  // namespace formwizard::apps::desktop
