// Comparing files by the program itself.
#include "tests/support/RunHere.h"

#include <doctest/doctest.h>

#include <nlohmann/json.hpp>

using namespace formwizard::tests;

TEST_CASE("compare says what differs, where and in which status, and refuses what is no file of Visual Basic") {
  const TemporaryFolder folder;
  const std::string form = ReadFile(SourceFolder() + "/tests/golden/typical-project/frmPerson.frm");
  const auto file = [&](const std::string& name, const std::string& text) {
    WriteFile(folder / name, text);
    return folder / name;
  };
  const std::string a = file("a.frm", form);
  std::string other = form;
  other.replace(other.find("Caption         =   \""), 21, "Caption         =   \"\xDC")
      .insert(other.find("Private Sub"), "x");
  const std::string b = file("b.frm", other);
  CHECK(RunHere({"compare", a, a}).Status == 0);
  CHECK(RunHere({"compare", a, a}).Out.empty());
  const Outcome compared = RunHere({"compare", a, b});
  CHECK(compared.Status == 1);
  CHECK(compared.Out.find(": property frmPerson.Caption changed: \"Person\" -> \"\xC3\x9C") != std::string::npos);
  const auto json = nlohmann::json::parse(RunHere({"compare", a, b, "--json"}).Out);
  CHECK(json["equal"] == false);
  CHECK(json["differences"].size() == static_cast<std::size_t>(std::ranges::count(compared.Out, '\n')));

  const std::string project = "Type=Exe\r\nReference=*\\G{1}#2.0#0#C:\\a.tlb#A\r\nForm=frmA.frm\r\nName=\"P\"\r\n";
  const std::string p = file("p.vbp", project);
  CHECK(RunHere({"compare", p,
                 file("q.vbp", "Type=Exe\nForm=FRMA.frm\nReference=*\\G{1}#2.0#0#D:\\x\\a.tlb#A\nName=\"P\"\n")})
            .Status == 0);
  CHECK(RunHere({"compare", p, file("r.vbp", "Type=Exe\nForm=frmB.frm\nName=\"Q\"\n")}).Out ==
        p + ":2: item Reference A removed\n" + p + ":3: item Form frmA.frm removed\n" + p +
            ":4: setting Name changed: \"P\" -> \"Q\" (" + folder / "r.vbp" + ":3)\n" + folder / "r.vbp" +
            ":2: item Form frmB.frm added\n");

  for (const std::string& text : {std::string("text"), std::string("VERSION 5.00\nBegin VB.Form f\n"), std::string()}) {
    const Outcome refused = RunHere({"compare", a, file("c.frm", text)});
    CHECK(refused.Status == 3);
    CHECK(refused.Error.find("c.frm:") != std::string::npos);
  }
  CHECK(RunHere({"compare", a, folder / "none.frm"}).Status == 3);
}

TEST_CASE("merge writes the result, names conflicts and notes, and ends in the status of a difference") {
  const TemporaryFolder folder;
  const auto file = [&](const std::string& name, const std::string& left, const std::string& click) {
    WriteFile(folder / name, "VERSION 5.00\r\nBegin VB.Form f \r\n   ClientLeft      =   " + left +
                                 "\r\nEnd\r\nAttribute VB_Name = \"f\"\r\nSub A\xC4()\r\n  " + click +
                                 "\r\nEnd Sub\r\n");
    return folder / name;
  };
  const std::string base = file("base.frm", "0", "x"), mine = file("mine.frm", "60", "X"),
                    theirs = file("theirs.frm", "90", "y");
  const std::string out = folder / "out.frm";
  const Outcome merged = RunHere({"merge", base, mine, theirs, "-o", out, "--path", "Forms/f.frm"});
  CHECK(merged.Status == 0);
  CHECK(merged.Error == "Forms/f.frm: note: f.ClientLeft: both changed it; it stays 60, theirs is 90\n");
  CHECK(ReadFile(out) == ReadFile(file("want.frm", "60", "y")));

  const std::string other = file("other.frm", "0", "z");
  const Outcome conflict = RunHere({"merge", base, other, theirs, "--style", "zdiff3"});
  CHECK(conflict.Status == 1);
  CHECK(conflict.Out.find("<<<<<<< mine\r\n  z\r\n||||||| base\r\n  x\r\n=======\r\n  y\r\n>>>>>>> theirs\r\n") !=
        std::string::npos);
  CHECK(conflict.Error ==
        other +
            ":7: conflict: both sides changed procedure Sub A\xC3\x84; keep what is right and take out "
            "the marks\n");
  CHECK(RunHere({"merge", base, other, theirs, "--conflicts", "theirs"}).Status == 0);
  CHECK(RunHere({"merge", base, other, folder / "none"}).Status == 3);
  CHECK(RunHere({"merge", base, other, theirs, "--style", "none"}).Status == 2);
  CHECK(RunHere({"merge", base, other, theirs, "-o", folder / "none/out.frm"}).Status == 4);
}
