#include "tests/apps/addin-dll/HostFixture.h"
#include "tests/support/BuildTree.h"

#include <sstream>

namespace formwizard::tests::host {
bool IsAtStep(int step) { return ActiveTitle() == L"Ostrel Form Wizard - Step " + std::to_wstring(step) + L" of 6"; }

void Finish() {
  const HWND wizard = ActiveWindow();
  PressAccessKey('F');
  for (int i = 0; i < 3000 && ::IsWindow(wizard) && !IsAtMessage(); ++i) ::Sleep(10);
}

HostFixture::HostFixture(const std::string& dictionary, const std::function<void(const std::string&)>& prepare) {
  CopySample("new-project", Home);
  if (prepare) prepare(Home);
  Project = std::make_unique<adapters::vb6files::ProjectOnDisk>(
      adapters::vb6files::RealFileSystem(), Home + "\\Project1.vbp",
      adapters::vb6files::ProjectOptions{1252, SourceFolder() + "/samples/toolbox.ini"});
  std::istringstream json(dictionary.empty() ? ReadFile(SourceFolder() + "/samples/dictionary.json") : dictionary);
  adapters::sqlite::ImportDictionary(json, "dictionary.json", Folder / "d.sqlite");
  Server = std::make_unique<HostServer>(adapters::sqlite::OpenDictionary(Folder / "d.sqlite"));
  Environment = std::make_unique<HostEnvironment>(*Project, Window.Handle());
  AddIn = Library.Create(Extensibility);
}

HostFixture::~HostFixture() {
  if (AddIn) Disconnect();
  AddIn = {};
  CHECK(Library.Call("DllCanUnloadNow") == S_OK);
}

void HostFixture::Connect(LONG mode) { CHECK(host::Connect(AddIn.Get(), Environment->Root().Get(), mode) == S_OK); }

void HostFixture::Disconnect() { CHECK(host::Disconnect(AddIn.Get()) == S_OK); }

void HostFixture::UseWizard(const std::function<void()>& user) {
  const std::shared_ptr<Command> command = WizardCommand();
  REQUIRE(command);
  UseWindows([&] { CHECK(Click(command)); }, user);
}

}  // namespace formwizard::tests::host
