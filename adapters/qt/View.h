// The widgets that show the core's controls: one kind of view for each kind of control, and no knowledge of dialogs.
#pragma once

#include "ui/Controls.h"
#include "ui/ListBox.h"
#include "ui/OptionButton.h"
#include "ui/TreeView.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace formwizard::adapters::qt {

class FormWindow;

// Changes are noted, and shown at the end of the user's action or when pending messages are processed, so that a list
// that is filled is laid out once.
class View {
 public:
  virtual ~View() = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  QWidget* Widget() const { return widget_; }
  // Shows the control as it is now.
  void Update();

 protected:
  // The widget belongs to the window.
  View(FormWindow& window, const ui::Control& control, QWidget* widget)
      : window_(window), control_(control), widget_(widget) {}

  void NoteChange();
  void Act(const std::function<void()>& action);
  FormWindow& Window() const { return window_; }

 private:
  // What this kind of control shows besides what all do.
  virtual void Show() = 0;

  FormWindow& window_;
  const ui::Control& control_;
  QWidget* widget_;
  bool noted_ = false;
};

// The view of any kind of control that dialogs show. `control` must outlive the view.
std::unique_ptr<View> MakeView(FormWindow& window, ui::Control& control);

// The same, of some kinds each; null for a control of another kind.
std::unique_ptr<View> MakeSimpleView(FormWindow& window, ui::Control& control);
std::unique_ptr<View> MakeListView(FormWindow& window, ui::Control& control);
std::unique_ptr<View> MakeTreeView(FormWindow& window, ui::Control& control);

}  // namespace formwizard::adapters::qt
