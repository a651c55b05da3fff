// An environment in memory: keeps components, controls and code, writes a readable transcript, and refuses on request.
#pragma once

#include "generator/ide/Ide.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::tests {

namespace ide = generator::ide;
using runtime::Int16;
using runtime::Int32;

// Every changing call becomes one line, such as `Label1.Name = "lblName"`, before it is carried out. A call whose line
// holds the text of `Refuse` raises that error instead.
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

inline std::string Shown(const ide::PropertyValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) return "\"" + std::string(*text) + "\"";
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
  if (const auto* number = std::get_if<Int16>(&value)) return Text(*number) + "%";
  return Text(std::get<Int32>(value)) + "&";
}

class FakeControl : public ide::VBControl {
 public:
  FakeControl(Transcript& transcript, std::string name) : transcript_(transcript), name_(std::move(name)) {}

  std::string Name() const override { return name_; }
  void SetProperty(std::string_view name, const ide::PropertyValue& value) override {
    transcript_.Note(name_ + "." + std::string(name) + " = " + Shown(value));
    if (name == "Name") name_ = std::get<std::string_view>(value);
  }
  void SetContainer(const std::shared_ptr<ide::VBControl>& container) override {
    transcript_.Note(name_ + ".Container = " + (container ? container->Name() : "Nothing"));
    if (!container) runtime::Raise(runtime::ObjectVariableNotSet);
  }

 private:
  Transcript& transcript_;
  std::string name_;
};

class FakeControls : public ide::VBControls {
 public:
  explicit FakeControls(Transcript& transcript) : transcript_(transcript) {}

  Int32 Count() const override { return Int32(Controls.size()); }
  std::shared_ptr<ide::VBControl> Add(std::string_view progId,
                                      const std::shared_ptr<ide::VBControl>& container) override {
    transcript_.Note("Add " + std::string(progId) + (container ? " in " + container->Name() : ""));
    Controls.push_back(std::make_shared<FakeControl>(transcript_, "New" + std::to_string(Controls.size() + 1)));
    return Controls.back();
  }

  std::vector<std::shared_ptr<FakeControl>> Controls;

 private:
  Transcript& transcript_;
};

// Splits inserted text at CRLF; an event procedure is appended after one empty line.
class FakeCode : public ide::CodeModule {
 public:
  explicit FakeCode(Transcript& transcript) : transcript_(transcript) {}

  Int32 CountOfLines() const override { return Int32(Lines.size()); }
  void InsertLines(Int32 line, std::string_view text) override {
    transcript_.Note("InsertLines " + Text(line) + ": " + std::string(text.substr(0, text.find('\r'))));
    auto at = Lines.begin() + (line.Value() - 1);
    for (;;) {
      const std::size_t end = text.find("\r\n");
      at = Lines.insert(at, std::string(text.substr(0, end))) + 1;
      if (end == std::string_view::npos) return;
      text.remove_prefix(end + 2);
    }
  }
  Int32 CreateEventProc(std::string_view event, std::string_view object) override {
    transcript_.Note("CreateEventProc " + std::string(object) + "_" + std::string(event));
    Lines.insert(Lines.end(),
                 {"", "Private Sub " + std::string(object) + "_" + std::string(event) + "()", "", "End Sub"});
    return CountOfLines() - Int32(2);
  }
  std::string Text_() const {
    std::string all;
    for (const std::string& line : Lines) all += line + "\n";
    return all;
  }

  std::vector<std::string> Lines;

 private:
  Transcript& transcript_;
};

class FakeComponent : public ide::VBComponent {
 public:
  FakeComponent(Transcript& transcript, std::string name)
      : transcript_(transcript),
        name_(std::move(name)),
        Designer(std::make_shared<FakeControls>(transcript)),
        Module(std::make_shared<FakeCode>(transcript)) {}

  std::string Name() const override { return name_; }
  void SetName(std::string_view name) override {
    transcript_.Note("Component.Name = " + std::string(name));
    name_ = name;
  }
  void SetProperty(std::string_view name, const ide::PropertyValue& value) override {
    transcript_.Note("Form." + std::string(name) + " = " + Shown(value));
  }
  std::shared_ptr<ide::VBControls> DesignerControls() override { return Designer; }
  std::shared_ptr<ide::CodeModule> Code() override { return Module; }
  void Activate() override { transcript_.Note("Activate"); }

 private:
  Transcript& transcript_;
  std::string name_;

 public:
  std::shared_ptr<FakeControls> Designer;
  std::shared_ptr<FakeCode> Module;
};

class FakeIde : public ide::Vbe, public ide::VBProject, public ide::VBComponents {
 public:
  ide::VBProject& ActiveVBProject() override { return *this; }
  ide::VBComponents& Components() override { return *this; }
  void AddToolboxProgID(std::string_view progId) override { Transcript.Note("Toolbox " + std::string(progId)); }

  std::shared_ptr<ide::VBComponent> Find(std::string_view name) override {
    const auto found = std::ranges::find(Forms, name, [](const auto& form) { return form->Name(); });
    return found == Forms.end() ? nullptr : *found;
  }
  Int32 FirstFreeNumber(std::string_view stem) const override {
    for (Int32 number(2);; number += Int32(1)) {
      const std::string name = std::string(stem) + Text(number);
      if (std::ranges::none_of(Forms, [&](const auto& form) { return form->Name() == name; })) return number;
    }
  }
  std::shared_ptr<ide::VBComponent> Add(ide::ComponentType) override {
    Transcript.Note("Add component");
    Forms.push_back(std::make_shared<FakeComponent>(Transcript, "Form" + std::to_string(Forms.size() + 1)));
    return Forms.back();
  }

  FakeComponent& AddExisting(const std::string& name) {
    Forms.push_back(std::make_shared<FakeComponent>(Transcript, name));
    return *Forms.back();
  }

  tests::Transcript Transcript;
  std::vector<std::shared_ptr<FakeComponent>> Forms;
};

}  // namespace formwizard::tests
