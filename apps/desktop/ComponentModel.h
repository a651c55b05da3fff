// The components of a project as the list of them asks for them.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"

#include <QAbstractListModel>
#include <QStyledItemDelegate>

#include <vector>

namespace formwizard::apps::desktop {

class ComponentModel final : public QAbstractListModel {
 public:
  using Component = adapters::vb6files::ComponentSummary;
  using QAbstractListModel::QAbstractListModel;

  void Show(std::vector<Component> components);
  const Component& At(const QModelIndex& index) const { return components_[static_cast<std::size_t>(index.row())]; }
  // The component of that name, the first one when there is none; invalid in an empty list.
  QModelIndex Find(const std::string& name) const;
  // The one whose name is the widest. Widths of letters are added, because measuring every name would take far longer.
  QModelIndex Widest(const QFontMetrics& metrics) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<Component> components_;
};

// All entries have the size of the widest: only one is measured.
class ComponentDelegate final : public QStyledItemDelegate {
 public:
  ComponentDelegate(const ComponentModel& model, QObject* owner) : QStyledItemDelegate(owner), model_(model) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return QStyledItemDelegate::sizeHint(option, model_.Widest(option.fontMetrics));
  }

 private:
  const ComponentModel& model_;
};

}  // namespace formwizard::apps::desktop
