// Below the code: what is looked for in it, and how often it is there.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/code/CodeView.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QWidget>

namespace formwizard::apps::desktop {

class FindBar : public QWidget {
 public:
  // Closed at first. `view` must outlive it.
  FindBar(const Texts& texts, CodeView& view);

  // With what is selected in the code, where that is a part of one line.
  void Open();
  // The focus goes back to the code.
  void Close();
  // Opens the bar where nothing is looked for yet.
  void FindNext(bool backwards);
  // The code is another one.
  void CodeChanged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QToolButton* Button(const QString& icon, const QString& name);
  void Search();
  // Goes to the next place from there, and tells which it is.
  void Select(int position, bool backwards);

  const Texts& texts_;
  CodeView& view_;
  QLineEdit* text_;
  QLabel* result_;
  QCheckBox* matchCase_;
  int from_ = 0;   // where the search began
  int count_ = 0;  // of the places
};

}  // namespace formwizard::apps::desktop
