// The desktop of a program without windows: messages go to standard error and are counted as failures.
#pragma once

#include "ui/Desktop.h"

#include <string>
#include <vector>

namespace formwizard::apps::cli {

class ConsoleDesktop : public ui::Desktop {
 public:
  void SetMousePointer(ui::MousePointer) override {}
  // Never waits for an answer: a failed write is not tried again.
  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) override;
  void ProcessMessages() override {}
  void ShowModal(ui::Form& form, ui::Form* owner) override;

  // The messages shown since the last call.
  std::vector<std::string> TakeMessages();

 private:
  std::vector<std::string> messages_;
};

}  // namespace formwizard::apps::cli
