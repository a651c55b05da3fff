#include "apps/desktop/preview/PreviewWindow.h"

#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/formview/TextLayout.h"
#include "apps/desktop/formview/ZoomBox.h"
#include "support/Messages.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QFileInfo>
#include <QHBoxLayout>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr int Gap = 8;  // between the windows
constexpr QSize Least(320, 240), Most(640, 480);
constexpr std::size_t Sides = 2, All = 3;  // of the places beside a dialog, the best first
constexpr int MostNotes = 4;
constexpr int TitleBar = 30;  // of a window that was never shown, about

QLabel* Line(const QString& text = "") {
  auto* line = new QLabel(text);
  line->setTextFormat(Qt::PlainText);
  line->setWordWrap(true);
  return line;
}

// Beside a dialog, with the frame; empty where there is no room for it among the first `count` places.
QRect PlaceFor(const QRect& dialog, const QRect& screen, std::size_t count) {
  const int height = std::max(dialog.height(), Least.height());
  const std::array places{
      QRect(dialog.right() + 1 + Gap, dialog.top(), Most.width(), height),
      QRect(dialog.left() - Gap - Most.width(), dialog.top(), Most.width(), height),
      QRect(dialog.left(), dialog.bottom() + 1 + Gap, dialog.width(), Most.height()),
  };
  for (std::size_t i = 0; i < std::min(count, places.size()); ++i) {
    const QRect seen = places[i].intersected(screen);
    if (seen.width() >= Least.width() && seen.height() >= Least.height()) return seen;
  }
  return {};
}

}  // namespace

PreviewWindow::PreviewWindow(QWidget& dialog, Texts texts)
    : QWidget(&dialog, Qt::Tool),
      texts_(std::move(texts)),
      name_(Line()),
      size_(Line()),
      empty_(Line(texts_(T::PreviewEmpty))),
      view_(new FormView),
      notes_(new QWidget),
      lines_(new QVBoxLayout(notes_)) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setWindowTitle(texts_(T::PreviewTitle));
  QFont bold = name_->font();
  bold.setBold(true);
  name_->setFont(bold);
  name_->setWordWrap(false);
  QPalette lesser = size_->palette();
  lesser.setColor(QPalette::WindowText, SecondaryText(palette()));
  size_->setPalette(lesser);
  view_->ShowAside();
  empty_->setAlignment(Qt::AlignCenter);
  auto* top = new QHBoxLayout;
  top->setContentsMargins(12, 8, 8, 8);
  top->addWidget(name_);
  top->addSpacing(8);
  top->addWidget(size_, 1);
  top->addWidget(new ZoomBox(*view_, texts_(T::ZoomName), texts_(T::ZoomFit)));
  lines_->setContentsMargins(12, 8, 12, 8);
  lines_->setSpacing(4);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(top);
  column->addWidget(empty_, 1);
  column->addWidget(view_, 1);
  column->addWidget(notes_);
  ShowNothing();
}

void PreviewWindow::ShowForm(PreviewedForm form) {
  const QSize size = PictureSize(form.Tree.Form, 1);
  name_->setText(ShownText(form.Tree.Form.Name));
  const QString pattern = texts_(form.Fields == 1 ? T::PreviewSizeOfOne : T::PreviewSize);
  size_->setText(QString(pattern)
                     .replace("%1", QString::number(form.Fields))
                     .replace("%2", QString::number(size.width()))
                     .replace("%3", QString::number(size.height())));
  ClearNotes();
  for (const std::string& failure : form.Failures) AddNote(ShownText(support::Shortened(failure)), true);
  if (form.IsAheadOfFinish) AddNote(texts_(T::PreviewAhead), true);
  for (const std::string& missing : form.Missing) AddNote(texts_(T::PreviewMissing, ShownText(missing)), true);
  if (!form.QueryControlFrom.empty()) {
    AddNote(texts_(T::PreviewQueryControl, QFileInfo(ShownText(form.QueryControlFrom)).fileName()), false);
  }
  view_->SetForm(std::move(form.Tree));
  view_->Select(form.ChosenControl);
  empty_->hide();
  view_->show();
  notes_->setVisible(lines_->count() > 0);
}

void PreviewWindow::ShowNothing() {
  name_->clear();
  size_->clear();
  ClearNotes();
  notes_->hide();
  view_->hide();
  view_->SetForm(std::nullopt);
  empty_->show();
}

void PreviewWindow::ShowOld(const std::string& why) {
  ClearNotes();
  AddNote(texts_(T::PreviewOld, ShownText(support::Shortened(why))), true);
  notes_->show();
  QAccessibleEvent alert(notes_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void PreviewWindow::AddNote(const QString& text, bool isWarning) {
  if (lines_->count() >= MostNotes) return;
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  auto* sign = new QLabel;
  sign->setPixmap(IconNamed(isWarning ? "missing" : "info").pixmap(QSize(16, 16), devicePixelRatioF()));
  row->addWidget(sign, 0, Qt::AlignTop);
  auto* words = Line(text);
  words->setObjectName("note");
  row->addWidget(words, 1);
  lines_->addWidget(line);
}

void PreviewWindow::ClearNotes() {
  while (QLayoutItem* item = lines_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
}

QStringList PreviewWindow::Notes() const {
  QStringList notes;
  for (const QLabel* note : notes_->findChildren<QLabel*>("note")) notes << note->text();
  return notes;
}

bool PreviewWindow::PlaceBeside(const QRect& dialog, const QRect& screen) {
  const QRect place = PlaceFor(dialog, screen, All);
  if (place.isEmpty()) return false;
  move(place.topLeft());
  resize(place.width(), place.height() - TitleBar);
  return true;
}

std::optional<QPoint> PreviewWindow::PlaceOfDialog(const QRect& dialog, const QRect& screen) {
  if (!PlaceFor(dialog, screen, Sides).isEmpty()) return std::nullopt;
  const int left = std::max(screen.left() + Gap, screen.right() - dialog.width() - 2 * Gap - Most.width());
  const QRect moved(QPoint(left, dialog.top()), dialog.size());
  return PlaceFor(moved, screen, Sides).isEmpty() ? std::nullopt : std::optional(moved.topLeft());
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  if (OnClosed) OnClosed();
}

}  // namespace formwizard::apps::desktop
