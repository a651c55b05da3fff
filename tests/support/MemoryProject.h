// The environment on disk with its files in memory. Its journal tells what was done, and it refuses on request.
#pragma once

#include "adapters/journal/Journal.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/Test.h"

#include <nlohmann/json.hpp>

namespace formwizard::tests {

namespace ide = generator::ide;
using runtime::Int16;
using runtime::Int32;

class MemoryProject : public ide::Vbe {
 public:
  // The project's forms by name, and whether they have a control.
  using Forms = std::map<std::string, bool>;
  explicit MemoryProject(const Forms& forms = {}) : MemoryProject(With(forms)) {}
  // Its files by name, Project1.vbp among them.
  explicit MemoryProject(const MemoryFileSystem::Contents& files) {
    for (const auto& [name, text] : files) files_.Files["P/" + name] = text;
    project_ = std::make_unique<adapters::vb6files::ProjectOnDisk>(
        files_, "P/Project1.vbp", adapters::vb6files::ProjectOptions{1252, "toolbox.ini"});
    journal_ = adapters::journal::Journalled(*project_, out_, [this](const std::string& line) { RefuseSome(line); });
  }

  ide::VBProject& ActiveVBProject() override { return journal_->ActiveVBProject(); }
  adapters::vb6files::ProjectOnDisk& OnDisk() { return *project_; }
  MemoryFileSystem::Contents Saved() {
    project_->Save();
    MemoryFileSystem::Contents saved;
    for (const auto& [path, text] : files_.Files) {
      if (path.starts_with("P/")) saved[path.substr(2)] = text;
    }
    return saved;
  }

  // A call whose line in Calls holds the text raises the error of that number instead, and so does the one with the
  // number RefuseAt, counted from 1.
  std::map<std::string, int> Refuse;
  int RefuseAt = 0;

  // Every changing call: what a line of the journal holds, each value followed by a blank, a text up to its first line
  // break.
  std::vector<std::string> Calls() const {
    std::vector<std::string> calls;
    std::istringstream lines(out_.str());
    for (std::string line; std::getline(lines, line);) calls.push_back(Values(line));
    return calls;
  }
  int Count(std::string_view part) const {
    return static_cast<int>(
        std::ranges::count_if(Calls(), [&](const std::string& call) { return call.find(part) != std::string::npos; }));
  }
  std::string Journal() const { return out_.str(); }
  // The code of the youngest form, with "\n" between its lines.
  std::string Code() {
    std::string text = project_->TextsOf(project_->Summaries().back().Name).Frm;
    std::erase(text, '\r');
    const std::string last = "Attribute VB_Exposed = False\n";
    return text.substr(text.find(last) + last.size());
  }

 private:
  static MemoryFileSystem::Contents With(const Forms& forms) {
    MemoryFileSystem::Contents files;
    std::string& project = files["Project1.vbp"] = "Type=Exe\r\n";
    for (const auto& [name, hasControl] : forms) {
      project += "Form=" + name + ".frm\r\n";
      files[name + ".frm"] = "VERSION 5.00\r\nBegin VB.Form " + name + " \r\n" +
                             (hasControl ? "   Begin VB.Label Label1 \r\n   End\r\n" : "") +
                             "End\r\nAttribute VB_Name = \"" + name + "\"\r\nAttribute VB_Exposed = False\r\n";
    }
    project += "Name=\"Project1\"\r\n";
    return files;
  }
  static std::string Values(const std::string& line) {
    std::string all;
    const auto json = nlohmann::ordered_json::parse(line);
    for (const auto& [key, value] : json.items()) {
      const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
      all += text.substr(0, text.find('\r')) + " ";
    }
    return all;
  }
  void RefuseSome(const std::string& line) {
    if (--RefuseAt == 0) runtime::Raise(runtime::AutomationError, "refused");
    for (const auto& [text, number] : Refuse) {
      if (Values(line).find(text) != std::string::npos) runtime::Raise(number, "refused");
    }
  }

  MemoryFileSystem files_{{{"toolbox.ini",
                            "[Toolbox]\nOSTRELQUERY.OstrelQueryCtrl.1="
                            "{2B7E4F10-9C3D-4A55-8E61-7D0F3B9A1C24}#1.0#0; OSTRELQUERY.OCX\n"}}};
  std::unique_ptr<adapters::vb6files::ProjectOnDisk> project_;
  std::ostringstream out_;
  std::unique_ptr<ide::Vbe> journal_;
};

}  // namespace formwizard::tests
