// Keeps the preview beside the wizard true while it is used.
#pragma once

#include "adapters/qt/DialogWatcher.h"
#include "apps/desktop/preview/PreviewWindow.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <utility>

namespace formwizard::apps::desktop {

// After each of the user's actions the form is made again as soon as nothing else is to be done, so that the newest
// choices win and typing never waits: the longer a run has taken, the longer the next one waits for the user to pause.
class WizardPreview : public adapters::qt::DialogWatcher {
 public:
  // `project` is asked when the wizard opens.
  explicit WizardPreview(std::function<PreviewProject()> project, Texts texts = {});

  // Called when the user has closed the window, which is then no longer wanted.
  std::function<void()> OnClosed;

  // Of windows that open later.
  void SetTexts(Texts texts) { texts_ = std::move(texts); }
  void SetWanted(bool wanted);
  bool IsWanted() const { return isWanted_; }
  // Whether there are choices that it does not show yet.
  bool IsDue() const { return timer_.isActive(); }
  // Null while there is none.
  PreviewWindow* Window() const { return window_; }

  void Opened(ui::Form& form, QWidget& window) override;
  void Acting() override { timer_.stop(); }
  void Acted() override;
  void Closed(ui::Form& form) override;

 private:
  void Run();
  static void MakeRoom(QWidget& window);
  bool MakeWindow();
  void ShowWindow();

  std::function<PreviewProject()> source_;
  Texts texts_;
  bool isWanted_ = true;
  wizard::frmWizard* dialog_ = nullptr;  // while it is open
  QPointer<QWidget> dialogWindow_;
  QPointer<PreviewWindow> window_;  // a child of the dialog's
  PreviewProject project_;
  QTimer timer_;
  int pause_ = 0;  // milliseconds
};

}  // namespace formwizard::apps::desktop
