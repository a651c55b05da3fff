#include "apps/desktop/window/Memory.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr std::size_t MostRecent = 10;
constexpr char RecentPaths[] = "recent/paths", RecentDays[] = "recent/days";

// The members of what belongs to a project, and their keys.
constexpr std::array Members{std::pair{"component", &ProjectMemory::Component},
                             std::pair{"dictionary", &ProjectMemory::Dictionary},
                             std::pair{"toolbox", &ProjectMemory::Toolbox}, std::pair{"zoom", &ProjectMemory::Zoom},
                             std::pair{"codePage", &ProjectMemory::CodePage}};

QString Absolute(const QString& path) { return QFileInfo(path).absoluteFilePath(); }

// A path is no name of a section.
QString KeyOf(const QString& project, const char* member) {
  const QByteArray hash = QCryptographicHash::hash(Absolute(project).toUtf8(), QCryptographicHash::Sha1).toHex();
  return "project-" + hash.left(16) + "/" + member;
}

}  // namespace

Memory::Memory(const QString& file) {
  if (!file.isEmpty()) file_ = std::make_unique<QSettings>(file, QSettings::IniFormat);
  writing_.setSingleShot(true);
  QObject::connect(&writing_, &QTimer::timeout, &writing_, [this] { Write(); });
}

QVariant Memory::Value(const QString& key) const { return file_ ? file_->value(key) : values_.value(key); }

void Memory::Keep(const QString& key, const QVariant& value) {
  if (!file_) {
    values_[key] = value;
    return;
  }
  if (value.isNull()) {
    file_->remove(key);
  } else {
    file_->setValue(key, value);
  }
  writing_.start(0);
}

void Memory::Write() {
  file_->sync();
  if (file_->status() == QSettings::NoError || std::exchange(isTold_, true)) return;
  OnNotWritten(file_->fileName());
}

std::vector<RecentFile> Memory::Recent() const {
  if (file_) file_->sync();  // another window may have opened something since
  std::vector<RecentFile> files;
  const QStringList paths = Value(RecentPaths).toStringList(), days = Value(RecentDays).toStringList();
  for (qsizetype i = 0; i < paths.size() && files.size() < MostRecent; ++i) {
    if (!paths[i].isEmpty()) files.push_back({paths[i], QDate::fromString(days.value(i), Qt::ISODate)});
  }
  return files;
}

void Memory::KeepRecent(const std::vector<RecentFile>& files) {
  QStringList paths, days;
  for (const RecentFile& file : files) {
    paths << file.Path;
    days << file.Day.toString(Qt::ISODate);
  }
  Keep(RecentPaths, paths);
  Keep(RecentDays, days);
}

void Memory::AddRecent(const QString& path) {
  std::vector<RecentFile> files = Recent();
  std::erase_if(files, [&](const RecentFile& file) { return file.Path == Absolute(path); });
  files.insert(files.begin(), {Absolute(path), QDate::currentDate()});
  for (; files.size() > MostRecent; files.pop_back()) {
    for (const auto& [key, member] : Members) Keep(KeyOf(files.back().Path, key), QVariant());
  }
  KeepRecent(files);
}

void Memory::RemoveRecent(const QString& path) {
  std::vector<RecentFile> files = Recent();
  std::erase_if(files, [&](const RecentFile& file) { return file.Path == Absolute(path); });
  KeepRecent(files);
}

ProjectMemory Memory::Of(const QString& project) const {
  ProjectMemory memory;
  for (const auto& [key, member] : Members) memory.*member = Value(KeyOf(project, key)).toString();
  return memory;
}

void Memory::Keep(const QString& project, const ProjectMemory& memory) {
  for (const auto& [key, member] : Members) {
    const QString& value = memory.*member;
    Keep(KeyOf(project, key), value.isEmpty() ? QVariant() : value);
  }
}

}  // namespace formwizard::apps::desktop
