#include "apps/desktop/window/NeedsDialog.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/Theme.h"

#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

constexpr int ValueWidth = 250, DialogWidth = 540, StateIcon = 16;

bool HasProject(const Environment& environment) { return environment.Project() != nullptr; }
bool HasDictionary(const Environment& environment) { return !environment.DictionaryPath().empty(); }
bool HasQueryControl(const Environment& environment) {
  return HasProject(environment) && environment.KnowsQueryControl();
}

QString NameOf(const std::string& path) { return QFileInfo(adapters::qt::Text(path)).fileName(); }

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

NeedsDialog::NeedsDialog(QWidget& window, const Texts& texts, const Environment& environment, Files& files)
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
  });
  grid.addWidget(need.State, row, 0);
  grid.addWidget(label, row, 1);
  grid.addWidget(need.Shown, row, 2);
  grid.addWidget(need.Button, row, 3);
}

void NeedsDialog::ShowNeeds() {
  QWidget* next = nullptr;
  for (Need& need : needs_) {
    const bool isThere = need.IsThere(environment_);
    const QString value = (this->*need.Value)(), state = texts_(isThere ? T::Done : T::Missing);
    need.State->setPixmap(IconNamed(isThere ? "done" : "needed").pixmap(StateIcon, StateIcon));
    need.State->setAccessibleName(state);
    need.Shown->setText(value);
    need.Button->setAccessibleName(texts_(need.Label).remove('&'));
    need.Button->setAccessibleDescription(state + ": " + value);
    need.Button->setEnabled(!need.NeedsProject || HasProject(environment_));
    if (!isThere && !next && need.Button->isEnabled()) next = need.Button;
  }
  const bool isComplete = !IsAnythingMissing(environment_);
  continue_->setEnabled(isComplete);
  continue_->setDefault(isComplete);
  (isComplete || !next ? continue_ : next)->setFocus();
}

QString NeedsDialog::Project() const {
  return HasProject(environment_) ? NameOf(environment_.Project()->Path()) : texts_(T::NeedsNoProject);
}

QString NeedsDialog::Dictionary() const {
  return HasDictionary(environment_) ? NameOf(environment_.DictionaryPath()) : texts_(T::NeedsNoDictionary);
}

QString NeedsDialog::Toolbox() const {
  if (!HasProject(environment_)) return texts_(T::NeedsAfterProject);
  if (!HasQueryControl(environment_)) return texts_(T::NeedsNoToolbox);
  return environment_.ToolboxPath().empty() ? texts_(T::NeedsInProject) : NameOf(environment_.ToolboxPath());
}

}  // namespace formwizard::apps::desktop
