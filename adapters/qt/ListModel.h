// The entries of a list as a view asks for them. Nothing is kept of an entry: the view knows how many there are.
#pragma once

#include "ui/ListBox.h"

#include <QAbstractListModel>

#include <algorithm>

namespace formwizard::adapters::qt {

class ListModel final : public QAbstractListModel {
 public:
  // `list` must outlive the use of the model.
  ListModel(const ui::ListBox& list, QObject* owner) : QAbstractListModel(owner), list_(list) {}

  // What the list has done. The view hears of it by TellView, but of a list that was cleared at once.
  void NoteChangeFrom(int row) { changedFrom_ = std::min(changedFrom_, row); }
  void NoteClear();
  // As one change of all that was noted, so that a list that is filled, emptied or sorted costs the view one look.
  void TellView();

  int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : known_; }
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const ui::ListBox& list_;
  int known_ = 0;        // entries that the view knows; there may be more or fewer
  int changedFrom_ = 0;  // the first entry that may be another one than the view knows
};

}  // namespace formwizard::adapters::qt
