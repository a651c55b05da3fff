#include "adapters/dictionary/Changes.h"

#include "adapters/dictionary/ServerRows.h"
#include "runtime/RuntimeError.h"
#include "support/Failures.h"
#include "wizard/factory/SystemList.h"

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace formwizard::adapters::dictionary {
namespace {

using namespace wizard::factory;
using Form = AttributeChange::Form;

std::vector<AttributeChange> AttributesThatDiffer(Table table, const TextRow& before, const TextRow& after) {
  std::vector<AttributeChange> changes;
  const auto columns = ColumnsOf(table);
  for (std::size_t i = 1; i < columns.size(); ++i) {
    if (before[i] == after[i]) continue;
    const Form form = columns[i].Kind == ColumnKind::Number ? Form::Number : Form::Text;
    changes.push_back({columns[i].Name, form, {before[i]}, {after[i]}});
  }
  return changes;
}

std::vector<AttributeChange> Differing(const TextRow& before, const TextRow& after) {
  return AttributesThatDiffer(Table::Properties, before, after);
}

std::vector<AttributeChange> Differing(const QueryRow& before, const QueryRow& after) {
  std::vector<AttributeChange> changes = AttributesThatDiffer(Table::Queries, before.Values, after.Values);
  if (before.Columns != after.Columns) changes.push_back({"columns", Form::Names, before.Columns, after.Columns});
  if (before.Params != after.Params) changes.push_back({"params", Form::Names, before.Params, after.Params});
  return changes;
}

const std::string& NameOf(const TextRow& row) { return row[0]; }
const std::string& NameOf(const QueryRow& row) { return row.Values[0]; }
const std::string& NameOf(const System& system) { return system.Name; }

class Comparison {
 public:
  Comparison(const std::function<void(const Change&)>& onChange, const std::function<void(double part)>& onProgress)
      : onChange_(onChange), onProgress_(onProgress) {}

  void CompareSystems(const ComparedDictionary& before, const ComparedDictionary& after) {
    const std::vector<System> old = SystemsOf(before), now = SystemsOf(after);
    change_.What = ChangedThing::System;
    systems_ = static_cast<double>(old.size());
    Match(old, now, [&](const System& was, const System& is) {
      std::vector<AttributeChange> connect;
      if (was.Connect != is.Connect) connect.push_back({"connect", Form::Text, {was.Connect}, {is.Connect}});
      Tell(ChangeKind::Changed, was.Name, std::move(connect));
      change_.System = was.Name;
      ClassRows oldClasses(before.Server, was, before.Source), newClasses(after.Server, is, after.Source);
      CompareClasses(oldClasses, newClasses);
      change_.System.clear();
      change_.What = ChangedThing::System;
      ++systemsDone_;
    });
  }

 private:
  static std::vector<System> SystemsOf(const ComparedDictionary& dictionary) {
    try {
      return SystemsIn(dictionary.Server.Create()->SystemList());
    } catch (const runtime::RuntimeError& error) {
      throw support::InputError(dictionary.Source + ": " + error.Description());
    }
  }

  // Both by their names.
  void CompareClasses(ClassRows& before, ClassRows& after) {
    const auto count = onProgress_ ? static_cast<double>(before.Count()) : 0;
    double done = 0;
    bool hasOld = before.Next(), hasNew = after.Next();
    while (hasOld || hasNew) {
      change_.What = ChangedThing::Class;
      const bool isOld = hasOld && (!hasNew || before.Class()[0] <= after.Class()[0]);
      const bool isNew = hasNew && (!hasOld || after.Class()[0] <= before.Class()[0]);
      if (onProgress_ && isOld) onProgress_((systemsDone_ + done++ / count) / systems_);
      if (isOld && isNew) {
        CompareClass(before, after);
      } else {
        Tell(isOld ? ChangeKind::Removed : ChangeKind::Added, (isOld ? before : after).Class()[0]);
      }
      if (isOld) hasOld = before.Next();
      if (isNew) hasNew = after.Next();
    }
  }

  void CompareClass(ClassRows& before, ClassRows& after) {
    const std::string name = before.Class()[0];
    Tell(ChangeKind::Changed, name, AttributesThatDiffer(Table::Classes, before.Class(), after.Class()));
    change_.Class = name;
    const auto tell = [&](const auto& was, const auto& is) {
      Tell(ChangeKind::Changed, NameOf(was), Differing(was, is));
    };
    change_.What = ChangedThing::Property;
    Match(before.Properties(), after.Properties(), tell);
    change_.What = ChangedThing::Query;
    Match(before.Queries(), after.Queries(), tell);
    change_.Class.clear();
  }

  // Tells what only one side has, and calls `compare` for what both have.
  template <typename Row>
  void Match(const std::vector<Row>& before, const std::vector<Row>& after, auto&& compare) {
    std::unordered_map<std::string_view, const Row*> added;
    for (const Row& row : after) added.emplace(NameOf(row), &row);
    for (const Row& row : before) {
      const auto same = added.find(NameOf(row));
      if (same == added.end()) {
        Tell(ChangeKind::Removed, NameOf(row));
      } else {
        compare(row, *same->second);
        added.erase(same);
      }
    }
    for (const Row& row : after) {
      if (added.contains(NameOf(row))) Tell(ChangeKind::Added, NameOf(row));
    }
  }

  void Tell(ChangeKind kind, const std::string& name, std::vector<AttributeChange> attributes = {}) {
    if (kind == ChangeKind::Changed && attributes.empty()) return;
    change_.Kind = kind;
    change_.Name = name;
    change_.Attributes = std::move(attributes);
    onChange_(change_);
  }

  const std::function<void(const Change&)>& onChange_;
  const std::function<void(double part)>& onProgress_;
  Change change_{};
  double systems_ = 1, systemsDone_ = 0;
};

}  // namespace

void CompareDictionaries(const ComparedDictionary& before, const ComparedDictionary& after,
                         const std::function<void(const Change&)>& onChange,
                         const std::function<void(double part)>& onProgress) {
  Comparison(onChange, onProgress).CompareSystems(before, after);
}

}  // namespace formwizard::adapters::dictionary
