#include "adapters/qt/FormWindow.h"
#include "adapters/qt/ItemWidget.h"
#include "adapters/qt/ObservingView.h"
#include "adapters/qt/Text.h"
#include "adapters/qt/View.h"
#include "ui/MakeFirst.h"

#include <QComboBox>
#include <QListWidget>
#include <QSignalBlocker>

namespace formwizard::adapters::qt {
namespace {

class ListBoxView final : public ObservingView<ui::ListBox, ItemWidget<QListWidget>, ui::ListObserver> {
 public:
  ListBoxView(FormWindow& window, ui::ListBox& control)
      : ObservingView(window, control, new ItemWidget<QListWidget>(&window)) {
    widget_.setUniformItemSizes(true);
    for (int i = 0; i < control.ListCount(); ++i) ItemInserted(i);
    widget_.OnPress = [this](QPointF) { clicked_ = -1; };
    QObject::connect(&widget_, &QListWidget::currentRowChanged, &widget_, [this](int row) {
      clicked_ = row;
      if (row >= 0) Act([this, row] { control_.ClickItem(row); });
    });
    QObject::connect(&widget_, &QListWidget::clicked, &widget_, [this](const QModelIndex& index) {
      if (clicked_ != index.row()) Act([this, row = index.row()] { control_.ClickItem(row); });
    });
    QObject::connect(&widget_, &QListWidget::doubleClicked, &widget_, [this](const QModelIndex& index) {
      Act([this, row = index.row()] { control_.DoubleClickItem(row); });
    });
  }

  void ItemInserted(int index) override {
    const QSignalBlocker quiet(&widget_);
    widget_.insertItem(index, Text(control_.List(index)));
    NoteChange();
  }
  void ItemRemoved(int index) override {
    const QSignalBlocker quiet(&widget_);
    delete widget_.takeItem(index);
    NoteChange();
  }
  void Cleared() override {
    const QSignalBlocker quiet(&widget_);
    widget_.clear();
    NoteChange();
  }

 private:
  void Show() override {
    const QSignalBlocker quiet(&widget_);
    widget_.setCurrentRow(control_.ListIndex());
    if (QListWidgetItem* item = widget_.currentItem()) widget_.scrollToItem(item);
  }

  int clicked_ = -1;  // the entry that the last press has made current
};

class ComboBoxView final : public ObservingView<ui::ComboBox, QComboBox, ui::ListObserver> {
 public:
  ComboBoxView(FormWindow& window, ui::ComboBox& control) : ObservingView(window, control, new QComboBox(&window)) {
    for (int i = 0; i < control.ListCount(); ++i) ItemInserted(i);
    QObject::connect(&widget_, &QComboBox::activated, &widget_, [this](int index) {
      NoteChange();
      Act([this, index] { control_.ClickItem(index); });
    });
  }

  void ItemInserted(int index) override {
    widget_.insertItem(index, Text(control_.List(index)));
    NoteChange();
  }
  void ItemRemoved(int index) override {
    widget_.removeItem(index);
    NoteChange();
  }
  void Cleared() override {
    widget_.clear();
    NoteChange();
  }

 private:
  void Show() override { widget_.setCurrentIndex(control_.ListIndex()); }
};

}  // namespace

std::unique_ptr<View> MakeListView(FormWindow& window, ui::Control& control) {
  return ui::MakeFirst<View, ComboBoxView, ListBoxView>(window, control);
}

}  // namespace formwizard::adapters::qt
