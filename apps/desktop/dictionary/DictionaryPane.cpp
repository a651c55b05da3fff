#include "apps/desktop/dictionary/DictionaryPane.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"

#include <QHeaderView>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>

namespace formwizard::apps::desktop {
namespace {

enum Page : int { Browser, Nothing };
constexpr int IconSide = 16, TypeWidth = 84;

}  // namespace

DictionaryPane::DictionaryPane(const Texts& texts, std::function<void()> openDictionary)
    : texts_(texts),
      openDictionary_(std::move(openDictionary)),
      model_(new DictionaryModel(texts, this)),
      search_(new QLineEdit),
      tree_(new QTreeView),
      nothing_(new EmptyState),
      noEntry_(new EmptyState),
      stack_(new QStackedWidget),
      newForm_(new QPushButton(IconNamed("form-new"), "")) {
  search_->setPlaceholderText(texts(T::DictionarySearch));
  search_->setAccessibleName(texts(T::DictionarySearch));
  search_->setClearButtonEnabled(true);
  search_->findChild<QToolButton*>()->setAccessibleName(texts(T::FindClose));
  search_->addAction(IconNamed("query"), QLineEdit::LeadingPosition)->setText(texts(T::DictionarySearch));
  tree_->setModel(model_);
  tree_->setAccessibleName(texts(T::TabDictionary));
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->setFrameShape(QFrame::NoFrame);
  tree_->setIconSize({IconSide, IconSide});
  tree_->header()->setStretchLastSection(false);
  tree_->header()->setSectionResizeMode(DictionaryModel::NameColumn, QHeaderView::Stretch);
  tree_->header()->setSectionResizeMode(DictionaryModel::TypeColumn, QHeaderView::Fixed);
  tree_->header()->resizeSection(DictionaryModel::TypeColumn, TypeWidth);
  stack_->addWidget(tree_);
  stack_->addWidget(noEntry_);
  auto* browser = new QWidget;
  auto* column = new QVBoxLayout(browser);
  column->setContentsMargins(0, 8, 0, 0);
  auto* row = new QHBoxLayout;
  row->setContentsMargins(8, 0, 8, 0);
  row->addWidget(search_);
  column->addLayout(row);
  column->addWidget(stack_, 1);
  newForm_->setObjectName("newForm");
  auto* below = new QHBoxLayout;
  below->setContentsMargins(8, 0, 8, 8);
  below->addWidget(newForm_);
  column->addLayout(below);
  addWidget(browser);
  addWidget(nothing_);
  setFocusProxy(tree_);
  connect(search_, &QLineEdit::textChanged, this, [this] { Narrow(); });
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { ShowButton(); });
  connect(model_, &QAbstractItemModel::modelReset, this, [this] { ShowButton(); });
  connect(newForm_, &QPushButton::clicked, this, [this] { NewForm(); });
  auto* enter = new QShortcut(QKeySequence(Qt::Key_Return), tree_);
  enter->setContext(Qt::WidgetShortcut);
  connect(enter, &QShortcut::activated, this, [this] { NewForm(); });
  connect(&reading_, &QTimer::timeout, this, [this] { SearchOn(); });
  Show(nullptr);
}

void DictionaryPane::Show(wizard::factory::FactoryCreator* dictionary) {
  dictionary_ = dictionary;
  isLoaded_ = false;
  reading_.stop();
  model_->Show(nullptr);
  search_->clear();
  setCurrentIndex(dictionary ? Browser : Nothing);
  nothing_->Say(texts_(T::NoDictionary), texts_(T::ButtonOpenDictionary), openDictionary_);
  if (isVisible()) Load();
}

void DictionaryPane::Load() {
  if (isLoaded_ || !dictionary_) return;
  isLoaded_ = true;
  try {
    model_->Show(dictionary_);
    const QModelIndex first = model_->index(0, 0, {});
    if (model_->rowCount({}) == 1 && model_->canFetchMore(first)) model_->fetchMore(first);
    tree_->expand(first);
  } catch (const std::exception& failure) {
    nothing_->Say(adapters::qt::Text(failure.what()), texts_(T::ButtonOpenDictionary), openDictionary_);
    setCurrentIndex(Nothing);
  }
}

void DictionaryPane::Find() {
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

// Names of classes are found at once; the members of all classes are read between what the user does.
void DictionaryPane::Narrow() {
  model_->Narrow(search_->text());
  if (search_->text().isEmpty()) {
    reading_.stop();
    tree_->expandToDepth(0);
    stack_->setCurrentIndex(0);
    return;
  }
  reading_.start(0);
  SearchOn();
}

void DictionaryPane::SearchOn() {
  if (model_->ReadMore()) return;
  reading_.stop();
  model_->Narrow(search_->text());
  constexpr int packages = 1, mostOpened = 200;
  tree_->expandToDepth(packages - 1);
  for (int system = 0; system < model_->rowCount({}); ++system) {
    const QModelIndex above = model_->index(system, 0, {});
    for (int row = 0; row < std::min(model_->rowCount(above), mostOpened); ++row) {
      tree_->expand(model_->index(row, 0, above));
    }
  }
  noEntry_->Say(texts_(T::DictionaryNothing, search_->text()));
  stack_->setCurrentIndex(model_->rowCount({}) == 0 ? 1 : 0);
}

void DictionaryPane::ShowButton() {
  const QString name = model_->ClassOf(tree_->currentIndex()).Class;
  newForm_->setVisible(!name.isEmpty());
  newForm_->setText(texts_(T::DictionaryNewForm, name.section('.', -1)));
}

void DictionaryPane::NewForm() {
  const DictionaryModel::ClassName name = model_->ClassOf(tree_->currentIndex());
  if (!name.Class.isEmpty()) OnNewForm(name);
}

void DictionaryPane::showEvent(QShowEvent* event) {
  QStackedWidget::showEvent(event);
  Load();
}

}  // namespace formwizard::apps::desktop
