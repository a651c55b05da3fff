// The status bar: what is looked at, what succeeded, and what the wizard works with.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

namespace formwizard::apps::desktop {

class StatusLine {
 public:
  StatusLine(QStatusBar& bar, const Texts& texts, QAction& chooseDictionary, QAction& chooseToolbox);

  // At the left, until there is something else to look at.
  void SetPlace(const QString& text);
  QString Place() const { return place_->text(); }
  // For five seconds, or until something else is looked at.
  void Say(const QString& text);
  // Names of files; empty for none.
  void SetDictionary(const QString& name);
  void SetToolbox(const QString& name);

 private:
  QToolButton* Made(QAction& action, const QString& icon, const QString& tip);

  QStatusBar& bar_;
  const Texts& texts_;
  QLabel* place_;
  QToolButton *dictionary_, *toolbox_;
};

}  // namespace formwizard::apps::desktop
