// Kept forms from the command line: what stands in the folder, what is said of them, and what an update writes.
#include "tests/apps/Keeper.h"

#include <set>

using namespace formwizard::tests;
using nlohmann::json;

namespace {

// A form with a text in its .frx, to which an icon was added by hand and whose text was edited.
struct WithPicture : Keeper {
  std::string Frx = Folder / "App/frmPerson.frx", Icon = std::string("\x0c\0\0\0lt\0\0\x04\0\0\0ICON", 16);

  WithPicture() : Keeper(R"({"class":"Sample.Person","fields":["Name","Notes"]})") {
    Edit(Form(), "\"frmPerson.frx\":0000", "\"frmPerson.frx\":0010");
    Edit(Form(), "   LinkTopic ", "   Icon            =   \"frmPerson.frx\":0000\r\n   LinkTopic ");
    WriteFile(Frx, Icon + "\5other");
    for (json& of : Classes["systems"][0]["classes"]) {
      if (of["Name"] == "Sample.Person")
        of["properties"].push_back({{"Name", "Remarks"}, {"Collection", "characterstream"}});
    }
    Import();
    Edit(Kept + "frmPerson.json", "\"Notes\" ]", "\"Notes\", \"Remarks\" ]");
  }
};

}  // namespace

TEST_CASE("A form that is kept gives itself again, and every state is told with what it rests on") {
  Keeper work;
  const auto kept = work.Files();
  CHECK(kept.at("Project1.forms/frmPerson.frm") == kept.at("frmPerson.frm"));
  // The description alone makes the form again.
  CopySample("new-project", work.Folder / "Again");
  CHECK(RunHere({"generate", "--project", work.Folder / "Again/Project1.vbp", "--dictionary", work.Folder / "d.sqlite",
                 "--toolbox", Samples + "toolbox.ini", work.Kept + "frmPerson.json", "-q"})
            .Status == 0);
  CHECK(ReadFile(work.Folder / "Again/frmPerson.frm") == kept.at("frmPerson.frm"));
  const auto check = [&](const std::string& words, int status, const std::vector<std::string>& lines) {
    const Outcome told = work.Run("status");
    CHECK(told.Status == status);
    CHECK_MESSAGE(told.Out.starts_with("frmPerson: " + words + "\n"), told.Out);
    for (const std::string& line : lines) CHECK_MESSAGE(Has(told.Out, "\n  " + line + "\n"), told.Out);
  };
  check("unchanged", 0, {});
  work.Edit(work.Form(), SaveClick, SaveClick + Guard);
  check("edited", 0, {"procedure Sub cmd__Save_Click changed"});
  work.Property("Name")["Caption"] = "Full name";
  work.Property("Name")["MaxLen"] = 20;
  work.Property("Name")["Required"] = 0;
  work.Import();
  check("edited, outdated", 1,
        {"Name: caption was Name, is Full name", "Name: width was 50, is 20", "Name: required was yes, is no"});
  work.Edit(work.Kept + "frmPerson.json", "\"Columns\": 1", "\"Columns\": 2");
  check("edited, outdated, made with other settings", 1, {});
  WriteFile(work.Form(), kept.at("frmPerson.frm"));
  work.Edit(work.Kept + "frmPerson.frm", "Caption", "caption");
  check("base not ours", 0, {});
  CHECK(work.Run("update").Status == 1);
  work.Edit(work.Project, "Form=frmPerson.frm\r\n", "");
  check("missing", 0, {});
  CHECK(work.Run("update").Status == 0);
}

TEST_CASE("A kept description says of its class what is not usual, and one that says all is read as the same") {
  const Keeper work;
  const std::string file = work.Kept + "frmPerson.json";
  const std::string name = R"("Name": { "required": true, "width": 50 },)",
                    notes = R"("Notes": { "kind": "long-text" })";
  const std::string text = ReadFile(file);
  for (const std::string& line :
       {name, notes, std::string(R"("Age": { "kind": "label", "type": "%Library.Integer", "readOnly": true },)"),
        std::string(R"("Home.Zip": { "width": 10, "caption": "Home Zip Code" },)"), std::string("    \"Name\",\n")}) {
    CHECK_MESSAGE(Has(text, line), line);
  }
  const std::string whole =
      R"("Name": { "kind": "text", "type": "%Library.String", "required": true, "width": "50", "caption": "Name" },)";
  work.Edit(file, "    \"Name\",\n", "    { \"property\": \"Name\" },\n");
  for (const auto& [from, to, told] :
       {std::tuple(name, whole, "unchanged"),
        {"\"width\": \"50\"", "\"width\": \"050\"", "Name: width was 050, is 50"},
        {"\"050\"", "49", "Name: width was 49, is 50"},
        {"49, \"caption\": \"Name\"", "50, \"caption\": \"\"", "Name: caption was none, is Name"},
        {"\"type\": \"%Library.String\"", "\"type\": \"\"", "Name: type was none, is %Lib"}}) {
    work.Edit(file, from, to);
    const std::string status = work.Run("status").Out;
    CHECK_MESSAGE(Has(status, told), status);
  }
}

TEST_CASE("What another version or other settings would make alone is no fault, and an update brings it when asked") {
  const Keeper work;
  work.Edit(work.Kept + "frmPerson.json", "\"program\": \"1.0.0\"", "\"program\": \"0.9\"");
  CHECK(work.Status()["state"] == json{"unchanged"});
  work.Edit(work.Kept + "frmPerson.json", "\"FormSizable\": false", "\"FormSizable\": true");
  CHECK(work.Status()["state"] == json{"made with other settings", "made by another version"});
  CHECK(work.Run("status").Status == 0);
  CHECK(work.Run("update").Status == 0);
  CHECK(work.Status()["state"] == json{"unchanged"});
  // It is the form that these settings give a new form.
  CopySample("new-project", work.Folder / "Again");
  CHECK(RunHere({"generate", "--project", work.Folder / "Again/Project1.vbp", "--dictionary", work.Folder / "d.sqlite",
                 "--toolbox", Samples + "toolbox.ini", work.Kept + "frmPerson.json", "-q"})
            .Status == 0);
  CHECK(ReadFile(work.Folder / "Again/frmPerson.frm") == ReadFile(work.Form()));
}

TEST_CASE("A newer version of a control library is no edit and outdates nothing, and comes with the next update") {
  Keeper work(R"({"class":"Sample.Person","fields":["Name","Notes"]})");
  work.Edit(work.Project, "#1.2#0; COMDLG32", "#1.3#0; COMDLG32");
  CHECK(work.Run("status").Out == "frmPerson: unchanged\n");
  work.Edit(work.Form(), "#1.2#0\"; \"COMDLG32", "#1.3#0\"; \"COMDLG32");
  CHECK(work.Run("status").Out == "frmPerson: unchanged\n");
  work.Edit(work.Form(), "Object = \"{F9", "Object = \"{E9");
  CHECK(work.Status()["edits"].size() == 2);
  work.Edit(work.Form(), "Object = \"{E9", "Object = \"{F9");
  work.Property("Name")["Caption"] = "Full name";
  work.Import();
  CHECK(work.Run("update").Status == 0);
  CHECK(work.Run("status").Out == "frmPerson: unchanged\n");
  CHECK(Has(ReadFile(work.Kept + "frmPerson.frm"), "#1.3#0\"; \"COMDLG32"));
}

TEST_CASE("A form that was renamed is updated under its new name once its kept files have it") {
  Keeper work;
  work.Edit(work.Form(), "VB.Form frmPerson", "VB.Form frmStaff");
  work.Edit(work.Form(), "VB_Name = \"frmPerson", "VB_Name = \"frmStaff");
  const Outcome told = work.Run("status");
  CHECK_MESSAGE(
      Has(told.Out, "its file holds frmStaff: rename the files of frmPerson in " + work.Folder / "App/Project1.forms"),
      told.Out);
  for (const char* ending : {".frm", ".json"}) {
    std::filesystem::rename(NativePath(work.Kept + "frmPerson" + ending), NativePath(work.Kept + "frmStaff" + ending));
  }
  work.Property("Name")["Caption"] = "Full name";
  work.Import();
  CHECK(work.Run("update").Status == 0);
  CHECK(Has(ReadFile(work.Form()), "\"Full name\""));
  CHECK(Has(ReadFile(work.Form()), "VB_Name = \"frmStaff\""));
  CHECK(work.Status()["state"] == json{"edited"});
}

TEST_CASE("What a query takes outdates the forms that ask it, and is told by what comes out") {
  Keeper work(R"({"class":"Sample.Person","fields":[
      {"property":"Spouse.Name","combo":{"query":"ByName","column":"Name"}}]})");
  for (json& of : work.Classes["systems"][0]["classes"]) {
    if (of["Name"] == "Sample.Person") of["queries"][1]["params"].push_back("city");
  }
  work.Import();
  CHECK(work.Run("status").Out ==
        "frmPerson: outdated\n  comes out otherwise now: procedure Sub cmbSpouseName_DropDown changed\n");
}

TEST_CASE("What a project had before the form does not make it outdated") {
  std::string lines, before;
  SUBCASE("a form named Form1, so that the new one was Form2 at first") {
    lines = "   Begin VB.Timer Timer1 \r\n   End\r\n";
    before = "End\r\n";
  }
  SUBCASE("an empty form with a picture, which is reused") {
    lines = "   Picture         =   \"Form1.frx\":0000\r\n";
    before = "   ScaleHeight";
  }
  const TemporaryFolder folder;
  CopySample("new-project", folder / "App");
  const std::string form = folder / "App/Form1.frm", dictionary = folder / "d.sqlite";
  WriteFile(folder / "App/Form1.frx", "\4\5picture");
  std::string text = ReadFile(form);
  WriteFile(form, text.insert(text.find(before), lines));
  REQUIRE(RunHere({"dictionary", "import", Samples + "dictionary.json", dictionary}).Status == 0);
  const auto run = [&](std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--project", folder / "App/Project1.vbp", "--dictionary", dictionary});
    return RunHere(arguments);
  };
  REQUIRE(
      run({"generate", "--toolbox", Samples + "toolbox.ini", "--keep", "-q", Samples + "forms/person.json"}).Status ==
      0);
  CHECK(run({"status"}).Out == "frmPerson: unchanged\n");
}

TEST_CASE("A form that is taken up is edited as far as it differs from what its description gives") {
  const Keeper work;
  std::filesystem::remove_all(NativePath(work.Kept));
  work.Edit(work.Form(), SaveClick, SaveClick + Guard);
  const auto before = work.Files();
  CHECK(Has(work.Run("status").Error, "no form is kept"));
  const Outcome tried = work.Run("keep", {work.Folder / "form.json", "frmPerson", "-n"});
  CHECK(tried.Status == 0);
  CHECK(Has(tried.Out, "would write " + work.Kept + "frmPerson.json\n"));
  CHECK(work.Files() == before);
  const Outcome taken = work.Run("keep", {work.Folder / "form.json", "FRMperson"});
  CHECK(taken.Status == 0);
  CHECK(Has(taken.Out, "frmPerson: edited\n  procedure Sub cmd__Save_Click changed\n"));
  CHECK(work.Status()["state"] == json{"edited"});
  CHECK(ReadFile(work.Form()) == before.at("frmPerson.frm"));
  WriteFile(work.Folder / "other.json", R"({"class":"Sample.Company","fields":["Name"]})");
  for (const auto& [description, form, message] :
       {std::tuple{"form.json", "frmPersn", "the project has no form \"frmPersn\"; available: frmPerson"},
        {"other.json", "frmPerson", "the code has no line \"Const m_classname = \"Sample.Company\""}}) {
    const Outcome refused = work.Run("keep", {work.Folder / description, form});
    CHECK(refused.Status == 3);
    CHECK_MESSAGE(Has(refused.Error, message), refused.Error);
  }
}

TEST_CASE("An update takes what the class has changed, keeps what was edited, and names what both have") {
  Keeper work;
  work.Edit(work.Form(), SaveClick, SaveClick + Guard);
  work.Property("Name")["Caption"] = "Full name";
  work.Import();
  work.Edit(work.Kept + "frmPerson.json", "\"Home.City\" ]", "\"Home.City\", \"SSN\" ]");
  const auto before = work.Files();
  const Outcome shown = work.Run("update", {"--dry-run", "--diff"});
  CHECK(shown.Status == 0);
  CHECK(Has(shown.Out, "+    txtSSN.Text = m_object.SSN"));
  CHECK(work.Files() == before);
  const Outcome updated = work.Run("update");
  CHECK(updated.Status == 0);
  CHECK(Has(updated.Error, "where Visual Basic has this project open it does not notice"));
  const std::string form = ReadFile(work.Form());
  for (const std::string& part : {SaveClick + Guard, std::string("\"Full name\""), std::string("VB.TextBox txtSSN ")}) {
    CHECK_MESSAGE(Has(form, part), part);
  }
  CHECK(work.Status()["state"] == json{"edited"});
  const auto after = work.Files();
  CHECK(work.Run("update", {"frmPerson"}).Out.empty());
  CHECK(work.Files() == after);

  // Both change the caption of a label, and the class loses a property whose handler was edited.
  work.Edit(work.Form(), "Caption         =   \"Full name\"", "Caption         =   \"Who\"");
  work.Edit(work.Form(), "Private Sub txtSSN_Change()\r\n", "Private Sub txtSSN_Change()\r\n    Beep\r\n");
  work.Property("Name")["Caption"] = "All names";
  work.Property("SSN")["Name"] = "Number";
  work.Import();
  const auto edited = work.Files();
  const Outcome refused = work.Run("update");
  CHECK(refused.Status == 1);
  CHECK(work.Files() == edited);
  for (const char* part : {"you and the class changed control lblName (frmPerson.lblName)\n  yours, line ",
                           "|          Caption         =   \"All names\"\n", "(frmPerson.txtSSN_Change)\n",
                           "  generated: nothing\n", "2 conflicts; nothing was written. Decide with --conflicts"}) {
    CHECK_MESSAGE(Has(refused.Error, part), refused.Error);
  }
  CHECK(work.Run("update", {"--skip-conflicts"}).Status == 1);
  CHECK(work.Files() == edited);
  const json told = json::parse(work.Run("update", {"--json", "-n"}).Out);
  CHECK(told["forms"][0]["conflicts"].size() == 2);
  CHECK(Has(told["forms"][0]["conflicts"][0]["theirs"]["text"], "All names"));
  CHECK(work.Run("update", {"--resolve", "frmPerson.Nothing=mine"}).Status == 2);
  const std::vector<std::string> resolved{"--resolve", "frmPerson.txtSSN_Change=theirs", "--resolve",
                                          "frmPerson.lblName=mine"};
  CHECK(work.Run("update", resolved).Status == 0);
  CHECK(Has(ReadFile(work.Form()), "\"Who\""));
  CHECK_FALSE(Has(ReadFile(work.Form()), "SSN"));
  CHECK(work.Status()["outdated"] == false);
}

TEST_CASE(
    "A .frx that both sides changed is written anew with its references, and what newly overlaps or sticks out is "
    "told") {
  WithPicture work;
  const std::string form = work.Form();
  work.Edit(
      form, "      Begin VB.CommandButton cmd__Exit",
      "      Begin VB.CommandButton cmdMine \r\n         Height = 300\r\n         Left = 700\r\n         Top = 2600\r\n"
      "         Width = 900\r\n      End\r\n      Begin VB.CommandButton cmd__Exit");
  work.Edit(form, "      Height          =   2895", "      Height          =   2500");  // less than cmd__Exit needs
  const Outcome updated = work.Run("update");
  CHECK(updated.Status == 0);
  for (const char* note : {"cmdMine and txtRemarks overlap\n", "txtRemarks sticks out of fra_Main\n"}) {
    CHECK_MESSAGE(Has(updated.Error, note), updated.Error);
  }
  CHECK_FALSE(Has(updated.Error, "cmd__Exit sticks out"));
  CHECK(ReadFile(work.Frx) == work.Icon +
                                  "\x0A"
                                  "txtRemarks"
                                  "\5other");
  CHECK(ReadFile(work.Kept + "frmPerson.frx") ==
        "\x0A"
        "txtRemarks"
        "\x08"
        "txtNotes");
  std::set<std::string> edits;
  const json status = work.Status();
  for (const json& edit : status["edits"]) edits.insert(edit["name"]);
  CHECK(edits == std::set<std::string>{"cmdMine", "fra_Main.Height", "frmPerson.Icon", "txtNotes.Text"});
}

TEST_CASE("A conflict is decided for all or for one, and a dry run shows the same as what is written") {
  WithPicture work;
  work.Property("Notes")["Name"] = "Noted";
  work.Import();
  const auto before = work.Files();
  struct Case {
    std::vector<std::string> Decision;
    int Status;
    bool IsMine, HasMarks;
  };
  for (const Case& c :
       {Case{{"--conflicts", "mine"}, 0, true, false}, Case{{"--conflicts", "theirs"}, 0, false, false},
        Case{{"--conflicts", "marks"}, 1, true, true}, Case{{"--resolve", "frmPerson.txtNotes=mine"}, 0, true, false},
        Case{{"--resolve", "frmperson.TXTNOTES=theirs"}, 0, false, false}}) {
    CAPTURE(c.Decision.back());
    const auto run = [&](const std::vector<std::string>& more) {
      std::vector<std::string> arguments = c.Decision;
      arguments.insert(arguments.end(), more.begin(), more.end());
      const Outcome outcome = work.Run("update", arguments);
      CHECK(outcome.Status == c.Status);
      return outcome.Out;
    };
    const std::string shown = run({"-n", "--diff"});
    CHECK(Has(shown, "\n+<<<<<<< ") == c.HasMarks);
    CHECK(Has(shown, "Binary files " + work.Frx + " and " + work.Frx + " differ\n"));
    CHECK(Has(run({"-n"}), "frmPerson: would be updated"));
    CHECK(work.Files() == before);
    CHECK(run({"--diff"}) == shown);
    CHECK(Has(ReadFile(work.Form()), "VB.TextBox txtNotes ") == c.IsMine);
    CHECK(ReadFile(work.Frx) == work.Icon +
                                    "\x0A"
                                    "txtRemarks" +
                                    (c.IsMine ? "\5other" : ""));
    const Outcome told = work.Run("status");
    CHECK(told.Status == (c.HasMarks ? 3 : 0));
    CHECK(Has(told.Error, "taking out the marks that a merge has left") == c.HasMarks);
    std::filesystem::remove_all(NativePath(work.Folder / "App"));
    for (const auto& [name, bytes] : before) WriteFile(work.Folder / ("App/" + name), bytes);
  }
}

TEST_CASE("What stands in the folder is checked: names, descriptions, code pages and what is missing") {
  const Keeper work;
  const std::string description = ReadFile(work.Kept + "frmPerson.json");
  const auto check = [&](const std::string& message) {
    for (const char* command : {"status", "update"}) {
      const Outcome refused = work.Run(command);
      CHECK(refused.Status == 3);
      CHECK_MESSAGE(Has(refused.Error, message), refused.Error);
    }
  };
  WriteFile(work.Kept + "frm Other.json", description);
  check("frm Other.json: the file is called as no form can be");
  std::filesystem::remove(NativePath(work.Kept + "frm Other.json"));
#ifdef __linux__
  WriteFile(work.Kept + "FRMPERSON.json", description);
  check("are one form; give both of its files one spelling");
  std::filesystem::remove(NativePath(work.Kept + "FRMPERSON.json"));
#endif
  WriteFile(work.Kept + "frmOther.frm", "");
  check("frmOther.json: the description of a kept form is not there");
  std::filesystem::remove(NativePath(work.Kept + "frmOther.frm"));
  WriteFile(work.Kept + "frmPerson.json", "<<<<<<< mine\n" + description);
  check("frmPerson.json:1:1: this is not valid JSON");
  WriteFile(work.Kept + "frmPerson.json", ReadFile(work.Folder / "form.json"));
  check("this describes no kept form");
  WriteFile(work.Kept + "frmPerson.json", description);
  work.Edit(work.Kept + "frmPerson.json", "\"codePage\": 1252", "\"codePage\": 1250");
  check("give --code-page 1250");
  WriteFile(work.Kept + "frmPerson.json", description);
  work.Edit(work.Form(), "End\r\nAttribute", "<<<<<<<\r\nAttribute");
  check("frmPerson.frm:");
  CHECK(work.Run("status", {"frmOther"}).Status == 3);
  std::filesystem::remove_all(NativePath(work.Kept));
  WriteFile(work.Kept.substr(0, work.Kept.size() - 1), "");
  check("Project1.forms: this is no folder");
}
