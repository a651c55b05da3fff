// Both codes of a form side by side: as it stands in the project, and as it becomes.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/update/CodeSide.h"

#include <QString>
#include <QWidget>

#include <vector>

namespace formwizard::apps::desktop {

class CodeComparison : public QWidget {
 public:
  // F8 and Shift+F8 go to the next and previous difference wherever the focus is in the window.
  explicit CodeComparison(const Texts& texts);

  // What is looked at stays, as far as it can.
  void Show(const QString& before, const QString& after);
  // A line of either side, counted from 0; -1 for none.
  void GoTo(int before, int after);
  // From where the cursor stands; past the last one to the first.
  void GoToDifference(bool backwards);

  const CodeSide& Before() const { return *before_; }
  const CodeSide& After() const { return *after_; }

 private:
  QWidget* Headed(const QString& title, CodeSide* side, const std::vector<QWidget*>& buttons);
  QWidget* MadeButton(const QString& icon, const QString& name, const char* key, bool backwards);
  void GoToRow(int row);

  CodeSide *before_, *after_;
  std::vector<CodeRow> rows_;
};

}  // namespace formwizard::apps::desktop
