#include "adapters/win32/MessageQueue.h"

#include <algorithm>
#include <array>

namespace formwizard::adapters::win32 {
namespace {

struct Range {
  UINT First, Last;
};

constexpr std::array InputMessages{Range{WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK}, Range{WM_INPUT, WM_INPUT},
                                   Range{WM_KEYFIRST, WM_KEYLAST}, Range{WM_MOUSEFIRST, WM_MOUSELAST}};
constexpr std::array OtherMessages{Range{1, WM_NCMOUSEMOVE - 1}, Range{WM_NCXBUTTONDBLCLK + 1, WM_INPUT - 1},
                                   Range{WM_KEYLAST + 1, WM_MOUSEFIRST - 1}, Range{WM_MOUSELAST + 1, 0xFFFF}};

}  // namespace

bool IsInput(UINT message) {
  return std::ranges::any_of(InputMessages,
                             [&](const Range& range) { return message >= range.First && message <= range.Last; });
}

void DispatchAllButInput() {
  bool any = true;
  while (any) {
    any = false;
    for (const Range& range : OtherMessages) {
      MSG message;
      while (PeekMessageW(&message, nullptr, range.First, range.Last, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // comes through every range
          PostQuitMessage(static_cast<int>(message.wParam));
          return;
        }
        DispatchMessageW(&message);
        any = true;
      }
    }
  }
}

}  // namespace formwizard::adapters::win32
