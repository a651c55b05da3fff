// The forms that the wizard has made, which are kept when they are saved.
#pragma once

#include "adapters/qt/DialogWatcher.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/forms/FormDescription.h"

#include <map>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class NewForms {
 public:
  struct NotKept {
    std::string Form, Why;
  };
  // By which forms are made once more.
  struct Maker {
    std::string Dictionary, Program;
  };

  // A form of the open project, which these choices have given.
  void Add(const std::string& form, forms::FormDescription choices) { choices_[form] = std::move(choices); }
  void Clear() { choices_.clear(); }

  // Of the files that a save has finished: has the project write the kept texts of each form that these choices give
  // again. The others, with the reason.
  std::vector<NotKept> PutInto(adapters::vb6files::ProjectOnDisk& project,
                               const std::vector<adapters::vb6files::FileChange>& finished, const Maker& maker) const;

 private:
  std::map<std::string, forms::FormDescription> choices_;  // by the name of the form
};

// Remembers the system that the wizard is connected to when it closes.
class SystemWatcher : public adapters::qt::DialogWatcher {
 public:
  // Everything is passed on to `next`, which must outlive this object.
  explicit SystemWatcher(adapters::qt::DialogWatcher& next) : next_(next) {}

  // As the wizard calls it; empty where none was chosen.
  const std::string& System() const { return system_; }

  void Opened(ui::Form& form, QWidget& window) override { next_.Opened(form, window); }
  void Acting() override { next_.Acting(); }
  void Acted() override { next_.Acted(); }
  void Closed(ui::Form& form) override;

 private:
  adapters::qt::DialogWatcher& next_;
  std::string system_;
};

}  // namespace formwizard::apps::desktop
