// The program's message boxes.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QMessageBox>
#include <QString>
#include <QWidget>

#include <vector>

namespace formwizard::apps::desktop {

struct Message {
  T Title;                 // the command
  QString What;            // what happened, naming the file
  QString Why = "";        // the reason with its place, and the remedy
  std::vector<T> Buttons;  // the first does what the command is about, the last leaves all as it is
  // Which button Enter stands for: the one that loses nothing.
  std::size_t Default = 0;
  QMessageBox::Icon Icon = QMessageBox::Warning;
};

// Shows it over the window that takes input, else over `window`; which button was pressed, the last for Esc.
std::size_t Ask(QWidget& window, const Texts& texts, const Message& message);

// A failure: what did not succeed, and why.
void Tell(QWidget& window, const Texts& texts, T title, const QString& what, const QString& why);

}  // namespace formwizard::apps::desktop
