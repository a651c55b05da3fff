#include "apps/desktop/basics/Messages.h"

#include "adapters/qt/Text.h"
#include "support/Messages.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

// However the platform shows it.
void MakeBold(const QMessageBox& box) {
  auto* label = box.findChild<QLabel*>("qt_msgbox_label");
  if (!label || box.informativeText().isEmpty()) return;
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
}

}  // namespace

std::size_t Ask(QWidget& window, const Texts& texts, const Message& message) {
  QMessageBox box(QApplication::activeModalWidget() ? QApplication::activeModalWidget() : &window);
  QString title = texts(message.Title).remove('&');
  if (title.endsWith("...")) title.chop(3);
  box.setWindowTitle(title);
  box.setIcon(message.Icon);
  box.setTextFormat(Qt::PlainText);
  box.setText(message.What);
  box.setInformativeText(adapters::qt::Text(support::Shortened(adapters::qt::Utf8(message.Why))));
  std::vector<QPushButton*> buttons;
  // In the order of the table, whatever the desktop's.
  for (const T text : message.Buttons) buttons.push_back(box.addButton(texts(text), QMessageBox::ActionRole));
  box.setDefaultButton(buttons.at(message.Default));
  box.setEscapeButton(buttons.back());
  MakeBold(box);
  box.exec();
  const auto pressed = std::ranges::find(buttons, box.clickedButton());
  return pressed == buttons.end() ? buttons.size() - 1 : static_cast<std::size_t>(pressed - buttons.begin());
}

void Tell(QWidget& window, const Texts& texts, T title, const QString& what, const QString& why) {
  Ask(window, texts, {.Title = title, .What = what, .Why = why, .Buttons = {T::ButtonOk}});
}

}  // namespace formwizard::apps::desktop
