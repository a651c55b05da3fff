// The menus of a running environment, and a clipboard. Both write into a transcript, and refuse on request.
#pragma once

#include "generator/ide/CommandBars.h"
#include "ui/Clipboard.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace formwizard::tests {

namespace ide = generator::ide;
using runtime::Int32;

// Every changing call becomes a line before it is carried out. A call whose line holds the text of `Refuse` raises that
// error instead.
struct Transcript {
  std::vector<std::string> Calls;
  std::map<std::string, int> Refuse;

  void Note(const std::string& line) {
    Calls.push_back(line);
    for (const auto& [text, number] : Refuse) {
      if (line.find(text) != std::string::npos) runtime::Raise(number, "refused");
    }
  }
  bool Has(std::string_view line) const { return std::ranges::find(Calls, line) != Calls.end(); }
  std::string Joined() const {
    std::string all;
    for (const std::string& line : Calls) all += line + "\n";
    return all;
  }
};

// A command, or a menu when it has a list of controls.
class FakeCommand : public ide::CommandBarControl {
 public:
  explicit FakeCommand(Transcript& transcript) : transcript_(transcript) {}

  std::shared_ptr<ide::CommandBarControls> Controls() override {
    if (!Menu) runtime::Raise(438, "Object doesn't support this property or method");
    return Menu;
  }
  bool BeginGroup() const override { return BeginsGroup; }
  void SetBeginGroup(bool value) override {
    transcript_.Note(std::string("BeginGroup = ") + (value ? "True" : "False"));
    BeginsGroup = value;
  }
  void SetCaption(std::string_view caption) override { transcript_.Note("Caption = " + std::string(caption)); }
  void SetOnAction(std::string_view action) override { transcript_.Note("OnAction = " + std::string(action)); }
  void PasteFace() override { transcript_.Note("PasteFace"); }
  void Delete() override {
    transcript_.Note("Delete");
    if (Siblings) std::erase_if(*Siblings, [&](const auto& other) { return other.get() == this; });
  }

  std::shared_ptr<ide::CommandBarControls> Menu;
  bool BeginsGroup = false;
  std::vector<std::shared_ptr<FakeCommand>>* Siblings = nullptr;

 private:
  Transcript& transcript_;
};

class FakeCommands : public ide::CommandBarControls {
 public:
  FakeCommands(Transcript& transcript, std::string name) : transcript_(transcript), name_(std::move(name)) {}

  Int32 Count() const override { return Int32(Items.size()); }
  std::shared_ptr<ide::CommandBarControl> Item(Int32 index) override {
    if (index >= Int32(1) && index <= Count()) return Items[static_cast<std::size_t>(index.Value()) - 1];
    if (NullOutside) return nullptr;
    runtime::Raise(runtime::InvalidProcedureCall);
  }
  std::shared_ptr<ide::CommandBarControl> Add(ide::CommandBarControlType type) override {
    transcript_.Note("Add " + std::to_string(static_cast<int>(type)) + " to " + name_);
    return Append();
  }
  std::shared_ptr<FakeCommand> Append(bool beginsGroup = false) {
    Items.push_back(std::make_shared<FakeCommand>(transcript_));
    Items.back()->BeginsGroup = beginsGroup;
    Items.back()->Siblings = &Items;
    return Items.back();
  }

  std::vector<std::shared_ptr<FakeCommand>> Items;
  bool NullOutside = false;

 private:
  Transcript& transcript_;
  std::string name_;
};

class FakeApplication : public ide::Application {
 public:
  explicit FakeApplication(std::string version = "6.00", int menus = 12) : version_(std::move(version)) {
    for (int i = 1; i <= menus; ++i) {
      Menus.push_back(std::make_shared<FakeCommands>(Transcript, "menu " + std::to_string(i)));
      MenuBar->Append()->Menu = Menus.back();
    }
  }

  ide::VBProject& ActiveVBProject() override { runtime::Raise(runtime::ObjectVariableNotSet); }
  std::string Version() const override { return version_; }
  std::shared_ptr<ide::CommandBarControls> CommandBar(Int32 index) override {
    if (index != Int32(1)) runtime::Raise(runtime::InvalidProcedureCall);
    return MenuBar;
  }
  std::unique_ptr<ide::CommandBarEvents> ConnectEvents(const std::shared_ptr<ide::CommandBarControl>& control,
                                                       ide::CommandBarEvents::Click onClick) override {
    Transcript.Note("ConnectEvents");
    clicks_[control.get()] = std::move(onClick);
    class Events : public ide::CommandBarEvents {
     public:
      Events(FakeApplication& application, ide::CommandBarControl* control)
          : application_(application), control_(control) {}
      ~Events() override { application_.clicks_.erase(control_); }

     private:
      FakeApplication& application_;
      ide::CommandBarControl* control_;
    };
    return std::make_unique<Events>(*this, control.get());
  }

  // A menu of the menu bar, counted from 1.
  FakeCommands& Menu(int index) { return *Menus.at(static_cast<std::size_t>(index) - 1); }
  // What a user does. False when nobody listens to the control.
  bool Click(ide::CommandBarControl& control) {
    const auto found = clicks_.find(&control);
    if (found == clicks_.end()) return false;
    const auto click = found->second;
    click(control, Handled, CancelDefault);
    return true;
  }

  tests::Transcript Transcript;
  std::vector<std::shared_ptr<FakeCommands>> Menus;
  std::shared_ptr<FakeCommands> MenuBar = std::make_shared<FakeCommands>(Transcript, "menu bar");
  bool Handled = false, CancelDefault = true;  // as the last click left them

 private:
  std::string version_;
  std::map<ide::CommandBarControl*, ide::CommandBarEvents::Click> clicks_;
};

class FakeClipboard : public ui::Clipboard {
 public:
  explicit FakeClipboard(Transcript& transcript) : transcript_(transcript) {}
  void SetPicture(std::span<const std::byte> bitmap) override {
    transcript_.Note("Clipboard");
    Picture.assign(bitmap.begin(), bitmap.end());
  }
  std::vector<std::byte> Picture;

 private:
  Transcript& transcript_;
};

}  // namespace formwizard::tests
