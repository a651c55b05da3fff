#include "apps/desktop/window/EditCommands.h"

#include "apps/desktop/basics/Seen.h"

#include <QApplication>

#include <utility>

namespace formwizard::apps::desktop {

EditCommands::EditCommands(Actions& actions, Panes& panes, CodePane& code, FormView& form, PropertiesPanel& properties,
                           DictionaryPane& dictionary)
    : panes_(panes), code_(code), form_(form), properties_(properties), dictionary_(dictionary) {
  actions.On(Command::Copy, [this] { Copy(); });
  actions.On(Command::SelectAll, [this] { code_.View().selectAll(); });
  InEither(
      actions, Command::Find, [this] { dictionary_.Find(); }, [this] { code_.Find(); });
  InEither(
      actions, Command::FindNext, [this] { dictionary_.FindNext(false); }, [this] { code_.FindNext(false); });
  InEither(
      actions, Command::FindPrevious, [this] { dictionary_.FindNext(true); }, [this] { code_.FindNext(true); });
  InCode(actions, Command::GoToLine, [this] { code_.AskForLine(); });
  WhenSeen(code_.View(), [&actions](bool isSeen) { actions.Enable(Command::SelectAll, isSeen); });
}

void EditCommands::InCode(Actions& actions, Command command, std::function<void()> action) {
  actions.On(command, [this, action = std::move(action)] {
    panes_.Show(Pane::Code);
    action();
  });
}

void EditCommands::InEither(Actions& actions, Command command, std::function<void()> inDictionary,
                            std::function<void()> inCode) {
  actions.On(command, [this, inDictionary = std::move(inDictionary), inCode = std::move(inCode)] {
    if (IsDictionaryInFront()) return inDictionary();
    panes_.Show(Pane::Code);
    inCode();
  });
}

// Where the user is, or all that there is to look through.
bool EditCommands::IsDictionaryInFront() const {
  if (!dictionary_.isVisible()) return false;
  return dictionary_.isAncestorOf(QApplication::focusWidget()) || code_.View().document()->isEmpty();
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
