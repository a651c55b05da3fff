// What an update changes, in groups; what is to be decided comes first and is decided there.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/update/FormChanges.h"

#include <QComboBox>
#include <QTreeWidget>

#include <functional>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class ChangeTree : public QTreeWidget {
 public:
  explicit ChangeTree(const Texts& texts);

  // What is chosen stays chosen, as far as it is still there.
  void Show(const FormChanges& changes, const std::vector<UpdateChoices::Conflict>& conflicts);

  std::function<void(const FormChange& change)> OnSelect = [](const FormChange&) {};
  std::function<void(const std::string& conflict, merge::Choice choice)> OnDecide = [](const auto&, merge::Choice) {};

 private:
  struct Entry {
    FormChange Change;
    QTreeWidgetItem* Item;
  };

  void AddGroup(T title, const std::vector<FormChange>& changes);
  QString RemarkOn(const FormChange& change) const;
  void AddBoxes(const std::vector<UpdateChoices::Conflict>& conflicts);
  void ShowChoices(const std::vector<UpdateChoices::Conflict>& conflicts) const;

  const Texts& texts_;
  std::vector<Entry> entries_;
  std::vector<std::pair<std::string, QComboBox*>> boxes_;  // by the conflict's name
  bool isShowing_ = false;
};

}  // namespace formwizard::apps::desktop
