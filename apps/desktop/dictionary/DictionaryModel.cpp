#include "apps/desktop/dictionary/DictionaryModel.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/PlainTip.h"
#include "apps/desktop/basics/Theme.h"

#include <QApplication>
#include <QLocale>

#include <algorithm>
#include <exception>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;

constexpr int WhileBusy = 100;  // milliseconds
constexpr std::size_t MostAtOnce = 10000;

const Entry& SystemOf(const Entry& entry) {
  const Entry* system = &entry;
  while (system->Kind != EntryKind::System) system = system->Above;
  return *system;
}

bool IsMember(EntryKind kind) {
  return kind == EntryKind::Property || kind == EntryKind::Object || kind == EntryKind::Query;
}

}  // namespace

DictionaryModel::DictionaryModel(const Texts& texts, QObject* parent)
    : QAbstractItemModel(parent),
      texts_(texts),
      icons_{IconNamed("system"), IconNamed("folder"), IconNamed("class"),   IconNamed("property"),
             IconNamed("class"),  IconNamed("query"),  IconNamed("missing"), IconNamed("info")},
      root_(&entries_.emplace_back()) {
  slices_.setSingleShot(true);
  connect(&slices_, &QTimer::timeout, this, [this] { WorkOn(); });
}

void DictionaryModel::Show(wizard::factory::FactoryCreator* dictionary) {
  beginResetModel();
  slices_.stop();
  wanted_.clear();
  narrowed_.clear();
  classes_.clear();
  search_.Clear();
  isReading_ = isSearching_ = false;
  wantedText_.clear();
  entries_.clear();
  root_ = &entries_.emplace_back();
  root_->IsRead = true;
  reader_.reset();
  try {
    if (dictionary) {
      reader_ = std::make_unique<DictionaryReader>(*dictionary);
      for (const auto& system : reader_->Systems())
        Add(*root_, EntryKind::System, Text(system.Name), Text(system.Connect));
    }
  } catch (...) {
    endResetModel();
    throw;
  }
  Settle(*root_);
  endResetModel();
}

Entry& DictionaryModel::Add(Entry& above, EntryKind kind, const QString& name, const QString& type) {
  Entry& added = entries_.emplace_back(Entry{.Kind = kind, .Name = name, .Type = type, .Above = &above});
  added.Order = entries_.size();
  added.IsRead = kind != EntryKind::System && kind != EntryKind::Class;
  above.All.push_back(&added);
  return added;
}

// They come ordered by name, and so by package.
void DictionaryModel::AddClass(Entry& system, const QString& name) {
  const QString folder = name.section('.', 0, 0);
  const bool isNew = system.All.empty() || system.All.back()->Name != folder;
  Entry& package = isNew ? Add(system, EntryKind::Package, folder) : *system.All.back();
  classes_.push_back(&Add(package, EntryKind::Class, name));
}

// What cannot be read says so below itself.
void DictionaryModel::ReadMembers(Entry& entry) {
  entry.IsRead = true;
  try {
    reader_->ForEachMember(SystemOf(entry).Type, entry.Name,
                           [&](EntryKind kind, const QString& name, const QString& type) {
                             Add(entry, kind, name, kind == EntryKind::Query ? texts_(T::DictionaryQuery) : type);
                           });
  } catch (const std::exception& failure) {
    Add(entry, EntryKind::Failure, Text(failure.what()));
  }
}

void DictionaryModel::Want(Entry& system) {
  if (system.IsRead) return;
  system.IsRead = true;
  wanted_.push_back(&system);
}

bool DictionaryModel::ReadClassesOf(Entry& system, const QDeadlineTimer& until) {
  if (!isReading_) reader_->BeginClasses(system.Type);
  isReading_ = true;
  while (const auto name = reader_->NextClass()) {
    AddClass(system, *name);
    if (until.hasExpired()) return true;
  }
  return false;
}

bool DictionaryModel::ReadClasses(const QDeadlineTimer& until) {
  while (!wanted_.empty()) {
    Entry& system = *wanted_.front();
    bool isMore = false;
    Entry* package = system.All.empty() ? nullptr : system.All.back();
    try {
      isMore = ReadClassesOf(system, until);
    } catch (const std::exception& failure) {
      Add(system, EntryKind::Failure, Text(failure.what()));
    }
    if (package) Reveal(*package);
    Reveal(system);
    if (isMore) return true;
    isReading_ = false;
    wanted_.pop_front();
  }
  return false;
}

void DictionaryModel::BeginSearch() {
  search_.Begin(std::exchange(wantedText_, ""), classes_);
  searchFailure_.clear();
  for (const Entry* system : root_->All) {
    if (!system->All.empty() && system->All.back()->Kind == EntryKind::Failure)
      searchFailure_ = system->All.back()->Name;
  }
}

bool DictionaryModel::SearchOn(const QDeadlineTimer& until) {
  if (!isSearching_) return false;
  if (!wantedText_.isEmpty()) BeginSearch();
  try {
    isSearching_ = search_.GoOn(*reader_, until, [this](Entry& found, bool byName) { AddFound(found, byName); });
  } catch (const std::exception& failure) {
    searchFailure_ = Text(failure.what());
    isSearching_ = false;
  }
  if (!isSearching_ && search_.IsCut()) {
    Entry& cut = entries_.emplace_back(Entry{.Kind = EntryKind::More, .Above = root_, .IsRead = true});
    cut.Name = texts_(T::DictionaryFirst, QLocale().toString(static_cast<qulonglong>(DictionarySearch::MostFound)));
    cut.Order = entries_.size();
    ListFitting(*root_, cut);
  }
  return isSearching_;
}

// Whatever the user does comes first; a dialog that is open may be making a form.
void DictionaryModel::WorkOn() {
  if (QApplication::activeModalWidget()) {
    slices_.start(WhileBusy);
    return;
  }
  const bool wasSearching = isSearching_;
  if (Work(QDeadlineTimer(sliceMilliseconds_))) slices_.start(0);
  if (wasSearching) OnSearched();
}

void DictionaryModel::OnlyFitting(Entry& entry) {
  if (entry.HasOnlyFitting) return;
  entry.HasOnlyFitting = true;
  narrowed_.push_back(&entry);
}

// The class with what is above it; of its members all, or those that fit.
void DictionaryModel::AddFound(Entry& found, bool byName) {
  if (!byName) {
    if (!found.IsRead) ReadMembers(found);
    OnlyFitting(found);
    for (Entry* member : found.All) {
      if (search_.Fits(member->Name)) found.Fitting.push_back(member);
    }
  }
  Settle(found);
  Entry &package = *found.Above, &system = *package.Above;
  ListFitting(package, found);
  ListFitting(system, package);
  ListFitting(*root_, system);
}

// In the order of the dictionary, whose classes are found by their names before those that are found by their members.
void DictionaryModel::ListFitting(Entry& above, Entry& entry) {
  OnlyFitting(above);
  std::vector<Entry*>& listed = above.Fitting;
  const auto place = std::ranges::lower_bound(listed, entry.Order, {}, &Entry::Order);
  if (place != listed.end() && *place == &entry) return;
  const auto row = static_cast<std::size_t>(place - listed.begin());
  const bool isSeen = !isResetting_ && IsShown(above);
  Settle(entry);
  if (isSeen) beginInsertRows(IndexOf(above), static_cast<int>(row), static_cast<int>(row));
  listed.insert(place, &entry);
  above.Most = std::max(above.Most, listed.size());
  above.Rows = listed.size();
  for (std::size_t i = row; i < listed.size(); ++i) listed[i]->Row = i;
  if (isSeen) endInsertRows();
}

void DictionaryModel::ShowRest(Entry& entry) {
  entry.HasRest = entry.Rows < entry.Listed().size();
  if (!entry.HasRest) return;
  if (!entry.Rest) {
    entry.Rest = &entries_.emplace_back(Entry{.Kind = EntryKind::More, .Above = &entry, .IsRead = true});
  }
  entry.Rest->Row = entry.Rows;
}

void DictionaryModel::Settle(Entry& entry) {
  const std::vector<Entry*>& listed = entry.Listed();
  entry.Rows = std::min(listed.size(), entry.Most);
  for (std::size_t row = 0; row < entry.Rows; ++row) {
    listed[row]->Row = row;
    Settle(*listed[row]);
  }
  ShowRest(entry);
}

bool DictionaryModel::IsShown(const Entry& entry) const {
  if (&entry == root_) return true;
  const Entry& above = *entry.Above;
  return entry.Row < above.RowCount() && &above.RowAt(entry.Row) == &entry && IsShown(above);
}

void DictionaryModel::InsertRows(Entry& entry, std::size_t end) {
  const std::vector<Entry*>& listed = entry.Listed();
  for (std::size_t row = entry.Rows; row < end; ++row) {
    listed[row]->Row = row;
    Settle(*listed[row]);
  }
  beginInsertRows(IndexOf(entry), static_cast<int>(entry.Rows), static_cast<int>(end) - 1);
  entry.Rows = end;
  if (entry.Rest) entry.Rest->Row = end;
  endInsertRows();
}

void DictionaryModel::Reveal(Entry& entry) {
  if (isResetting_ || entry.HasOnlyFitting || !IsShown(entry)) return;
  const std::size_t end = std::min(entry.All.size(), entry.Most);
  if (end > entry.Rows) InsertRows(entry, end);
  if (end == entry.All.size() || entry.HasRest) return;
  const int row = static_cast<int>(end);
  beginInsertRows(IndexOf(entry), row, row);
  ShowRest(entry);
  endInsertRows();
}

void DictionaryModel::ShowMore(const QModelIndex& rest) {
  Entry& entry = At(rest.parent());
  if (!rest.isValid() || &At(rest) != entry.Rest) return;
  const std::size_t left = entry.Listed().size() - entry.Rows;
  entry.Most = entry.Rows + std::min({left, entry.Rows, MostAtOnce});
  InsertRows(entry, entry.Most);
  if (entry.Rows < entry.Listed().size()) return;
  beginRemoveRows(IndexOf(entry), static_cast<int>(entry.Rows), static_cast<int>(entry.Rows));
  entry.HasRest = false;
  endRemoveRows();
}

void DictionaryModel::Narrow(const QString& text) {
  beginResetModel();
  isResetting_ = true;
  for (Entry* entry : narrowed_) {
    entry->HasOnlyFitting = false;
    entry->Fitting.clear();
  }
  narrowed_.clear();
  wantedText_.clear();
  isSearching_ = !text.isEmpty() && reader_;
  if (isSearching_) {
    for (Entry* system : root_->All) Want(*system);
    OnlyFitting(*root_);
    wantedText_ = text;
    if (Work(QDeadlineTimer(sliceMilliseconds_))) slices_.start(0);
  } else {
    search_.End();
  }
  isResetting_ = false;
  Settle(*root_);
  endResetModel();
  OnSearched();
}

Entry* DictionaryModel::After(Entry& entry) const {
  if (entry.RowCount() > 0) return &entry.RowAt(0);
  const Entry* at = &entry;
  while (at != root_ && at->Row + 1 >= at->Above->RowCount()) at = at->Above;
  return at == root_ ? root_ : &at->Above->RowAt(at->Row + 1);
}

Entry* DictionaryModel::Before(Entry& entry) const {
  if (&entry != root_ && entry.Row == 0) return entry.Above;
  Entry* at = &entry == root_ ? root_ : &entry.Above->RowAt(entry.Row - 1);
  while (at->RowCount() > 0) at = &at->RowAt(at->RowCount() - 1);
  return at;
}

QModelIndex DictionaryModel::NextFit(const QModelIndex& index, bool backwards) {
  Entry& start = At(index);
  if (!search_.IsOn()) return {};
  Entry* at = &start;
  do {
    at = backwards ? Before(*at) : After(*at);
    const bool hasName = at->Kind == EntryKind::Class || IsMember(at->Kind);
    if (at != root_ && hasName && search_.Fits(at->Name)) return IndexOf(*at);
  } while (at != &start);
  return {};
}

Facts DictionaryModel::FactsOf(const QModelIndex& index) {
  const Entry& entry = At(index);
  const QString connect = &entry == root_ ? "" : SystemOf(entry).Type;
  try {
    if (entry.Kind == EntryKind::Class) {
      Facts facts = reader_->OfClass(connect, entry.Name);
      facts.insert(facts.begin() + 1, {"System", SystemOf(entry).Name});
      return facts;
    }
    if (entry.Kind == EntryKind::Query) return reader_->OfQuery(connect, entry.Above->Name, entry.Name);
    if (IsMember(entry.Kind)) return reader_->OfProperty(connect, entry.Above->Name, entry.Name);
  } catch (const std::exception& failure) {
    return {{"", Text(failure.what())}};
  }
  if (&entry == root_ || entry.Kind > EntryKind::Package) return {};
  Facts facts{{"Name", entry.Name}};
  if (entry.Kind == EntryKind::System) facts.emplace_back("Connect", entry.Type);
  return facts;
}

Entry& DictionaryModel::At(const QModelIndex& index) const {
  return index.isValid() ? *static_cast<Entry*>(index.internalPointer()) : *root_;
}

QModelIndex DictionaryModel::IndexOf(const Entry& entry) const {
  return &entry == root_ ? QModelIndex() : createIndex(static_cast<int>(entry.Row), NameColumn, &entry);
}

DictionaryModel::ClassName DictionaryModel::ClassOf(const QModelIndex& index) const {
  ClassName name;
  for (const Entry* entry = &At(index); entry != root_; entry = entry->Above) {
    if (IsMember(entry->Kind)) name.Member = entry->Name;
    if (entry->Kind == EntryKind::Class) name.Class = entry->Name;
    if (entry->Kind == EntryKind::System) name.System = entry->Name;
  }
  return name;
}

QModelIndex DictionaryModel::index(int row, int column, const QModelIndex& parent) const {
  const Entry& above = At(parent);
  if (row < 0 || static_cast<std::size_t>(row) >= above.RowCount()) return {};
  return createIndex(row, column, &above.RowAt(static_cast<std::size_t>(row)));
}

QModelIndex DictionaryModel::parent(const QModelIndex& index) const {
  return index.isValid() ? IndexOf(*At(index).Above) : QModelIndex();
}

int DictionaryModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > NameColumn ? 0 : static_cast<int>(At(parent).RowCount());
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
  if (entry.Kind == EntryKind::System) {
    Want(entry);
    if (Work(QDeadlineTimer(sliceMilliseconds_))) slices_.start(0);
    return;
  }
  ReadMembers(entry);
  Reveal(entry);
}

// Below its package a class is shown without it.
QString DictionaryModel::ShownName(const Entry& entry) const {
  if (entry.Kind == EntryKind::Class) return entry.Name.mid(entry.Name.indexOf('.') + 1);
  if (entry.Kind != EntryKind::More || entry.Above == root_) return entry.Name;
  return texts_(T::DictionaryMore,
                QLocale().toString(static_cast<qulonglong>(entry.Above->Listed().size() - entry.Above->Rows)));
}

QVariant DictionaryModel::data(const QModelIndex& index, int role) const {
  const Entry& entry = At(index);
  const bool isName = index.column() == NameColumn;
  if (role == Qt::DisplayRole) return isName ? ShownName(entry) : IsMember(entry.Kind) ? entry.Type : QString();
  if (role == Qt::ToolTipRole && (entry.Kind == EntryKind::Failure || entry.Kind == EntryKind::Class))
    return PlainTip(entry.Name);
  if (role == Qt::ForegroundRole && !isName) return SecondaryText(QApplication::palette());
  if (role == Qt::AccessibleTextRole && isName && IsMember(entry.Kind) && !entry.Type.isEmpty()) {
    return entry.Name + ", " + entry.Type;
  }
  if (role == Qt::DecorationRole && isName) return icons_.at(static_cast<std::size_t>(entry.Kind));
  return {};
}

}  // namespace formwizard::apps::desktop
