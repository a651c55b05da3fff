#include "apps/desktop/preview/WizardPreview.h"

#include <QElapsedTimer>
#include <QScreen>

#include <algorithm>
#include <exception>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr runtime::Int16 FirstStep(4);  // Properties; Attributes and Finish follow
constexpr int Unnoticed = 20;           // milliseconds that nobody notices while typing
constexpr int LongestPause = 600;

}  // namespace

WizardPreview::WizardPreview(std::function<PreviewProject()> project, Texts texts)
    : source_(std::move(project)), texts_(std::move(texts)) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, [this] { Run(); });
}

void WizardPreview::SetWanted(bool wanted) {
  isWanted_ = wanted;
  if (!wanted && window_) window_->hide();
  Acted();
}

void WizardPreview::Opened(ui::Form& form, QWidget& window) {
  auto* dialog = dynamic_cast<wizard::frmWizard*>(&form);
  if (!dialog) return;
  dialog_ = dialog;
  dialogWindow_ = &window;
  pause_ = 0;
  project_ = source_();
  if (isWanted_) MakeRoom(window);
  Acted();
}

// A dialog that has not been shown yet opens in the middle of its parent.
void WizardPreview::MakeRoom(QWidget& window) {
  QRect opens(QPoint(), window.size());
  opens.moveCenter(window.parentWidget() ? window.parentWidget()->window()->geometry().center()
                                         : window.screen()->availableGeometry().center());
  if (const auto place = PreviewWindow::PlaceOfDialog(opens, window.screen()->availableGeometry())) window.move(*place);
}

void WizardPreview::Acted() {
  if (dialog_ && isWanted_) timer_.start(pause_);
}

void WizardPreview::Closed(ui::Form& form) {
  if (&form != dialog_) return;
  timer_.stop();
  dialog_ = nullptr;
  delete window_;
}

// False where it is not to be seen.
bool WizardPreview::MakeWindow() {
  if (window_ && window_->isVisible()) return true;
  if (!window_) {
    window_ = new PreviewWindow(*dialogWindow_, texts_);
    window_->OnClosed = [this] {
      isWanted_ = false;
      if (OnClosed) OnClosed();
    };
  }
  return window_->PlaceBeside(dialogWindow_->frameGeometry(), dialogWindow_->screen()->availableGeometry());
}

void WizardPreview::Run() {
  const bool isShown = dialog_ && !dialog_->IsUnloaded() && dialog_->CurrentStep() >= FirstStep;
  if (!isShown || !MakeWindow()) {
    if (window_) window_->hide();
    return;
  }
  QElapsedTimer elapsed;
  elapsed.start();
  if (dialog_->lstSelected.ListCount() == 0) {
    window_->ShowNothing();
  } else {
    try {
      window_->ShowForm(MakePreview(*dialog_, project_));
    } catch (const std::exception& failure) {
      window_->ShowOld(failure.what());
    }
  }
  const auto taken = static_cast<int>(elapsed.elapsed());
  pause_ = taken <= Unnoticed ? 0 : std::min(3 * taken, LongestPause);
  ShowWindow();
}

// Not every desktop knows windows that are shown without being activated.
void WizardPreview::ShowWindow() {
  if (window_->isVisible()) return;
  const bool wasActive = dialogWindow_->isActiveWindow();
  window_->show();
  if (wasActive) dialogWindow_->activateWindow();
}

}  // namespace formwizard::apps::desktop
