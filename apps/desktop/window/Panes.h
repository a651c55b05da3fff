// The main window's panes beside each other: project and dictionary, form and code, properties.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QLabel>
#include <QSplitter>
#include <QTabWidget>

#include <array>
#include <cstdint>

namespace formwizard::apps::desktop {

enum class Pane : std::uint8_t { Project, Dictionary, Form, Code, Properties };

// What stands in the panes; taken over.
struct PaneWidgets {
  QWidget *Project, *Dictionary, *Form, *Code, *Properties;
};

class Panes : public QSplitter {
 public:
  Panes(const Texts& texts, const PaneWidgets& widgets);

  // Brings a pane to the front and gives it the focus.
  void Show(Pane pane);
  void SetFormEnabled(bool enabled);
  // The pane behind the one with the focus, or the one before it.
  void FocusNext(bool backwards);
  // In a narrow window the properties are a third tab on the left.
  void SetNarrow(bool isNarrow);
  bool IsNarrow() const { return isNarrow_; }
  // What stands at the right of the tabs of the middle: name, and more where there is room.
  void SetHeading(const QString& name, const QString& more);

 private:
  void ShowHeading();
  QWidget* HoldOf(Pane pane) const;  // what is shown and hidden: the widget or what is around it

  const Texts& texts_;
  PaneWidgets widgets_;
  QTabWidget* left_;
  QTabWidget* views_;
  QWidget* right_;  // the properties with a heading
  QLabel* heading_;
  QString name_, more_;
  bool isNarrow_ = false;
};

}  // namespace formwizard::apps::desktop
