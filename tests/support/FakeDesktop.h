// A desktop that records what it was asked to show, and answers message boxes as a test wants.
#pragma once

#include "tests/support/Test.h"
#include "ui/Desktop.h"

#include <deque>

namespace formwizard::tests {

struct ShownMessage {
  std::string Text;
  int Style = 0;
  std::string Title;
};

class FakeDesktop : public ui::Desktop {
 public:
  void SetMousePointer(ui::MousePointer pointer) override { Pointers.push_back(pointer); }
  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view title) override {
    Messages.push_back({std::string(text), style, std::string(title)});
    if (Answers.empty()) return ui::MessageAnswer::Ok;
    const ui::MessageAnswer answer = Answers.front();
    Answers.pop_front();
    return answer;
  }
  void ProcessMessages() override {
    if (OnProcessMessages) OnProcessMessages();
  }
  void ShowModal(ui::Form& form, ui::Form*) override {
    if (OnShowModal) OnShowModal(form);
  }

  // The texts of the messages, one a line, and all of a message: "Title[style]: text".
  std::string Texts() const {
    std::string all;
    for (const ShownMessage& message : Messages) all += message.Text + "\n";
    return all;
  }
  std::string Shown() const {
    std::string all;
    for (const ShownMessage& message : Messages) {
      all += message.Title + "[" + std::to_string(message.Style) + "]: ";
      all += message.Text + "\n";
    }
    return all;
  }

  std::vector<ShownMessage> Messages;
  std::deque<ui::MessageAnswer> Answers;
  std::vector<ui::MousePointer> Pointers;
  std::function<void()> OnProcessMessages;
  std::function<void(ui::Form&)> OnShowModal;
};

}  // namespace formwizard::tests
