#include "apps/desktop/properties/PropertiesPanel.h"

#include "apps/desktop/basics/Icons.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr int RowHeight = 22, NameWidth = 104, MeaningLines = 4;

}  // namespace

PropertiesPanel::PropertiesPanel(FormView& form, Texts texts)
    : form_(form),
      texts_(std::move(texts)),
      model_(new PropertiesModel(this)),
      objects_(new QComboBox),
      table_(new QTableView),
      meaning_(new QLabel) {
  objects_->setAccessibleName(texts_(T::PanelObjects));
  objects_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(objects_, &QComboBox::activated, this, [this](int row) {
    if (!isOther_) form_.Canvas().Select(objects_->itemData(row).toULongLong());
  });

  table_->setAccessibleName(texts_(T::TabProperties));
  table_->setModel(model_);
  table_->horizontalHeader()->hide();
  table_->horizontalHeader()->setStretchLastSection(true);
  table_->setColumnWidth(0, NameWidth);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table_->verticalHeader()->setDefaultSectionSize(RowHeight);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setTabKeyNavigation(false);
  table_->setWordWrap(false);
  table_->setFrameShape(QFrame::NoFrame);
  table_->setContextMenuPolicy(Qt::CustomContextMenu);
  table_->installEventFilter(this);
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { ShowMeaning(); });
  connect(table_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
    if (!isShowing_) wantedScroll_ = value;
  });
  connect(table_, &QTableView::activated, this, [this](const QModelIndex& index) { Open(index); });
  connect(table_, &QTableView::customContextMenuRequested, this, [this](const QPoint& point) {
    QMenu menu(this);
    menu.addAction(texts_(T::Copy), this, [this] { CopyValue(); });
    menu.exec(table_->viewport()->mapToGlobal(point));
  });

  meaning_->setWordWrap(true);
  meaning_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  meaning_->setMargin(8);
  meaning_->setMinimumHeight(MeaningLines * fontMetrics().lineSpacing());
  meaning_->setTextFormat(Qt::RichText);
  meaning_->setTextInteractionFlags(Qt::TextSelectableByMouse);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  column->addWidget(objects_);
  column->addWidget(table_, 1);
  column->addWidget(meaning_);
  ShowSelection();
}

void PropertiesPanel::ShowSelection() {
  const FormCanvas& canvas = form_.Canvas();
  if (isOther_ || shownTimes_ != canvas.FormsShown()) ShowObjects();
  isOther_ = false;
  shownTimes_ = canvas.FormsShown();
  objects_->setCurrentIndex(objects_->findData(static_cast<qulonglong>(canvas.Selected())));
  ShowRows(canvas.Places().empty() ? std::vector<PropertyRow>() : PropertiesOf(canvas, canvas.Selected(), texts_));
}

void PropertiesPanel::ShowOther(const QString& name, const QIcon& icon, std::vector<PropertyRow> rows) {
  isOther_ = true;
  objects_->clear();
  objects_->addItem(icon, name);
  objects_->setEnabled(true);
  ShowRows(std::move(rows));
}

// By name, as one looks for them.
void PropertiesPanel::ShowObjects() {
  std::vector<std::pair<QString, qulonglong>> names;
  const std::vector<PlacedNode>& places = form_.Canvas().Places();
  for (std::size_t i = 0; i < places.size(); ++i) {
    names.emplace_back(NameOfObject(*places[i].Node) + "  " + ClassOfObject(*places[i].Node), i);
  }
  std::ranges::sort(names,
                    [](const auto& a, const auto& b) { return a.first.compare(b.first, Qt::CaseInsensitive) < 0; });
  objects_->clear();
  const QIcon form = IconNamed("form"), menu = IconNamed("popup-menu"), control = IconNamed("control");
  for (const auto& [name, index] : names) {
    objects_->addItem(index == 0 ? form : IsMenu(*places[index].Node) ? menu : control, name, index);
  }
  objects_->setEnabled(!names.empty());
}

void PropertiesPanel::ShowRows(std::vector<PropertyRow> rows) {
  isShowing_ = true;
  const QString title = wantedTitle_, name = wantedName_;
  model_->Show(std::move(rows));
  table_->clearSpans();
  for (int row = 0; row < model_->rowCount({}); ++row) {
    if (model_->At(row).IsTitle) table_->setSpan(row, 0, 1, 2);
  }
  const int found = model_->Find(title, name);
  table_->setCurrentIndex(found < 0 ? QModelIndex() : model_->index(found, 1));
  wantedTitle_ = title;  // also where this control lacks it: the next one may have it
  wantedName_ = name;
  table_->doItemsLayout();  // the scroll bar's range is known then
  table_->verticalScrollBar()->setValue(wantedScroll_);
  if (found >= 0) table_->scrollTo(model_->index(found, 0));
  isShowing_ = false;
  ShowMeaning();
}

void PropertiesPanel::ShowMeaning() {
  const QModelIndex current = table_->currentIndex();
  if (!current.isValid() || model_->At(current.row()).IsTitle) {
    meaning_->setText(model_->rowCount({}) == 0 ? texts_(T::SelectControl) : QString());
    return;
  }
  const PropertyRow& row = model_->At(current.row());
  wantedTitle_ = model_->TitleOf(current.row());
  wantedName_ = row.Name;
  meaning_->setText("<b>" + row.Name.toHtmlEscaped() + "</b><br>" + row.Meaning.toHtmlEscaped());
}

void PropertiesPanel::CopyValue() {
  const QModelIndex current = table_->currentIndex();
  if (current.isValid()) QApplication::clipboard()->setText(model_->At(current.row()).Value);
}

void PropertiesPanel::Open(const QModelIndex& index) {
  const PropertyRow row = model_->At(index.row());  // what it leads to may show others
  if (row.Leads == LeadsTo::Procedure && OnProcedureWanted) OnProcedureWanted(row.Value.toStdString());
  if (row.Leads == LeadsTo::Form && OnFormWanted) OnFormWanted(row.Name.toStdString());
}

// The table would copy what the cell shows, be it the name.
bool PropertiesPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
    return QWidget::eventFilter(watched, event);
  }
  CopyValue();
  return true;
}

}  // namespace formwizard::apps::desktop
