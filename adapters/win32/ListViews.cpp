#include "adapters/win32/ObservingView.h"
#include "adapters/win32/View.h"
#include "ui/MakeFirst.h"

namespace formwizard::adapters::win32 {
namespace {

// The messages and reports of the two kinds of lists, which differ in nothing else.
struct ListMessages {
  UINT Insert, Delete, Reset, GetCurrent, SetCurrent;
  int Chosen, PressedTwice;
};
constexpr ListMessages BoxMessages{LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT, LB_GETCURSEL,
                                   LB_SETCURSEL,    LBN_SELCHANGE,   LBN_DBLCLK};
// An entry that is only passed in the open list is not chosen yet.
constexpr ListMessages ComboMessages{CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT, CB_GETCURSEL,
                                     CB_SETCURSEL,    CBN_SELENDOK,    CBN_DBLCLK};

class ListBoxView : public ObservingView<ui::ListBox, ui::ListObserver> {
 public:
  ListBoxView(FormWindow& window, ui::ListBox& control)
      : ListBoxView(window, control, BoxMessages,
                    {WC_LISTBOXW, WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE}) {}

  bool Scrolls() const override { return true; }
  void ItemInserted(int index) override {
    Freeze();
    const std::string& entry = control_.List(index);
    NeedFontFor(entry);
    Send(messages_.Insert, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(Wide(entry).c_str()));
    NoteChange();
  }
  void ItemRemoved(int index) override {
    Freeze();
    Send(messages_.Delete, static_cast<WPARAM>(index));
    NoteChange();
  }
  void Cleared() override {
    Freeze();
    Send(messages_.Reset);
    NoteChange();
  }
  void OnCommand(int code) override {
    const int index = Current();
    if (index < 0) return;
    if (code == messages_.Chosen) {
      NoteChange();
      Act([this, index] { control_.ClickItem(index); });
    } else if (code == messages_.PressedTwice) {
      Act([this, index] { control_.DoubleClickItem(index); });
    }
  }

 protected:
  ListBoxView(FormWindow& window, ui::ListBox& control, const ListMessages& messages, const WindowKind& kind)
      : ObservingView(window, control, kind), messages_(messages) {
    for (int i = 0; i < control.ListCount(); ++i) ListBoxView::ItemInserted(i);
  }

 private:
  int Current() const { return static_cast<int>(Send(messages_.GetCurrent)); }
  void Show() override {
    if (Current() != control_.ListIndex()) Send(messages_.SetCurrent, static_cast<WPARAM>(control_.ListIndex()));
  }

  const ListMessages& messages_;
};

class ComboBoxView : public ListBoxView {
 public:
  using Kind = ui::ComboBox;

  ComboBoxView(FormWindow& window, ui::ComboBox& control)
      : ListBoxView(window, control, ComboMessages, {WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST}) {}

  bool Scrolls() const override { return false; }
  bool NeedsKey(WPARAM key) const override {
    return (key == VK_RETURN || key == VK_ESCAPE) && Send(CB_GETDROPPEDSTATE) != FALSE;
  }

 private:
  // The height includes the list that drops down.
  void Place(const RECT& place) override {
    constexpr int visibleEntries = 8;
    RECT withList = place;
    withList.bottom += visibleEntries * static_cast<int>(Send(CB_GETITEMHEIGHT));
    ListBoxView::Place(withList);
  }
};

}  // namespace

std::unique_ptr<View> MakeListView(FormWindow& window, ui::Control& control) {
  return ui::MakeFirst<View, ComboBoxView, ListBoxView>(window, control);
}

}  // namespace formwizard::adapters::win32
