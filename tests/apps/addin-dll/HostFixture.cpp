#include "tests/apps/addin-dll/HostFixture.h"

namespace formwizard::tests::host {
namespace {

std::map<std::string, std::string> SampleWith(const std::string& code) {
  auto files = FilesIn(NativePath(SourceFolder() + "/samples/new-project"));
  files.at("Form1.frm") += code;
  return files;
}

}  // namespace

bool IsAtStep(int step) { return ActiveTitle() == L"Ostrel Form Wizard - Step " + std::to_wstring(step) + L" of 6"; }

void Finish() {
  const HWND wizard = ActiveWindow();
  PressAccessKey('F');
  for (int i = 0; i < 3000 && ::IsWindow(wizard) && !IsAtMessage(); ++i) ::Sleep(10);
}

HostFixture::HostFixture(const std::string& dictionary, const std::string& code) : Project(SampleWith(code)) {
  Server = std::make_unique<HostServer>(OpenSampleDictionary(Folder, dictionary));
  AddIn = Library.Create(Extensibility);
}

HostFixture::~HostFixture() {
  if (AddIn) Disconnect();
  AddIn = {};
  CHECK(Library.Call("DllCanUnloadNow") == S_OK);
}

void HostFixture::Connect(LONG mode) { CHECK(host::Connect(AddIn.Get(), Environment.Root().Get(), mode) == S_OK); }

void HostFixture::Disconnect() { CHECK(host::Disconnect(AddIn.Get()) == S_OK); }

void HostFixture::UseWizard(const std::function<void()>& user) {
  const std::shared_ptr<Command> command = WizardCommand();
  REQUIRE(command);
  UseWindows([&] { CHECK(Click(command)); }, user);
}

}  // namespace formwizard::tests::host
