// How many systems and classes a dictionary has, counted in slices.
#pragma once

#include "apps/desktop/dictionary/DictionaryReader.h"

#include <QDeadlineTimer>

#include <cstddef>
#include <optional>
#include <vector>

namespace formwizard::apps::desktop {

class DictionaryCount {
 public:
  // Here and later fails with what the dictionary's factory raises.
  explicit DictionaryCount(wizard::factory::FactoryCreator& dictionary)
      : reader_(dictionary), systems_(reader_.Systems()) {}

  // True when time is up and more is left to be counted.
  bool GoOn(const QDeadlineTimer& until);
  std::size_t Systems() const { return systems_.size(); }
  // That a form can be made for.
  std::size_t Classes() const { return classes_; }

 private:
  DictionaryReader reader_;
  std::vector<wizard::factory::System> systems_;
  std::size_t next_ = 0, classes_ = 0;
  bool isReading_ = false;
};

}  // namespace formwizard::apps::desktop
