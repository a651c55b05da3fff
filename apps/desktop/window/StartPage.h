// What the window shows while nothing is open: how to begin, and what was open before.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/window/Memory.h"

#include <QCommandLinkButton>
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

namespace formwizard::apps::desktop {

class StartPage : public QWidget {
 public:
  // What its four entries do, in the order of the page.
  struct Entries {
    std::function<void()> OpenProject, OpenDictionary, TrySample, Help;
  };
  StartPage(const Texts& texts, Entries entries, std::function<void(const QString&)> openRecent);

  void Show(const std::vector<RecentFile>& files);

 private:
  QCommandLinkButton* Made(T label, T note, const QString& icon, std::function<void()> action);
  QWidget* MadeHeading();

  const Texts& texts_;
  QListWidget* recent_;
  QLabel* noRecent_;
  QTimer* opening_;
  QString chosen_;  // what it opens
};

}  // namespace formwizard::apps::desktop
