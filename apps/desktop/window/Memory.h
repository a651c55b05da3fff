// What the program remembers between its runs, in a file of the user's.
#pragma once

#include <QDate>
#include <QSettings>
#include <QString>
#include <QTimer>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace formwizard::apps::desktop {

struct RecentFile {
  QString Path;
  QDate Day;  // when it was opened last
};

// What belongs to one project. Paths are absolute; empty where nothing is remembered.
struct ProjectMemory {
  QString Component, Dictionary, Toolbox, Zoom, CodePage;
};

class Memory {
 public:
  // Without a file it lasts as long as this object.
  explicit Memory(const QString& file);

  // Called once, when nothing else is to be done after something could not be written.
  std::function<void(const QString& file)> OnNotWritten = [](const QString&) {};

  QVariant Value(const QString& key) const;
  void Keep(const QString& key, const QVariant& value);

  // The last ones first, at most ten.
  std::vector<RecentFile> Recent() const;
  void AddRecent(const QString& path);
  void RemoveRecent(const QString& path);

  // Of the projects among the recent files.
  ProjectMemory Of(const QString& project) const;
  void Keep(const QString& project, const ProjectMemory& memory);

 private:
  void Write();
  void KeepRecent(const std::vector<RecentFile>& files);

  std::unique_ptr<QSettings> file_;
  QVariantMap values_;  // without a file
  QTimer writing_;
  bool isTold_ = false;
};

}  // namespace formwizard::apps::desktop
