#include "apps/desktop/formview/AccessibleControls.h"

#include "apps/desktop/formview/ControlPictures.h"
#include "apps/desktop/formview/FormCanvas.h"
#include "apps/desktop/formview/TextLayout.h"
#include "runtime/Conversions.h"

#include <QAccessibleWidget>
#include <QWindow>

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr double BehindAll = 1e9;  // a tab index that no control has

struct ClassRole {
  std::string_view Class;
  QAccessible::Role Role;
};
constexpr std::array Roles{
    ClassRole{"VB.Label", QAccessible::StaticText},
    ClassRole{"VB.TextBox", QAccessible::EditableText},
    ClassRole{"VB.ComboBox", QAccessible::ComboBox},
    ClassRole{"VB.ListBox", QAccessible::List},
    ClassRole{"VB.CommandButton", QAccessible::Button},
    ClassRole{"VB.Frame", QAccessible::Grouping},
    ClassRole{"VB.PictureBox", QAccessible::Pane},
    ClassRole{"VB.Image", QAccessible::Graphic},
    ClassRole{"VB.Shape", QAccessible::Graphic},
    ClassRole{"VB.Line", QAccessible::Graphic},
    ClassRole{"VB.HScrollBar", QAccessible::ScrollBar},
    ClassRole{"VB.VScrollBar", QAccessible::ScrollBar},
    ClassRole{"VB.CheckBox", QAccessible::CheckBox},
    ClassRole{"VB.OptionButton", QAccessible::RadioButton},
    ClassRole{"VB.Menu", QAccessible::MenuItem},
    ClassRole{"MSComctlLib.ListView", QAccessible::Table},
    ClassRole{"TabDlg.SSTab", QAccessible::PageTabList},
    ClassRole{"MSComctlLib.TabStrip", QAccessible::PageTabList},
    ClassRole{"MSComctlLib.TreeView", QAccessible::Tree},
    ClassRole{"MSComctlLib.Toolbar", QAccessible::ToolBar},
    ClassRole{"MSComctlLib.StatusBar", QAccessible::StatusBar},
    ClassRole{"MSComctlLib.ProgressBar", QAccessible::ProgressBar},
    ClassRole{"MSComctlLib.Slider", QAccessible::Slider},
    ClassRole{"MSComCtl2.UpDown", QAccessible::SpinBox},
    ClassRole{"MSComCtl2.DTPicker", QAccessible::ComboBox},
    ClassRole{"RichTextLib.RichTextBox", QAccessible::EditableText},
    ClassRole{"MSMask.MaskEdBox", QAccessible::EditableText},
    ClassRole{"MSFlexGridLib.MSFlexGrid", QAccessible::Table},
    ClassRole{"MSDataGridLib.DataGrid", QAccessible::Table},
};

// What has controls on it: the form, or a control.
template <typename Base>
class Containing : public Base {
 public:
  template <typename... Arguments>
  Containing(FormCanvas& canvas, std::size_t index, Arguments... arguments)
      : Base(arguments...), canvas_(canvas), index_(index) {}

  std::size_t Index() const { return index_; }
  int childCount() const override { return static_cast<int>(Children().size()); }
  QAccessibleInterface* child(int index) const override {
    return index < 0 || index >= childCount() ? nullptr
                                              : canvas_.Accessible().Of(Children()[static_cast<std::size_t>(index)]);
  }
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override {
    for (int i = childCount() - 1; i >= 0; --i) {
      if (child(i)->rect().contains(x, y)) return child(i);
    }
    return nullptr;
  }

 protected:
  const std::vector<std::size_t>& Children() const { return canvas_.Accessible().ChildrenOf(index_); }

  FormCanvas& canvas_;
  std::size_t index_;
};

class AccessibleControl : public Containing<QAccessibleInterface>, public QAccessibleActionInterface {
 public:
  using Containing::Containing;

  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return canvas_.window()->windowHandle(); }
  QAccessibleInterface* parent() const override { return canvas_.Accessible().Of(Place().Container); }

  QString text(QAccessible::Text kind) const override {
    const Texts& texts = canvas_.Said();
    const QString className = ShownText(Node().Class.substr(Node().Class.find('.') + 1));
    const QString property = canvas_.PropertyOf(index_), caption = canvas_.CaptionOf(index_);
    const QString name = ShownText(Node().Name);
    if (kind == QAccessible::Name) return caption.isEmpty() ? name : texts(T::ViewBelongs, name, caption);
    if (kind == QAccessible::Description)
      return property.isEmpty() ? className : texts(T::ViewShows, className, property);
    if (kind == QAccessible::Value) return ShownText(Node().Text("Text"));
    return {};
  }
  void setText(QAccessible::Text, const QString&) override {}

  QRect rect() const override {
    const QRect place = canvas_.PlaceOnWidget(index_);
    return {canvas_.mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::Role role() const override {
    const auto found = std::ranges::find_if(
        Roles, [&](const ClassRole& row) { return runtime::EqualIgnoringCase(row.Class, Node().Class); });
    return found == Roles.end() ? QAccessible::Client : found->Role;
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = state.selectable = true;
    state.readOnly = true;
    state.selected = canvas_.Selected() == index_;
    state.focused = state.selected && canvas_.hasFocus();
    state.invisible = Place().Seen.isEmpty();
    state.disabled = !Node().Flag("Enabled", true);
    state.checkable = role() == QAccessible::CheckBox || role() == QAccessible::RadioButton;
    state.checked = state.checkable && Node().Flag("Value");
    state.hasPopup = role() == QAccessible::MenuItem && !Node().Children.empty();
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }
  QStringList actionNames() const override { return {setFocusAction(), pressAction()}; }
  QString localizedActionDescription(const QString& name) const override {
    if (name != pressAction()) return QAccessibleActionInterface::localizedActionDescription(name);
    return state().hasPopup ? canvas_.Said()(T::ViewOpenMenu) : canvas_.Said()(T::GoToHandler).remove('&');
  }
  void doAction(const QString& name) override {
    canvas_.Select(index_);
    if (name == setFocusAction()) canvas_.setFocus();
    if (name == pressAction()) canvas_.Activate(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  const PlacedNode& Place() const { return canvas_.Places()[index_]; }
  const FormNode& Node() const { return *Place().Node; }
};

template <typename Base>
int Containing<Base>::indexOfChild(const QAccessibleInterface* child) const {
  const auto* control = dynamic_cast<const AccessibleControl*>(child);
  if (!control) return -1;
  const std::size_t position = canvas_.Accessible().PositionOf(control->Index());
  return position < Children().size() && Children()[position] == control->Index() ? static_cast<int>(position) : -1;
}

class AccessibleForm : public Containing<QAccessibleWidget> {
 public:
  explicit AccessibleForm(FormCanvas& canvas) : Containing(canvas, 0, &canvas, QAccessible::Form) {}

  QAccessibleInterface* focusChild() const override {
    return canvas_.hasFocus() && canvas_.Selected() > 0 ? canvas_.Accessible().Of(canvas_.Selected()) : nullptr;
  }
  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    if (!canvas_.Form()) return canvas_.Said()(T::TabForm);
    const QString name = ShownText(canvas_.Form()->Name), caption = ShownText(canvas_.Form()->Text("Caption"));
    return caption.isEmpty() ? name : canvas_.Said()(T::ViewBelongs, caption, name);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    return state;
  }
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
  auto* canvas = dynamic_cast<FormCanvas*>(object);
  return canvas ? new AccessibleForm(*canvas) : nullptr;
}

}  // namespace

AccessibleControls::AccessibleControls(FormCanvas& canvas) : canvas_(canvas) {
  QAccessible::installFactory(MakeAccessible);  // once, however often it is called
}

void AccessibleControls::Forget() {
  for (const QAccessible::Id id : ids_) {
    if (id != 0) QAccessible::deleteAccessibleInterface(id);
  }
  ids_.clear();
  children_.clear();
}

void AccessibleControls::Prepare() {
  if (!children_.empty()) return;
  const std::vector<PlacedNode>& places = canvas_.Places();
  ids_.assign(places.size(), 0);
  children_.resize(std::max<std::size_t>(places.size(), 1));
  for (std::size_t i = 1; i < places.size(); ++i) children_[places[i].Container].push_back(i);
  positions_.assign(places.size(), 0);
  const auto tabIndex = [&](std::size_t i) { return places[i].Node->Number("TabIndex", BehindAll); };
  for (std::vector<std::size_t>& children : children_) {
    std::ranges::stable_sort(children, {}, tabIndex);
    for (std::size_t i = 0; i < children.size(); ++i) positions_[children[i]] = i;
  }
}

QAccessibleInterface* AccessibleControls::Of(std::size_t index) {
  if (index == 0) return QAccessible::queryAccessibleInterface(&canvas_);
  Prepare();
  if (ids_[index] == 0) {
    auto* const made = new AccessibleControl(canvas_, index);
    ids_[index] = QAccessible::registerAccessibleInterface(made);  // NOLINT(clang-analyzer-cplusplus.*): Qt owns it
  }
  return QAccessible::accessibleInterface(ids_[index]);
}

const std::vector<std::size_t>& AccessibleControls::ChildrenOf(std::size_t index) {
  Prepare();
  return children_[index];
}

std::size_t AccessibleControls::PositionOf(std::size_t index) {
  Prepare();
  return positions_[index];
}

void AccessibleControls::TellSelected(std::size_t index) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent selection(Of(index), QAccessible::Selection);
  QAccessible::updateAccessibility(&selection);
  if (!canvas_.hasFocus()) return;
  QAccessibleEvent focus(Of(index), QAccessible::Focus);
  QAccessible::updateAccessibility(&focus);
}

}  // namespace formwizard::apps::desktop
