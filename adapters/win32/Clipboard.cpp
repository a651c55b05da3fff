#include "adapters/win32/Clipboard.h"

#include "adapters/win32/WindowClass.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace formwizard::adapters::win32 {
namespace {

// Half a second in all.
constexpr ULONGLONG MillisecondsToBorrow = 300, MillisecondsToGiveBack = 200;

class Deadline {
 public:
  explicit Deadline(ULONGLONG milliseconds) : end_(GetTickCount64() + milliseconds) {}
  UINT Left() const { return static_cast<UINT>(end_ - std::min(end_, GetTickCount64())); }

 private:
  ULONGLONG end_;
};

// The clipboard, opened for a window, or not when another program keeps it until then.
class OpenedClipboard {
 public:
  OpenedClipboard(HWND window, const Deadline& deadline) {
    constexpr DWORD pause = 10;
    while (!(isOpen_ = OpenClipboard(window) != FALSE) && deadline.Left() > 0) Sleep(pause);
  }
  ~OpenedClipboard() {
    if (isOpen_) CloseClipboard();
  }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
  explicit operator bool() const { return isOpen_; }

 private:
  bool isOpen_ = false;
};

struct FreeMemory {
  void operator()(HGLOBAL memory) const { GlobalFree(memory); }
};
struct Content {
  UINT Format;
  std::unique_ptr<std::remove_pointer_t<HGLOBAL>, FreeMemory> Memory;  // null when there is none
};

Content CopyOf(UINT format, std::span<const std::byte> bytes) {
  Content content{format, {}};
  if (bytes.empty()) return content;
  content.Memory.reset(GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
  if (!content.Memory) return content;
  std::memcpy(GlobalLock(content.Memory.get()), bytes.data(), bytes.size());
  GlobalUnlock(content.Memory.get());
  return content;
}

Content CopyOf(UINT format) {
  const HANDLE memory = GetClipboardData(format);  // the clipboard's
  const auto* bytes = memory ? static_cast<const std::byte*>(GlobalLock(memory)) : nullptr;
  if (!bytes) return {format, {}};
  Content content = CopyOf(format, {bytes, GlobalSize(memory)});
  GlobalUnlock(memory);
  return content;
}

bool Put(Content content) {
  if (!SetClipboardData(content.Format, content.Memory.get())) return false;
  static_cast<void>(content.Memory.release());  // the system's now
  return true;
}

// Whether the handle of a format is one of plain memory. Pictures that are none are there as CF_DIB too, and what names
// the window of another program means nothing once the clipboard has another owner.
bool IsMemory(UINT format) {
  constexpr std::array others{CF_BITMAP,       CF_PALETTE,   CF_METAFILEPICT,    CF_ENHMETAFILE,
                              CF_OWNERDISPLAY, CF_DSPBITMAP, CF_DSPMETAFILEPICT, CF_DSPENHMETAFILE};
  if (std::ranges::find(others, static_cast<int>(format)) != others.end()) return false;
  if (format >= CF_PRIVATEFIRST && format <= CF_GDIOBJLAST) return false;
  return format != RegisterClipboardFormatW(L"DataObject") && format != RegisterClipboardFormatW(L"Ole Private Data");
}

// An owner that does not answer would be waited for as long as it likes, by the first format that it is to render.
bool OwnerAnswers(const Deadline& deadline) {
  const HWND owner = GetClipboardOwner();
  DWORD_PTR answer = 0;
  return !owner || SendMessageTimeoutW(owner, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, deadline.Left(), &answer) != 0;
}

// What is on the opened clipboard, in its order; nothing when it has to be left alone.
std::optional<std::vector<Content>> Kept(const Deadline& deadline) {
  std::vector<Content> contents;
  if (CountClipboardFormats() == 0) return contents;
  if (!OwnerAnswers(deadline)) return std::nullopt;
  for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format)) {
    if (!IsMemory(format)) continue;
    if (deadline.Left() == 0) return std::nullopt;
    if (Content content = CopyOf(format); content.Memory) contents.push_back(std::move(content));
  }
  if (contents.empty()) return std::nullopt;
  return contents;
}

class BorrowedClipboard {
 public:
  explicit BorrowedClipboard(std::span<const std::byte> bitmap)
      : window_(CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ThisModule(), nullptr)),
        isBorrowed_(window_ && Borrow(bitmap)) {}
  ~BorrowedClipboard() {
    if (isBorrowed_ && !contents_.empty()) GiveBack();
    DestroyWindow(window_);
  }
  BorrowedClipboard(const BorrowedClipboard&) = delete;
  BorrowedClipboard& operator=(const BorrowedClipboard&) = delete;
  explicit operator bool() const { return isBorrowed_; }

 private:
  bool Borrow(std::span<const std::byte> bitmap) {
    const Deadline deadline(MillisecondsToBorrow);
    const OpenedClipboard clipboard(window_, deadline);
    if (!clipboard) return false;
    auto kept = Kept(deadline);
    Content picture = CopyOf(CF_DIB, bitmap), left = CopyOf(CF_DIB, bitmap);
    if (!kept || !picture.Memory || !left.Memory || !EmptyClipboard()) return false;
    contents_ = std::move(*kept);
    const bool hadPicture = std::ranges::find(contents_, UINT{CF_DIB}, &Content::Format) != contents_.end();
    if (!contents_.empty() && !hadPicture) contents_.push_back(std::move(left));
    if (Put(std::move(picture))) return true;
    for (Content& content : contents_) Put(std::move(content));
    return false;
  }

  // Unless somebody has put something newer there.
  void GiveBack() {
    const OpenedClipboard clipboard(window_, Deadline(MillisecondsToGiveBack));
    if (!clipboard || GetClipboardOwner() != window_ || !EmptyClipboard()) return;
    for (Content& content : contents_) Put(std::move(content));
  }

  HWND window_;
  std::vector<Content> contents_;  // what the user had, and then the bitmap
  bool isBorrowed_;
};

}  // namespace

bool LendBitmap(std::span<const std::byte> bitmap, const std::function<void()>& use) {
  const BorrowedClipboard clipboard(bitmap);
  if (clipboard) use();
  return static_cast<bool>(clipboard);
}

}  // namespace formwizard::adapters::win32
