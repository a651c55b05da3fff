// What the user has on the clipboard, and what other programs do with it.
#include "adapters/win32/Clipboard.h"
#include "adapters/win32/WindowClass.h"
#include "tests/support/Test.h"

#include <cstring>
#include <span>

using namespace formwizard::adapters::win32;

namespace {

using Contents = std::map<UINT, std::string>;  // bytes by format

const std::string Rendered = "rendered late", Picture(48, '\x28');

HGLOBAL MemoryWith(const std::string& bytes) {
  const HGLOBAL memory = GlobalAlloc(GMEM_FIXED, bytes.size());
  return std::memcpy(memory, bytes.data(), bytes.size());
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_RENDERFORMAT) SetClipboardData(static_cast<UINT>(wParam), MemoryWith(Rendered));
  return DefWindowProcW(window, message, wParam, lParam);
}

const WindowClass OwnerClass(L"Owner", Procedure);

// A program that puts something there. What is empty it renders when that is asked for.
struct Owner {
  ~Owner() { DestroyWindow(Window); }
  void Put(const Contents& contents) const {
    OpenClipboard(Window);
    EmptyClipboard();
    for (const auto& [format, bytes] : contents) SetClipboardData(format, bytes.empty() ? nullptr : MemoryWith(bytes));
    CloseClipboard();
  }

  HWND Window = CreateWindowExW(0, L"Owner", L"", 0, 0, 0, 0, 0, nullptr, nullptr, ThisModule(), nullptr);
};

std::string OnClipboard(UINT format) {
  OpenClipboard(nullptr);
  const HANDLE memory = GetClipboardData(format);
  const std::string bytes = memory ? std::string(static_cast<const char*>(GlobalLock(memory)), GlobalSize(memory)) : "";
  CloseClipboard();
  return bytes;
}

bool Lend(const std::function<void()>& use) { return LendBitmap(std::as_bytes(std::span(Picture)), use); }

// Owns the clipboard and does not answer. The events say that it does so, and for how long.
DWORD WINAPI Hang(void* events) {
  const Owner owner;
  owner.Put({{CF_UNICODETEXT, ""}});
  SignalObjectAndWait(static_cast<HANDLE*>(events)[0], static_cast<HANDLE*>(events)[1], INFINITE, FALSE);
  return 0;
}

}  // namespace

TEST_CASE("A picture on the clipboard leaves what the user had there in front of it") {
  const Owner owner;
  const UINT late = RegisterClipboardFormatW(L"Rendered late");
  for (const Contents& before :
       {Contents{}, Contents{{CF_UNICODETEXT, {"T\0\0\0", 4}}, {CF_HDROP, "files"}, {late, ""}},
        Contents{{CF_DIB, std::string(64, '\x28')}}}) {
    for (const bool fails : {false, true}) {
      CAPTURE(before.size());
      owner.Put(before);
      const auto use = [fails] {
        CHECK(OnClipboard(CF_DIB) == Picture);
        if (fails) throw std::runtime_error("the environment");
      };
      if (fails)
        CHECK_THROWS(Lend(use));
      else
        CHECK(Lend(use));
      for (const auto& [format, bytes] : before) CHECK(OnClipboard(format) == (bytes.empty() ? Rendered : bytes));
      CHECK((before.contains(CF_DIB) || OnClipboard(CF_DIB) == Picture));
    }
  }
  CHECK(Lend([&] { owner.Put({{late, "newer"}}); }));
  CHECK(OnClipboard(late) == "newer");
}

TEST_CASE("A clipboard that cannot be had, or could not be given back, is left alone") {
  const auto isLeftAlone = [] {
    const DWORD before = GetClipboardSequenceNumber();
    return !Lend([] { FAIL_CHECK("lent"); }) && GetClipboardSequenceNumber() == before;
  };
  std::array events{CreateEventW(nullptr, TRUE, FALSE, nullptr), CreateEventW(nullptr, TRUE, FALSE, nullptr)};
  const HANDLE thread = CreateThread(nullptr, 0, Hang, events.data(), 0, nullptr);
  WaitForSingleObject(events[0], INFINITE);
  CHECK(isLeftAlone());  // without an answer
  SetEvent(events[1]);
  WaitForSingleObject(thread, INFINITE);
  for (const HANDLE handle : {events[0], events[1], thread}) CloseHandle(handle);
  const Owner owner;
  OpenClipboard(owner.Window);
  EmptyClipboard();
  SetClipboardData(CF_ENHMETAFILE, CloseEnhMetaFile(CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr)));
  CHECK(isLeftAlone());  // open
  CloseClipboard();
  CHECK(isLeftAlone());  // no memory
}
