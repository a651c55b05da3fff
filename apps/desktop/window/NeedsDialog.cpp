#include "apps/desktop/window/NeedsDialog.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/Theme.h"

#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>

namespace formwizard::apps::desktop {
namespace {

constexpr int ValueWidth = 250, DialogWidth = 540, StateIcon = 16, SliceMilliseconds = 15;

bool HasProject(const Environment& environment) { return environment.Project() != nullptr; }
bool HasDictionary(const Environment& environment) { return !environment.DictionaryPath().empty(); }
bool HasQueryControl(const Environment& environment) {
  return HasProject(environment) && environment.KnowsQueryControl();
}

QString NameOf(const std::string& path) { return QFileInfo(adapters::qt::Text(path)).fileName(); }

QString Counted(auto count) { return QLocale().toString(static_cast<qulonglong>(count)); }

QFont Weighted(QFont font, QFont::Weight weight, double scale = 1) {
  font.setWeight(weight);
  font.setPointSizeF(font.pointSizeF() * scale);
  return font;
}

QFrame* MadeLine() {
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

bool NeedsDialog::IsAnythingMissing(const Environment& environment) {
  return !HasDictionary(environment) || !HasQueryControl(environment);
}

NeedsDialog::NeedsDialog(QWidget& window, const Texts& texts, Environment& environment, Files& files)
    : QDialog(&window),
      texts_(texts),
      environment_(environment),
      files_(files),
      needs_{{T::NeedsProject, HasProject, &NeedsDialog::Project, [](Files& of) { return of.AskForProject(); }, false},
             {T::NeedsDictionary, HasDictionary, &NeedsDialog::Dictionary,
              [](Files& of) { return of.AskForDictionary(); }, false},
             {T::NeedsToolbox, HasQueryControl, &NeedsDialog::Toolbox, [](Files& of) { return of.AskForToolbox(); },
              true}},
      continue_(new QPushButton(texts(T::NeedsContinue))) {
  slices_.setSingleShot(true);
  connect(&slices_, &QTimer::timeout, this, [this] { CountOn(); });
  setWindowTitle(texts(T::NeedsTitle));
  setMinimumWidth(DialogWidth);
  auto* heading = new QLabel(texts(T::NeedsHeading));
  heading->setFont(Weighted(font(), QFont::DemiBold, 1.2));
  auto* note = new QLabel(texts(T::NeedsNote));
  QPalette secondary = palette();
  secondary.setColor(QPalette::WindowText, SecondaryText(secondary));
  note->setPalette(secondary);
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(12);
  grid->setColumnStretch(2, 1);
  for (std::size_t i = 0; i < needs_.size(); ++i) AddRow(needs_[i], *grid, static_cast<int>(i));

  auto* cancel = new QPushButton(texts(T::Cancel));
  connect(continue_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(continue_);
  buttons->addWidget(cancel);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 12);
  column->setSpacing(12);
  column->addWidget(heading);
  column->addWidget(note);
  column->addLayout(grid);
  column->addStretch();
  column->addWidget(MadeLine());
  column->addLayout(buttons);
  ShowNeeds();
  FocusNext();
}

void NeedsDialog::AddRow(Need& need, QGridLayout& grid, int row) {
  need.State = new QLabel;
  need.Shown = new QLabel;
  need.Shown->setWordWrap(true);
  need.Shown->setTextFormat(Qt::PlainText);
  need.Shown->setMinimumWidth(ValueWidth);
  need.Button = new QPushButton(texts_(T::NeedsChoose));
  auto* label = new QLabel(texts_(need.Label));
  label->setFont(Weighted(font(), QFont::DemiBold));
  label->setBuddy(need.Button);  // its access key presses the button
  connect(need.Button, &QPushButton::clicked, this, [this, choose = need.Choose] {
    choose(files_);
    ShowNeeds();
    FocusNext();
  });
  grid.addWidget(need.State, row, 0);
  grid.addWidget(label, row, 1);
  grid.addWidget(need.Shown, row, 2);
  grid.addWidget(need.Button, row, 3);
}

bool NeedsDialog::IsThere(const Need& need) const {
  return need.IsThere(environment_) && (need.Label != T::NeedsDictionary || unreadable_.isEmpty());
}

void NeedsDialog::BeginCount() {
  if (environment_.DictionaryPath() == counted_) return;
  counted_ = environment_.DictionaryPath();
  unreadable_.clear();
  count_.reset();
  try {
    count_ = std::make_unique<DictionaryCount>(environment_.Factories());
    slices_.start(0);
  } catch (const std::exception& failure) {
    unreadable_ = adapters::qt::Text(failure.what());
  }
}

void NeedsDialog::CountOn() {
  try {
    if (count_->GoOn(QDeadlineTimer(SliceMilliseconds))) return slices_.start(0);
  } catch (const std::exception& failure) {
    unreadable_ = adapters::qt::Text(failure.what());
  }
  ShowNeeds();
}

void NeedsDialog::ShowNeeds() {
  BeginCount();
  for (Need& need : needs_) {
    const bool isThere = IsThere(need);
    const QString value = (this->*need.Value)(), state = texts_(isThere ? T::Done : T::Missing);
    need.State->setPixmap(IconNamed(isThere ? "done" : "needed").pixmap(StateIcon, StateIcon));
    need.State->setAccessibleName(state);
    need.Shown->setText(value);
    need.Button->setAccessibleName(texts_(need.Label).remove('&'));
    need.Button->setAccessibleDescription(state + ": " + value);
    need.Button->setEnabled(!need.NeedsProject || HasProject(environment_));
  }
  const bool isComplete = std::ranges::all_of(needs_, [this](const Need& need) { return IsThere(need); });
  continue_->setEnabled(isComplete);
  continue_->setDefault(isComplete);
}

// On to what is still missing.
void NeedsDialog::FocusNext() {
  const auto next =
      std::ranges::find_if(needs_, [this](const Need& need) { return !IsThere(need) && need.Button->isEnabled(); });
  (next == needs_.end() ? continue_ : next->Button)->setFocus();
}

QString NeedsDialog::Project() const {
  if (!HasProject(environment_)) return texts_(T::NeedsNoProject);
  const auto components = environment_.Project()->Summaries();
  const auto forms = std::ranges::count_if(components, [](const auto& component) { return component.IsForm; });
  const QString name = NameOf(environment_.Project()->Path());
  return forms == 1 ? texts_(T::OneForm, name) : texts_(T::Forms, name, Counted(forms));
}

QString NeedsDialog::Dictionary() const {
  if (!HasDictionary(environment_)) return texts_(T::NeedsNoDictionary);
  if (!unreadable_.isEmpty()) return unreadable_;
  QString name = NameOf(environment_.DictionaryPath());
  if (slices_.isActive()) return name;
  const QString classes =
      count_->Classes() == 1 ? texts_(T::OneClass, name) : texts_(T::Classes, name, Counted(count_->Classes()));
  return count_->Systems() == 1 ? classes : texts_(T::InSystems, classes, Counted(count_->Systems()));
}

QString NeedsDialog::Toolbox() const {
  if (!HasProject(environment_)) return texts_(T::NeedsAfterProject);
  if (!HasQueryControl(environment_)) return texts_(T::NeedsNoToolbox);
  if (environment_.ToolboxPath().empty()) return texts_(T::NeedsInProject);
  QStringList controls{NameOf(environment_.ToolboxPath())};
  for (const std::string& progId : environment_.ToolboxControls()) {  // "LIBRARY.Control.1"
    controls << adapters::qt::Text(progId).section('.', 1, 1);
  }
  return controls.join(", ");
}

}  // namespace formwizard::apps::desktop
