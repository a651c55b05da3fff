#include "apps/desktop/formview/FormView.h"

#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/formview/HiddenStrip.h"
#include "apps/desktop/formview/PictureFile.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr std::array Steps{0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1.0, 1.1, 1.25, 1.5, 2.0, 3.0, 4.0};

}  // namespace

FormView::FormView(Texts texts)
    : area_(new QScrollArea), canvas_(new FormCanvas(std::move(texts))), strip_(new HiddenStrip(*canvas_)) {
  area_->setWidget(canvas_);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->viewport()->installEventFilter(this);
  canvas_->installEventFilter(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(area_, 1);
  column->addWidget(strip_);
  strip_->hide();
  setFocusProxy(canvas_);
  canvas_->OnSelect = [this] { ShowSelected(); };
  canvas_->OnHandlerWanted = [this](const adapters::vb6files::FormNode& node) {
    if (OnHandlerWanted) OnHandlerWanted(node);
  };
  ColorCanvas();
}

void FormView::SetForm(std::optional<adapters::vb6files::FormTree> form) {
  isShowing_ = true;
  canvas_->SetForm(std::move(form));
  isShowing_ = false;
  strip_->Refill();
  strip_->ShowSelection();
  if (isFitted_) Fit();
  if (OnSelect) OnSelect();
}

void FormView::SetTabOrderShown(bool shown) {
  canvas_->Options().ShowTabOrder = shown;
  canvas_->update();
}

void FormView::SetLabelsOutlined(bool outlined) {
  canvas_->Options().OutlineLabels = outlined;
  canvas_->update();
}

void FormView::ShowAside() {
  area_->setAlignment(Qt::AlignCenter);
  canvas_->SetFramesOnly(true);
  SetInvisibleShown(false);
}

void FormView::SetInvisibleShown(bool shown) { strip_->SetWanted(shown); }

void FormView::Select(const std::string& name) {
  const std::vector<PlacedNode>& places = canvas_->Places();
  const auto found = std::ranges::find_if(places, [&](const PlacedNode& place) { return place.Node->Name == name; });
  canvas_->Select(found == places.end() ? 0 : static_cast<std::size_t>(found - places.begin()));
}

void FormView::ShowSelected() {
  if (isShowing_) return;  // the scroll stays
  strip_->ShowSelection();
  if (canvas_->Selected() > 0 && !canvas_->Places()[canvas_->Selected()].Seen.isEmpty()) {
    const QRect place = canvas_->PlaceOnWidget(canvas_->Selected());
    const QPoint middle = place.center();
    area_->ensureVisible(middle.x(), middle.y(), place.width() / 2 + 12, place.height() / 2 + 12);
  }
  if (OnSelect) OnSelect();
}

void FormView::Rescale(double scale) {
  const double before = canvas_->Scale();
  canvas_->SetScale(std::clamp(scale, Smallest, Largest));
  if (canvas_->Scale() != before && OnZoom) OnZoom();
}

void FormView::SetScale(double scale) {
  const bool wasFitted = std::exchange(isFitted_, false);
  Rescale(scale);
  if (wasFitted && OnZoom) OnZoom();
}

void FormView::ZoomIn() {
  const auto next = std::ranges::upper_bound(Steps, Scale() + 0.001);
  if (next != Steps.end()) SetScale(*next);
}

void FormView::ZoomOut() {
  const auto next = std::ranges::lower_bound(Steps, Scale() - 0.001);
  if (next != Steps.begin()) SetScale(*std::prev(next));
}

void FormView::FitWhole() {
  isFitted_ = true;
  Fit();
  if (OnZoom) OnZoom();
}

void FormView::Fit() {
  if (!canvas_->Form()) return;
  const QSize whole = PictureSize(*canvas_->Form(), 1),
              margins = canvas_->sizeHint() - PictureSize(*canvas_->Form(), Scale());
  const QSize room = area_->maximumViewportSize() - margins;
  Rescale(std::min(
      {1.0, room.width() / static_cast<double>(whole.width()), room.height() / static_cast<double>(whole.height())}));
}

// What is under the mouse stays there.
void FormView::ZoomAt(const QPoint& point, bool in) {
  const QPointF before = QPointF(canvas_->mapFrom(area_->viewport(), point)) / Scale();
  in ? ZoomIn() : ZoomOut();
  const QPoint after = (before * Scale()).toPoint() - point;
  area_->horizontalScrollBar()->setValue(after.x());
  area_->verticalScrollBar()->setValue(after.y());
}

void FormView::SavePicture(const std::string& path) const {
  if (canvas_->Form()) desktop::SavePicture(*canvas_->Form(), path);
}

void FormView::CopyPicture() const {
  if (canvas_->Form()) QApplication::clipboard()->setMimeData(PictureToCopy(*canvas_->Form()));
}

// The form has the system's colours in any theme, what is around it those of the theme.
void FormView::ColorCanvas() {
  QPalette around = area_->palette();
  around.setColor(QPalette::Window, ColourOf(Shade::Canvas, palette()));
  area_->viewport()->setPalette(around);
  area_->viewport()->setAutoFillBackground(true);
}

void FormView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) ColorCanvas();
  QWidget::changeEvent(event);
}

void FormView::keyPressEvent(QKeyEvent* event) {
  const bool isControl = event->modifiers().testFlag(Qt::ControlModifier);
  if (isControl && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) return ZoomIn();
  if (isControl && event->key() == Qt::Key_Minus) return ZoomOut();
  if (isControl && event->key() == Qt::Key_0) return SetScale(1);
  if (isControl && event->key() == Qt::Key_9) return FitWhole();
  if (event->matches(QKeySequence::Copy)) return CopyPicture();
  QWidget::keyPressEvent(event);
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && watched == area_->viewport() && isFitted_) Fit();
  if (event->type() != QEvent::Wheel) return QWidget::eventFilter(watched, event);
  const auto* wheel = static_cast<QWheelEvent*>(event);
  const int turned = wheel->angleDelta().y();
  if (!wheel->modifiers().testFlag(Qt::ControlModifier) || turned == 0) return false;
  ZoomAt(area_->viewport()->mapFromGlobal(wheel->globalPosition().toPoint()), turned > 0);
  return true;
}

}  // namespace formwizard::apps::desktop
