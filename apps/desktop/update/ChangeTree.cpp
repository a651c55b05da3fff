#include "apps/desktop/update/ChangeTree.h"

#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/update/FormMarks.h"

#include <QHeaderView>
#include <QSignalBlocker>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

constexpr int RemarkWidth = 128, RowHeight = 24;

}  // namespace

ChangeTree::ChangeTree(const Texts& texts) : texts_(texts) {
  setAccessibleName(texts(T::UpdateWhatChanges));
  setColumnCount(2);
  setHeaderHidden(true);
  setFrameShape(QFrame::NoFrame);
  setExpandsOnDoubleClick(false);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(0, QHeaderView::Stretch);
  header()->setSectionResizeMode(1, QHeaderView::Fixed);
  header()->resizeSection(1, RemarkWidth);
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    const auto entry = std::ranges::find(entries_, item, &Entry::Item);
    if (!isShowing_ && entry != entries_.end()) OnSelect(FormChange(entry->Change));
  });
  connect(this, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
    if (auto* box = qobject_cast<QComboBox*>(itemWidget(item, 1))) {
      box->setFocus();
      box->showPopup();
    }
  });
}

void ChangeTree::Show(const FormChanges& changes, const std::vector<UpdateChoices::Conflict>& conflicts) {
  isShowing_ = true;
  const QTreeWidgetItem* current = currentItem();
  const QString name = current ? current->text(0) : "";
  const int group = current && current->parent() ? indexOfTopLevelItem(current->parent()) : 0;
  const bool isSame = std::ranges::equal(boxes_, conflicts, {}, &std::pair<std::string, QComboBox*>::first,
                                         &UpdateChoices::Conflict::Name);
  entries_.clear();
  if (!isSame) {
    boxes_.clear();
    clear();
  }
  while (topLevelItemCount() > (boxes_.empty() ? 0 : 1)) delete takeTopLevelItem(topLevelItemCount() - 1);
  if (boxes_.empty()) {
    AddGroup(T::UpdateToDecide, changes.ToDecide);
    AddBoxes(conflicts);
  } else {
    for (std::size_t i = 0; i < changes.ToDecide.size(); ++i)
      entries_.push_back({changes.ToDecide[i], topLevelItem(0)->child(static_cast<int>(i))});
  }
  AddGroup(T::UpdateControls, changes.Controls);
  AddGroup(T::UpdateProcedures, changes.Procedures);
  AddGroup(T::UpdateYours, changes.Yours);
  ShowChoices(conflicts);
  for (const Entry& each : entries_) {
    if (each.Item->text(0) == name && indexOfTopLevelItem(each.Item->parent()) == group) setCurrentItem(each.Item);
  }
  isShowing_ = false;
}

void ChangeTree::AddGroup(T title, const std::vector<FormChange>& changes) {
  if (changes.empty()) return;
  auto* group = new QTreeWidgetItem(this, {texts_(title, QString::number(changes.size()))});
  QFont bold = font();
  bold.setBold(true);
  group->setFont(0, bold);
  group->setFirstColumnSpanned(true);
  group->setExpanded(true);
  for (const FormChange& each : changes) {
    auto* item = new QTreeWidgetItem(group, {each.Name, RemarkOn(each)});
    item->setIcon(0, IconNamed(LookOf(each.Kind).Icon));
    item->setForeground(1, SecondaryText(palette()));
    item->setSizeHint(0, {0, RowHeight});
    const QString remark = item->text(1);
    item->setToolTip(1, remark);
    item->setData(0, Qt::AccessibleTextRole, remark.isEmpty() ? each.Name : each.Name + ", " + remark);
    entries_.push_back({each, item});
  }
}

// "new", "Caption", "2 lines".
QString ChangeTree::RemarkOn(const FormChange& change) const {
  if (change.Kind == ChangeKind::Conflict) return "";
  if (change.Kind == ChangeKind::New) return texts_(T::UpdateNew);
  if (change.Kind == ChangeKind::Gone) return texts_(T::UpdateGone);
  if (!change.Properties.isEmpty()) return change.Properties.join(", ");
  if (change.Lines == 0) return texts_(T::UpdateChanged);
  return change.Lines == 1 ? texts_(T::UpdateOneLine) : texts_(T::UpdateLines, QString::number(change.Lines));
}

void ChangeTree::AddBoxes(const std::vector<UpdateChoices::Conflict>& conflicts) {
  QWidget* before = this;
  for (std::size_t i = 0; i < conflicts.size(); ++i) {
    auto* box = new QComboBox;
    box->addItems({texts_(T::UpdateKeepMine), texts_(T::UpdateTakeNew)});
    box->setPlaceholderText(texts_(T::UpdateChoose));
    box->setCurrentIndex(-1);
    box->setAccessibleName(entries_[i].Change.Name);
    box->setAccessibleDescription(entries_[i].Change.Name);  // where the choice, once made, is told as the name
    setItemWidget(entries_[i].Item, 1, box);
    setTabOrder(before, box);
    before = box;
    boxes_.emplace_back(conflicts[i].Name, box);
    const auto decide = [this, name = conflicts[i].Name](int index) {
      if (index >= 0) OnDecide(name, index == 0 ? merge::Choice::Mine : merge::Choice::Theirs);
    };
    connect(box, &QComboBox::currentIndexChanged, this, decide, Qt::QueuedConnection);  // which may take the box away
  }
}

void ChangeTree::ShowChoices(const std::vector<UpdateChoices::Conflict>& conflicts) const {
  for (std::size_t i = 0; i < conflicts.size(); ++i) {
    const QSignalBlocker silent(boxes_[i].second);
    const auto takes = conflicts[i].Takes;
    boxes_[i].second->setCurrentIndex(!takes ? -1 : *takes == merge::Choice::Mine ? 0 : 1);
  }
}

}  // namespace formwizard::apps::desktop
