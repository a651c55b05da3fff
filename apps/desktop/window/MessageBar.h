// The line above a form that tells what is to be known of it.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

#include <functional>

namespace formwizard::apps::desktop {

class MessageBar : public QFrame {
 public:
  explicit MessageBar(const Texts& texts);

  // Takes the place of what it says. `text` may have bold passages (<b>); without a `button` there is none. Who cannot
  // see it hears of it.
  void Say(const QString& icon, const QString& text, const QString& button = "", std::function<void()> onClick = {});
  // The same without a word: nothing is to be known.
  void Clear();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QLabel* picture_;
  QLabel* text_;
  QPushButton* button_;
  QToolButton* close_;
  std::function<void()> onClick_;
};

}  // namespace formwizard::apps::desktop
