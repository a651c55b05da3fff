// The add-in comes and goes while its windows are open, many times, and as part of a host that holds on to its objects.
#include "apps/registration/Registration.h"
#include "tests/adapters/win32/Anew.h"
#include "tests/apps/addin-dll/HostFixture.h"

using namespace formwizard::tests;
using namespace formwizard::tests::host;
using formwizard::adapters::com::ComPtr;

namespace {

// What a leak makes more of. Programs have heaps of their own; the process' heap is what the system's libraries use.
struct Usage {
  std::size_t Blocks, SystemBlocks;
  int Windows, GdiObjects;
};

std::size_t CountBlocks(HANDLE heap) {
  std::size_t count = 0;
  PROCESS_HEAP_ENTRY entry{};
  ::HeapLock(heap);
  while (::HeapWalk(heap, &entry)) count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1 : 0;
  ::HeapUnlock(heap);
  return count;
}

// As many as cannot be made any more.
int CountGdiObjects() {
  constexpr int most = 0x4000;
  std::vector<HPEN> pens;
  while (const HPEN pen = ::CreatePen(PS_SOLID, 1, RGB(1, 2, 3))) pens.push_back(pen);
  for (const HPEN pen : pens) ::DeleteObject(pen);
  return most - static_cast<int>(pens.size());
}

Usage CurrentUsage() {
  Usage usage{0, 0, CountWindows(), CountGdiObjects()};
  std::array<HANDLE, 100> heaps{};
  const DWORD count = ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  for (DWORD i = 0; i < count; ++i) {
    (heaps.at(i) == ::GetProcessHeap() ? usage.SystemBlocks : usage.Blocks) += CountBlocks(heaps.at(i));
  }
  return usage;
}

// The system's library of controls may keep some blocks at each round.
void CheckNothingIsLeft(int rounds, std::size_t systemBlocks, const std::function<void()>& round) {
  constexpr std::size_t noise = 10;
  const auto usageAfter = [&](int times) {
    for (int i = 0; i < times; ++i) round();
    return CurrentUsage();
  };
  const Usage before = usageAfter(5), after = usageAfter(rounds);
  CHECK(before.Blocks > noise);  // there is something to compare
  CHECK(after.Blocks <= before.Blocks + noise);
  CHECK(after.SystemBlocks <= before.SystemBlocks + noise + systemBlocks * static_cast<std::size_t>(rounds));
  CHECK(after.Windows == before.Windows);
  CHECK(after.GdiObjects <= before.GdiObjects);
}

// The common controls that are in force on this thread.
HANDLE CurrentControls() {
  HANDLE context = nullptr;
  ::GetCurrentActCtx(&context);
  if (context) ::ReleaseActCtx(context);
  return context;
}

HANDLE controlsOfTrees = nullptr;  // of the last tree that was made

LRESULT CALLBACK NoteControls(int code, WPARAM window, LPARAM more) {
  wchar_t name[20] = L"";
  if (code == HCBT_CREATEWND) ::GetClassNameW(reinterpret_cast<HWND>(window), name, 20);
  if (name == std::wstring(WC_TREEVIEWW)) controlsOfTrees = CurrentControls();
  return ::CallNextHookEx(nullptr, code, window, more);
}

}  // namespace

TEST_CASE("Disconnected while the wizard is open, the add-in is gone at once, with its windows and all that it held") {
  struct Case {
    std::string What;
    std::function<void(HostFixture&)> Meanwhile;
    bool IsGone;
    std::size_t Commands;  // in the end
  };
  const auto disconnect = [](HostFixture& host) { host.Disconnect(); };
  const auto openMenu = [] { Press(VK_SPACE, VK_MENU); };
  const auto openSettings = [] { PressAccessKey('S'); };
  const auto openMessage = [] {
    PressAccessKey('N');
    CHECK(IsAtMessage());
  };
  const std::pair<std::function<void()>, Case> cases[] = {
      {[] {}, {"a second click", [](HostFixture& host) { CHECK(Click(host.WizardCommand())); }, false, 1}},
      {[] {},
       {"the end of the user's work asked for and called off",
        [](HostFixture&) {
          CHECK(::SendMessageW(ActiveWindow(), WM_QUERYENDSESSION, 0, 0));
          ::SendMessageW(ActiveWindow(), WM_ENDSESSION, FALSE, 0);
        },
        false, 1}},
      {[] {}, {"one of two", [](HostFixture& host) { host.Connect(), host.Disconnect(); }, false, 1}},
      {[] {}, {"disconnected", disconnect, true, 0}},
      {openMenu, {"over its menu", disconnect, true, 0}},
      {openSettings, {"over its settings", disconnect, true, 0}},
      {openMessage, {"over a message", disconnect, true, 0}},
      {[] {}, {"connected again", [](HostFixture& host) { host.Disconnect(), host.Connect(); }, true, 1}},
      {[] {},
       {"released",
        [](HostFixture& host) {
          host.AddIn = {};
          CHECK(host.Library.Call("DllCanUnloadNow") == S_FALSE);
        },
        true, 0}},
  };
  for (const auto& [open, c] : cases) {
    CAPTURE(c.What);
    HostFixture host;
    const long living = com::LivingObjects;
    host.Connect();
    const std::shared_ptr<Command> command = host.WizardCommand();
    if (c.What == "over a message") PlannedFailures["Server.Create"] = Failure::Exception;
    host.UseWizard([&] {
      const HWND wizard = ActiveWindow();
      open();
      host.Window.Run([&] {
        c.Meanwhile(host);
        CHECK(command->IsDeleted == c.IsGone);
        CHECK((::IsWindowVisible(wizard) != FALSE) != c.IsGone);
        CHECK((::IsWindowEnabled(host.Window.Handle()) != FALSE) == c.IsGone);
        if (c.Commands == 0) CHECK(com::LivingObjects <= living + 1);  // what the host gives with its click
        UsedMembers.clear();
      });
      if (c.IsGone) return;  // it closes by itself
      Press(VK_RETURN);
      CHECK(IsAtStep(2));  // still works
      Press(VK_ESCAPE);
    });
    if (c.IsGone) CHECK(UsedMembers.empty());
    if (c.IsGone) CHECK_FALSE(Click(command));
    CHECK(host.AddInsMenu().size() == 2 + c.Commands);
    if (c.Commands == 1) CHECK(host.WizardCommand()->Sources.size() == 1);
  }
}

TEST_CASE("The environment's windows keep their own controls while the wizard is open, and no new one takes input") {
  HostFixture host;
  host.Connect();
  const HANDLE own = CurrentControls();
  controlsOfTrees = own;
  const HHOOK hook = ::SetWindowsHookExW(WH_CBT, NoteControls, nullptr, ::GetCurrentThreadId());
  HWND tool = nullptr;
  host.UseWizard([&] {
    const HWND wizard = ActiveWindow();
    for (const bool isMoving : {false, true}) {
      if (isMoving) ::PostMessageW(wizard, WM_SYSCOMMAND, SC_MOVE, 0);
      Press(VK_SHIFT);
      host.Window.Run([&] { CHECK(CurrentControls() == own); });
    }
    Press(VK_ESCAPE);
    CHECK(IsAtStep(1));
    host.Window.Run([&] {
      tool = ::CreateWindowExW(0, L"STATIC", L"Tool", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 90, 90, nullptr, nullptr,
                               nullptr, nullptr);
    });
    Press(VK_SHIFT);
    CHECK_FALSE(::IsWindowEnabled(tool));
    CHECK(ActiveWindow() == wizard);
    Press(VK_ESCAPE);
  });
  ::UnhookWindowsHookEx(hook);
  CHECK(controlsOfTrees != own);  // the wizard's are the newer ones
  CHECK(::IsWindowEnabled(tool));
  ::DestroyWindow(tool);
}

TEST_CASE(
    "A host that is killed while the wizard is open or makes a form leaves whole settings, and a next one works") {
  constexpr wchar_t variable[] = L"FORMWIZARD_KILLED";
  if (const wchar_t* last = _wgetenv(variable)) {
    HostFixture host;
    host.Connect();
    host.UseWizard([&] {
      KeyboardUser user;
      PassThroughWizard(user);
      if (last == std::wstring(L"none")) KillThisProcess();
      host.Window.Run([&] {
        AtEachCall = [&](const std::string& member) {
          if (NativePath(member) == last) KillThisProcess();
        };
      });
      Finish();
    });
    return;
  }
  if (!Installer().empty()) return;  // its settings stand beside the installed library
  const auto registered = [] {
    using namespace formwizard::apps::registration;
    return std::pair(RegisteredLibrary(BothScopes[0]), RegisteredLibrary(BothScopes[1]));
  };
  const auto before = registered();
  for (const wchar_t* last : {L"none", L"VBProject.AddToolboxProgID", L"VBControls.Add", L"CodeModule.InsertLines"}) {
    CAPTURE(Utf8(std::filesystem::path(last)));
    const TemporaryFolder folder;
    const std::wstring temporary = _wgetenv(L"TMP");
    _wputenv_s(L"TMP", folder.Path().c_str());
    CHECK(RunAnew(variable, last) == Killed);
    _wputenv_s(L"TMP", temporary.c_str());
    int settings = 0;
    for (const auto& [name, text] : FilesIn(folder.Path())) {
      const bool isProfile = name.ends_with("/outility.ini");
      CHECK((isProfile || name.ends_with("/d.sqlite") || name.ends_with("/OstrelFormWizard.dll")));
      if (isProfile) settings += text.starts_with("[OstrelFormWizard]\r\n") && text.find("Columns=2\r\n") != text.npos;
    }
    CHECK(settings == 1);
    CHECK(registered() == before);
    HostFixture next;
    next.Connect();
    next.UseWizard([] {
      CHECK(IsAtStep(1));
      Press(VK_ESCAPE);
    });
  }
}

TEST_CASE("A library whose objects the environment still holds is not unloaded") {
  HostFixture host;
  host.Connect();
  const ComPtr<IDispatch> listener = ListenerOf(host.WizardCommand());
  host.Disconnect();
  host.AddIn = {};
  CHECK(host.Library.Call("DllCanUnloadNow") == S_FALSE);
}

TEST_CASE("Connected a thousand times, opened and closed again and again, the wizard leaves nothing behind") {
  HostFixture host;
  constexpr std::size_t reads = 1;  // of the clipboard, of each of which Wine keeps a block
  CheckNothingIsLeft(1000, reads, [&] {
    host.Connect();
    host.Disconnect();
  });
  host.Connect();
  constexpr std::size_t labels = 31;  // of each of which Wine loses a few bytes
  CheckNothingIsLeft(20, labels, [&] {
    host.UseWizard([] {
      CHECK(IsAtStep(1));  // a fresh one at each click
      PressAccessKey('S');
      Press(VK_ESCAPE);
      PressAccessKey('N');
      CHECK(IsAtStep(2));
      Press(VK_ESCAPE);
    });
  });
}
