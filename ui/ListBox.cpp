#include "ui/ListBox.h"

#include <algorithm>

namespace formwizard::ui {

const ListBox::Item& ListBox::At(int index) const {
  if (index < 0 || index >= ListCount()) runtime::Raise(runtime::InvalidPropertyArrayIndex);
  return items_[Offset(index)];
}

void ListBox::InsertItem(int index, Item item) {
  if (index < 0 || index > ListCount()) runtime::Raise(runtime::InvalidProcedureCall);
  items_.insert(items_.begin() + index, std::move(item));
  if (index <= listIndex_) ++listIndex_;
  if (observer_) observer_->ItemInserted(index);
}

void ListBox::RemoveItem(int index) {
  At(index);
  items_.erase(items_.begin() + index);
  if (index == listIndex_) {
    listIndex_ = -1;
  } else if (index < listIndex_) {
    --listIndex_;
  }
  if (observer_) observer_->ItemRemoved(index);
}

void ListBox::Clear() {
  items_.clear();
  listIndex_ = -1;
  if (observer_) observer_->Cleared();
}

void ListBox::SetListIndex(int index) {
  if (index >= 0) At(index);
  if (std::exchange(listIndex_, std::max(index, -1)) != listIndex_) Changed();
  if (index >= 0) OnClick();
}

void ListBox::SelectData(int data) {
  const auto found = std::ranges::find(items_, data, &Item::Data);
  SetListIndex(found == items_.end() ? -1 : static_cast<int>(found - items_.begin()));
}

void ListBox::SelectText(std::string_view text) {
  const auto found = std::ranges::find(items_, text, &Item::Text);
  SetListIndex(found == items_.end() ? -1 : static_cast<int>(found - items_.begin()));
}

}  // namespace formwizard::ui
