// Every window in every language that is shipped.
#include "tests/apps/desktop/Users.h"
#include "tests/support/Languages.h"

#include <QGroupBox>
#include <QRegularExpression>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

const QRegularExpression Ideographs("[\\x{2E80}-\\x{FFFF}]");

// Whether each visible text has the room that it needs.
void CheckFits() {
  QApplication::processEvents();
  const QWidget* window = QApplication::activeModalWidget();
  CHECK(QRect(0, 0, 1024, 768).contains(window->rect()));  // a small screen
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    if (!widget->isVisible() || widget->window() != window) continue;
    CAPTURE(widget->objectName().toStdString());
    CHECK(window->rect().contains(QRect(widget->mapTo(window, QPoint()), widget->size())));
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
      if (label->wordWrap()) CHECK(label->heightForWidth(label->width()) <= label->height());
      for (const QString& word : label->text().split(' ')) {
        if (word.contains(Ideographs)) continue;  // may be broken anywhere
        CHECK(label->fontMetrics().horizontalAdvance(word) <= label->width());
      }
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
      CHECK(button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() <= button->width());
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(widget)) {
      CHECK(group->fontMetrics().horizontalAdvance(group->title()) <= group->width());
    }
  }
}

}  // namespace

TEST_CASE("In each language every step and every panel fits its window") {
  for (const ShippedLanguage& language : ShippedLanguages()) {
    CAPTURE(language.Abbreviation);
    DesktopFixture desktop(language.Abbreviation);
    desktop.UseWizard([&] {
      const wizard::frmWizard& dialog = WizardDesign();
      CHECK((Find<QAbstractButton>(dialog.cmdCancel)->text() == "&Cancel") == (language.Abbreviation == "ENU"));
      MouseUser user;
      PassThroughWizard(user, [&](int step) {
        CAPTURE(step);
        if (step == 4) user.Press(dialog.cmdSelectAll);
        const int rows = step == 5 ? Find<QListView>(dialog.lstFields)->model()->rowCount() : 1;
        for (int row = 0; row < rows; ++row) {  // every panel
          if (step == 5) user.ChooseRow(dialog.lstFields, row);
          CheckFits();
        }
      });
      user.Press(dialog.cmdCancel);
    });
  }
}
