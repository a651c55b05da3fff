// The controls of a shown form as screen readers see them: children of the form, each in its container.
#pragma once

#include <QAccessible>

#include <cstddef>
#include <vector>

namespace formwizard::apps::desktop {

class FormCanvas;

class AccessibleControls {
 public:
  // `canvas` owns this object.
  explicit AccessibleControls(FormCanvas& canvas);
  ~AccessibleControls() { Forget(); }
  AccessibleControls(const AccessibleControls&) = delete;
  AccessibleControls& operator=(const AccessibleControls&) = delete;

  // Before another form is shown.
  void Forget();
  void TellSelected(std::size_t index);

  // What stands in for a place of the form; the canvas itself for the form.
  QAccessibleInterface* Of(std::size_t index);
  // Of a container, in tab order.
  const std::vector<std::size_t>& ChildrenOf(std::size_t index);
  // Among the children of its container, from 0.
  std::size_t PositionOf(std::size_t index);

 private:
  void Prepare();

  FormCanvas& canvas_;
  std::vector<QAccessible::Id> ids_;  // 0 where nobody has asked yet
  std::vector<std::vector<std::size_t>> children_;
  std::vector<std::size_t> positions_;
};

}  // namespace formwizard::apps::desktop
