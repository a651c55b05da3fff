#include "adapters/qt/FormWindow.h"
#include "adapters/qt/ItemWidget.h"
#include "adapters/qt/ListModel.h"
#include "adapters/qt/ObservingView.h"
#include "adapters/qt/Text.h"
#include "adapters/qt/View.h"
#include "ui/MakeFirst.h"

#include <QComboBox>
#include <QListView>
#include <QSignalBlocker>

namespace formwizard::adapters::qt {
namespace {

// What lists have in common, whatever they look like.
template <typename Control, typename Shown>
class EntriesView : public ObservingView<Control, Shown, ui::ListObserver> {
 public:
  void ItemInserted(int index) override { NoteChangeFrom(index); }
  void ItemRemoved(int index) override { NoteChangeFrom(index); }
  void Cleared() override {
    const QSignalBlocker quiet(&this->widget_);
    model_.NoteClear();
    this->NoteChange();
  }

 protected:
  EntriesView(FormWindow& window, Control& control, Shown* widget)
      : ObservingView<Control, Shown, ui::ListObserver>(window, control, widget),
        model_(*new ListModel(control, widget)) {
    widget->setModel(&model_);
  }

  ListModel& model_;  // NOLINT(misc-non-private-member-variables-in-classes)

 private:
  void NoteChangeFrom(int index) {
    model_.NoteChangeFrom(index);
    this->NoteChange();
  }
};

class ListBoxView final : public EntriesView<ui::ListBox, ItemWidget<QListView>> {
 public:
  ListBoxView(FormWindow& window, ui::ListBox& control)
      : EntriesView(window, control, new ItemWidget<QListView>(&window)) {
    widget_.setUniformItemSizes(true);
    widget_.OnPress = [this](QPointF) { clicked_ = -1; };
    widget_.OnCurrent = [this](const QModelIndex& index) {
      clicked_ = index.row();
      if (index.isValid()) Act([this, row = index.row()] { control_.ClickItem(row); });
    };
    QObject::connect(&widget_, &QListView::clicked, &widget_, [this](const QModelIndex& index) {
      if (clicked_ != index.row()) Act([this, row = index.row()] { control_.ClickItem(row); });
    });
    QObject::connect(&widget_, &QListView::doubleClicked, &widget_, [this](const QModelIndex& index) {
      Act([this, row = index.row()] { control_.DoubleClickItem(row); });
    });
  }

 private:
  void Show() override {
    const QSignalBlocker quiet(&widget_);
    model_.TellView();
    widget_.ShowCurrent(model_.index(control_.ListIndex()));
  }

  int clicked_ = -1;  // the entry that the last press has made current
};

class ComboBoxView final : public EntriesView<ui::ComboBox, QComboBox> {
 public:
  ComboBoxView(FormWindow& window, ui::ComboBox& control) : EntriesView(window, control, new QComboBox(&window)) {
    QObject::connect(&widget_, &QComboBox::activated, &widget_, [this](int index) {
      NoteChange();
      Act([this, index] { control_.ClickItem(index); });
    });
  }

 private:
  void Show() override {
    model_.TellView();
    widget_.setCurrentIndex(control_.ListIndex());
  }
};

}  // namespace

std::unique_ptr<View> MakeListView(FormWindow& window, ui::Control& control) {
  return ui::MakeFirst<View, ComboBoxView, ListBoxView>(window, control);
}

}  // namespace formwizard::adapters::qt
