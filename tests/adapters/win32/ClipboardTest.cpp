// What the user has on the clipboard, and what other programs do with it.
#include "adapters/win32/Clipboard.h"
#include "adapters/win32/WindowClass.h"

#include <doctest/doctest.h>

#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>

using namespace formwizard::adapters::win32;

namespace {

using Contents = std::map<UINT, std::string>;  // bytes by format

const std::string Rendered = "rendered late";
const std::string Picture(48, '\x28');

HGLOBAL MemoryWith(const std::string& bytes) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
  GlobalUnlock(memory);
  return memory;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_RENDERFORMAT) return DefWindowProcW(window, message, wParam, lParam);
  SetClipboardData(static_cast<UINT>(wParam), MemoryWith(Rendered));
  return 0;
}

// A program that puts something there. What is empty it renders when that is asked for.
class Owner {
 public:
  ~Owner() { DestroyWindow(window_); }
  void Put(const Contents& contents) const {
    REQUIRE(OpenClipboard(window_));
    EmptyClipboard();
    for (const auto& [format, bytes] : contents) SetClipboardData(format, bytes.empty() ? nullptr : MemoryWith(bytes));
    CloseClipboard();
  }

 private:
  WindowClass class_{L"OwnerOfClipboard", Procedure};
  HWND window_ =
      Made(CreateWindowExW(0, L"OwnerOfClipboard", L"", 0, 0, 0, 0, 0, nullptr, nullptr, ThisModule(), nullptr));
};

Contents OnClipboard() {
  Contents contents;
  REQUIRE(OpenClipboard(nullptr));
  for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format)) {
    const HANDLE memory = GetClipboardData(format);
    const SIZE_T size = format == CF_BITMAP ? 0 : GlobalSize(memory);
    contents[format] = std::string(static_cast<const char*>(GlobalLock(memory)), size);
    GlobalUnlock(memory);
  }
  CloseClipboard();
  return contents;
}

bool Lend(const std::function<void()>& use) { return LendBitmap(std::as_bytes(std::span(Picture)), use); }

// Another thread does something with the clipboard, and then nothing until it is let go.
class OtherThread {
 public:
  OtherThread(std::function<void()> begin, std::function<void()> end) : begin_(std::move(begin)), end_(std::move(end)) {
    WaitForSingleObject(begun_, INFINITE);
  }
  ~OtherThread() {
    SetEvent(done_);
    WaitForSingleObject(thread_, INFINITE);
    for (const HANDLE handle : {begun_, done_, thread_}) CloseHandle(handle);
  }
  OtherThread(const OtherThread&) = delete;
  OtherThread& operator=(const OtherThread&) = delete;

 private:
  static DWORD WINAPI Run(void* object) {
    const auto& self = *static_cast<OtherThread*>(object);
    self.begin_();
    SetEvent(self.begun_);
    WaitForSingleObject(self.done_, INFINITE);
    self.end_();
    return 0;
  }

  std::function<void()> begin_, end_;
  HANDLE begun_ = CreateEventW(nullptr, TRUE, FALSE, nullptr), done_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  HANDLE thread_ = CreateThread(nullptr, 0, Run, this, 0, nullptr);
};

}  // namespace

TEST_CASE("A picture on the clipboard leaves what the user had there in front of it") {
  const Owner owner;
  const UINT late = RegisterClipboardFormatW(L"Rendered late");
  const std::string text("T\0e\0x\0t\0\0\0", 10), theirs(64, '\x28');
  for (const Contents& before :
       {Contents{}, Contents{{CF_UNICODETEXT, text}, {CF_HDROP, std::string(40, 'h')}, {late, ""}},
        Contents{{CF_DIB, theirs}}}) {
    for (const bool fails : {false, true}) {
      CAPTURE(before.size());
      owner.Put(before);
      std::string seen;
      const auto use = [&] {
        seen = OnClipboard()[CF_DIB];
        if (fails) throw std::runtime_error("the environment");
      };
      if (fails)
        CHECK_THROWS(Lend(use));
      else
        CHECK(Lend(use));
      CHECK(seen == Picture);
      Contents after = OnClipboard();
      for (const auto& [format, bytes] : before) CHECK(after[format] == (bytes.empty() ? Rendered : bytes));
      CHECK(after[CF_DIB] == (before.contains(CF_DIB) ? theirs : Picture));
    }
  }
  CHECK(Lend([&] { owner.Put({{late, "newer"}}); }));
  CHECK(OnClipboard() == Contents{{late, "newer"}});
}

TEST_CASE("A clipboard that cannot be had, or could not be given back, is left alone") {
  const auto isLeftAlone = [] {
    const DWORD before = GetClipboardSequenceNumber();
    CHECK_FALSE(Lend([] { FAIL_CHECK("lent"); }));
    CHECK(GetClipboardSequenceNumber() == before);
  };
  Owner().Put({{CF_UNICODETEXT, "T"}});
  {
    const OtherThread busy([] { OpenClipboard(nullptr); }, [] { CloseClipboard(); });
    isLeftAlone();
  }
  {
    std::unique_ptr<Owner> owner;
    const OtherThread hung(
        [&] {
          (owner = std::make_unique<Owner>())->Put({{CF_UNICODETEXT, ""}});
        },
        [&] { owner.reset(); });
    isLeftAlone();
  }
  REQUIRE(OpenClipboard(nullptr));
  EmptyClipboard();
  SetClipboardData(CF_ENHMETAFILE, CloseEnhMetaFile(CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr)));
  CloseClipboard();
  isLeftAlone();
}
