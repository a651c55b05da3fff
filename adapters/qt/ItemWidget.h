// A list or tree whose highlight its user can move but not take away, and that tells where it is pressed.
#pragma once

#include <QItemSelectionModel>
#include <QMouseEvent>

#include <functional>

namespace formwizard::adapters::qt {

template <typename Widget>
class ItemWidget : public Widget {
 public:
  using Widget::Widget;
  std::function<void(QPointF)> OnPress = [](QPointF) {
  };                                            // before the widget follows, with any button, on an entry or not
  std::function<void()> OnDoubleClick = [] {};  // with the left button, on an entry or not
  std::function<void(const QModelIndex&)> OnCurrent = [](const QModelIndex&) {
  };  // another entry or none is current, unless the widget's signals are blocked

  void ShowCurrent(const QModelIndex& index) {
    QItemSelectionModel* selection = this->selectionModel();
    if (selection->currentIndex() == index && selection->isSelected(index) == index.isValid()) return;
    selection->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (index.isValid()) this->scrollTo(index);
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override {
    OnPress(event->position());
    Widget::mousePressEvent(event);
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) {
      mousePressEvent(event);
      return;
    }
    OnPress(event->position());
    Widget::mouseDoubleClickEvent(event);
    OnDoubleClick();
  }
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override {
    Widget::currentChanged(current, previous);
    if (!this->signalsBlocked()) OnCurrent(current);
  }
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override {
    const auto command = Widget::selectionCommand(index, event);
    const bool takesAway = !index.isValid() || command.testFlag(QItemSelectionModel::Deselect);
    return takesAway ? QItemSelectionModel::NoUpdate : command;
  }
};

}  // namespace formwizard::adapters::qt
