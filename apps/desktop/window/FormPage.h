// The page of the form: what is to be known of it above, its picture, or why there is none.
#pragma once

#include "apps/desktop/basics/EmptyState.h"
#include "apps/desktop/window/MessageBar.h"

#include <QStackedWidget>
#include <QWidget>

namespace formwizard::apps::desktop {

class FormPage : public QWidget {
 public:
  // `view` shows the picture; taken over.
  FormPage(const Texts& texts, QWidget* view);

  MessageBar& Bar() { return *bar_; }
  void ShowPicture() { stack_->setCurrentIndex(0); }
  EmptyState& ShowInstead();

 private:
  MessageBar* bar_;
  QStackedWidget* stack_;
  EmptyState* instead_;
};

}  // namespace formwizard::apps::desktop
