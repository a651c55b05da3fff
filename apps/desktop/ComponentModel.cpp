#include "apps/desktop/ComponentModel.h"

#include "adapters/qt/Text.h"

#include <QFontMetrics>

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace formwizard::apps::desktop {

using adapters::qt::Text;

void ComponentModel::Show(std::vector<Component> components) {
  beginResetModel();
  components_ = std::move(components);
  endResetModel();
}

QModelIndex ComponentModel::Find(const std::string& name) const {
  const auto found = std::ranges::find(components_, name, &Component::Name);
  return index(found == components_.end() ? 0 : static_cast<int>(found - components_.begin()));
}

QModelIndex ComponentModel::Widest(const QFontMetrics& metrics) const {
  std::unordered_map<QChar, int> widths;
  const auto widthOf = [&](const Component& component) {
    const QString name = Text(component.Name);
    return std::accumulate(name.begin(), name.end(), 0, [&](int sum, QChar letter) {
      const auto [width, isNew] = widths.try_emplace(letter, 0);
      if (isNew) width->second = metrics.horizontalAdvance(letter);
      return sum + width->second;
    });
  };
  int widest = 0, row = 0;
  for (std::size_t i = 0; i < components_.size(); ++i) {
    if (const int width = widthOf(components_[i]); width > widest) {
      widest = width;
      row = static_cast<int>(i);
    }
  }
  return index(row);
}

int ComponentModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(components_.size());
}

QVariant ComponentModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Component& component = At(index);
  if (role == Qt::DisplayRole) return Text(component.Name);
  if (role == Qt::ToolTipRole) return component.File.empty() ? QString("not saved yet") : Text(component.File);
  return {};
}

}  // namespace formwizard::apps::desktop
