// A list of entries, each with a number of its own, and one current entry.
#pragma once

#include "ui/Control.h"

#include <deque>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::ui {

// A view of a list. Indexes count from 0.
class ListObserver : public ControlObserver {
 public:
  virtual void ItemInserted(int index) = 0;
  virtual void ItemRemoved(int index) = 0;
  virtual void Cleared() = 0;
};

class ListBox : public Control {
 public:
  struct Item {
    std::string Text;
    int Data = 0;
  };
  Event<> OnClick;
  Event<> DblClick;

  int ListCount() const { return static_cast<int>(items_.size()); }
  // Indexes count from 0; error 381 outside.
  const std::string& List(int index) const { return At(index).Text; }
  int ItemData(int index) const { return At(index).Data; }

  // Appends. The entry's index is ListCount() - 1 afterwards.
  void AddItem(std::string_view text, int data) { InsertItem(ListCount(), {std::string(text), data}); }
  // Before the entry with this index. The current entry stays the same one.
  void InsertItem(int index, Item item);
  // The current entry is none when it was the one removed, and stays the same entry otherwise.
  void RemoveItem(int index);
  void Clear();

  // -1: no current entry.
  int ListIndex() const { return listIndex_; }
  // Making an entry current raises Click, also when it was current already; clearing the current entry raises nothing.
  void SetListIndex(int index);
  // Makes the first entry with this number current; none when there is no such entry.
  void SelectData(int data);
  // Makes the first entry with this text current; none when there is no such entry.
  void SelectText(std::string_view text);
  // The current entry's text, empty without one.
  std::string_view Text() const { return listIndex_ < 0 ? std::string_view() : items_[Offset(listIndex_)].Text; }

  bool TakesFocus() const override { return true; }
  // What a user does: chooses an entry, or presses twice on it.
  void ClickItem(int index) {
    if (TakesInput()) SetListIndex(index);
  }
  void DoubleClickItem(int index) {
    ClickItem(index);
    if (TakesInput()) DblClick();
  }

  void Observe(ListObserver* observer) {
    Control::Observe(observer);
    observer_ = observer;
  }

 private:
  static std::size_t Offset(int index) { return static_cast<std::size_t>(index); }
  const Item& At(int index) const;

  std::deque<Item> items_;
  int listIndex_ = -1;
  ListObserver* observer_ = nullptr;
};

// The same, shown as one line that drops down.
class ComboBox : public ListBox {};

}  // namespace formwizard::ui
