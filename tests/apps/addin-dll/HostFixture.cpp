#include "tests/apps/addin-dll/HostFixture.h"

#include <sstream>

namespace formwizard::tests::host {
namespace {

constexpr wchar_t WindowClassName[] = L"HostOfAddIns";
constexpr UINT RunMessage = WM_APP;

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != RunMessage) return ::DefWindowProcW(window, message, wParam, lParam);
  (*reinterpret_cast<const std::function<void()>*>(lParam))();
  return 0;
}

}  // namespace

HostWindow::HostWindow() {
  WNDCLASSW description{};
  description.lpfnWndProc = WindowProcedure;
  description.lpszClassName = WindowClassName;
  description.hbrBackground = ::GetSysColorBrush(COLOR_APPWORKSPACE);
  ::RegisterClassW(&description);
  handle_ = ::CreateWindowExW(0, WindowClassName, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 900, 640, nullptr,
                              nullptr, nullptr, nullptr);
}

HostWindow::~HostWindow() {
  ::DestroyWindow(handle_);
  ::UnregisterClassW(WindowClassName, nullptr);
}

void HostWindow::Run(const std::function<void()>& work) const {
  ::SendMessageW(handle_, RunMessage, 0, reinterpret_cast<LPARAM>(&work));
}

HostFixture::HostFixture(const std::string& dictionary, const std::function<void(const std::string&)>& prepare) {
  CopySample("new-project", Home);
  if (prepare) prepare(Home);
  Project = std::make_unique<adapters::vb6files::ProjectOnDisk>(
      adapters::vb6files::RealFileSystem(), Home + "\\Project1.vbp",
      adapters::vb6files::ProjectOptions{1252, FORMWIZARD_SOURCE_DIR "/samples/toolbox.ini"});
  std::istringstream json(dictionary.empty() ? ReadFile(FORMWIZARD_SOURCE_DIR "/samples/dictionary.json") : dictionary);
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
