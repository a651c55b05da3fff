#include "benchmarks/Texts.h"

#include <filesystem>
#include <fstream>

namespace benchmarks {
namespace {

enum class Side { Base, Mine, Theirs, Respelled };

std::string Form(int controls, Side side) {
  std::string head = "VERSION 5.00\r\nBegin VB.Form frmBench \r\n   Caption         =   \"Bench\"\r\n";
  std::string code = "Attribute VB_Name = \"frmBench\"\r\n";
  for (int i = 0; i < controls; ++i) {
    const std::string n = std::to_string(i);
    const bool isMine = i % 10 == 0 && side == Side::Mine, isTheirs = i % 10 == 0 && side == Side::Theirs;
    head += "   Begin VB.TextBox txt \r\n      Height          =   " + std::string(isMine ? "315" : "285") +
            "\r\n      Index           =   " + n + "\r\n      TabIndex        =   " + n + "\r\n   End\r\n";
    code += "\r\nPrivate Sub Work" + n + "(ByVal value As Long)\r\n";
    for (int line = 0; line < 12; ++line) {
      const bool isChanged = (isMine && line == 2) || (isTheirs && line == 9);
      code += "    If value > " + std::to_string(line) + " Then Call Store(" + (isChanged ? "Other" : "Names") + "(" +
              n + "), \"text " + n + "\")\r\n";
    }
    code += "End Sub\r\n";
  }
  if (side == Side::Respelled) {
    for (char& c : code) c = c == 'S' ? 's' : c;
  }
  return head + "End\r\n" + code;
}

void Write(const fs::path& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

}  // namespace

std::vector<std::string> TextRun(const Workload& work, const std::string& command, int size, const std::string& name) {
  const fs::path folder = work.Home() / name;
  fs::create_directories(folder);
  const auto file = [&](const char* of) { return (folder / of).string(); };
  if (command == "lint") {
    constexpr int ofForm = 23;
    std::string project = "Type=Exe\r\n";
    for (int i = 0; i < size; ++i) {
      const std::string form = "frm" + std::to_string(i) + ".frm";
      project += "Form=" + form + "\r\n";
      Write(folder / form, Form(ofForm, Side::Base));
    }
    Write(file("p.vbp"), project);
    return work.Other("ostrel-form-wizard", {"lint", "--project", file("p.vbp")});
  }
  Write(file("base.frm"), Form(size, Side::Base));
  Write(file("mine.frm"), Form(size, command == "merge" ? Side::Mine : Side::Respelled));
  if (command == "compare") return work.Other("ostrel-form-wizard", {"compare", file("base.frm"), file("mine.frm")});
  Write(file("theirs.frm"), Form(size, Side::Theirs));
  return work.Other("ostrel-form-wizard",
                    {"merge", file("base.frm"), file("mine.frm"), file("theirs.frm"), "-o", file("merged.frm")});
}

}  // namespace benchmarks
