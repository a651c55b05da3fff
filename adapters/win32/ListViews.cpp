#include "adapters/win32/ObservingView.h"
#include "adapters/win32/View.h"
#include "ui/MakeFirst.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace formwizard::adapters::win32 {
namespace {

// The messages and reports of the two kinds of lists, which differ in nothing else.
struct ListMessages {
  UINT Insert, Delete, Reset, Prepare, Count, GetCurrent, SetCurrent;
  int Chosen, PressedTwice;
};
constexpr ListMessages BoxMessages{LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT, LB_INITSTORAGE, LB_GETCOUNT,
                                   LB_GETCURSEL,    LB_SETCURSEL,    LBN_SELCHANGE,   LBN_DBLCLK};
// An entry that is only passed in the open list is not chosen yet.
constexpr ListMessages ComboMessages{CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT, CB_INITSTORAGE, CB_GETCOUNT,
                                     CB_GETCURSEL,    CB_SETCURSEL,    CBN_SELENDOK,    CBN_DBLCLK};

constexpr int ChangesOneByOne = 16;  // more of them are made together, because each moves all that follow
constexpr int AverageBytes = 40;     // of an entry

class ListBoxView : public ObservingView<ui::ListBox, ui::ListObserver> {
 public:
  ListBoxView(FormWindow& window, ui::ListBox& control)
      : ListBoxView(window, control, BoxMessages,
                    {WC_LISTBOXW, WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, WS_EX_CLIENTEDGE}) {}

  bool Scrolls() const override { return true; }
  void ItemInserted(int index) override {
    if (IsPutOff(index)) return;
    Insert(index);
  }
  void ItemRemoved(int index) override {
    if (IsPutOff(index)) return;
    Send(messages_.Delete, static_cast<WPARAM>(index));
  }
  void Cleared() override {
    filledTo_ = 0;
    IsPutOff(0);
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
      : ObservingView(window, control, kind), messages_(messages), filledTo_(0) {}

 private:
  // Notes a change. Whether it is shown later, with all from the first entry on that is not shown.
  bool IsPutOff(int index) {
    Freeze();
    NoteChange();
    if (filledTo_ || ++changes_ > ChangesOneByOne) filledTo_ = std::min(filledTo_.value_or(index), index);
    return filledTo_.has_value();
  }
  void Insert(int index) {
    const std::string& entry = control_.List(index);
    NeedFontFor(entry);
    Send(messages_.Insert, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(Wide(entry).c_str()));
  }
  void Fill() {
    changes_ = 0;
    if (!filledTo_) return;
    const int first = *std::exchange(filledTo_, std::nullopt);
    if (first == 0) Send(messages_.Reset);
    for (int i = static_cast<int>(Send(messages_.Count)); i > first; --i) {
      Send(messages_.Delete, static_cast<WPARAM>(i - 1));
    }
    if (first >= control_.ListCount()) return;
    const int count = control_.ListCount() - first;
    Send(messages_.Prepare, static_cast<WPARAM>(count), LPARAM{AverageBytes} * count);
    for (int i = first; i < control_.ListCount(); ++i) Insert(i);
  }

  int Current() const { return static_cast<int>(Send(messages_.GetCurrent)); }
  void Show() override {
    Fill();
    if (Current() != control_.ListIndex()) Send(messages_.SetCurrent, static_cast<WPARAM>(control_.ListIndex()));
  }

  const ListMessages& messages_;
  int changes_ = 0;              // since the window was shown
  std::optional<int> filledTo_;  // the entries before are shown, the others are not as they are
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
