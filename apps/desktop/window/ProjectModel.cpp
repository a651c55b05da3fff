#include "apps/desktop/window/ProjectModel.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/PlainTip.h"
#include "apps/desktop/basics/Theme.h"
#include "runtime/Conversions.h"

#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <unordered_set>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;

struct GroupRow {
  T Title, Kind;
  const char* Icon;
};

// In the order of vb6files::ComponentGroup; related documents are the last.
constexpr std::array GroupRows{
    GroupRow{T::GroupForms, T::KindForm, "form"},
    GroupRow{T::GroupModules, T::KindModule, "module"},
    GroupRow{T::GroupClasses, T::KindClass, "class"},
    GroupRow{T::GroupUserControls, T::KindUserControl, "control"},
    GroupRow{T::GroupPropertyPages, T::KindPropertyPage, "form"},
    GroupRow{T::GroupUserDocuments, T::KindUserDocument, "form"},
    GroupRow{T::GroupDesigners, T::KindDesigner, "form"},
    GroupRow{T::GroupRelatedDocuments, T::KindRelatedDocument, "document"},
};

// The numbers that an index carries: the project itself, a group, an entry of the group with that number less 2.
constexpr quintptr ProjectId = 0, GroupId = 1, EntryId = 2;

T StateText(const adapters::vb6files::ComponentSummary& entry) {
  if (entry.IsGone) return entry.File.empty() ? T::KeptMissing : T::StateMissing;
  if (entry.File.empty()) return T::StateNew;
  return entry.IsChanged ? T::StateChanged : T::StateSaved;
}

}  // namespace

void ProjectModel::Show(const QString& title, std::vector<Component> components,
                        const std::vector<std::string>& documents) {
  beginResetModel();
  title_ = title;
  std::array<std::vector<Component>, GroupRows.size()> entries;
  for (Component& each : components) entries.at(static_cast<std::size_t>(each.Group)).push_back(std::move(each));
  for (const std::string& path : documents) {
    const std::string name = adapters::qt::Utf8(QFileInfo(Text(path)).fileName());
    entries.back().push_back({.Name = name, .File = path, .IsForm = false, .Group = {}, .IsChanged = false});
  }
  groups_.clear();
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries.at(i).empty()) continue;
    std::ranges::sort(entries.at(i), {}, &Component::Name);
    const GroupRow& row = GroupRows.at(i);
    groups_.push_back({row.Title, row.Kind, row.Icon, std::move(entries.at(i))});
  }
  AddMissing();
  endResetModel();
}

// What has come into the project meanwhile is missing no longer.
void ProjectModel::AddMissing() {
  if (missing_.empty()) return;
  if (groups_.empty() || groups_.front().Kind != T::KindForm) {
    const GroupRow& row = GroupRows.front();
    groups_.insert(groups_.begin(), Group{row.Title, row.Kind, row.Icon, {}});
  }
  std::vector<Component>& forms = groups_.front().Entries;
  std::unordered_set<std::string> there;
  for (const Component& each : forms) there.insert(runtime::LowerCase(each.Name));
  std::erase_if(missing_, [&](const std::string& name) { return there.contains(runtime::LowerCase(name)); });
  for (const std::string& name : missing_) {
    forms.push_back({.Name = name, .File = "", .IsForm = false, .Group = {}, .IsChanged = false, .IsGone = true});
  }
  std::ranges::sort(forms, {}, &Component::Name);
}

void ProjectModel::TakeOutMissing() {
  if (groups_.empty() || groups_.front().Kind != T::KindForm) return;
  std::vector<Component>& forms = groups_.front().Entries;
  std::erase_if(forms, [](const Component& each) { return each.IsGone && each.File.empty(); });
  if (forms.empty()) groups_.erase(groups_.begin());
}

bool ProjectModel::SetMissing(std::set<std::string> names) {
  if (names == missing_) return false;
  beginResetModel();
  TakeOutMissing();
  missing_ = std::move(names);
  AddMissing();
  endResetModel();
  return true;
}

void ProjectModel::Clear() {
  states_.clear();
  missing_.clear();
  Show("", {}, {});
}

const ProjectModel::Group* ProjectModel::GroupAt(const QModelIndex& index) const {
  if (!index.isValid() || index.internalId() == ProjectId) return nullptr;
  const auto at = index.internalId() == GroupId ? static_cast<std::size_t>(index.row()) : index.internalId() - EntryId;
  return &groups_.at(at);
}

const ProjectModel::Component* ProjectModel::At(const QModelIndex& index) const {
  const Group* group = GroupAt(index);
  if (!group || index.internalId() == GroupId || group->Kind == T::KindRelatedDocument) return nullptr;
  const Component& entry = group->Entries.at(static_cast<std::size_t>(index.row()));
  return group->Kind == T::KindForm && missing_.contains(entry.Name) ? nullptr : &entry;
}

std::string ProjectModel::MissingAt(const QModelIndex& index) const {
  const Group* group = GroupAt(index);
  if (!group || index.internalId() == GroupId || group->Kind != T::KindForm) return "";
  const std::string& name = group->Entries.at(static_cast<std::size_t>(index.row())).Name;
  return missing_.contains(name) ? name : "";
}

std::string ProjectModel::FileOf(const QModelIndex& index) const {
  const Group* group = GroupAt(index);
  if (!group || index.internalId() == GroupId) return "";
  return group->Entries.at(static_cast<std::size_t>(index.row())).File;
}

QModelIndex ProjectModel::Find(const std::string& name) const {
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (groups_[i].Kind == T::KindRelatedDocument) continue;
    const std::vector<Component>& entries = groups_[i].Entries;
    const auto found = std::ranges::lower_bound(entries, name, {}, &Component::Name);
    if (found == entries.end() || found->Name != name) continue;
    return createIndex(static_cast<int>(found - entries.begin()), NameColumn, EntryId + i);
  }
  return {};
}

QModelIndex ProjectModel::First() const {
  if (groups_.empty() || groups_.front().Kind == T::KindRelatedDocument) return {};
  const std::vector<Component>& entries = groups_.front().Entries;
  const auto there = std::ranges::find(entries, false, &Component::IsGone);
  const auto listed = std::ranges::find_if(entries, [this](const auto& each) { return !missing_.contains(each.Name); });
  const auto first = there != entries.end() ? there : listed;
  return first == entries.end() ? QModelIndex()
                                : createIndex(static_cast<int>(first - entries.begin()), NameColumn, EntryId);
}

void ProjectModel::SetState(const std::string& name, const KeptState& state) {
  if (state.Words.isEmpty()) {
    states_.erase(name);
  } else {
    states_[name] = state;
  }
  const QModelIndex entry = Find(name);
  if (entry.isValid()) emit dataChanged(entry, entry.siblingAtColumn(StateColumn));
}

QModelIndex ProjectModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  if (!parent.isValid()) return createIndex(row, column, ProjectId);
  if (parent.internalId() == ProjectId) return createIndex(row, column, GroupId);
  return createIndex(row, column, EntryId + static_cast<quintptr>(parent.row()));
}

QModelIndex ProjectModel::parent(const QModelIndex& index) const {
  if (!index.isValid() || index.internalId() == ProjectId) return {};
  if (index.internalId() == GroupId) return createIndex(0, NameColumn, ProjectId);
  return createIndex(static_cast<int>(index.internalId() - EntryId), NameColumn, GroupId);
}

int ProjectModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return title_.isEmpty() ? 0 : 1;
  if (parent.column() != NameColumn || parent.internalId() >= EntryId) return 0;
  if (parent.internalId() == ProjectId) return static_cast<int>(groups_.size());
  return static_cast<int>(GroupAt(parent)->Entries.size());
}

QVariant ProjectModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Group* group = GroupAt(index);
  if (group && index.internalId() != GroupId) {
    const Component& entry = group->Entries.at(static_cast<std::size_t>(index.row()));
    if (index.column() == StateColumn) return StateOf(entry, role);
    return DataOf(*group, entry, role);
  }
  if (index.column() == StateColumn) return {};
  if (role == Qt::DisplayRole) return group ? texts_(group->Title) : title_;
  if (role == Qt::DecorationRole) return IconNamed(group ? "folder" : "project");
  return {};
}

QVariant ProjectModel::DataOf(const Group& group, const Component& entry, int role) const {
  const bool isSaved = !entry.IsChanged && (entry.IsGone || !entry.File.empty());
  switch (role) {
    case Qt::DisplayRole:
      return Text(entry.Name) + (isSaved ? "" : " *");
    case Qt::DecorationRole:
      return IconNamed(group.Icon);
    case Qt::FontRole: {
      QFont bold;
      bold.setBold(true);
      return isSaved ? QVariant() : bold;
    }
    case Qt::ForegroundRole:
      return entry.IsGone ? SecondaryText(QGuiApplication::palette()) : QVariant();
    case Qt::ToolTipRole:
      if (entry.File.empty()) return entry.IsGone ? StateOf(entry, role) : texts_(T::StateNew);
      return PlainTip(entry.IsGone ? texts_(T::MissingTip, Text(entry.File)) : Text(entry.File));
    case Qt::AccessibleTextRole:
      return SpokenName(group, entry);
    default:
      return {};
  }
}

// "frmPerson, form, edited and outdated, saved".
QString ProjectModel::SpokenName(const Group& group, const Component& entry) const {
  QStringList words{Text(entry.Name), texts_(group.Kind)};
  if (const auto state = states_.find(entry.Name); state != states_.end() && !entry.IsGone)
    words << state->second.Words;
  if (group.Kind != T::KindRelatedDocument) words << texts_(StateText(entry));
  return words.join(", ");
}

QVariant ProjectModel::StateOf(const Component& entry, int role) const {
  const auto state = states_.find(entry.Name);
  if (entry.IsGone && role == IconsRole) return QStringList{"missing"};
  if (state == states_.end() || (entry.IsGone && !entry.File.empty())) return {};
  if (role == IconsRole) return state->second.Icons;
  if (role == Qt::ToolTipRole && !state->second.Why.isEmpty()) return PlainTip(state->second.Why);
  if (role == Qt::ToolTipRole || role == Qt::AccessibleTextRole) return state->second.Words;
  return {};
}

QVariant ProjectModel::headerData(int section, Qt::Orientation, int role) const {
  return role == Qt::DisplayRole ? texts_(section == NameColumn ? T::ColumnName : T::ColumnState) : QVariant();
}

}  // namespace formwizard::apps::desktop
