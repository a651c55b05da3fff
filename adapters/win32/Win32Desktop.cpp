#include "adapters/win32/Win32Desktop.h"

#include "adapters/win32/Clipboard.h"
#include "adapters/win32/FormWindow.h"
#include "adapters/win32/Text.h"
#include "adapters/win32/UserInput.h"
#include "adapters/win32/WindowClass.h"
#include "runtime/RuntimeError.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <utility>

namespace formwizard::adapters::win32 {
namespace {

// Keeps something among the open ones.
template <typename Window>
class Opened {
 public:
  Opened(std::vector<Window>& open, Window window) : open_(open) { open_.push_back(std::move(window)); }
  ~Opened() { open_.pop_back(); }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

 private:
  std::vector<Window>& open_;
};

// Which closes a message box whose answer is nobody's.
bool ProgramEnds() {
  MSG message{};
  return PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE) != FALSE;
}

// Null: whatever the title.
void AbortMessages(HWND owner, const wchar_t* title) {
  HWND box = nullptr;
  while ((box = FindWindowExW(nullptr, box, L"#32770", title)) != nullptr) {
    if (GetWindow(box, GW_OWNER) == owner) EndDialog(box, IDABORT);
  }
}

}  // namespace

Win32Desktop::Win32Desktop(HWND mainWindow, int manifest) : mainWindow_(mainWindow), controls_(manifest) {
  const INITCOMMONCONTROLSEX classes{sizeof(classes),
                                     ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES | ICC_UPDOWN_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
}

HWND Win32Desktop::Owner() const { return open_.empty() ? mainWindow_ : open_.back()->Handle(); }

ui::MessageAnswer Win32Desktop::ShowMessage(std::string_view text, int style, std::string_view title) {
  if (isClosed_) return ui::MessageAnswer::Abort;
  std::optional<Opened<std::wstring>> alone;
  if (open_.empty()) alone.emplace(messages_, Wide(title));
  const int answer = MessageBoxW(Owner(), Wide(text).c_str(), Wide(title).c_str(), static_cast<UINT>(style));
  if (ProgramEnds()) return ui::MessageAnswer::Abort;
  if (answer == 0) throw std::runtime_error("A message cannot be shown: " + std::string(text));
  return static_cast<ui::MessageAnswer>(answer);
}

void Win32Desktop::ProcessMessages() {
  for (FormWindow* window : open_) window->ShowChanges();
  DispatchAllButInput();
}

HWND Win32Desktop::WindowOf(const ui::Form* form) const {
  const auto found =
      std::ranges::find_if(open_, [&](const FormWindow* window) { return &window->ShownForm() == form; });
  return found == open_.end() ? mainWindow_ : (*found)->Handle();
}

void Win32Desktop::ShowModal(ui::Form& form, ui::Form* owner) {
  if (isClosed_) return;
  form.Load();
  try {
    ShowWindowOf(form, WindowOf(owner));
  } catch (const std::exception&) {
    form.Unload();
    throw;
  }
  form.Unload();  // however the window ended
}

void Win32Desktop::ShowWindowOf(ui::Form& form, HWND owner) {
  FormWindow window(form, owner, pointer_, controls_);
  const Opened<FormWindow*> opened(open_, &window);
  window.ShowModal();
}

void Win32Desktop::Close() {
  isClosed_ = true;
  for (auto window = open_.rbegin(); window != open_.rend(); ++window) {
    AbortMessages((*window)->Handle(), nullptr);
    (*window)->End();
  }
  for (const std::wstring& title : messages_) AbortMessages(mainWindow_, title.c_str());
}

bool Win32Desktop::LendPicture(std::span<const std::byte> bitmap, const std::function<void()>& use) {
  if (bitmap.size() <= sizeof(BITMAPFILEHEADER)) runtime::Raise(runtime::InvalidPropertyValue);
  return LendBitmap(bitmap.subspan(sizeof(BITMAPFILEHEADER)), use);
}

}  // namespace formwizard::adapters::win32
