#include "adapters/qt/ListModel.h"

#include "adapters/qt/Text.h"

#include <algorithm>
#include <utility>

namespace formwizard::adapters::qt {

void ListModel::NoteClear() {
  beginResetModel();
  known_ = changedFrom_ = 0;
  endResetModel();
}

void ListModel::TellView() {
  const int rows = list_.ListCount();
  const int changedFrom = std::exchange(changedFrom_, rows), kept = std::min(rows, known_);
  if (rows > known_) {
    beginInsertRows({}, known_, rows - 1);
    known_ = rows;
    endInsertRows();
  } else if (rows < known_) {
    beginRemoveRows({}, rows, known_ - 1);
    known_ = rows;
    endRemoveRows();
  }
  if (changedFrom < kept) emit dataChanged(index(changedFrom), index(kept - 1));
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || index.row() < 0 || index.row() >= list_.ListCount()) return {};
  return Text(list_.List(index.row()));
}

}  // namespace formwizard::adapters::qt
