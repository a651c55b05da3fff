#include "apps/desktop/update/UpdateView.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/Theme.h"
#include "vbtext/Lines.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using adapters::vb6files::FormTree;

constexpr QSize Opens(1240, 790), Smallest(640, 480);
constexpr int NarrowBelow = 960, LeftWidth = 300, HeadingHeight = 30, IconSide = 16;

QFont Weighted(QFont font, double size = 1) {
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * size);
  return font;
}

void MakeSecondary(QLabel& label) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, SecondaryText(palette));
  label.setPalette(palette);
}

// The lines of the file in front of its code.
int LinesBefore(const std::string& frm, const std::string& code) {
  return static_cast<int>(vbtext::LinesOf(frm).size()) - static_cast<int>(vbtext::LinesOf(code).size());
}

}  // namespace

UpdateView::UpdateView(QWidget* owner, const Texts& texts, const QString& title, const system::CodePage& codePage,
                       std::vector<UpdateChoices> forms, Cause cause)
    : QDialog(owner),
      texts_(texts),
      codePage_(codePage),
      forms_(std::move(forms)),
      cause_(cause),
      heading_(new QLabel),
      count_(new QLabel),
      note_(new QLabel),
      names_(new QListWidget),
      changes_(new ChangeTree(texts)),
      form_(new FormView(texts)),
      marks_(new FormMarks(*form_)),
      code_(new CodeComparison(texts)),
      picture_(MadePicture()),
      right_(new QSplitter(Qt::Vertical)),
      tabs_(new QTabWidget),
      update_(new QPushButton(texts(T::ButtonUpdate))) {
  setWindowTitle(title);
  setMinimumSize(Smallest);
  auto* right = new QWidget;
  auto* beside = new QVBoxLayout(right);
  beside->setContentsMargins(0, 0, 0, 0);
  beside->addWidget(right_);
  beside->addWidget(tabs_);
  tabs_->hide();
  right_->setChildrenCollapsible(false);
  right_->addWidget(picture_);
  right_->addWidget(code_);
  auto* middle = new QSplitter;
  middle->setChildrenCollapsible(false);
  middle->addWidget(MadeLeft());
  middle->addWidget(right);
  middle->setStretchFactor(1, 1);
  middle->setSizes({LeftWidth, Opens.width() - LeftWidth});
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(MadeHeading());
  column->addWidget(middle, 1);
  column->addWidget(MadeButtons());
  resize(Opens.boundedTo(screen()->availableSize()));
  right_->setSizes({Opens.height(), Opens.height()});
  form_->ShowAside();
  changes_->OnSelect = [this](const FormChange& change) { Show(change); };
  changes_->OnDecide = [this](const std::string& conflict, merge::Choice choice) {
    forms_[shown_].Choose(conflict, choice);
    ShowChanges();
  };
  ShowForm(0);
  for (const UpdateChoices& each : forms_) names_->addItem(Text(each.Form().Name));
  connect(names_, &QListWidget::currentRowChanged, this, [this](int row) { ShowForm(static_cast<std::size_t>(row)); });
  names_->setCurrentRow(0);
  changes_->setFocus();
  ShowDecided();
}

QWidget* UpdateView::MadeHeading() {
  auto* pane = new QWidget;
  auto* column = new QVBoxLayout(pane);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(4);
  heading_->setFont(Weighted(heading_->font(), 1.3));
  for (QLabel* each : {count_, note_}) MakeSecondary(*each);
  note_->setWordWrap(true);
  auto* row = new QHBoxLayout;
  row->setSpacing(12);
  row->addWidget(heading_, 0, Qt::AlignBaseline);
  row->addWidget(count_, 1, Qt::AlignBaseline);
  column->addLayout(row);
  column->addWidget(note_);
  return pane;
}

QWidget* UpdateView::MadeLeft() {
  names_->setAccessibleName(texts_(T::GroupForms));
  names_->setFrameShape(QFrame::NoFrame);
  names_->setVisible(forms_.size() > 1);
  auto* left = new QSplitter(Qt::Vertical);
  left->setChildrenCollapsible(false);
  left->addWidget(names_);
  left->addWidget(changes_);
  left->setSizes({Opens.height(), 3 * Opens.height()});
  left->setMinimumWidth(LeftWidth * 2 / 3);
  return left;
}

// Below its heading and what the signs mean.
QWidget* UpdateView::MadePicture() {
  auto* title = new QLabel(texts_(T::UpdateFormAfter));
  title->setFont(Weighted(title->font()));
  auto* heading = new QHBoxLayout;
  heading->setContentsMargins(12, 0, 12, 0);
  heading->addWidget(title, 1);
  title->setMinimumHeight(HeadingHeight);
  for (const auto& [kind, text] : {std::pair{ChangeKind::New, T::UpdateNew},
                                   {ChangeKind::Changed, T::UpdateChanged},
                                   {ChangeKind::Gone, T::UpdateGone}}) {
    auto* sign = new QLabel;
    sign->setPixmap(IconNamed(LookOf(kind).Icon).pixmap(IconSide, IconSide));
    heading->addSpacing(4);
    heading->addWidget(sign);
    heading->addWidget(new QLabel(texts_(text)));
  }
  auto* pane = new QWidget;
  auto* column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(heading);
  column->addWidget(form_, 1);
  return pane;
}

QWidget* UpdateView::MadeButtons() {
  auto* note = new QLabel(texts_(T::UpdateNothingWritten));
  MakeSecondary(*note);
  auto* cancel = new QPushButton(texts_(T::Cancel));
  connect(update_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* pane = new QWidget;
  auto* row = new QHBoxLayout(pane);
  row->setContentsMargins(16, 8, 16, 8);
  row->addWidget(note, 1);
  row->addWidget(update_);
  if (cause_ == Cause::Choices) {
    auto* again = new QPushButton(texts_(T::ButtonChooseAgain));
    connect(again, &QPushButton::clicked, this, [this] { done(ChooseAgain); });
    row->addWidget(again);
  }
  row->addWidget(cancel);
  return pane;
}

FormTree UpdateView::TreeOf(const kept::FormTexts& texts) const {
  return adapters::vb6files::ReadFormTree(forms_[shown_].Form().File, texts.Frm, texts.Frx, codePage_);
}

void UpdateView::ShowForm(std::size_t form) {
  shown_ = form;
  heading_->setText(
      texts_(cause_ == Cause::Class ? T::UpdateHeading : T::FormWillChange, Text(forms_[form].Form().Name)));
  ShowChanges();
}

// "3 changes, 1 conflict"; empty where it stays as it is.
QString UpdateView::CountOf(const FormChanges& changes) const {
  QStringList counts;
  const auto add = [&](std::size_t count, T one, T some) {
    if (count > 0) counts << (count == 1 ? texts_(one) : texts_(some, QString::number(count)));
  };
  add(changes.Controls.size() + changes.Procedures.size(), T::UpdateOneChange, T::UpdateSomeChanges);
  add(changes.ToDecide.size(), T::UpdateOneConflict, T::UpdateSomeConflicts);
  return counts.join(", ");
}

// Why it changes, and what there is to know that no control or procedure shows.
QString UpdateView::NoteOn(const UpdateChoices& update) const {
  const forms::KeptForm& kept = update.Form();
  QStringList lines;
  if (cause_ == Cause::Class && kept.Next) lines << texts_(T::UpdateNote, Text(kept.Next->Class.Value));
  if (cause_ == Cause::Choices && update.Result().Form == kept.Sides.Mine) lines << texts_(T::SummaryOnlyChoices);
  for (const std::string& note : update.Result().Notes) lines << Text(codePage_.Decode(note));
  for (const std::string& message : kept.Messages) lines << Text(message);
  return lines.join('\n');
}

void UpdateView::ShowChanges() {
  const UpdateChoices& update = forms_[shown_];
  const kept::FormTexts &mine = update.Form().Sides.Mine, &next = update.Result().Form;
  const FormTree before = TreeOf(mine);
  FormTree after = TreeOf(next);
  firstLines_ = {LinesBefore(mine.Frm, before.Code), LinesBefore(next.Frm, after.Code)};
  code_->Show(Text(before.Code), Text(after.Code));
  form_->SetForm(std::move(after));
  const FormChanges changes = ChangesIn(update, codePage_);
  marks_->Show(changes.Controls, &before.Form);
  changes_->Show(changes, update.Conflicts());
  count_->setText(CountOf(changes));
  note_->setText(NoteOn(update));
  note_->setVisible(!note_->text().isEmpty());
  ShowDecided();
}

// The first form that is not decided is the next to be looked at.
void UpdateView::ShowDecided() {
  for (int i = 0; i < names_->count(); ++i) {
    const bool isDecided = forms_[static_cast<std::size_t>(i)].IsDecided();
    names_->item(i)->setIcon(IconNamed(isDecided ? "done" : "conflict"));
    names_->item(i)->setData(Qt::AccessibleTextRole, names_->item(i)->text() + ", " +
                                                         texts_(isDecided ? T::Done : T::UpdateChoose).remove("..."));
  }
  const bool isDecided = std::ranges::all_of(forms_, &UpdateChoices::IsDecided);
  update_->setEnabled(isDecided);
  update_->setDefault(isDecided);
}

void UpdateView::Show(const FormChange& change) {
  if (!change.Control.empty()) form_->Select(adapters::qt::Utf8(change.Name));
  const auto inCode = [&](int line, std::size_t side) {
    return line < firstLines_[side] ? -1 : line - firstLines_[side];
  };
  code_->GoTo(inCode(change.Before, 0), inCode(change.After, 1));
}

void UpdateView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  SetNarrow(width() < NarrowBelow);
}

void UpdateView::SetNarrow(bool isNarrow) {
  if (isNarrow == tabs_->isVisibleTo(this)) return;
  if (isNarrow) {
    tabs_->addTab(picture_, texts_(T::TabForm));
    tabs_->addTab(code_, texts_(T::TabCode));
  } else {
    right_->addWidget(picture_);
    right_->addWidget(code_);
    picture_->show();
    code_->show();
    right_->setSizes({Opens.height(), Opens.height()});
  }
  tabs_->setVisible(isNarrow);
  right_->setVisible(!isNarrow);
}

}  // namespace formwizard::apps::desktop
