// What the wizard needs before it opens: a project, a dictionary, and the query control for the form; and what was
// found in each.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/dictionary/DictionaryCount.h"
#include "apps/desktop/window/Files.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class NeedsDialog : public QDialog {
 public:
  // All must outlive this object. It is accepted when nothing is missing any more.
  NeedsDialog(QWidget& window, const Texts& texts, Environment& environment, Files& files);

  static bool IsAnythingMissing(const Environment& environment);

 private:
  struct Need {
    T Label;
    bool (*IsThere)(const Environment&);
    QString (NeedsDialog::*Value)() const;
    bool (*Choose)(Files&);
    bool NeedsProject;
    QLabel *State = nullptr, *Shown = nullptr;
    QPushButton* Button = nullptr;
  };

  bool IsThere(const Need& need) const;
  void BeginCount();
  void CountOn();
  void AddRow(Need& need, QGridLayout& grid, int row);
  void ShowNeeds();
  void FocusNext();
  QString Project() const;
  QString Dictionary() const;
  QString Toolbox() const;

  const Texts& texts_;
  Environment& environment_;
  Files& files_;
  std::vector<Need> needs_;
  QPushButton* continue_;
  std::string counted_;  // the dictionary, by its path
  std::unique_ptr<DictionaryCount> count_;
  QString unreadable_;  // why the dictionary is
  QTimer slices_;
};

}  // namespace formwizard::apps::desktop
