// The page of the code: lists of its objects and procedures above, the code, and what is looked for below.
#pragma once

#include "apps/desktop/basics/EmptyState.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/code/CodeOutline.h"
#include "apps/desktop/code/FindBar.h"

#include <QComboBox>
#include <QShortcut>
#include <QStackedWidget>

#include <functional>

namespace formwizard::apps::desktop {

class CodePane : public QWidget {
 public:
  explicit CodePane(const Texts& texts);

  // `objects` can have events in it. Where there is no code, `whenEmpty` is said, if it says something.
  void ShowCode(const QString& code, const QStringList& objects = {}, const QString& whenEmpty = "");

  CodeView& View() { return *view_; }
  void Find() { find_->Open(); }
  void FindNext(bool backwards) { find_->FindNext(backwards); }
  // Asks for a line and goes there.
  void AskForLine();
  // Whether there is a procedure of that name, or one that handles an event of the object, the first of which is meant.
  bool GoToProcedure(const QString& name);
  bool GoToHandlerOf(const QString& object);

  // While the code is seen: the place of the cursor, in words. Told again with an empty text when it is hidden.
  std::function<void(const QString& place)> OnPlace = [](const QString&) {};

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  const CodeProcedure* ProcedureAtCursor() const;
  void FillObjects();
  void FillProcedures(const QString& object);
  void ShowCursor();
  void GoTo(const CodeProcedure& procedure);

  const Texts& texts_;
  QComboBox *objects_, *procedures_;
  CodeView* view_;
  QStackedWidget* stack_;
  EmptyState* instead_;
  FindBar* find_;
  QShortcut* close_;
  CodeOutline outline_;
  QString shownObject_;  // whose procedures the list has
};

}  // namespace formwizard::apps::desktop
