// What the open dictionary holds, with a search box above it.
#pragma once

#include "apps/desktop/basics/EmptyState.h"
#include "apps/desktop/dictionary/DictionaryModel.h"

#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QTreeView>

#include <functional>

namespace formwizard::apps::desktop {

class DictionaryPane : public QStackedWidget {
 public:
  // Without a dictionary it says so, and offers `openDictionary`.
  DictionaryPane(const Texts& texts, std::function<void()> openDictionary);

  // Read when the pane is first seen. Null for none; otherwise it must stay until another one is shown.
  void Show(wizard::factory::FactoryCreator* dictionary);
  void Find();

  // Called when a form is wanted for a class.
  std::function<void(const DictionaryModel::ClassName&)> OnNewForm = [](const auto&) {};

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Load();
  void Narrow();
  void SearchOn();
  void ShowButton();
  void NewForm();

  const Texts& texts_;
  std::function<void()> openDictionary_;
  DictionaryModel* model_;
  QLineEdit* search_;
  QTreeView* tree_;
  EmptyState *nothing_, *noEntry_;
  QStackedWidget* stack_;
  QPushButton* newForm_;
  QTimer reading_;
  wizard::factory::FactoryCreator* dictionary_ = nullptr;
  bool isLoaded_ = true;
};

}  // namespace formwizard::apps::desktop
