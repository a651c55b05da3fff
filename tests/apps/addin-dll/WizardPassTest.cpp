// A click on the command, and the wizard used in its windows until the environment has a new form.
#include "tests/adapters/win32/Densities.h"
#include "tests/adapters/win32/Picture.h"
#include "tests/apps/addin-dll/HostFixture.h"
#include "tests/support/Golden.h"

using namespace formwizard::tests;
using namespace formwizard::tests::host;

namespace {

void Look(int step) {
  CHECK((step == 0 ? ActiveTitle() == L"Ostrel Form Wizard Settings" : IsAtStep(step)));
  TakePicture(step == 0 ? "settings" : "step-" + std::to_string(step));
}

void ChooseByKeyboard() {
  KeyboardUser user;
  PassThroughWizard(user, Look);
  CHECK(Focus() == WindowOf(WizardDesign().cmdFinish));
  Finish();
}

void ChooseByMouse() {
  MouseUser user;
  PassThroughWizard(user, [&](int step) {
    CHECK((step == 0 || IsAtStep(step)));
    if (step != 3) return;
    const HWND classes = WindowOf(WizardDesign().tvwClasses);
    for (const bool isOpen : {false, true}) {
      user.Open(WizardDesign().tvwClasses, "Sample");  // or closes it again
      const UINT state = TreeView_GetItemState(classes, ItemOf(classes, L"Sample"), TVIS_EXPANDED);
      CHECK(((state & TVIS_EXPANDED) != 0) == isOpen);
    }
  });
  user.Press(WizardDesign().cmdFinish);
}

}  // namespace

// tests/golden/addin-project is what the command line makes, on any system, of the same choices.
TEST_CASE("A form made in the environment, by keyboard alone or by mouse, is the one that the command line makes") {
  AtEveryDensity([](int) {
    for (const auto choose : {ChooseByKeyboard, ChooseByMouse}) {
      const bool byKeyboard = choose == ChooseByKeyboard;
      CAPTURE(byKeyboard);
      HostFixture host;
      host.Connect();
      host.UseWizard(choose);
      CheckSameFiles(host.Project.Saved(), FilesIn(SourceFolder() + "/tests/golden/addin-project"));
      CHECK(Has(ReadFile(host.Library.Profile()), "Columns=2"));
    }
  });
}

TEST_CASE("Code goes behind more lines than 16 bits count, until an event procedure is to have such a line") {
  std::string lines;
  for (int i = 1; i <= 33'000; ++i) lines += "' line " + std::to_string(i) + "\r\n";
  HostFixture host("", lines);
  host.Connect();
  host.UseWizard([] {
    ChooseByKeyboard();
    CHECK(DismissMessage() == "Error: Error occurred in procedure cmdFinish_Click : Overflow");
    Press(VK_ESCAPE);
  });
  const std::string firstEvent = "Private Sub cmd__New_Click()";
  std::string form = host.Project.Saved().at("frmPerson.frm"), expected = Golden("addin-project/frmPerson.frm");
  const std::size_t at = form.find(lines), end = expected.find(firstEvent) + firstEvent.size();
  REQUIRE(at != std::string::npos);
  form.erase(at, lines.size());
  CHECK(form.substr(0, end) == expected.substr(0, end));
}

TEST_CASE("Connected by another program the wizard opens at once and there is no command") {
  HostFixture host;
  const HWND owner = host.Window.Handle();
  UseWindows([&] { host.Connect(2); },
             [&] {
               CHECK(IsAtStep(1));
               CHECK(::GetWindow(ActiveWindow(), GW_OWNER) == owner);
               CHECK_FALSE(::IsWindowEnabled(owner));
               Press(VK_ESCAPE);
             });
  CHECK(::IsWindowEnabled(owner));
  CHECK_FALSE(host.WizardCommand());
  CHECK_FALSE(host.Project.OnDisk().IsChanged());
}
