// Every window in every language that is shipped.
#include "tests/apps/desktop/DesktopFixture.h"
#include "tests/support/Languages.h"

#include <QGroupBox>
#include <QRegularExpression>

using namespace formwizard::tests;

namespace {

const QRegularExpression Ideographs("[\\x{2E80}-\\x{FFFF}]");

// Whether each visible text has the room that it needs.
void CheckFits(const char* where) {
  CAPTURE(where);
  QApplication::processEvents();
  const QWidget* window = QApplication::activeModalWidget();
  for (const QWidget* widget : window->findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
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

void Click(const char* name) { Find<QAbstractButton>(name)->click(); }

}  // namespace

TEST_CASE("In each language every step and every panel fits its window") {
  for (const ShippedLanguage& language : ShippedLanguages()) {
    CAPTURE(language.Abbreviation);
    DesktopFixture desktop(language.Abbreviation);
    desktop.UseWizard([&] {
      CheckFits("1");
      const bool isEnglish = language.Abbreviation == "ENU";
      CHECK((Find<QAbstractButton>("cmdCancel")->text() == "&Cancel") == isEnglish);
      DesktopFixture::WhenShown([] {
        CheckFits("settings");
        Click("cmdCancel");
      });
      Click("cmdSettings");
      Click("cmdNext");
      CheckFits("2");
      Click("cmdNext");
      CheckFits("3");
      auto* classes = Find<QTreeWidget>("tvwClasses");
      classes->setCurrentItem(FindItem(*classes, "Person"));
      Click("cmdNext");
      auto* properties = Find<QTreeWidget>("tvwAttributes");
      properties->expandItem(FindItem(*properties, "Spouse"));
      Click("cmdSelectAll");
      CheckFits("4");
      Click("cmdNext");
      auto* fields = Find<QListWidget>("lstFields");
      for (int row = 0; row < fields->count(); ++row) {
        fields->setCurrentRow(row);
        if (fields->item(row)->text() == "Spouse.Name") Click("chkRefCombo");
        CheckFits("5");
        if (fields->item(row)->text() == "Spouse.Name") Click("chkRefCombo");
      }
      Click("cmdNext");
      CheckFits("6");
      Click("cmdCancel");
    });
  }
}
