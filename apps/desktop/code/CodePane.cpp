#include "apps/desktop/code/CodePane.h"

#include <QInputDialog>
#include <QVBoxLayout>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

constexpr auto Insensitive = Qt::CaseInsensitive;

QComboBox* MadeList(const QString& name) {
  auto* list = new QComboBox;
  list->setAccessibleName(name);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  constexpr int most = 20;
  list->setMaxVisibleItems(most);
  return list;
}

}  // namespace

CodePane::CodePane(const Texts& texts)
    : texts_(texts),
      objects_(MadeList(texts(T::PanelObjects))),
      procedures_(MadeList(texts(T::CodeProcedures))),
      view_(new CodeView),
      stack_(new QStackedWidget),
      instead_(new EmptyState),
      find_(new FindBar(texts, *view_)),
      close_(new QShortcut(QKeySequence(Qt::Key_Escape), this)) {
  auto* lists = new QHBoxLayout;
  lists->setContentsMargins(8, 4, 8, 4);
  lists->setSpacing(8);
  lists->addWidget(objects_, 1);
  lists->addWidget(procedures_, 1);
  view_->setAccessibleName(texts(T::TabCode));
  stack_->addWidget(view_);
  stack_->addWidget(instead_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(lists);
  column->addWidget(stack_, 1);
  column->addWidget(find_);
  setFocusProxy(view_);
  close_->setContext(Qt::WidgetWithChildrenShortcut);
  connect(close_, &QShortcut::activated, find_, [this] { find_->Close(); });
  connect(view_, &QPlainTextEdit::cursorPositionChanged, this, [this] { ShowCursor(); });
  connect(objects_, &QComboBox::activated, this, [this](int row) {
    FillProcedures(objects_->itemData(row).toString());
    emit procedures_->activated(0);
  });
  connect(procedures_, &QComboBox::activated, this, [this](int row) {
    const int line = procedures_->itemData(row).toInt();
    view_->GoToLine(line);
    view_->setFocus(Qt::OtherFocusReason);
  });
}

void CodePane::ShowCode(const QString& code, const QStringList& objects, const QString& whenEmpty) {
  outline_ = OutlineOf(code, objects);
  view_->ShowCode(code);
  view_->SetSeparators(outline_.Ends);
  const bool saysSo = code.trimmed().isEmpty() && !whenEmpty.isEmpty();
  instead_->Say(whenEmpty);
  stack_->setCurrentIndex(saysSo ? 1 : 0);
  objects_->setEnabled(!saysSo);
  procedures_->setEnabled(!saysSo);
  FillObjects();
  FillProcedures("");
  find_->CodeChanged();
  ShowCursor();
}

// As the environment has them: what belongs to no object first, the others by their names.
void CodePane::FillObjects() {
  QStringList names;
  for (const CodeProcedure& procedure : outline_.Procedures) names << procedure.Object;
  names.removeAll("");
  std::ranges::sort(names, [](const QString& a, const QString& b) { return a.compare(b, Insensitive) < 0; });
  names.erase(std::unique(names.begin(), names.end()), names.end());
  objects_->clear();
  objects_->addItem(texts_(T::CodeGeneral), "");
  for (const QString& name : names) objects_->addItem(name, name);
}

void CodePane::FillProcedures(const QString& object) {
  shownObject_ = object;
  std::vector<const CodeProcedure*> shown;
  for (const CodeProcedure& each : outline_.Procedures) {
    if (each.Object == object) shown.push_back(&each);
  }
  std::ranges::stable_sort(shown,
                           [](const auto* a, const auto* b) { return a->Event.compare(b->Event, Insensitive) < 0; });
  procedures_->clear();
  if (object.isEmpty()) procedures_->addItem(texts_(T::CodeDeclarations), 0);
  for (const CodeProcedure* each : shown) procedures_->addItem(each->Event, each->First);
}

// What stands between two procedures belongs to the second one; in front of the first are the declarations.
const CodeProcedure* CodePane::ProcedureAtCursor() const {
  const auto& all = outline_.Procedures;
  const int line = view_->CurrentLine();
  const auto at = std::ranges::lower_bound(all, line, {}, &CodeProcedure::Last);
  if (at == all.end()) return all.empty() ? nullptr : &all.back();
  return at == all.begin() && line < at->First ? nullptr : &*at;
}

void CodePane::ShowCursor() {
  const CodeProcedure* at = ProcedureAtCursor();
  const QString object = at ? at->Object : "";
  if (object != shownObject_) FillProcedures(object);
  objects_->setCurrentIndex(objects_->findData(object));
  procedures_->setCurrentIndex(at ? procedures_->findData(at->First) : 0);
  if (isVisible()) {
    OnPlace(texts_(T::StatusLineColumn, QString::number(view_->CurrentLine() + 1),
                   QString::number(view_->CurrentColumn() + 1)));
  }
}

void CodePane::GoTo(const CodeProcedure& procedure) { view_->GoToLine(procedure.First); }

bool CodePane::GoToProcedure(const QString& name) {
  const auto is = [&](const CodeProcedure& each) { return each.Name.compare(name, Insensitive) == 0; };
  const auto at = std::ranges::find_if(outline_.Procedures, is);
  if (at != outline_.Procedures.end()) GoTo(*at);
  return at != outline_.Procedures.end();
}

bool CodePane::GoToHandlerOf(const QString& object) {
  const auto is = [&](const CodeProcedure& each) { return each.Object.compare(object, Insensitive) == 0; };
  const auto at = std::ranges::find_if(outline_.Procedures, is);
  if (at != outline_.Procedures.end()) GoTo(*at);
  return at != outline_.Procedures.end();
}

void CodePane::AskForLine() {
  const int lines = view_->LineCount();
  QInputDialog ask(this);
  ask.setWindowTitle(texts_(T::GoToLineTitle));
  ask.setLabelText(texts_(T::GoToLineLabel, QString::number(lines)));
  ask.setInputMode(QInputDialog::IntInput);
  ask.setIntRange(1, lines);
  ask.setIntValue(view_->CurrentLine() + 1);
  ask.setOkButtonText(texts_(T::ButtonOk));
  ask.setCancelButtonText(texts_(T::Cancel));
  if (ask.exec() != QDialog::Accepted) return;
  view_->GoToLine(ask.intValue() - 1);
  view_->setFocus(Qt::OtherFocusReason);
}

void CodePane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  ShowCursor();
}

void CodePane::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  OnPlace("");
}

}  // namespace formwizard::apps::desktop
