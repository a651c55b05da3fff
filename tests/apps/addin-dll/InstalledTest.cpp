// The library that an installer has installed, as the environment finds it; packaging/check-windows runs this.
#include "tests/apps/addin-dll/HostFixture.h"
#include "tests/support/Golden.h"

#include <process.h>

using namespace formwizard::tests;
using namespace formwizard::tests::host;

TEST_CASE("The installed library makes the form, and as long as it is loaded it is neither replaced nor removed" *
          doctest::skip(Installer().empty())) {
  constexpr int inUse = 4;
  HostFixture host;
  CHECK(_spawnl(_P_WAIT, Installer().c_str(), "setup", "/S", nullptr) == inUse);
  const std::string folder = host.Library.Folder();
  const std::string waited = "_?=" + folder.substr(0, folder.size() - 1);
  CHECK(_spawnl(_P_WAIT, (folder + "uninstall.exe").c_str(), "uninstall", "/S", waited.c_str(), nullptr) == inUse);
  host.Connect();
  host.UseWizard([] {
    KeyboardUser user;
    PassThroughWizard(user, [](int) {});
    Finish();
  });
  CheckSameFiles(host.Project.Saved(), FilesIn(SourceFolder() + "/tests/golden/addin-project"));
  CHECK(Has(ReadFile(host.Library.Profile()), "Columns=2"));
}
