#include "apps/desktop/window/Panes.h"

#include "apps/desktop/basics/Icons.h"

#include <QApplication>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

constexpr int LeftWidth = 248, RightWidth = 264, MiddleWidth = 688;

QTabWidget* MadeTabs(const QString& name) {
  auto* tabs = new QTabWidget;
  tabs->setDocumentMode(true);
  tabs->tabBar()->setExpanding(false);
  tabs->tabBar()->setDrawBase(true);
  tabs->setAccessibleName(name);
  tabs->tabBar()->setAccessibleName(name);
  return tabs;
}

// The pane's widget, or what in it takes the focus first.
QWidget* FocusTargetIn(QWidget& pane) {
  for (QWidget* at = &pane; at; at = at->focusProxy()) {
    if (!at->focusProxy() && at->focusPolicy() != Qt::NoFocus) return at;
  }
  for (QWidget* child : pane.findChildren<QWidget*>()) {
    if (child->isVisible() && child->isEnabled() && (child->focusPolicy() & Qt::TabFocus) != 0) return child;
  }
  return &pane;
}

}  // namespace

Panes::Panes(const Texts& texts, const PaneWidgets& widgets)
    : texts_(texts),
      widgets_(widgets),
      left_(MadeTabs(texts(T::TabProject))),
      views_(MadeTabs(texts(T::PaneViews))),
      right_(new QWidget),
      heading_(new QLabel) {
  left_->addTab(widgets.Project, texts(T::TabProject));
  left_->addTab(widgets.Dictionary, texts(T::TabDictionary));
  views_->addTab(widgets.Form, texts(T::TabForm));
  views_->addTab(widgets.Code, texts(T::TabCode));
  heading_->setContentsMargins(0, 0, 12, 6);
  views_->setCornerWidget(heading_);

  auto* title = new QLabel(texts(T::TabProperties));
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  auto* close = new QToolButton;
  close->setIcon(IconNamed("close"));
  close->setAutoRaise(true);
  close->setFocusPolicy(Qt::TabFocus);
  close->setToolTip(texts(T::ClosePane));
  close->setAccessibleName(texts(T::ClosePane));
  connect(close, &QToolButton::clicked, right_, &QWidget::hide);
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(8, 4, 4, 4);
  bar->addWidget(title, 1);
  bar->addWidget(close);
  auto* column = new QVBoxLayout(right_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(bar);
  column->addWidget(widgets.Properties, 1);

  for (QWidget* part : {static_cast<QWidget*>(left_), static_cast<QWidget*>(views_), right_}) addWidget(part);
  setStretchFactor(0, 0);
  setStretchFactor(1, 1);
  setStretchFactor(2, 0);
  setCollapsible(1, false);
  setSizes({LeftWidth, MiddleWidth, RightWidth});
}

QWidget* Panes::HoldOf(Pane pane) const {
  const std::array holds{widgets_.Project, widgets_.Dictionary, widgets_.Form, widgets_.Code, widgets_.Properties};
  return holds.at(static_cast<std::size_t>(pane));
}

void Panes::Show(Pane pane) {
  QWidget* hold = HoldOf(pane);
  for (QTabWidget* tabs : {left_, views_}) {
    if (const int at = tabs->indexOf(hold); at >= 0) tabs->setCurrentIndex(at);
  }
  if (pane == Pane::Properties && !isNarrow_) right_->show();
  QList<int> widths = sizes();
  const qsizetype part = pane == Pane::Properties && !isNarrow_ ? 2 : pane == Pane::Form || pane == Pane::Code ? 1 : 0;
  if (widths[part] == 0) {
    widths[part] = part == 2 ? RightWidth : LeftWidth;
    setSizes(widths);
  }
  FocusTargetIn(*hold)->setFocus(Qt::ShortcutFocusReason);
}

void Panes::SetFormEnabled(bool enabled) { views_->setTabEnabled(views_->indexOf(widgets_.Form), enabled); }

void Panes::FocusNext(bool backwards) {
  QList<QWidget*> shown{left_->currentWidget(), views_->currentWidget()};
  if (right_->isVisible()) shown << widgets_.Properties;
  qsizetype at = -1;
  for (qsizetype i = 0; i < shown.size(); ++i) {
    if (shown[i]->isAncestorOf(QApplication::focusWidget()) || shown[i] == QApplication::focusWidget()) at = i;
  }
  const qsizetype next = at < 0 ? 0 : (at + (backwards ? shown.size() - 1 : 1)) % shown.size();
  FocusTargetIn(*shown[next])->setFocus(Qt::ShortcutFocusReason);
}

void Panes::SetNarrow(bool isNarrow) {
  if (isNarrow == isNarrow_) return;
  isNarrow_ = isNarrow;
  if (isNarrow) {
    left_->addTab(widgets_.Properties, texts_(T::TabProperties));
    QList<int> widths = sizes();
    widths[0] = std::max(widths[0], left_->tabBar()->sizeHint().width());  // of three
    setSizes(widths);
  } else {
    left_->removeTab(left_->indexOf(widgets_.Properties));
    right_->layout()->addWidget(widgets_.Properties);
    widgets_.Properties->show();
  }
  right_->setVisible(!isNarrow);
  ShowHeading();
}

void Panes::SetHeading(const QString& name, const QString& more) {
  name_ = name;
  more_ = more;
  ShowHeading();
}

void Panes::ShowHeading() {
  const QString name = "<b>" + name_.toHtmlEscaped() + "</b>";
  heading_->setText(isNarrow_ || more_.isEmpty() ? name : name + "&nbsp; " + more_.toHtmlEscaped());
  heading_->setVisible(!name_.isEmpty());
}

}  // namespace formwizard::apps::desktop
