#include "adapters/qt/QtDesktop.h"

#include "adapters/qt/SettingsWindow.h"
#include "adapters/qt/Text.h"
#include "adapters/qt/WizardWindow.h"
#include "support/Messages.h"

#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QMessageBox>

#include <memory>
#include <stdexcept>

namespace formwizard::adapters::qt {
namespace {

std::unique_ptr<FormWindow> MakeWindow(ui::Form& form, QWidget* parent) {
  if (auto* dialog = dynamic_cast<wizard::frmWizard*>(&form)) return std::make_unique<WizardWindow>(*dialog, parent);
  if (auto* dialog = dynamic_cast<settings::frmSettings*>(&form)) {
    return std::make_unique<SettingsWindow>(*dialog, parent);
  }
  throw std::logic_error("a dialog without a window");
}

}  // namespace

void QtDesktop::SetMousePointer(ui::MousePointer pointer) {
  const bool isBusy = QApplication::overrideCursor() != nullptr;
  const bool shallBeBusy = pointer == ui::MousePointer::ArrowHourglass;
  if (shallBeBusy && !isBusy) QApplication::setOverrideCursor(Qt::BusyCursor);
  if (!shallBeBusy && isBusy) QApplication::restoreOverrideCursor();
}

ui::MessageAnswer QtDesktop::ShowMessage(std::string_view text, int style, std::string_view title) {
  QMessageBox box(QApplication::activeModalWidget() ? QApplication::activeModalWidget() : mainWindow_);
  box.setWindowTitle(Text(title));
  box.setText(Text(support::Shortened(std::string(text))));
  box.setTextFormat(Qt::PlainText);
  box.setIcon((style & ui::Information) == ui::Information ? QMessageBox::Information : QMessageBox::Warning);
  if ((style & ui::AbortRetryIgnore) != 0) {
    box.setStandardButtons(QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore);
    box.setDefaultButton((style & ui::DefaultButton2) != 0 ? QMessageBox::Retry : QMessageBox::Abort);
  }
  switch (box.exec()) {
    case QMessageBox::Abort:
      return ui::MessageAnswer::Abort;
    case QMessageBox::Retry:
      return ui::MessageAnswer::Retry;
    case QMessageBox::Ignore:
      return ui::MessageAnswer::Ignore;
    default:
      return ui::MessageAnswer::Ok;
  }
}

void QtDesktop::ProcessMessages() {
  for (const auto& [form, window] : open_) window->ShowChanges();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtDesktop::ShowModal(ui::Form& form, ui::Form* owner) {
  form.Load();
  const auto ownerWindow = open_.find(owner);
  const auto window = MakeWindow(form, ownerWindow == open_.end() ? mainWindow_ : ownerWindow->second);
  open_[&form] = window.get();
  window->Watch(watcher_);
  if (watcher_) watcher_->Opened(form, *window);
  window->exec();
  if (watcher_) watcher_->Closed(form);
  open_.erase(&form);
  form.Unload();  // however the window ended
}

// The environment that takes it is this program, and goes by the toolkit's clipboard.
bool QtDesktop::LendPicture(std::span<const std::byte> bitmap, const std::function<void()>& use) {
  const auto* bytes = reinterpret_cast<const uchar*>(bitmap.data());
  QApplication::clipboard()->setImage(QImage::fromData(bytes, static_cast<int>(bitmap.size())));
  use();
  return true;
}

}  // namespace formwizard::adapters::qt
