#include "apps/desktop/dictionary/DictionaryModel.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"
#include "runtime/Conversions.h"
#include "wizard/factory/SystemList.h"

#include <QElapsedTimer>

#include <exception>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using adapters::qt::Utf8;
using namespace wizard::factory;

QString Short(const QString& type) { return type.section('.', -1); }

// "String, 50", "list" or "Address".
QString TypeOf(ResultSet& rows) {
  const auto text = [&](const ColumnKey& column) { return Text(runtime::ToText(rows.GetData(column))); };
  QString collection = text(PropertyColumn("Collection"));
  if (!collection.isEmpty()) return collection;
  const QString length = text(PropertyColumn("MaxLen")), type = Short(text(PropertyColumn("Type")));
  return length.isEmpty() || length == "0" ? type : type + ", " + length;
}

}  // namespace

DictionaryModel::DictionaryModel(const Texts& texts, QObject* parent)
    : QAbstractItemModel(parent),
      texts_(texts),
      icons_{IconNamed("system"), IconNamed("folder"), IconNamed("class"),  IconNamed("property"),
             IconNamed("class"),  IconNamed("query"),  IconNamed("missing")},
      root_(&entries_.emplace_back()) {}

void DictionaryModel::Show(FactoryCreator* dictionary) {
  beginResetModel();
  entries_.clear();
  root_ = &entries_.emplace_back();
  root_->IsRead = true;
  unread_ = 1;
  connected_.clear();
  factory_.reset();
  if (dictionary) {
    factory_ = dictionary->Create();
    for (const System& system : SystemsIn(factory_->SystemList())) {
      Add(*root_, EntryKind::System, Text(system.Name), Text(system.Connect));
    }
  }
  ShowAll(*root_);
  endResetModel();
}

DictionaryModel::Entry& DictionaryModel::Add(Entry& above, EntryKind kind, const QString& name, const QString& type) {
  Entry& added = entries_.emplace_back(Entry{.Kind = kind, .Name = name, .Type = type, .Above = &above});
  added.IsRead = kind != EntryKind::System && kind != EntryKind::Class;
  above.All.push_back(&added);
  return added;
}

ObjectFactory& DictionaryModel::Connected(const Entry& entry) {
  const Entry* system = &entry;
  while (system->Kind != EntryKind::System) system = system->Above;
  if (connected_ != system->Type) {
    if (factory_->IsConnected()) factory_->Disconnect();
    factory_->Connect(Utf8(system->Type));
    connected_ = system->Type;
  }
  return *factory_;
}

// What cannot be read says so below itself.
void DictionaryModel::Read(Entry& entry) {
  entry.IsRead = true;
  try {
    if (entry.Kind == EntryKind::System) ReadClasses(entry);
    if (entry.Kind == EntryKind::Class) ReadMembers(entry);
  } catch (const std::exception& failure) {
    connected_.clear();
    Add(entry, EntryKind::Failure, Text(failure.what()), {});
  }
}

// Rows come ordered by name, and so by package.
void DictionaryModel::ReadClasses(Entry& system) {
  const auto rows = Connected(system).ResultSet("%ClassDefinition", "ClassInfo");
  rows->Execute({});
  Entry* package = nullptr;
  while (rows->Next()) {
    if (!runtime::EqualsNumber(rows->GetData(ClassColumn("System")), runtime::Int32(0))) continue;
    if (!runtime::EqualsNumber(rows->GetData(ClassColumn("Persistent")), runtime::Int32(1))) continue;
    const QString name = Text(runtime::ToText(rows->GetData(ClassColumn("Name"))));
    const QString folder = name.section('.', 0, 0);
    if (!package || package->Name != folder) package = &Add(system, EntryKind::Package, folder);
    Add(*package, EntryKind::Class, name.section('.', 1), name);
  }
  rows->Close();
}

void DictionaryModel::ReadMembers(Entry& entry) {
  ObjectFactory& factory = Connected(entry);
  const std::string name = Utf8(entry.Type);
  const auto properties = factory.ResultSet("%CompiledProperty", "PropertyInfo");
  properties->Execute({name});
  while (properties->Next()) {
    const bool isValue = runtime::EqualsNumber(properties->GetData(PropertyColumn("Datatype")), runtime::Int32(1));
    const QString property = Text(runtime::ToText(properties->GetData(PropertyColumn("Name"))));
    Add(entry, isValue ? EntryKind::Property : EntryKind::Object, property, TypeOf(*properties));
  }
  properties->Close();
  const auto queries = factory.ResultSet("%CompiledQuery", "QueryInfo");
  queries->Execute({name});
  while (queries->Next()) {
    Add(entry, EntryKind::Query, Text(runtime::ToText(queries->GetData(QueryColumn("Name")))),
        texts_(T::DictionaryQuery));
  }
  queries->Close();
}

bool DictionaryModel::ReadMore() {
  constexpr int sliceMilliseconds = 15;
  QElapsedTimer time;
  time.start();
  for (; unread_ < entries_.size(); ++unread_) {
    if (time.elapsed() >= sliceMilliseconds) return true;
    if (!entries_[unread_].IsRead) Read(entries_[unread_]);
  }
  return false;
}

void DictionaryModel::ShowAll(Entry& entry) const {
  entry.Shown = entry.All;
  for (std::size_t row = 0; row < entry.Shown.size(); ++row) {
    entry.Shown[row]->Row = static_cast<int>(row);
    ShowAll(*entry.Shown[row]);
  }
}

// Whether anything of it is shown. Whose own name fits keeps all that is below.
bool DictionaryModel::NarrowTo(Entry& entry, const QString& text) const {
  const bool fits = entry.Kind != EntryKind::System && entry.Name.contains(text, Qt::CaseInsensitive);
  const bool isFullName = entry.Kind == EntryKind::Class && entry.Type.contains(text, Qt::CaseInsensitive);
  if (fits || isFullName) {
    ShowAll(entry);
    return true;
  }
  entry.Shown.clear();
  for (Entry* below : entry.All) {
    if (!NarrowTo(*below, text)) continue;
    below->Row = static_cast<int>(entry.Shown.size());
    entry.Shown.push_back(below);
  }
  return !entry.Shown.empty();
}

void DictionaryModel::Narrow(const QString& text) {
  beginResetModel();
  if (text.isEmpty()) {
    ShowAll(*root_);
  } else {
    root_->Shown.clear();
    for (Entry* system : root_->All) {
      if (!system->IsRead) Read(*system);
      if (!NarrowTo(*system, text)) continue;
      system->Row = static_cast<int>(root_->Shown.size());
      root_->Shown.push_back(system);
    }
  }
  endResetModel();
}

DictionaryModel::Entry& DictionaryModel::At(const QModelIndex& index) const {
  return index.isValid() ? *static_cast<Entry*>(index.internalPointer()) : *root_;
}

QModelIndex DictionaryModel::IndexOf(Entry& entry) const {
  return &entry == root_ ? QModelIndex() : createIndex(entry.Row, NameColumn, &entry);
}

DictionaryModel::ClassName DictionaryModel::ClassOf(const QModelIndex& index) const {
  ClassName name;
  for (const Entry* entry = &At(index); entry != root_; entry = entry->Above) {
    if (entry->Kind == EntryKind::Class) name.Class = entry->Type;
    if (entry->Kind == EntryKind::System) name.System = entry->Name;
  }
  return name;
}

QModelIndex DictionaryModel::index(int row, int column, const QModelIndex& parent) const {
  const std::vector<Entry*>& shown = At(parent).Shown;
  if (row < 0 || static_cast<std::size_t>(row) >= shown.size()) return {};
  return createIndex(row, column, shown[static_cast<std::size_t>(row)]);
}

QModelIndex DictionaryModel::parent(const QModelIndex& index) const {
  return index.isValid() ? IndexOf(*At(index).Above) : QModelIndex();
}

int DictionaryModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > NameColumn ? 0 : static_cast<int>(At(parent).Shown.size());
}

bool DictionaryModel::hasChildren(const QModelIndex& parent) const {
  return rowCount(parent) > 0 || canFetchMore(parent);
}

bool DictionaryModel::canFetchMore(const QModelIndex& parent) const {
  return parent.column() <= NameColumn && !At(parent).IsRead;
}

void DictionaryModel::fetchMore(const QModelIndex& parent) {
  Entry& entry = At(parent);
  if (entry.IsRead) return;
  Read(entry);
  if (entry.All.empty()) return;
  beginInsertRows(parent, 0, static_cast<int>(entry.All.size()) - 1);
  ShowAll(entry);
  endInsertRows();
}

QVariant DictionaryModel::data(const QModelIndex& index, int role) const {
  const Entry& entry = At(index);
  const bool isMember = entry.Kind >= EntryKind::Property;
  if (role == Qt::DisplayRole) return index.column() == NameColumn ? entry.Name : isMember ? entry.Type : QString();
  if (entry.Kind == EntryKind::Failure && role == Qt::ToolTipRole) return entry.Name;
  if (role == Qt::AccessibleTextRole && index.column() == NameColumn && !entry.Type.isEmpty() && isMember)
    return entry.Name + ", " + entry.Type;
  if (role == Qt::ToolTipRole && entry.Kind == EntryKind::Class) return entry.Type;
  if (role == Qt::DecorationRole && index.column() == NameColumn)
    return icons_.at(static_cast<std::size_t>(entry.Kind));
  return {};
}

}  // namespace formwizard::apps::desktop
