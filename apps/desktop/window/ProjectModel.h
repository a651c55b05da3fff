// The components of a project in groups, as the tree of them asks for them.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/desktop/basics/Texts.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

// How a form stands to what it was generated from.
struct KeptState {
  QStringList Icons;
  QString Words;     // "edited and outdated"; empty for a form that is not kept
  QString Why = "";  // of a form that the project lacks
};

class ProjectModel final : public QAbstractItemModel {
 public:
  using Component = adapters::vb6files::ComponentSummary;
  enum Column : std::uint8_t { NameColumn, StateColumn, ColumnCount };
  static constexpr int IconsRole = Qt::UserRole;  // of a state: the names of its icons

  ProjectModel(const Texts& texts, QObject* owner) : QAbstractItemModel(owner), texts_(texts) {}

  // `title` names the project.
  void Show(const QString& title, std::vector<Component> components, const std::vector<std::string>& documents);
  void Clear();
  // Null for what is no component: the project, a group, a related document, a form that the project lacks.
  const Component* At(const QModelIndex& index) const;
  // The name of a form that the project lacks; empty for anything else.
  std::string MissingAt(const QModelIndex& index) const;
  // The path of a component's file or of a related document; empty for anything else and for a form that has none.
  std::string FileOf(const QModelIndex& index) const;
  // The component of that name, or the form that the project lacks; invalid when there is none.
  QModelIndex Find(const std::string& name) const;
  // The component that comes first, where one in front of all others is there; invalid without one.
  QModelIndex First() const;
  // In the second column. A name that there is not is passed over.
  void SetState(const std::string& name, const KeptState& state);
  // Forms that are kept and that the project lacks, which have rows among the forms, also when the project is shown
  // again. False when they had them already.
  bool SetMissing(std::set<std::string> names);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex&) const override { return ColumnCount; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Group {
    T Title, Kind;
    QString Icon;
    std::vector<Component> Entries;  // by name
  };

  void AddMissing();
  void TakeOutMissing();
  const Group* GroupAt(const QModelIndex& index) const;
  QVariant DataOf(const Group& group, const Component& entry, int role) const;
  QVariant StateOf(const Component& entry, int role) const;
  QString SpokenName(const Group& group, const Component& entry) const;

  const Texts& texts_;
  QString title_;
  std::vector<Group> groups_;  // what the project has, and the forms that it lacks; none of them empty
  std::map<std::string, KeptState> states_;
  std::set<std::string> missing_;
};

}  // namespace formwizard::apps::desktop
