// Asks a dictionary what it holds, as the wizard does, one class at a time.
#pragma once

#include "apps/desktop/dictionary/DictionaryEntry.h"
#include "wizard/factory/Factory.h"
#include "wizard/factory/SystemList.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace formwizard::apps::desktop {

// What the dictionary knows of something: a name of its own, such as "MaxLen", and the value.
using Facts = std::vector<std::pair<QString, QString>>;

class DictionaryReader {
 public:
  // All functions fail with what the factory raises; after that another one can be called.
  explicit DictionaryReader(wizard::factory::FactoryCreator& dictionary) : factory_(dictionary.Create()) {}

  std::vector<wizard::factory::System> Systems();

  // The names of the classes of a system that a form can be made for, ordered, nothing behind the last one. Meanwhile
  // nothing else may be asked for.
  void BeginClasses(const QString& connect);
  std::optional<QString> NextClass();

  // Properties, then queries; with the type as it is shown.
  using OnMember = std::function<void(EntryKind kind, const QString& name, const QString& type)>;
  void ForEachMember(const QString& connect, const QString& className, const OnMember& onMember);

  // Of a property or query of a class, and of the class itself.
  Facts OfProperty(const QString& connect, const QString& className, const QString& name);
  Facts OfQuery(const QString& connect, const QString& className, const QString& name);
  Facts OfClass(const QString& connect, const QString& className);

 private:
  std::unique_ptr<wizard::factory::ResultSet> Rows(const QString& connect, wizard::factory::Table table,
                                                   const QString& className);

  std::unique_ptr<wizard::factory::ObjectFactory> factory_;
  std::unique_ptr<wizard::factory::ResultSet> classes_;
  QString connected_;
};

}  // namespace formwizard::apps::desktop
