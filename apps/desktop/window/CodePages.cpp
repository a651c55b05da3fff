#include "apps/desktop/window/CodePages.h"

#include "system/CodePage.h"

#include <QInputDialog>

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

// Languages that are written in each, as they call themselves.
constexpr std::array Languages{std::pair{874, "ไทย"},
                               std::pair{932, "日本語"},
                               std::pair{936, "简体中文"},
                               std::pair{949, "한국어"},
                               std::pair{950, "繁體中文"},
                               std::pair{1250, "čeština, magyar, polski, slovenščina"},
                               std::pair{1251, "български, русский, српски, українська"},
                               std::pair{1252, "Deutsch, English, español, français, português"},
                               std::pair{1253, "Ελληνικά"},
                               std::pair{1254, "Türkçe"},
                               std::pair{1255, "עברית"},
                               std::pair{1256, "العربية"},
                               std::pair{1257, "eesti, latviešu, lietuvių"},
                               std::pair{1258, "Tiếng Việt"},
                               std::pair{system::Utf8CodePage, "UTF-8"}};

QString LabelOf(int codePage) {
  const auto* const found = std::ranges::find(Languages, codePage, &std::pair<int, const char*>::first);
  return QString::number(codePage) + (found == Languages.end() ? "" : QString("  ") + found->second);
}

}  // namespace

std::vector<int> CodePages() {
  std::vector<int> numbers(system::CodePageNumbers().begin(), system::CodePageNumbers().end());
  numbers.push_back(system::Utf8CodePage);
  std::ranges::sort(numbers);
  return numbers;
}

std::optional<int> AskForCodePage(QWidget& window, const Texts& texts, const QString& project, int current) {
  QStringList labels;
  for (const int number : CodePages()) labels << LabelOf(number);
  QInputDialog dialog(&window);
  dialog.setWindowTitle(texts(T::TitleCodePage));
  dialog.setLabelText(texts(T::CodePageOf, project));
  dialog.setComboBoxItems(labels);
  dialog.setTextValue(LabelOf(current));
  dialog.setOkButtonText(texts(T::ButtonOk));
  dialog.setCancelButtonText(texts(T::Cancel));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.textValue().section(' ', 0, 0).toInt();
}

}  // namespace formwizard::apps::desktop
