#include "vbtext/Code.h"

#include <doctest/doctest.h>

#include <array>
#include <string>
#include <vector>

using namespace formwizard::vbtext;

namespace {

// A section a line: its kind, what it is, its branches, how many lines it has and how many stand before its body.
std::string Sections(const std::string& code) {
  const std::vector<Line> lines = LinesOf(code);
  const Module module = ModuleOf(lines);
  std::string text;
  std::size_t at = 0;
  for (const Section& section : module.Sections) {
    CHECK(section.Lines.First == at);
    at = section.Lines.Behind;
    std::string branch = section.Branch;
    for (char& c : branch) c = c == '\n' ? '/' : c;
    text += std::string("dp#r").substr(static_cast<std::size_t>(section.Kind), 1) + " " + std::string(section.Word) +
            " " + std::string(section.Name) + " " + branch + std::to_string(section.Lines.Count()) + "+" +
            std::to_string(section.Body.First - section.Lines.First) + "\n";
  }
  CHECK(at == lines.size());
  if (module.Wrong) text += "wrong " + std::to_string(module.Wrong->Line) + " " + module.Wrong->Expected + "\n";
  return text;
}

}  // namespace

TEST_CASE("Code falls into declarations, directives and procedures with what stands before them") {
  CHECK(Sections("Option Explicit\n"
                 "' of the type\n"
                 "Private Type T\n  Type As Long ' a member\nEnd Type\n"
                 "Private WithEvents m As X, n\n"
                 "Attribute m.VB_VarHelpID = -1\n"
                 "Declare Sub S Lib \"x\" _\n  (ByVal a)\n"
                 "\n' of A\nPrivate Sub A()\n  Exit Sub\nEnd Sub\n"
                 "#If Win Then\nFunction F(): End Function\n#Else\nFunction F()\n#If q Then\nx = 1: Rem\n#End If\nEnd "
                 "Function\n"
                 "#End If\n"
                 "Property Get P()\nEnd Property\nProperty Let P(x)\nEnd Property\n"
                 "' the end\n") ==
        "d Option Explicit 1+0\n"
        "r   1+0\n"
        "d Type T 3+0\n"
        "d WithEvents m 1+0\n"
        "d Attribute m 1+0\n"
        "d Declare S 2+0\n"
        "p Sub A 5+2\n"
        "# If  if win then /1+0\n"
        "p Function F if win then /1+0\n"
        "# Else  if win then else /1+0\n"
        "p Function F if win then else /5+0\n"
        "# End  1+0\n"
        "p Get P 2+0\n"
        "p Let P 2+0\n"
        "r   1+0\n");
}

TEST_CASE(
    "Two first lines of one procedure in the branches of an #If are no fault, and what is not balanced is named") {
  CHECK(Sections("#If a Then\nSub A()\n#Else\nSub A(b)\n#End If\nEnd Sub\n") ==
        "# If  if a then /1+0\np Sub A if a then /5+0\n");
  for (const auto& [code, wrong] : std::vector<std::array<const char*, 2>>{
           {"x\nSub A()\n", "wrong 1 the end of the procedure that begins here\n"},
           {"Sub A()\nSub B()\nEnd Sub\n", "wrong 1 \"End Sub\" before this line\n"},
           {"x\nEnd Sub\n", "wrong 1 the beginning of what ends here\n"},
           {"Type T\n", "wrong 0 the end of the block that begins here\n"},
           {"#If a Then\nSub A()\nEnd Sub\n", "wrong 0 \"#End If\"\n"},
           {"#Else\n", "wrong 0 \"#If\" before this line\n"}}) {
    CAPTURE(code);
    CHECK(Sections(code).ends_with(wrong));
  }
}
