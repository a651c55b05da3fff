#include "adapters/vb6files/ControlClasses.h"

#include "generator/ide/ActiveX.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <bit>

namespace formwizard::adapters::vb6files {
namespace {

namespace ide = generator::ide;
using enum PropertyType;

constexpr ClassBits F = classbit::Form, L = classbit::Label, T = classbit::TextBox, C = classbit::ComboBox,
                    B = classbit::ListBox, K = classbit::CommandButton, R = classbit::Frame, P = classbit::PictureBox,
                    I = classbit::Image, H = classbit::ScrollBar, M = classbit::Menu, V = classbit::ListView,
                    D = classbit::CommonDialog, Q = classbit::Query;
constexpr ClassBits Placed = L | T | C | B | K | R | P | I | H | V;  // with a place and a size
constexpr ClassBits InTabOrder = L | T | C | B | K | R | P | H | V;
constexpr ClassBits Bound = L | T | C | B | P | I;  // can show a field of a data control
constexpr ClassBits Input = T | C | B | K | P | H | V;

constexpr std::string_view Borders = "None|Fixed Single";
constexpr std::string_view Pointers =
    "Default|Arrow|Cross|I-Beam|Icon|Size|Size NE SW|Size N S|Size NW SE|Size W E|Up Arrow|Hourglass|No Drop|Arrow and "
    "Hourglass|Arrow and Question|Size All";
constexpr std::string_view FormBorders = "None|Fixed Single|Sizable|Fixed Dialog|Fixed ToolWindow|Sizable ToolWindow";
constexpr std::string_view DrawModes =
    "|Blackness|Not Merge Pen|Mask Not Pen|Not Copy Pen|Mask Pen Not|Invert|Xor Pen|Not Mask Pen|Mask Pen|Not Xor "
    "Pen|Nop|Merge Not Pen|Copy Pen|Merge Pen Not|Merge Pen|Whiteness";
constexpr std::string_view DrawStyles = "Solid|Dash|Dot|Dash-Dot|Dash-Dot-Dot|Transparent|Inside Solid";
constexpr std::string_view FillStyles =
    "Solid|Transparent|Horizontal Line|Vertical Line|Upward Diagonal|Downward Diagonal|Cross|Diagonal Cross";
constexpr std::string_view Scales = "User|Twip|Point|Pixel|Character|Inch|Millimeter|Centimeter";

constexpr std::array Rows{
    PropertyRow{"Align", Enumeration, "0", P, 0, "None|Align Top|Align Bottom|Align Left|Align Right"},
    PropertyRow{"Alignment", Enumeration, "0", L | T, 0, "Left Justify|Right Justify|Center"},
    PropertyRow{"Appearance", Enumeration, "1", F | L | T | C | B | K | R | P | I, 0, "Flat|3D"},
    PropertyRow{"AutoRedraw", Boolean, "0", F | P},
    PropertyRow{"AutoSize", Boolean, "0", L | P},
    PropertyRow{"BackColor", Color, "-2147483633", F | L | K | R | P},
    PropertyRow{"BackColor", Color, "-2147483643", T | C | B},
    PropertyRow{"BackStyle", Enumeration, "1", L, 0, "Transparent|Opaque"},
    PropertyRow{"BorderStyle", Enumeration, "0", L | I, 0, Borders},
    PropertyRow{"BorderStyle", Enumeration, "1", T | R | P, 0, Borders},
    PropertyRow{"BorderStyle", Enumeration, "2", F, 0, FormBorders},
    PropertyRow{"Cancel", Boolean, "0", K},
    PropertyRow{"Caption", Text, "", F | L | K | R | M, M},
    PropertyRow{"CausesValidation", Boolean, "-1", Input},
    PropertyRow{"Checked", Boolean, "0", M},
    PropertyRow{"ClipControls", Boolean, "-1", F | R | P},
    PropertyRow{"Columns", Integer, "0", B},
    PropertyRow{"ControlBox", Boolean, "-1", F},
    PropertyRow{"DataField", Text, "", Bound},
    PropertyRow{"DataFormat", Object, "", Bound},
    PropertyRow{"DataMember", Text, "", Bound},
    PropertyRow{"DataSource", Object, "", Bound},
    PropertyRow{"Default", Boolean, "0", K},
    PropertyRow{"DisabledPicture", Object, "", K},
    PropertyRow{"DownPicture", Object, "", K},
    PropertyRow{"DragIcon", Object, "", L | T | C | B | K | R | P | I | H},
    PropertyRow{"DragMode", Enumeration, "0", L | T | C | B | K | R | P | I | H, 0, "Manual|Automatic"},
    PropertyRow{"DrawMode", Enumeration, "13", F | P, 0, DrawModes},
    PropertyRow{"DrawStyle", Enumeration, "0", F | P, 0, DrawStyles},
    PropertyRow{"DrawWidth", Integer, "1", F | P},
    PropertyRow{"Enabled", Boolean, "-1", F | L | T | C | B | K | R | P | I | H | M},
    PropertyRow{"FillColor", Color, "0", F | P},
    PropertyRow{"FillStyle", Enumeration, "1", F | P, 0, FillStyles},
    PropertyRow{"Font", Object, "", F | L | T | C | B | K | R | P},
    PropertyRow{"FontTransparent", Boolean, "-1", F | P},
    PropertyRow{"ForeColor", Color, "-2147483630", F | L | R | P},
    PropertyRow{"ForeColor", Color, "-2147483640", T | C | B},
    PropertyRow{"HasDC", Boolean, "-1", F | P},
    PropertyRow{"Height", Single, "", Placed | F, Placed},
    PropertyRow{"HelpContextID", Long, "0", F | T | C | B | K | R | P | H | M},
    PropertyRow{"HideSelection", Boolean, "-1", T},
    PropertyRow{"Icon", Object, "", F},
    PropertyRow{"IMEMode", Enumeration, "0", T | C, 0, "NO CONTROL|ON|OFF|DISABLE"},
    PropertyRow{"Index", Object, "", L | T | C | B | K | R | P | I | H | M | V},
    PropertyRow{"IntegralHeight", Boolean, "-1", C | B},
    PropertyRow{"ItemData", Object, "", C | B},
    PropertyRow{"KeyPreview", Boolean, "0", F},
    PropertyRow{"LargeChange", Integer, "1", H},
    PropertyRow{"Left", Single, "", Placed | D | Q | F, Placed | D | Q},
    PropertyRow{"LinkItem", Text, "", L | T | P},
    PropertyRow{"LinkMode", Enumeration, "0", F | L | T | P, 0, "None|Source|Manual|Notify"},
    PropertyRow{"LinkTimeout", Integer, "50", L | T | P},
    PropertyRow{"LinkTopic", Text, "", F | L | T | P, F},
    PropertyRow{"List", Object, "", C | B},
    PropertyRow{"Locked", Boolean, "0", T | C},
    PropertyRow{"MaskColor", Color, "12632256", K},
    PropertyRow{"Max", Integer, "32767", H},
    PropertyRow{"MaxButton", Boolean, "-1", F},
    PropertyRow{"MaxLength", Long, "0", T},
    PropertyRow{"MDIChild", Boolean, "0", F},
    PropertyRow{"Min", Integer, "0", H},
    PropertyRow{"MinButton", Boolean, "-1", F},
    PropertyRow{"MouseIcon", Object, "", F | L | T | C | B | K | R | P | I | H},
    PropertyRow{"MousePointer", Enumeration, "0", F | L | T | C | B | K | R | P | I | H, 0, Pointers},
    PropertyRow{"Moveable", Boolean, "-1", F},
    PropertyRow{"MultiLine", Boolean, "0", T},
    PropertyRow{"MultiSelect", Enumeration, "0", B, 0, "None|Simple|Extended"},
    PropertyRow{"Negotiate", Boolean, "0", P},
    PropertyRow{"NegotiateMenus", Boolean, "-1", F},
    PropertyRow{"NegotiatePosition", Enumeration, "0", M, 0, "None|Left|Middle|Right"},
    PropertyRow{"OLEDragMode", Enumeration, "0", T | C | B | P | I, 0, "Manual|Automatic"},
    PropertyRow{"OLEDropMode", Enumeration, "0", F | L | T | C | B | K | R | P | I, 0, "None|Manual|Automatic"},
    PropertyRow{"Palette", Object, "", F},
    PropertyRow{"PaletteMode", Enumeration, "0", F, 0, "HalfTone|UseZOrder|Custom"},
    PropertyRow{"PasswordChar", Text, "", T},
    PropertyRow{"Picture", Object, "", F | K | P | I},
    PropertyRow{"RightToLeft", Boolean, "0", F | L | T | C | B | K | R | P | H},
    PropertyRow{"ScaleHeight", Single, "", F | P, P},
    PropertyRow{"ScaleLeft", Single, "0", F | P},
    PropertyRow{"ScaleMode", Enumeration, "1", F | P, 0, Scales},
    PropertyRow{"ScaleTop", Single, "0", F | P},
    PropertyRow{"ScaleWidth", Single, "", F | P, P},
    PropertyRow{"ScrollBars", Enumeration, "0", T, 0, "None|Horizontal|Vertical|Both"},
    PropertyRow{"Shortcut", Object, "", M},
    PropertyRow{"ShowInTaskbar", Boolean, "-1", F},
    PropertyRow{"SmallChange", Integer, "1", H},
    PropertyRow{"Sorted", Boolean, "0", C | B},
    PropertyRow{"StartUpPosition", Enumeration, "0", F, 0, "Manual|CenterOwner|CenterScreen|Windows Default"},
    PropertyRow{"Stretch", Boolean, "0", I},
    PropertyRow{"Style", Enumeration, "0", B, 0, "Standard|Checkbox"},
    PropertyRow{"Style", Enumeration, "0", C, 0, "Dropdown Combo|Simple Combo|Dropdown List"},
    PropertyRow{"Style", Enumeration, "0", K, 0, "Standard|Graphical"},
    PropertyRow{"TabIndex", Integer, "", InTabOrder, InTabOrder},
    PropertyRow{"TabStop", Boolean, "-1", Input},
    PropertyRow{"Tag", Text, "", F | L | T | C | B | K | R | P | I | H | M | V},
    PropertyRow{"Text", Text, "", T | C},
    PropertyRow{"ToolTipText", Text, "", L | T | C | B | K | R | P | I | V},
    PropertyRow{"Top", Single, "", Placed | D | Q | F, Placed | D | Q},
    PropertyRow{"UseMaskColor", Boolean, "0", K},
    PropertyRow{"UseMnemonic", Boolean, "-1", L},
    PropertyRow{"Value", Integer, "0", H},
    PropertyRow{"Visible", Boolean, "-1", F | L | T | C | B | K | R | P | I | H | M | V},
    PropertyRow{"WhatsThisButton", Boolean, "0", F},
    PropertyRow{"WhatsThisHelp", Boolean, "0", F},
    PropertyRow{"WhatsThisHelpID", Long, "0", L | T | C | B | K | R | P | I | H},
    PropertyRow{"Width", Single, "", Placed | F, Placed},
    PropertyRow{"WindowList", Boolean, "0", M},
    PropertyRow{"WindowState", Enumeration, "0", F, 0, "Normal|Minimized|Maximized"},
    PropertyRow{"WordWrap", Boolean, "0", L},

    // ActiveX controls write numbers without names. Extents follow from the size and cannot be set.
    PropertyRow{"_ExtentX", Object, "847", V | D | Q, V | D | Q},
    PropertyRow{"_ExtentY", Object, "847", V | D | Q, V | D | Q},
    PropertyRow{"SortKey", Integer, "0", V},
    PropertyRow{"View", Integer, "0", V},
    PropertyRow{"Arrange", Integer, "0", V},
    PropertyRow{"LabelEdit", Integer, "0", V},
    PropertyRow{"SortOrder", Boolean, "0", V},
    PropertyRow{"Sorted", Boolean, "0", V},
    PropertyRow{"MultiSelect", Boolean, "0", V},
    PropertyRow{"LabelWrap", Boolean, "-1", V, V},
    PropertyRow{"HideSelection", Boolean, "-1", V, V},
    PropertyRow{"AllowReorder", Boolean, "0", V},
    PropertyRow{"HideColumnHeaders", Boolean, "0", V},
    PropertyRow{"Checkboxes", Boolean, "0", V},
    PropertyRow{"FlatScrollBar", Boolean, "0", V},
    PropertyRow{"FullRowSelect", Boolean, "0", V},
    PropertyRow{"GridLines", Boolean, "0", V},
    PropertyRow{"HotTracking", Boolean, "0", V},
    PropertyRow{"HoverSelection", Boolean, "0", V},
    PropertyRow{"OLEDragMode", Integer, "0", V},
    PropertyRow{"OLEDropMode", Integer, "0", V},
    PropertyRow{"TextBackground", Boolean, "0", V},
    PropertyRow{"_Version", Object, "393217", V, V},
    PropertyRow{"CancelError", Boolean, "0", D},
    PropertyRow{"DefaultExt", Text, "", D},
    PropertyRow{"DialogTitle", Text, "", D},
    PropertyRow{"FileName", Text, "", D},
    PropertyRow{"Filter", Text, "", D},
    PropertyRow{"FilterIndex", Long, "0", D},
    PropertyRow{"Flags", Long, "0", D},
    PropertyRow{"InitDir", Text, "", D},
    PropertyRow{"MaxFileSize", Integer, "260", D},
    PropertyRow{"Orientation", Integer, "1", D},
    PropertyRow{"_Version", Object, "393216", D, D},
    PropertyRow{"ForeColor", Long, "-2147483640", V, V},
    PropertyRow{"BackColor", Long, "-2147483643", V, V},
    PropertyRow{"BorderStyle", Integer, "1", V, V},
    PropertyRow{"Appearance", Integer, "1", V, V},
    PropertyRow{"Enabled", Boolean, "-1", V},
    PropertyRow{"NumItems", Object, "0", V, V},
};

constexpr std::string_view Mouse = "Button As Integer, Shift As Integer, X As Single, Y As Single";
constexpr std::string_view ListViewMouse = "Button As Integer, Shift As Integer, x As Single, y As Single";
constexpr std::string_view Key = "KeyCode As Integer, Shift As Integer";
constexpr std::string_view Item = "ByVal Item As MSComctlLib.ListItem";
constexpr ClassBits Keys = F | T | C | B | K | P | H | V;
constexpr ClassBits MouseMoves = F | L | T | B | K | R | P | I;
constexpr ClassBits Drags = F | L | T | C | B | K | R | P | I | H | V;
constexpr ClassBits Focus = F | T | C | B | K | P | H | V;
constexpr ClassBits Ole = F | L | T | C | B | K | R | P | I;
constexpr ClassBits Links = L | T | P;

constexpr std::array Events{
    EventRow{"Activate", "", F},
    EventRow{"AfterLabelEdit", "Cancel As Integer, NewString As String", V},
    EventRow{"BeforeLabelEdit", "Cancel As Integer", V},
    EventRow{"Change", "", L | T | C | P | H},
    EventRow{"Click", "", F | L | T | C | B | K | R | P | I | M | V},
    EventRow{"ColumnClick", "ByVal ColumnHeader As MSComctlLib.ColumnHeader", V},
    EventRow{"DblClick", "", F | L | T | C | B | R | P | I | V},
    EventRow{"Deactivate", "", F},
    EventRow{"DragDrop", "Source As Control, X As Single, Y As Single", Drags},
    EventRow{"DragOver", "Source As Control, X As Single, Y As Single, State As Integer", Drags},
    EventRow{"DropDown", "", C},
    EventRow{"GotFocus", "", Focus},
    EventRow{"Initialize", "", F},
    EventRow{"ItemCheck", "Item As Integer", B},
    EventRow{"ItemCheck", Item, V},
    EventRow{"ItemClick", Item, V},
    EventRow{"KeyDown", Key, Keys},
    EventRow{"KeyPress", "KeyAscii As Integer", Keys},
    EventRow{"KeyUp", Key, Keys},
    EventRow{"LinkClose", "", F | Links},
    EventRow{"LinkError", "LinkErr As Integer", F | Links},
    EventRow{"LinkExecute", "CmdStr As String, Cancel As Integer", F},
    EventRow{"LinkNotify", "", Links},
    EventRow{"LinkOpen", "Cancel As Integer", F | Links},
    EventRow{"Load", "", F},
    EventRow{"LostFocus", "", Focus},
    EventRow{"MouseDown", Mouse, MouseMoves},
    EventRow{"MouseDown", ListViewMouse, V},
    EventRow{"MouseMove", Mouse, MouseMoves},
    EventRow{"MouseMove", ListViewMouse, V},
    EventRow{"MouseUp", Mouse, MouseMoves},
    EventRow{"MouseUp", ListViewMouse, V},
    EventRow{"OLECompleteDrag", "Effect As Long", Ole},
    EventRow{"OLEDragDrop",
             "Data As DataObject, Effect As Long, Button As Integer, Shift As Integer, X As Single, Y As Single", Ole},
    EventRow{"OLEDragOver",
             "Data As DataObject, Effect As Long, Button As Integer, Shift As Integer, X As Single, Y As Single, "
             "State As Integer",
             Ole},
    EventRow{"OLEGiveFeedback", "Effect As Long, DefaultCursors As Boolean", Ole},
    EventRow{"OLESetData", "Data As DataObject, DataFormat As Integer", Ole},
    EventRow{"OLEStartDrag", "Data As DataObject, AllowedEffects As Long", Ole},
    EventRow{"Paint", "", F | P},
    EventRow{"QueryUnload", "Cancel As Integer, UnloadMode As Integer", F},
    EventRow{"Resize", "", F | P},
    EventRow{"Scroll", "", C | B | H},
    EventRow{"Terminate", "", F},
    EventRow{"Unload", "Cancel As Integer", F},
    EventRow{"Validate", "Cancel As Boolean", T | C | B | P | H | V},
};

constexpr std::array Classes{
    ControlClass{"VB.Label", "", "Label", L, Layer::Lightweight, 1215, 495},
    ControlClass{"VB.TextBox", "", "Text", T, Layer::Windowed, 1215, 495},
    ControlClass{"VB.ComboBox", "", "Combo", C, Layer::Windowed, 1215, 315},
    ControlClass{"VB.ListBox", "", "List", B, Layer::Windowed, 1215, 450},
    ControlClass{"VB.CommandButton", "", "Command", K, Layer::Windowed, 1215, 495},
    ControlClass{"VB.Frame", "", "Frame", R, Layer::Windowed, 1215, 495},
    ControlClass{"VB.PictureBox", "", "Picture", P, Layer::Windowed, 1215, 495},
    ControlClass{"VB.Image", "", "Image", I, Layer::Lightweight, 1215, 495},
    ControlClass{"VB.HScrollBar", "", "HScroll", H, Layer::Windowed, 1215, 255},
    ControlClass{"VB.VScrollBar", "", "VScroll", H, Layer::Windowed, 255, 1215},
    ControlClass{"VB.Menu", "", "Menu", M, Layer::Menu, 0, 0},
    ControlClass{ide::ListView.Class, ide::ListView.ProgId, "ListView", V, Layer::Windowed, 1215, 495},
    ControlClass{"MSComDlg.CommonDialog", "MSComDlg.CommonDialog", "CommonDialog", D, Layer::Windowed, 0, 0},
    ControlClass{ide::Query.Class, "OSTRELQUERY.OstrelQueryCtrl", "OstrelQuery", Q, Layer::Windowed, 0, 0},
};

// Every property of every class, found by both: 0 is a free slot, anything else one more than the index of a row. What
// finds its slot taken stands in the next that is free.
constexpr std::size_t Slots = 2048;

constexpr std::size_t SlotOf(ClassBits classBit, std::uint32_t key) {
  return (key ^ (key >> 16) ^ (static_cast<std::size_t>(std::countr_zero(classBit)) * 73)) % Slots;
}

constexpr auto RowsByName = [] {
  static_assert(Rows.size() < 255);
  std::array<std::uint8_t, Slots> slots{};
  for (std::size_t row = 0; row < Rows.size(); ++row) {
    for (ClassBits left = Rows[row].Classes; left != 0; left = static_cast<ClassBits>(left & (left - 1))) {
      std::size_t slot = SlotOf(left, Rows[row].Name.Key());
      while (slots[slot] != 0) slot = (slot + 1) % Slots;
      slots[slot] = static_cast<std::uint8_t>(row + 1);
    }
  }
  return slots;
}();

// In loops, because compilers limit the steps of what they work out.
constexpr bool AreNamesToldApartByKey() {
  for (std::size_t i = 0; i < Rows.size(); ++i) {
    for (std::size_t j = i + 1; j < Rows.size(); ++j) {
      if (Rows[i].Is(Rows[j].Name) && Rows[i].Name != Rows[j].Name) return false;
    }
  }
  return true;
}
static_assert(AreNamesToldApartByKey());

}  // namespace

std::span<const PropertyRow> PropertyRows() { return Rows; }

std::span<const std::uint8_t> RowsOfNew(ClassBits classBit) {
  struct Indexes {
    std::array<std::uint8_t, 16> Rows{};
    std::size_t Count = 0;
  };
  static constexpr auto table = [] {
    std::array<Indexes, 16> byBit{};
    for (std::size_t row = 0; row < Rows.size(); ++row) {
      const bool showsName = Rows[row].Is("Caption") || Rows[row].Is("Text");
      const unsigned classes = Rows[row].AlwaysIn | (showsName ? Rows[row].Classes : 0u);
      for (std::size_t bit = 0; bit < byBit.size(); ++bit) {
        if (((classes >> bit) & 1u) != 0) byBit[bit].Rows[byBit[bit].Count++] = static_cast<std::uint8_t>(row);
      }
    }
    return byBit;
  }();
  const Indexes& indexes = table[static_cast<std::size_t>(std::countr_zero(classBit))];
  return {indexes.Rows.data(), indexes.Count};
}

const PropertyRow* FindProperty(ClassBits classBit, const PropertyName& name) {
  for (std::size_t slot = SlotOf(classBit, name.Key()); RowsByName[slot] != 0; slot = (slot + 1) % Slots) {
    const PropertyRow& row = Rows[RowsByName[slot] - 1u];
    if ((row.Classes & classBit) != 0 && row.Name == name) return &row;
  }
  return nullptr;
}

const EventRow* FindEvent(ClassBits classBit, std::string_view name) {
  for (const EventRow& row : Events) {
    const bool mayBe = (row.Classes & classBit) != 0 && row.Name.size() == name.size();
    if (mayBe && runtime::EqualIgnoringCase(row.Name, name)) return &row;
  }
  return nullptr;
}

const ControlClass* FindControlClass(std::string_view progId) {
  const auto spelledSo = std::ranges::find(Classes, progId, &ControlClass::Name);
  if (spelledSo != Classes.end()) return &*spelledSo;
  const std::size_t dot = progId.rfind('.');
  const bool hasVersion = dot + 1 < progId.size() && progId.find_first_not_of("0123456789", dot + 1) == progId.npos;
  const std::string_view unversioned = progId.substr(0, hasVersion ? dot : progId.size());
  const auto found = std::ranges::find_if(Classes, [&](const ControlClass& known) {
    return runtime::EqualIgnoringCase(known.Name, progId) ||
           (!known.ProgId.empty() && runtime::EqualIgnoringCase(known.ProgId, unversioned));
  });
  return found == Classes.end() ? nullptr : &*found;
}

}  // namespace formwizard::adapters::vb6files
