#include "apps/desktop/basics/Days.h"

#include <QLocale>

namespace formwizard::apps::desktop {

QString DayText(const Texts& texts, const QDate& day) {
  const qint64 ago = day.daysTo(QDate::currentDate());
  if (ago == 0) return texts(T::Today);
  if (ago == 1) return texts(T::Yesterday);
  return day.isValid() ? QLocale().toString(day, QLocale::ShortFormat) : "";
}

}  // namespace formwizard::apps::desktop
