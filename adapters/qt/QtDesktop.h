// The desktop as the toolkit gives it: pointer, message boxes, modal windows, clipboard.
#pragma once

#include "adapters/qt/DialogWatcher.h"
#include "ui/Clipboard.h"
#include "ui/Desktop.h"

#include <QWidget>

#include <map>

namespace formwizard::adapters::qt {

class FormWindow;

class QtDesktop : public ui::Desktop, public ui::Clipboard {
 public:
  // `mainWindow` owns the dialogs that no other dialog owns; it may be null.
  explicit QtDesktop(QWidget* mainWindow) : mainWindow_(mainWindow) {}

  // Null for nobody; must outlive the dialogs.
  void Watch(DialogWatcher* watcher) { watcher_ = watcher; }

  void SetMousePointer(ui::MousePointer pointer) override;
  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) override;
  // What the user does meanwhile waits, so that nothing of the dialog runs in the middle of its own work.
  void ProcessMessages() override;
  void ShowModal(ui::Form& form, ui::Form* owner) override;
  bool LendPicture(std::span<const std::byte> bitmap, const std::function<void()>& use) override;

 private:
  QWidget* mainWindow_;
  DialogWatcher* watcher_ = nullptr;
  std::map<const ui::Form*, FormWindow*> open_;
};

}  // namespace formwizard::adapters::qt
