// A window that shows a dialog of the core and passes on what the user does.
#pragma once

#include "adapters/qt/DialogWatcher.h"
#include "adapters/qt/View.h"
#include "ui/Form.h"

#include <QDialog>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace formwizard::adapters::qt {

class FormWindow : public QDialog, private ui::ControlObserver {
 public:
  // `form` must outlive the window.
  FormWindow(ui::Form& form, QWidget* parent);
  ~FormWindow() override;

  // The widget of a control, made on the first call and owned by the window.
  QWidget* For(ui::Control& control);

  // Runs a user's action on the dialog and then shows what has changed. A failure that ends the whole action is shown
  // and leaves the dialog usable. Nothing runs while the dialog is busy.
  void Act(const std::function<void()>& action);
  // While an action runs, in which the dialog hears nothing else of the user.
  bool IsActing() const { return depth_ > 0; }
  // Who is told of them; null for nobody.
  void Watch(DialogWatcher* watcher) { watcher_ = watcher; }
  // Shows at once what has changed.
  void ShowChanges();
  void NoteChange(View& view) { changedViews_.push_back(&view); }

  ui::Form& ShownForm() const { return form_; }
  // Null for a control that has no widget.
  QWidget* WidgetOf(const ui::Control* control) const;

  void reject() override;  // Escape

 protected:
  // To be called when every control has its widget: tab order, buddies of labels, names for those who cannot see them.
  void Finish();

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Changed() override { changed_ = true; }
  void ShowForm();
  void ShowFailure(const QString& text);

  ui::Form& form_;
  std::map<const ui::Control*, std::unique_ptr<View>> views_;
  std::map<const QObject*, ui::Control*> controls_;  // by widget
  std::vector<View*> changedViews_;
  DialogWatcher* watcher_ = nullptr;
  bool changed_ = true;
  int depth_ = 0;  // of actions that run inside one another
};

}  // namespace formwizard::adapters::qt
