#include "apps/desktop/window/FormCommands.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Seen.h"
#include "apps/desktop/formview/ZoomBox.h"

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using adapters::vb6files::FormNode;

constexpr double ActualSize = 1;

QString ShortClass(const FormNode& node) { return Text(node.Class).section('.', -1); }

// The empty text where the file does not have the property.
QString Twips(const FormNode& node, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (const std::string* value = node.Find(name)) return Text(*value);
  }
  return "";
}

// What the names of the procedures of a control begin with; those of a form do not follow its name.
QString HandlerStem(const FormNode& node) {
  const QString kind = ShortClass(node);
  const bool isDesigned = QStringList{"Form", "MDIForm", "UserControl", "PropertyPage", "UserDocument"}.contains(kind);
  return isDesigned && node.Class.starts_with("VB.") ? kind : Text(node.Name);
}

void AddObjects(const FormNode& node, QStringList& objects) {
  objects << HandlerStem(node);
  for (const FormNode& child : node.Children) AddObjects(child, objects);
}

}  // namespace

QStringList ObjectsOf(const FormNode& form) {
  QStringList objects;
  AddObjects(form, objects);
  return objects;
}

FormCommands::FormCommands(const Texts& texts, Actions& actions, FormView& form, CodePane& code, StatusLine& status,
                           std::function<void()> showCode)
    : texts_(texts), form_(form), code_(code), status_(status), showCode_(std::move(showCode)) {
  actions.On(Command::TabOrder, [this](bool shown) { form_.SetTabOrderShown(shown); });
  actions.On(Command::InvisibleControls, [this](bool shown) { form_.SetInvisibleShown(shown); });
  actions[Command::InvisibleControls].setChecked(true);
  actions.On(Command::OutlineLabels, [this](bool shown) { form_.SetLabelsOutlined(shown); });
  actions.On(Command::ZoomIn, [this] { form_.ZoomIn(); });
  actions.On(Command::ZoomOut, [this] { form_.ZoomOut(); });
  actions.On(Command::ActualSize, [this] { form_.SetScale(ActualSize); });
  actions.On(Command::FitForm, [this] { form_.FitWhole(); });
  WhenSeen(form_, [&actions](bool isSeen) {
    for (const Command command : {Command::ZoomIn, Command::ZoomOut, Command::ActualSize, Command::FitForm}) {
      actions.Enable(command, isSeen);
    }
  });
  actions.On(Command::GoToHandler, [this] {
    if (const FormNode* node = Selected()) GoToHandler(*node);
  });
  form_.OnHandlerWanted = [this](const FormNode& node) { GoToHandler(node); };
  form_.OnSelect = [this] {
    ShowPlace();
    OnSelect();
  };
  auto* room = new QWidget;
  room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  actions.Bar().addWidget(room);
  for (const Command command : {Command::ZoomOut, Command::ZoomIn}) {
    actions[command].setPriority(QAction::LowPriority);  // without its text
    actions.Bar().addAction(&actions[command]);
    if (command == Command::ZoomOut) {
      actions.Bar().addWidget(new ZoomBox(form_, texts(T::ZoomName), texts(T::ZoomFit)));
    }
  }
}

QString FormCommands::Zoom() const { return form_.IsFitted() ? "" : QString::number(form_.Scale()); }

void FormCommands::SetZoom(const QString& zoom) {
  const double scale = zoom.toDouble();
  if (scale >= FormView::Smallest && scale <= FormView::Largest) {  // which no number is neither
    form_.SetScale(scale);
  } else {
    form_.FitWhole();
  }
}

const FormNode* FormCommands::Selected() const {
  const FormCanvas& canvas = form_.Canvas();
  return canvas.Form() && canvas.Selected() < canvas.Places().size() ? canvas.Places()[canvas.Selected()].Node
                                                                     : nullptr;
}

// A line has its ends instead of a size.
void FormCommands::ShowPlace() {
  const FormNode* node = Selected();
  if (!node) return status_.SetPlace("");
  const QString name = Text(node->Name), kind = ShortClass(*node);
  const QString left = Twips(*node, {"ClientLeft", "Left", "X1"}), top = Twips(*node, {"ClientTop", "Top", "Y1"});
  const QString width = Twips(*node, {"ClientWidth", "Width"}), height = Twips(*node, {"ClientHeight", "Height"});
  if (width.isEmpty()) return status_.SetPlace(name + "   " + kind);
  status_.SetPlace(name + "   " + kind + "   " + texts_(T::StatusPlace, left, top, width, height));
}

void FormCommands::GoToHandler(const FormNode& node) {
  if (!code_.GoToHandlerOf(HandlerStem(node))) return status_.Say(texts_(T::NoHandler, Text(node.Name)));
  showCode_();
}

void FormCommands::ShowProcedure(const std::string& name) {
  if (code_.GoToProcedure(Text(name))) showCode_();
}

}  // namespace formwizard::apps::desktop
