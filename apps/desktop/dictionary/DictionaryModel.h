// The systems, packages, classes, properties and queries of a dictionary as a tree, read when they are first needed and
// in slices between the events of the user.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/dictionary/DictionarySearch.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QTimer>

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace formwizard::apps::desktop {

class DictionaryModel : public QAbstractItemModel {
 public:
  static constexpr int NameColumn = 0, TypeColumn = 1;

  DictionaryModel(const Texts& texts, QObject* parent);

  // Reads the systems; `dictionary` must stay as long as it is shown. Null for none. Reading fails with what the
  // factory raises.
  void Show(wizard::factory::FactoryCreator* dictionary);
  // Only classes whose name has the text, or a property or query that has it, with what is above and below them; all
  // for an empty text. OnSearched hears of it again and again until all was looked through.
  void Narrow(const QString& text);
  bool IsSearching() const { return isSearching_; }
  // Whether something is left to be read or looked through.
  bool IsBusy() const { return slices_.isActive(); }
  // Why the search has ended before it had looked through all; empty where it did, or found enough.
  const QString& SearchFailure() const { return searchFailure_; }
  std::function<void()> OnSearched = [] {};
  // How long it works before others have their turn.
  void WorkInSlicesOf(int milliseconds) { sliceMilliseconds_ = milliseconds; }

  // The row that bears the text of the search, behind or in front of the index; past the end it begins again. Invalid
  // when there is none.
  QModelIndex NextFit(const QModelIndex& index, bool backwards);
  // For the row that tells how many more there are: shows some of them.
  void ShowMore(const QModelIndex& rest);

  EntryKind KindOf(const QModelIndex& index) const { return At(index).Kind; }
  // What the dictionary knows of the entry; what cannot be read stands there instead.
  Facts FactsOf(const QModelIndex& index);

  // Of the entry, or of what it belongs to: a class by its full name, its system and one of its members. Empty where
  // there is none.
  struct ClassName {
    QString System, Class, Member;
  };
  ClassName ClassOf(const QModelIndex& index) const;

  QModelIndex index(int row, int column, const QModelIndex& parent) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent) const override;
  int columnCount(const QModelIndex&) const override { return TypeColumn + 1; }
  bool hasChildren(const QModelIndex& parent) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  Entry& At(const QModelIndex& index) const;
  QModelIndex IndexOf(const Entry& entry) const;
  QString ShownName(const Entry& entry) const;
  Entry& Add(Entry& above, EntryKind kind, const QString& name, const QString& type = "");
  void AddClass(Entry& system, const QString& name);
  void ReadMembers(Entry& entry);
  void Want(Entry& system);

  // Each returns true when time is up and more is left to do.
  bool ReadClasses(const QDeadlineTimer& until);
  bool ReadClassesOf(Entry& system, const QDeadlineTimer& until);
  bool SearchOn(const QDeadlineTimer& until);
  bool Work(const QDeadlineTimer& until) { return ReadClasses(until) || SearchOn(until); }
  void WorkOn();

  void AddFound(Entry& found, bool byName);
  void ListFitting(Entry& above, Entry& entry);
  void OnlyFitting(Entry& entry);
  // Makes rows of what is listed below an entry, before a view sees it.
  void Settle(Entry& entry);
  // Tells the view of those that have come since, at the end.
  void Reveal(Entry& entry);
  bool IsShown(const Entry& entry) const;
  void ShowRest(Entry& entry);
  void InsertRows(Entry& entry, std::size_t end);
  void BeginSearch();
  Entry* After(Entry& entry) const;
  Entry* Before(Entry& entry) const;

  const Texts& texts_;
  std::array<QIcon, 8> icons_;
  std::unique_ptr<DictionaryReader> reader_;
  std::deque<Entry> entries_;
  Entry* root_;
  std::vector<Entry*> classes_;
  std::deque<Entry*> wanted_;  // systems whose classes are to be read
  bool isReading_ = false;     // the first of them
  DictionarySearch search_;
  bool isSearching_ = false, isResetting_ = false;
  QString wantedText_;  // of a search that waits for the classes
  QString searchFailure_;
  std::vector<Entry*> narrowed_;
  QTimer slices_;
  int sliceMilliseconds_ = 15;
};

}  // namespace formwizard::apps::desktop
