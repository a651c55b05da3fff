#include "apps/desktop/formview/ZoomBox.h"

#include <cmath>

namespace formwizard::apps::desktop {
namespace {

constexpr int Percents[] = {25, 50, 75, 100, 150, 200, 400};

QString Named(int percent) { return QString::number(percent) + " %"; }

}  // namespace

ZoomBox::ZoomBox(FormView& view, const QString& name, const QString& fit) : view_(view) {
  setAccessibleName(name);
  addItem(fit, 0);
  for (const int percent : Percents) addItem(Named(percent), percent);
  connect(this, &QComboBox::activated, this, [this](int index) {
    const int percent = itemData(index).toInt();
    percent == 0 ? view_.FitWhole() : view_.SetScale(percent / 100.0);
  });
  view_.OnZoom = [this] { ShowScale(); };
  ShowScale();
}

// A scale between the usual ones stands at the end as long as it is in force.
void ZoomBox::ShowScale() {
  constexpr int usual = static_cast<int>(std::size(Percents)) + 1;
  while (count() > usual) removeItem(usual);
  const int percent = static_cast<int>(std::lround(view_.Scale() * 100));
  if (!view_.IsFitted() && findData(percent) < 0) addItem(Named(percent), percent);
  setCurrentIndex(view_.IsFitted() ? 0 : findData(percent));
}

}  // namespace formwizard::apps::desktop
