#include "apps/desktop/window/EditCommands.h"

#include "apps/desktop/basics/Seen.h"

#include <QApplication>

#include <utility>

namespace formwizard::apps::desktop {

EditCommands::EditCommands(Actions& actions, Panes& panes, CodePane& code, FormView& form, PropertiesPanel& properties)
    : panes_(panes), code_(code), form_(form), properties_(properties) {
  actions.On(Command::Copy, [this] { Copy(); });
  actions.On(Command::SelectAll, [this] { code_.View().selectAll(); });
  InCode(actions, Command::Find, [this] { code_.Find(); });
  InCode(actions, Command::FindNext, [this] { code_.FindNext(false); });
  InCode(actions, Command::FindPrevious, [this] { code_.FindNext(true); });
  InCode(actions, Command::GoToLine, [this] { code_.AskForLine(); });
  WhenSeen(code_.View(), [&actions](bool isSeen) { actions.Enable(Command::SelectAll, isSeen); });
}

void EditCommands::InCode(Actions& actions, Command command, std::function<void()> action) {
  actions.On(command, [this, action = std::move(action)] {
    panes_.Show(Pane::Code);
    action();
  });
}

// What has the focus; the picture where nothing else can be copied.
void EditCommands::Copy() {
  const QWidget* focus = QApplication::focusWidget();
  if (code_.isVisible() && (focus == &code_.View() || !panes_.isAncestorOf(focus))) {
    code_.View().copy();
  } else if (properties_.isAncestorOf(focus)) {
    properties_.CopyValue();
  } else if (form_.Canvas().Form()) {
    form_.CopyPicture();
  }
}

}  // namespace formwizard::apps::desktop
