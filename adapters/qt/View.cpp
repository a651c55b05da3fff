#include "adapters/qt/View.h"

#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Text.h"

#include <QApplication>
#include <QFontDatabase>

#include <stdexcept>
#include <utility>

namespace formwizard::adapters::qt {
namespace {

constexpr double DesignedSize = 8;  // points, of the dialogs' font

// The dialogs' own font stands for the font of the user's desktop: sizes are relative to it, and another font is used
// where it is installed.
QFont FontOf(const ui::Font& font) {
  QFont result = QApplication::font();
  result.setPointSizeF(result.pointSizeF() * font.Size / DesignedSize);
  const QString family = Text(font.Name);
  if (font.Name.Get() != "MS Sans Serif" && QFontDatabase::hasFamily(family)) result.setFamily(family);
  return result;
}

}  // namespace

void View::NoteChange() {
  if (!std::exchange(noted_, true)) window_.NoteChange(*this);
}

void View::Act(const std::function<void()>& action) { window_.Act(action); }

void View::Update() {
  noted_ = false;
  widget_->setFont(FontOf(control_.Font));
  widget_->setToolTip(Text(control_.ToolTipText));
  widget_->setEnabled(control_.Enabled);
  Show();
  widget_->setVisible(control_.Visible);
}

std::unique_ptr<View> MakeView(FormWindow& window, ui::Control& control) {
  for (const auto make : {MakeSimpleView, MakeListView, MakeTreeView}) {
    if (auto view = make(window, control)) return view;
  }
  throw std::logic_error("a kind of control without a view: " + control.Name);
}

}  // namespace formwizard::adapters::qt
