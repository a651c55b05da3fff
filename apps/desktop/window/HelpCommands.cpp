#include "apps/desktop/window/HelpCommands.h"

#include "apps/desktop/basics/Messages.h"
#include "support/Strings.h"

#include <QApplication>
#include <QMessageBox>

namespace formwizard::apps::desktop {

HelpCommands::HelpCommands(QWidget& window, const Texts& texts, Actions& actions) : window_(window), texts_(texts) {
  actions.On(Command::Contents, [this] { Show(); });
  actions.On(Command::Licences, [this] { Show("NOTICES.txt"); });
  actions.On(Command::AboutQt, [this] { QMessageBox::aboutQt(&window_); });
  actions.On(Command::About, [this] { ShowAbout(); });
}

void HelpCommands::Show(const QString& page) {
  if (!help_) help_ = new HelpWindow(texts_, &window_);
  help_->Open(page);
}

void HelpCommands::ShowAbout() {
  Ask(window_, texts_,
      {.Title = T::AboutTitle,
       .What = support::ProductName,
       .Why = texts_(T::AboutVersion, QApplication::applicationVersion()) + "\n" + texts_(T::Tagline),
       .Buttons = {T::ButtonOk},
       .Icon = QMessageBox::Information});
}

}  // namespace formwizard::apps::desktop
