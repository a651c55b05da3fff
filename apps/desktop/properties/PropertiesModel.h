// The rows of the properties panel as a table of names and values.
#pragma once

#include "apps/desktop/properties/PropertyRows.h"

#include <QAbstractTableModel>

#include <vector>

namespace formwizard::apps::desktop {

class PropertiesModel : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  void Show(std::vector<PropertyRow> rows);
  const PropertyRow& At(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  // The row of that name in the group of that title; -1 when there is none.
  int Find(const QString& title, const QString& name) const;
  // Of the group that a row belongs to.
  QString TitleOf(int row) const;

  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 2; }
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  std::vector<PropertyRow> rows_;
};

}  // namespace formwizard::apps::desktop
