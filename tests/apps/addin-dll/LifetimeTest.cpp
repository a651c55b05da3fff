// The add-in comes and goes while its windows are open, many times, and as part of a host that holds on to its objects.
#include "tests/apps/addin-dll/HostFixture.h"

#include <doctest/doctest.h>

#include <array>
#include <functional>
#include <vector>

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

}  // namespace

TEST_CASE("Whatever the environment does while the wizard is open, the wizard stays until it is closed") {
  struct Case {
    std::string What;
    std::function<void(HostFixture&)> Meanwhile;
    bool IsDisconnected;
    std::size_t Commands;  // in the end
  };
  const Case cases[] = {
      {"a second click", [](HostFixture& host) { CHECK(Click(host.WizardCommand())); }, false, 1},
      {"disconnected", [](HostFixture& host) { host.Disconnect(); }, true, 0},
      {"connected again",
       [](HostFixture& host) {
         host.Disconnect();
         host.Connect();  // now there are two commands
         CHECK(host.AddInsMenu().size() == 4);
       },
       true, 1},
      {"released",
       [](HostFixture& host) {
         host.AddIn = {};
         CHECK(host.Library.Call("DllCanUnloadNow") == S_FALSE);
       },
       true, 0},
  };
  for (const Case& c : cases) {
    CAPTURE(c.What);
    HostFixture host;
    host.Connect();
    const std::shared_ptr<Command> command = host.WizardCommand();
    host.UseWizard([&] {
      const int windows = CountWindows();
      host.Window.Run([&] { c.Meanwhile(host); });
      CHECK(CountWindows() == windows);
      Press(VK_RETURN);
      CHECK(IsAtStep(2));  // still works
      Press(VK_ESCAPE);
    });
    CHECK(command->IsDeleted == c.IsDisconnected);
    if (c.IsDisconnected) CHECK_FALSE(Click(command));
    CHECK(host.AddInsMenu().size() == 2 + c.Commands);
    if (c.Commands == 1) CHECK(host.WizardCommand()->Sources.size() == 1);
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
  CheckNothingIsLeft(1000, 0, [&] {
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
