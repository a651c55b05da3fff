// The systems, packages, classes, properties and queries of a dictionary as a tree, read when they are first needed.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "wizard/factory/Factory.h"

#include <QAbstractItemModel>
#include <QIcon>

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

namespace formwizard::apps::desktop {

enum class EntryKind : std::uint8_t { System, Package, Class, Property, Object, Query, Failure };

class DictionaryModel : public QAbstractItemModel {
 public:
  static constexpr int NameColumn = 0, TypeColumn = 1;

  DictionaryModel(const Texts& texts, QObject* parent);

  // Reads the systems; `dictionary` must stay as long as it is shown. Null for none. Reading fails with what the
  // factory raises.
  void Show(wizard::factory::FactoryCreator* dictionary);
  // Only classes whose name has the text, or a property or query that has it, with what is above and below them. Of the
  // properties those are looked at that were read.
  void Narrow(const QString& text);
  // Reads the members of some more classes, the systems' classes first; false when there are none left.
  bool ReadMore();

  // Of the entry, or of what it belongs to: a class by its full name, and its system. Empty where there is none.
  struct ClassName {
    QString System, Class;
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
  struct Entry {
    EntryKind Kind = EntryKind::System;
    QString Name, Type;  // Type of a system: what it is connected with
    Entry* Above = nullptr;
    int Row = 0;  // among those that are shown
    bool IsRead = false;
    std::vector<Entry*> All = {}, Shown = {};
  };
  Entry& At(const QModelIndex& index) const;
  QModelIndex IndexOf(Entry& entry) const;
  Entry& Add(Entry& above, EntryKind kind, const QString& name, const QString& type = "");
  void Read(Entry& entry);
  void ReadClasses(Entry& system);
  void ReadMembers(Entry& entry);
  wizard::factory::ObjectFactory& Connected(const Entry& entry);
  void ShowAll(Entry& entry) const;
  bool NarrowTo(Entry& entry, const QString& text) const;

  const Texts& texts_;
  std::array<QIcon, 7> icons_;
  std::unique_ptr<wizard::factory::ObjectFactory> factory_;
  QString connected_;  // the factory, with what
  std::deque<Entry> entries_;
  Entry* root_;
  std::size_t unread_ = 0;  // no entry in front of it is left to be read
};

}  // namespace formwizard::apps::desktop
