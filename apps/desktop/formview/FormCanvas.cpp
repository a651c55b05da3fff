#include "apps/desktop/formview/FormCanvas.h"

#include "apps/desktop/formview/FormMenus.h"
#include "apps/desktop/formview/Navigation.h"
#include "apps/desktop/formview/TextLayout.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <array>
#include <cmath>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;
using adapters::vb6files::FormTree;

constexpr int Margin = 24;     // around the form
constexpr int HandleSize = 7;  // of a handle, which stands outside of the control
constexpr QRgb SelectionColor = 0xFF1F5FB0;

struct ArrowKey {
  int Key;
  QPoint Direction;
};
const std::array ArrowKeys{ArrowKey{Qt::Key_Left, {-1, 0}}, ArrowKey{Qt::Key_Right, {1, 0}},
                           ArrowKey{Qt::Key_Up, {0, -1}}, ArrowKey{Qt::Key_Down, {0, 1}}};

// A control of an array goes by its index too.
bool IsSame(const FormNode& a, const FormNode& b) { return a.Name == b.Name && a.Text("Index") == b.Text("Index"); }

}  // namespace

FormCanvas::FormCanvas(Texts texts) : texts_(std::move(texts)), accessible_(*this) {
  setFocusPolicy(Qt::StrongFocus);
  options_.Pictures = &pictures_;
}

void FormCanvas::SetForm(std::optional<FormTree> form) {
  accessible_.Forget();
  // Controls stay where they are in memory when the form around them moves.
  const std::optional<FormTree> before = std::exchange(form_, std::move(form));
  const FormNode* was = before && selected_ > 0 ? places_[selected_].Node : nullptr;
  pictures_ = form_ ? StoredPictures(form_->Form) : StoredPictures();
  places_ = form_ ? PlacesOf(form_->Form) : std::vector<PlacedNode>();
  labels_ = LabelsOf(places_);
  origin_ = form_ ? OriginOf(form_->Code) : FormOrigin();
  selected_ = 0;
  ++formsShown_;
  for (std::size_t i = 1; was && i < places_.size(); ++i) {
    if (IsSame(*places_[i].Node, *was)) selected_ = i;
  }
  setFixedSize(sizeHint());
  update();
  if (OnSelect) OnSelect();
}

void FormCanvas::SetScale(double scale) {
  if (!form_) return;
  options_.Scale = FittedScale(form_->Form, scale);
  setFixedSize(sizeHint());
  update();
}

QSize FormCanvas::sizeHint() const {
  return form_ ? PictureSize(form_->Form, options_.Scale) + QSize(2 * Margin, 2 * Margin) : QSize(0, 0);
}

QRect FormCanvas::PlaceOnWidget(std::size_t index) const {
  const QRect& place = places_[index].Seen;
  const double scale = options_.Scale;
  return QRectF(QPointF(place.topLeft()) * scale, QSizeF(place.size()) * scale)
      .translated(Margin, Margin)
      .toAlignedRect();
}

QString FormCanvas::CaptionOf(std::size_t index) const {
  const QString own = WithoutMarks(ShownText(places_[index].Node->Text("Caption")));
  return own.isEmpty() ? LabelCaptionOf(index) : own;
}

QString FormCanvas::LabelCaptionOf(std::size_t index) const {
  if (labels_[index] == PlacedNode::None) return {};
  return WithoutMarks(ShownText(places_[labels_[index]].Node->Text("Caption")));
}

QString FormCanvas::PropertyOf(std::size_t index) const {
  const auto found = origin_.Properties.find(places_[index].Node->Name);
  return found == origin_.Properties.end() ? QString() : ShownText(found->second);
}

void FormCanvas::Select(std::size_t index) {
  if (index >= places_.size() || index == selected_) return;
  const QRect before = Around(selected_);
  selected_ = index;
  update(before);
  update(Around(selected_));
  accessible_.TellSelected(selected_);
  if (OnSelect) OnSelect();
}

void FormCanvas::Activate(std::size_t index) {
  if (index >= places_.size()) return;
  const FormNode& node = *places_[index].Node;
  if (IsMenu(node) && !node.Children.empty()) {
    PopUpMenu(*this, node, mapToGlobal(PlaceOnWidget(index).bottomLeft()), OnHandlerWanted);
  } else if (OnHandlerWanted) {
    OnHandlerWanted(node);
  }
}

// With the handles.
QRect FormCanvas::Around(std::size_t index) const {
  constexpr int beside = HandleSize + 2;
  return PlaceOnWidget(index).adjusted(-beside, -beside, beside, beside);
}

std::size_t FormCanvas::IndexAt(const QPoint& point) const {
  const QPointF inPicture = QPointF(point - QPoint(Margin, Margin)) / options_.Scale;
  return NodeAt(places_,
                QPoint(static_cast<int>(std::floor(inPicture.x())), static_cast<int>(std::floor(inPicture.y()))));
}

void FormCanvas::paintEvent(QPaintEvent* event) {
  if (!form_) return;
  QPainter painter(this);
  painter.setClipRect(event->rect());
  painter.translate(Margin, Margin);
  DrawForm(painter, form_->Form, options_);
  painter.resetTransform();
  if (!places_[selected_].Seen.isEmpty() && (selected_ > 0 || !framesOnly_)) DrawSelection(painter);
}

// Hollow, as the handles of locked controls are: nothing can be dragged.
void FormCanvas::DrawSelection(QPainter& painter) const {
  const QRect frame = PlaceOnWidget(selected_).adjusted(-4, -4, 3, 3);
  painter.setPen(QPen(QColor(SelectionColor), 1, Qt::DashLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(frame);
  if (framesOnly_) return;
  painter.setPen(QColor(SelectionColor));
  painter.setBrush(Qt::white);
  for (const int x : {frame.left(), frame.center().x(), frame.right()}) {
    for (const int y : {frame.top(), frame.center().y(), frame.bottom()}) {
      if (QPoint(x, y) == frame.center()) continue;
      painter.drawRect(x - HandleSize / 2, y - HandleSize / 2, HandleSize - 1, HandleSize - 1);
    }
  }
}

void FormCanvas::mousePressEvent(QMouseEvent* event) {
  const std::size_t index = IndexAt(event->position().toPoint());
  Select(index);
  if (index < places_.size() && IsMenu(*places_[index].Node)) Activate(index);
}

void FormCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
  const std::size_t index = IndexAt(event->position().toPoint());
  Select(index);
  if (index < places_.size() && !IsMenu(*places_[index].Node)) Activate(index);
}

void FormCanvas::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (!isPlain || places_.empty()) return QWidget::keyPressEvent(event);
  for (const ArrowKey& arrow : ArrowKeys) {
    if (arrow.Key == event->key()) return Select(Nearest(places_, selected_, arrow.Direction));
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return Activate(selected_);
  if (event->key() == Qt::Key_Escape && selected_ > 0) return Select(places_[selected_].Container);
  QWidget::keyPressEvent(event);
}

// Behind the last control the focus leaves the form.
bool FormCanvas::focusNextPrevChild(bool next) {
  const std::size_t index = NextInTabOrder(places_, selected_, !next);
  const bool isInside = index != PlacedNode::None && index != selected_ && !(selected_ == 0 && !next);
  if (!isInside) return QWidget::focusNextPrevChild(next);
  Select(index);
  return true;
}

}  // namespace formwizard::apps::desktop
