// What stands in a pane that has nothing to show: a sentence, and what can be done about it.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <functional>

namespace formwizard::apps::desktop {

class EmptyState : public QWidget {
 public:
  // Without a `button` there is only the sentence.
  explicit EmptyState(const QString& text = "", const QString& button = "", std::function<void()> onClick = {});

  void Say(const QString& text, const QString& button = "", std::function<void()> onClick = {});
  QString Text() const { return text_->text(); }

 private:
  QLabel* text_;
  QPushButton* button_;
  std::function<void()> onClick_;
};

}  // namespace formwizard::apps::desktop
