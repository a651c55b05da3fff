// The environment through automation, as the played one answers.
#include "adapters/com/ComEnvironment.h"
#include "tests/apps/addin-dll/HostEnvironment.h"
#include "tests/support/GenerationFixture.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// Every kind of field, and texts that are refused at length, into a project with components.
struct Generation : GenerationFixture {
  Generation() : GenerationFixture({{"form1", true}, {"Form2", false}, {"frmPerson", true}, {"FRMPERSON2", true}}) {
    AddEveryKind();
    AddField(kind::TextBox, std::string(300, 'n')).Caption = "Größe €";
  }
  // What was reported, and what was done.
  std::string Outcome() {
    const int error = ErrorNumberOf([this] { Generate(); });
    return std::to_string(error) + "\n" + Desktop.Shown() + Ide.Journal();
  }
};

struct Automated {
  NothingIsLeft AtTheEnd;
  Generation Run;
  host::HostEnvironment Host{Run.Ide};
  FakePtr Root = Host.Root();
  com::ComEnvironment Vbe{Root.Get()};

  Automated() { Run.Environment = &Vbe; }
};

}  // namespace

TEST_CASE("Through automation everything is done with the same values, whichever call the environment refuses") {
  int calls = 0;
  for (int refused = 0; refused <= calls; ++refused) {
    CAPTURE(refused);
    Automated automated;
    Generation direct;
    direct.Ide.RefuseAt = automated.Run.Ide.RefuseAt = refused;
    CHECK(automated.Run.Outcome() == direct.Outcome());
    if (refused == 0) calls = static_cast<int>(direct.Ide.Calls().size());
  }
  CHECK(calls > 250);
}

TEST_CASE("However a member of the environment fails, it is reported, and what was made goes") {
  UsedMembers.clear();
  Automated().Run.Outcome();
  const std::set<std::string> members = UsedMembers;
  CHECK(members.size() > 20);
  const std::set<std::string> withoutResult{"VBProject.AddToolboxProgID", "Property.Value", "VBControl.Container",
                                            "CodeModule.InsertLines"};
  for (const std::string& member : members) {
    for (const Failure how : AllFailures) {
      CAPTURE(member);
      CAPTURE(static_cast<int>(how));
      Automated automated;
      PlannedFailures[member] = how;
      std::string shown, passed;
      try {
        automated.Run.Generate();
      } catch (const runtime::RuntimeError& error) {
        passed = error.Description();
      }
      shown = automated.Run.Desktop.Shown() + passed;
      const bool isUnused = withoutResult.contains(member) && (how == Failure::WrongType || how == Failure::Null);
      // An environment whose containers have no list of their own has one for all.
      const bool isOptional = member == "VBControl.ContainedVBControls" && how == Failure::MissingName;
      CHECK((shown.find(DescriptionOf(how)) != std::string::npos ||
             (how == Failure::Null && shown.find("Invalid use of Null") != std::string::npos)) ==
            !(isUnused || isOptional));
    }
  }
}

TEST_CASE("The open project is asked for anew, and a reference to it stays valid") {
  const NothingIsLeft atTheEnd;
  const FakePtr root = NewFake("VBE");
  FakePtr project;
  root->On("ActiveVBProject", [&project] { return project; });
  com::ComEnvironment vbe(root.Get());
  std::string used;
  for (const std::string name : {"first", "second"}) {
    project = NewFake("VBProject");
    project->On("AddToolboxProgID", [&used, name](const Call& call) { used = name + " " + call.Text(0); });
    ide::VBProject& open = vbe.ActiveVBProject();
    vbe.ActiveVBProject();
    open.AddToolboxProgID("MSCOMDLG.CommonDialog");
    CHECK(used == name + " MSCOMDLG.CommonDialog");
  }
  project = {};
  CHECK(ErrorNumberOf([&] { vbe.ActiveVBProject(); }) == runtime::ObjectVariableNotSet);
}
