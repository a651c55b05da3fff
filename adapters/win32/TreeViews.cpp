#include "adapters/win32/ObservingView.h"
#include "adapters/win32/Pictures.h"
#include "adapters/win32/View.h"
#include "ui/MakeFirst.h"

#include <cmath>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace formwizard::adapters::win32 {
namespace {

class TreeViewView final : public ObservingView<ui::TreeView, ui::TreeObserver> {
 public:
  TreeViewView(FormWindow& window, ui::TreeView& control)
      : ObservingView(
            window, control,
            {WC_TREEVIEWW,
             WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_DISABLEDRAGDROP,
             WS_EX_CLIENTEDGE}),
        pictures_(TreePictures()) {
    Send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(pictures_.get()));
    for (ui::Node& node : control.Nodes.All()) NodeAdded(node);
  }

  bool Scrolls() const override { return true; }
  void NodeAdded(ui::Node& node) override {
    const Changing changing(*this);
    Freeze();
    const ui::Node* parent = node.Parent();
    HTREEITEM& last = lastBelow_[parent];
    NeedFontFor(node.Text.Get());
    const std::wstring text = Wide(node.Text);
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent ? items_.at(parent).Item : TVI_ROOT;
    insertion.hInsertAfter = last ? last : TVI_LAST;  // a known neighbour, so that the tree need not look for the end
    insertion.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insertion.item.iImage = I_IMAGECALLBACK;
    insertion.item.iSelectedImage = I_IMAGECALLBACK;
    insertion.item.pszText = const_cast<wchar_t*>(text.c_str());
    insertion.item.lParam = reinterpret_cast<LPARAM>(&node);
    last = reinterpret_cast<HTREEITEM>(Send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
    items_.emplace(&node, Shown{last, node.Text});
    if (parent && parent->Expanded) NodeChanged(*node.Parent());  // only now it can be open
    NodeChanged(node);
  }
  void NodeChanged(ui::Node& node) override {
    changed_.insert(&node);
    NoteChange();
  }
  void NodeRemoved(ui::Node& node) override {
    const Changing changing(*this);
    Freeze();
    changed_.erase(&node);
    lastBelow_.erase(&node);
    const HTREEITEM item = items_.extract(&node).mapped().Item;
    const auto last = lastBelow_.find(node.Parent());
    if (last != lastBelow_.end() && last->second == item) lastBelow_.erase(last);
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item));
    NoteChange();
  }
  void Cleared() override {
    const Changing changing(*this);
    Freeze();
    changed_.clear();
    lastBelow_.clear();
    items_.clear();
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    NoteChange();
  }
  ui::Node* NodeAt(float x, float y) const override {
    TVHITTESTINFO hit{};
    hit.pt = {std::lround(x), std::lround(y)};
    Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return hit.hItem && (hit.flags & TVHT_ONITEM) != 0 ? NodeOf(hit.hItem) : nullptr;
  }

  void OnPress(POINT at) override {
    pressed_ = at;
    hasMoved_ = false;
    Act([this, at] { control_.PressMouse(static_cast<float>(at.x), static_cast<float>(at.y)); });
  }
  void OnNotify(const NMHDR& report) override {
    const auto& change = reinterpret_cast<const NMTREEVIEWW&>(report);
    switch (report.code) {
      case TVN_SELCHANGEDW:
        hasMoved_ = true;
        if (change.itemNew.hItem) ActOn(change.itemNew.lParam, &ui::TreeView::ClickNode);
        break;
      case TVN_ITEMEXPANDEDW:
        ActOn(change.itemNew.lParam,
              change.action == TVE_COLLAPSE ? &ui::TreeView::CollapseNode : &ui::TreeView::ExpandNode);
        break;
      case NM_SETFOCUS:
        Act([this] { StartAtFirst(); });
        break;
      case NM_CLICK:
        ReportClick();
        break;
      case NM_DBLCLK:
        Act([this] { control_.DoubleClick(); });
        break;
      default:
        break;
    }
  }
  // Pictures are asked for when they are drawn, so that a change of many nodes costs nothing for each.
  LRESULT AnswerTo(NMHDR& report) const override {
    if (report.code != TVN_GETDISPINFOW) return 0;
    TVITEMW& item = reinterpret_cast<NMTVDISPINFOW&>(report).item;
    const auto& node = *reinterpret_cast<const ui::Node*>(item.lParam);
    const int image = node.Image.Get().Value(), selectedImage = node.SelectedImage.Get().Value();
    item.iImage = image;
    item.iSelectedImage = selectedImage == 0 ? image : selectedImage;
    return 0;
  }

 private:
  struct Shown {
    HTREEITEM Item;
    std::string Text;
  };

  // A node that was not selected before has said so by itself.
  void ReportClick() {
    ui::Node* node = NodeAt(static_cast<float>(pressed_.x), static_cast<float>(pressed_.y));
    if (node && !hasMoved_ && Caret() == items_.at(node).Item) {
      ActOn(reinterpret_cast<LPARAM>(node), &ui::TreeView::ClickNode);
    } else {
      Act([this] { control_.Click(); });
    }
  }

  // The keys move from the selected node, so with the keyboard there is one.
  void StartAtFirst() {
    const auto& roots = control_.Nodes.Roots();
    if (!Caret() && !control_.SelectedItem.Get() && !roots.empty()) control_.ClickNode(*roots.front());
  }
  HTREEITEM Caret() const { return reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, TVGN_CARET)); }

  // The node may be gone when it is the action's turn.
  void ActOn(LPARAM node, void (ui::TreeView::*action)(ui::Node&)) {
    auto* acted = reinterpret_cast<ui::Node*>(node);
    Act([this, acted, action] {
      if (!items_.contains(acted)) return;
      NodeChanged(*acted);  // the window has changed by itself
      (control_.*action)(*acted);
    });
  }

  ui::Node* NodeOf(HTREEITEM item) const {
    TVITEMW asked{};
    asked.mask = TVIF_PARAM;
    asked.hItem = item;
    Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&asked));
    return reinterpret_cast<ui::Node*>(asked.lParam);
  }

  void Show() override {
    if (!changed_.empty()) InvalidateRect(Handle(), nullptr, FALSE);
    for (const ui::Node* node : std::exchange(changed_, {})) ShowNode(*node, items_.at(node));
    const ui::Node* selected = control_.SelectedItem;
    const HTREEITEM item = selected ? items_.at(selected).Item : nullptr;
    if (Caret() == item) return;
    Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    if (item) Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  }

  // The window is asked for nothing that is known: where it looks for the item among all, a long tree would take
  // minutes.
  void ShowNode(const ui::Node& node, Shown& shown) {
    if (shown.Text != node.Text.Get()) {
      shown.Text = node.Text;
      NeedFontFor(shown.Text);
      const std::wstring text = Wide(shown.Text);
      TVITEMW item{};
      item.mask = TVIF_HANDLE | TVIF_TEXT;
      item.hItem = shown.Item;
      item.pszText = const_cast<wchar_t*>(text.c_str());
      Send(TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    if (!node.Child()) return;
    const auto state = Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(shown.Item), TVIS_EXPANDED);
    if (((state & TVIS_EXPANDED) != 0) != node.Expanded) {
      Send(TVM_EXPAND, node.Expanded ? TVE_EXPAND : TVE_COLLAPSE, reinterpret_cast<LPARAM>(shown.Item));
    }
  }

  OwnedImageList pictures_;
  std::unordered_map<const ui::Node*, Shown> items_;
  std::unordered_map<const ui::Node*, HTREEITEM> lastBelow_;  // by parent; null: the last root
  std::unordered_set<const ui::Node*> changed_;
  POINT pressed_{};        // where the mouse was last
  bool hasMoved_ = false;  // whether the selection has since
};

}  // namespace

std::unique_ptr<View> MakeTreeView(FormWindow& window, ui::Control& control) {
  return ui::MakeIfShown<View, TreeViewView>(window, control);
}

}  // namespace formwizard::adapters::win32
