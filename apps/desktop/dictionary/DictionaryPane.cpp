#include "apps/desktop/dictionary/DictionaryPane.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

enum Page : int { Browser, Nothing };
constexpr int IconSide = 16, RowHeight = 22, Indent = 16, Gap = 8;

// All rows have one height, so that none is measured. The type of a member stands at the right, where the name leaves
// room.
class RowDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& given, const QModelIndex& index) const override {
    const QModelIndex type = index.siblingAtColumn(DictionaryModel::TypeColumn);
    const QString text = given.fontMetrics.elidedText(type.data().toString(), Qt::ElideRight, given.rect.width() / 2);
    if (text.isEmpty()) return QStyledItemDelegate::paint(painter, given, index);
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
    option.rect.setRight(option.rect.right() - given.fontMetrics.horizontalAdvance(text) - Gap);
    option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    painter->setPen(isSelected ? option.palette.color(QPalette::HighlightedText)
                               : type.data(Qt::ForegroundRole).value<QColor>());
    painter->drawText(given.rect.adjusted(0, 0, -Gap / 2, 0), Qt::AlignVCenter | Qt::AlignRight, text);
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {RowHeight, std::max(RowHeight, option.fontMetrics.height() + 4)};
  }
};

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
  tree_->setItemDelegate(new RowDelegate(tree_));
  tree_->setUniformRowHeights(true);
  tree_->setFrameShape(QFrame::NoFrame);
  tree_->setIconSize({IconSide, IconSide});
  tree_->setIndentation(Indent);
  tree_->setColumnHidden(DictionaryModel::TypeColumn, true);
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
  search_->installEventFilter(this);
  connect(search_, &QLineEdit::textChanged, model_, &DictionaryModel::Narrow);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { ShowChosen(); });
  connect(model_, &QAbstractItemModel::modelReset, this, [this] { ShowChosen(); });
  connect(model_, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex& above) {
    if (!search_->text().isEmpty() && model_->KindOf(above) <= EntryKind::Package) tree_->expand(above);
  });
  model_->OnSearched = [this] { ShowFound(); };
  connect(newForm_, &QPushButton::clicked, this, [this] { Enter(); });
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* enter = new QShortcut(QKeySequence(key), tree_);
    enter->setContext(Qt::WidgetShortcut);
    connect(enter, &QShortcut::activated, this, [this] { Enter(); });
  }
  Show(nullptr);
}

void DictionaryPane::Show(wizard::factory::FactoryCreator* dictionary) {
  dictionary_ = dictionary;
  isLoaded_ = false;
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

void DictionaryPane::FindNext(bool backwards) {
  const QModelIndex next =
      model_->NextFit(tree_->currentIndex().siblingAtColumn(DictionaryModel::NameColumn), backwards);
  if (!next.isValid()) return Find();
  tree_->setCurrentIndex(next);
  tree_->setFocus(Qt::ShortcutFocusReason);
}

// The first time behind every change of the text, when the model is another one.
void DictionaryPane::ShowFound() {
  const bool isFound = model_->rowCount({}) > 0;
  if (search_->text().isEmpty()) {
    tree_->expandToDepth(0);
  } else if (!isFound) {
    noEntry_->Say(model_->IsSearching()                ? texts_(T::DictionarySearching)
                  : !model_->SearchFailure().isEmpty() ? model_->SearchFailure()
                                                       : texts_(T::DictionaryNothing, search_->text()));
  } else if (!tree_->isExpanded(model_->index(0, 0, {}))) {
    tree_->expandToDepth(1);  // systems and packages
  }
  stack_->setCurrentWidget(isFound || search_->text().isEmpty() ? static_cast<QWidget*>(tree_) : noEntry_);
}

void DictionaryPane::ShowChosen() {
  const QModelIndex current = tree_->currentIndex();
  const QString name = model_->ClassOf(current).Class;
  newForm_->setVisible(!name.isEmpty());
  newForm_->setText(texts_(T::DictionaryNewForm, QString(name.section('.', -1)).replace('&', "&&")));
  if (current.isValid() && model_->KindOf(current) == EntryKind::More) {
    QTimer::singleShot(0, model_, [this, row = QPersistentModelIndex(current)] { ShowMore(row); });
  }
  OnChosen();
}

// Who has come to the end of what is shown goes on with the next.
void DictionaryPane::ShowMore(const QPersistentModelIndex& rest) {
  const QModelIndex above = rest.parent();
  const int row = rest.row();
  if (!rest.isValid() || rest != tree_->currentIndex()) return;
  model_->ShowMore(rest);
  tree_->setCurrentIndex(model_->index(row, DictionaryModel::NameColumn, above));
}

void DictionaryPane::Enter() {
  const DictionaryModel::ClassName name = Chosen();
  if (!name.Class.isEmpty()) OnNewForm(name);
}

// From the search box the arrows lead to what was found, and Esc back to all.
bool DictionaryPane::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QStackedWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Escape && !search_->text().isEmpty()) {
    search_->clear();
  } else if (key == Qt::Key_Escape || key == Qt::Key_Down) {
    if (!tree_->currentIndex().isValid()) tree_->setCurrentIndex(model_->index(0, 0, {}));
    tree_->setFocus(Qt::OtherFocusReason);
  } else {
    return QStackedWidget::eventFilter(watched, event);
  }
  return true;
}

void DictionaryPane::showEvent(QShowEvent* event) {
  QStackedWidget::showEvent(event);
  Load();
}

}  // namespace formwizard::apps::desktop
