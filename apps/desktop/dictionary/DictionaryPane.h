// What the open dictionary holds, with a search box above it.
#pragma once

#include "apps/desktop/basics/EmptyState.h"
#include "apps/desktop/dictionary/DictionaryModel.h"

#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeView>

#include <functional>

namespace formwizard::apps::desktop {

class DictionaryPane : public QStackedWidget {
 public:
  // Without a dictionary it says so, and offers `openDictionary`.
  DictionaryPane(const Texts& texts, std::function<void()> openDictionary);

  // Read when the pane is first seen. Null for none; otherwise it must stay until another one is shown.
  void Show(wizard::factory::FactoryCreator* dictionary);
  // The search box, and from one row that fits to the next.
  void Find();
  void FindNext(bool backwards);

  // What the user looks at, which may be nothing.
  DictionaryModel::ClassName Chosen() const { return model_->ClassOf(tree_->currentIndex()); }
  Facts FactsOfChosen() const { return model_->FactsOf(tree_->currentIndex()); }
  QString NameOfChosen() const { return tree_->currentIndex().siblingAtColumn(0).data().toString(); }
  // Called when it is another one.
  std::function<void()> OnChosen = [] {};

  // Called when a form is wanted for a class.
  std::function<void(const DictionaryModel::ClassName&)> OnNewForm = [](const auto&) {};

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Load();
  void ShowFound();
  void ShowChosen();
  void ShowMore(const QPersistentModelIndex& rest);
  void Enter();

  const Texts& texts_;
  std::function<void()> openDictionary_;
  DictionaryModel* model_;
  QLineEdit* search_;
  QTreeView* tree_;
  EmptyState *nothing_, *noEntry_;
  QStackedWidget* stack_;
  QPushButton* newForm_;
  wizard::factory::FactoryCreator* dictionary_ = nullptr;
  bool isLoaded_ = true;
};

}  // namespace formwizard::apps::desktop
