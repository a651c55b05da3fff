#include "apps/cli/ConsoleDesktop.h"

#include "support/Messages.h"

#include <iostream>
#include <stdexcept>
#include <utility>

namespace formwizard::apps::cli {

ui::MessageAnswer ConsoleDesktop::ShowMessage(std::string_view text, int style, std::string_view) {
  std::cerr << "ostrel-form-wizard: " << support::Shown(text) << '\n';
  messages_.emplace_back(text);
  return (style & ui::AbortRetryIgnore) != 0 ? ui::MessageAnswer::Ignore : ui::MessageAnswer::Ok;
}

void ConsoleDesktop::ShowModal(ui::Form&, ui::Form*) {
  throw std::logic_error("the command line performs a user's actions itself and shows no dialog");
}

std::vector<std::string> ConsoleDesktop::TakeMessages() { return std::exchange(messages_, {}); }

}  // namespace formwizard::apps::cli
