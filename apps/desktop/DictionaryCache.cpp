#include "apps/desktop/DictionaryCache.h"

#include "adapters/qt/Text.h"
#include "apps/common/Dictionaries.h"
#include "support/Failures.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sstream>

namespace formwizard::apps::desktop {

using adapters::qt::Text;
using adapters::qt::Utf8;

std::string DictionaryToOpen(const std::string& path, const std::string& folder) {
  const QFileInfo file(Text(path));
  if (file.suffix().toLower() != "json" || !file.exists()) return path;
  const QDir cache(Text(folder));
  const QByteArray hash = QCryptographicHash::hash(file.absoluteFilePath().toUtf8(), QCryptographicHash::Sha1).toHex();
  const QString stem = QString::fromLatin1(hash.left(16)) + "-";
  const QString name =
      stem + QString::number(file.size()) + "-" + QString::number(file.lastModified().toMSecsSinceEpoch()) + ".sqlite";
  std::string made = Utf8(cache.filePath(name));
  if (cache.exists(name)) return made;
  QFile json(file.filePath());
  if (!json.open(QIODevice::ReadOnly)) {
    throw support::InputError(path + ": the file cannot be read: " + Utf8(json.errorString()));
  }
  cache.mkpath(".");
  std::istringstream in(json.readAll().toStdString());
  common::ImportDictionary(in, path, made, true);
  for (const QString& old : cache.entryList({stem + "*.sqlite"}, QDir::Files)) {
    if (old != name) QFile::remove(cache.filePath(old));
  }
  return made;
}

}  // namespace formwizard::apps::desktop
