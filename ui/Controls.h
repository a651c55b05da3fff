// The simple controls of the dialogs: records of what they show, with the events that the dialogs count on.
#pragma once

#include "runtime/Integer.h"
#include "ui/Control.h"
#include "ui/Event.h"

#include <array>
#include <deque>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::ui {

using runtime::Int16;

struct Label : Control {
  std::string Caption;
};

struct CommandButton : Control {
  std::string Caption;
  bool Default = false;
  Event<> OnClick;

  // What a user does.
  void Click() {
    if (TakesInput()) OnClick();
  }
};

class CheckBox : public Control {
 public:
  std::string Caption;
  Event<> OnClick;

  // 0 unchecked, 1 checked.
  int Value() const { return value_; }
  // Raises Click when the value changes, and only then.
  void SetValue(int value) {
    if (std::exchange(value_, value) != value) OnClick();
  }
  // What a user does.
  void Click() {
    if (TakesInput()) SetValue(value_ == 0 ? 1 : 0);
  }

 private:
  int value_ = 0;
};

class TextBox : public Control {
 public:
  Event<> Change;

  const std::string& Text() const { return text_; }
  // Raises Change when the text changes.
  void SetText(std::string_view text) {
    if (text_ == text) return;
    text_ = text;
    Change();
  }
  // What a user does: replaces the text by another one.
  void Type(std::string_view text) {
    if (TakesInput()) SetText(text);
  }

 private:
  std::string text_;
};

// A list of entries, each with a number of its own, and one current entry. Also the list of a drop-down combo box.
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
  void AddItem(std::string_view text, int data) { items_.push_back({std::string(text), data}); }
  void InsertItem(int index, Item item) { items_.insert(items_.begin() + index, std::move(item)); }
  // The current entry is none when it was the one removed, and stays the same entry otherwise.
  void RemoveItem(int index);
  void Clear() {
    items_.clear();
    listIndex_ = -1;
  }

  // -1: no current entry.
  int ListIndex() const { return listIndex_; }
  // Making an entry current raises Click; clearing the current entry raises nothing.
  void SetListIndex(int index);
  // Makes the first entry with this number current; none when there is no such entry.
  void SelectData(int data);
  // Makes the first entry with this text current; none when there is no such entry.
  void SelectText(std::string_view text);
  // The current entry's text, empty without one.
  std::string_view Text() const { return listIndex_ < 0 ? std::string_view() : items_[Offset(listIndex_)].Text; }

  // What a user does: chooses an entry.
  void ClickItem(int index) {
    if (TakesInput()) SetListIndex(index);
  }

 private:
  static std::size_t Offset(int index) { return static_cast<std::size_t>(index); }
  const Item& At(int index) const;

  std::deque<Item> items_;
  int listIndex_ = -1;
};

// Two panels: messages, and the name of the connected system.
struct StatusBar : Control {
  std::array<std::string, 2> Panels;
};

}  // namespace formwizard::ui
