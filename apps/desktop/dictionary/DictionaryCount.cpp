#include "apps/desktop/dictionary/DictionaryCount.h"

#include "adapters/qt/Text.h"

namespace formwizard::apps::desktop {

bool DictionaryCount::GoOn(const QDeadlineTimer& until) {
  for (; next_ < systems_.size(); ++next_) {
    if (!isReading_) reader_.BeginClasses(adapters::qt::Text(systems_[next_].Connect));
    isReading_ = true;
    for (; reader_.NextClass(); ++classes_) {
      if (!until.hasExpired()) continue;
      ++classes_;
      return true;
    }
    isReading_ = false;
  }
  return false;
}

}  // namespace formwizard::apps::desktop
