#include "adapters/qt/FormWindow.h"

#include "adapters/qt/Text.h"
#include "runtime/Conversions.h"
#include "support/Messages.h"
#include "ui/WindowFrame.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>

#include <algorithm>
#include <exception>
#include <utility>

namespace formwizard::adapters::qt {
namespace {

// A caption without the mark of its access key.
QString Spoken(std::string_view caption) {
  QString text = Text(caption);
  text.replace("&&", "\x01").remove('&').replace('\x01', '&');
  return text;
}

// The dialog's size as designed, grown as the desktop's font is larger than the one of the design.
QSize DesignedSize(const ui::Form& form, const QFontMetrics& metrics) {
  constexpr double designedCharacter = 5;  // pixels, on average
  const double scale = std::max(1.0, metrics.averageCharWidth() / designedCharacter) / ui::TwipsPerPixel;
  return (QSizeF(form.Width.Value(), form.Height.Value()) * scale).toSize();
}

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
      return true;
    default:
      return false;
  }
}

}  // namespace

FormWindow::FormWindow(ui::Form& form, QWidget* parent) : QDialog(parent), form_(form) {
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  form_.Observe(this);
}

FormWindow::~FormWindow() { form_.Observe(nullptr); }

QWidget* FormWindow::For(ui::Control& control) {
  if (QWidget* known = WidgetOf(&control)) return known;
  View& view = *views_.emplace(&control, MakeView(*this, control)).first->second;
  QWidget* widget = view.Widget();
  widget->setObjectName(Text(control.Name));
  widget->installEventFilter(this);
  controls_.emplace(widget, &control);
  view.Update();
  return widget;
}

QWidget* FormWindow::WidgetOf(const ui::Control* control) const {
  const auto found = views_.find(control);
  return found == views_.end() ? nullptr : found->second->Widget();
}

void FormWindow::Finish() {
  QWidget* previous = nullptr;
  for (ui::Control* control : form_.Controls()) {
    QWidget* widget = WidgetOf(control);
    if (!widget) continue;
    if (auto* label = qobject_cast<QLabel*>(widget)) {
      QWidget* announced = WidgetOf(form_.AnnouncedBy(*control));
      if (!announced) continue;
      label->setBuddy(announced);
      announced->setAccessibleName(Spoken(control->CaptionText()));
    } else if (control->TakesFocus()) {
      const std::string_view name = control->ToolTipText;
      if (!name.empty()) widget->setAccessibleName(Text(name));
      if (previous) setTabOrder(previous, widget);
      previous = widget;
    }
  }
  if (ui::Control* first = form_.NextFocus()) form_.SetFocus(*first);
  ShowForm();
  resize(sizeHint().expandedTo(DesignedSize(form_, fontMetrics())).boundedTo(screen()->availableSize()));
}

void FormWindow::Act(const std::function<void()>& action) {
  if (!form_.Enabled && depth_ == 0) return;
  if (depth_++ == 0 && watcher_) watcher_->Acting();
  try {
    action();
  } catch (const std::exception& failure) {  // an input that cannot be used; run-time errors do not come here
    form_.Enabled = true;
    QGuiApplication::restoreOverrideCursor();
    ShowFailure(Text(support::Shortened(failure.what())));
  }
  if (--depth_ > 0) return;
  ShowChanges();
  if (watcher_) watcher_->Acted();
}

void FormWindow::ShowFailure(const QString& text) { QMessageBox::critical(this, windowTitle(), text); }

void FormWindow::ShowChanges() {
  // Asked before widgets are hidden, because the toolkit then moves the focus by itself.
  ui::Control* next = form_.Enabled && !form_.ActiveControl() ? form_.NextFocus() : nullptr;
  for (View* view : std::exchange(changedViews_, {})) view->Update();
  if (next) form_.SetFocus(*next);
  if (std::exchange(changed_, false)) ShowForm();
}

void FormWindow::ShowForm() {
  setWindowTitle(Text(form_.Caption));
  QWidget* active = WidgetOf(form_.ActiveControl());
  if (active && !active->hasFocus()) active->setFocus();
  if (form_.IsUnloaded()) done(QDialog::Accepted);
}

void FormWindow::reject() {
  Act([this] { form_.PressEscape(); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the dialog decides; when it is unloaded the window goes
  Act([this] { form_.Close(); });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    Act([this] { form_.PressEnter(); });
    return;
  }
  QDialog::keyPressEvent(event);
}

// While the dialog is busy its controls hear nothing of the user.
bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!form_.Enabled && IsInput(event->type())) return true;
  if (event->type() == QEvent::FocusIn) {
    ui::Control* control = controls_.at(watched);
    if (control->TakesFocus() && control->TakesInput()) form_.SetFocus(*control);
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace formwizard::adapters::qt
