#include "apps/desktop/properties/PropertiesModel.h"

#include "apps/desktop/basics/PlainTip.h"

#include <QFont>

#include <utility>

namespace formwizard::apps::desktop {

void PropertiesModel::Show(std::vector<PropertyRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

int PropertiesModel::Find(const QString& title, const QString& name) const {
  bool isInGroup = false;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].IsTitle) {
      isInGroup = rows_[i].Name == title;
    } else if (isInGroup && rows_[i].Name == name) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

QString PropertiesModel::TitleOf(int row) const {
  while (row >= 0 && !At(row).IsTitle) --row;
  return row < 0 ? QString() : At(row).Name;
}

int PropertiesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant PropertiesModel::data(const QModelIndex& index, int role) const {
  const PropertyRow& row = At(index.row());
  const bool isName = index.column() == 0;
  if (role == Qt::DisplayRole) return isName ? row.Name : row.Value;
  if (role == Qt::ToolTipRole && !isName) return PlainTip(row.Value);
  if (role == Qt::AccessibleDescriptionRole) return row.Meaning;
  if (role != Qt::FontRole || !row.IsTitle) return {};
  QFont bold;
  bold.setBold(true);
  return bold;
}

Qt::ItemFlags PropertiesModel::flags(const QModelIndex& index) const {
  return At(index.row()).IsTitle ? Qt::ItemIsEnabled : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

}  // namespace formwizard::apps::desktop
