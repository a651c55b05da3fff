#include "generator/Writers.h"

#include <array>
#include <span>

namespace formwizard::generator {
namespace {

// One item of a field's popup menu. Its caption is a string of the table, or a fixed text when Id is 0.
struct PopupItem {
  std::string_view Item;
  int Id;
  std::string_view Caption = "";
};

constexpr std::array ReferenceItems{PopupItem{"Change", 215}, PopupItem{"Remove", 216}};
constexpr std::array ListItems{PopupItem{"AddToEnd", 206}, PopupItem{"Insert", 207}, PopupItem{"Remove", 208}};
constexpr std::array ArrayItems{PopupItem{"Insert", 207}, PopupItem{"Remove", 208}};
constexpr std::array PictureItems{PopupItem{"Change", 0, "&Change"}, PopupItem{"Remove", 0, "&Remove"}};

// The popup of a reference is named after its PropertyName, the others after their IntName, while the handlers address
// all of them by PropertyName: for a property of an embedded object the two differ. Both are the required output.
struct KindPopup {
  Int16 FieldKind;
  std::span<const PopupItem> Items = {};  // none: no popup
  std::string FieldRecord::*NamedAfter = &FieldRecord::IntName;
};

constexpr model::KindTable<KindPopup> Popups{{
    KindPopup{model::kind::TextBox},
    KindPopup{model::kind::ReadOnlyLabel},
    KindPopup{model::kind::ReferenceLabel, ReferenceItems, &FieldRecord::PropertyName},
    KindPopup{model::kind::ReferenceCombo},
    KindPopup{model::kind::ListBox, ListItems},
    KindPopup{model::kind::ListView, ArrayItems},
    KindPopup{model::kind::Picture, PictureItems},
    KindPopup{model::kind::MultiLine},
}};

using Menu = std::shared_ptr<ide::VBControl>;

// A top-level menu when there is no parent. The caption "-" makes a separator.
Menu WriteMenuItem(Generation& run, const Menu& parent, std::string_view name, std::string_view caption) {
  run.CurrentControl = Required(run.FormDesigner).Add("VB.Menu", parent);
  run.SetProperty("Name", name);
  run.SetProperty("Caption", caption);
  return run.CurrentControl;
}

void WriteObjectMenu(Generation& run) {
  const Menu object = WriteMenuItem(run, nullptr, "mnuObject", run.Strings.LoadResStringLocal(205));
  WriteMenuItem(run, object, "mnu__New", run.CaptionNew);
  WriteMenuItem(run, object, "mnu__Find", run.CaptionFind);
  WriteMenuItem(run, object, "mnu__Bar1", "-");
  WriteMenuItem(run, object, "mnu__Save", run.CaptionSave);
  WriteMenuItem(run, object, "mnu__Delete", run.CaptionDelete);
  WriteMenuItem(run, object, "mnu__Close", run.CaptionClose);
  WriteMenuItem(run, object, "mnu__Bar2", "-");
  WriteMenuItem(run, object, "mnu__Exit", run.CaptionExit);
}

void WritePopupMenu(Generation& run, Int16 fieldIndex) {
  const FieldRecord& field = run.Form.Fields[fieldIndex];
  const KindPopup* popup = Popups.Find(field.FieldKind);
  if (!popup || popup->Items.empty()) return;
  if (field.FieldKind == model::kind::ReferenceLabel && !run.HasContextMenu(fieldIndex)) return;

  const std::string name = "mnu" + field.*popup->NamedAfter;
  const Menu menu = WriteMenuItem(run, nullptr, name, name);
  menu->SetProperty("Visible", Int16(0));
  for (const PopupItem& item : popup->Items) {
    const std::string caption = item.Id == 0 ? std::string(item.Caption) : run.Strings.LoadResStringLocal(item.Id);
    WriteMenuItem(run, menu, name + std::string(item.Item), caption);
  }
}

}  // namespace

void WriteConMenus(Generation& run) {
  support::LeaveOnError(run.Report, "WriteConMenus", [&] {
    if (run.Settings.Menu) WriteObjectMenu(run);
    for (Int16 column(1); column <= run.Settings.Columns; column += Int16(1)) {
      for (const Int16 field : run.Form.LayoutGrid[column]) WritePopupMenu(run, field);
    }
  });
}

}  // namespace formwizard::generator
