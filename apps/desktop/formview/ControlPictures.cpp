#include "apps/desktop/formview/ControlPictures.h"

#include "apps/desktop/formview/ClassicLook.h"
#include "apps/desktop/formview/CommonControls.h"
#include "apps/desktop/formview/ShapePictures.h"
#include "apps/desktop/formview/TabPictures.h"
#include "apps/desktop/formview/TextLayout.h"
#include "generator/ide/ActiveX.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;

constexpr int TextMargin = 2;
constexpr int EditHeight = 21;    // of a combo box's text
constexpr int CheckSize = 13;     // of a check box's box and an option button's circle
constexpr int CaptionIndent = 8;  // of a frame's caption
constexpr int HeaderHeight = 17;  // of a list view's columns

// Left, right, centre.
int AlignmentOf(const FormNode& control) {
  constexpr std::array flags{Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  return flags[static_cast<std::size_t>(std::clamp(control.Number("Alignment"), 0.0, 2.0))];
}

Edge BorderOf(const FormNode& control) { return control.Flag("Appearance", true) ? Edge::Sunken : Edge::Flat; }

QRect Inside(const QRect& place, int margin) { return place.adjusted(margin, margin, -margin, -margin); }

// Fills and frames a control that has a border, or would have it by default; what is inside.
QRect DrawBox(QPainter& painter, const FormNode& control, const QRect& place, std::uint32_t background,
              bool hasBorderByDefault = true) {
  painter.fillRect(place, ColorOf(control, "BackColor", background));
  if (!control.Flag("BorderStyle", hasBorderByDefault)) return place;
  DrawEdge(painter, place, BorderOf(control));
  return Inside(place, EdgeWidth(BorderOf(control)));
}

void DrawLabel(QPainter& painter, const FormNode& control, const QRect& place) {
  QRect inside = place;
  if (control.Flag("BackStyle", true)) {
    inside = DrawBox(painter, control, place, color::Face, false);
  } else if (control.Flag("BorderStyle")) {
    DrawEdge(painter, place, BorderOf(control));
    inside = Inside(place, EdgeWidth(BorderOf(control)));
  }
  int flags = AlignmentOf(control) | Qt::AlignTop | Qt::TextWordWrap;
  if (control.Flag("UseMnemonic", true)) flags |= WithAccessKey;
  const int margin = inside == place ? 0 : 1;
  DrawText(painter, inside.adjusted(margin, 0, -margin, 0), flags, control.Text("Caption"), control, color::ButtonText);
}

// The scroll bars of a text box; what they leave.
QRect DrawScrollBars(QPainter& painter, const QRect& inside, int which) {
  const bool horizontal = (which & 1) != 0;
  const bool vertical = (which & 2) != 0;
  const QRect rest = inside.adjusted(0, 0, vertical ? -ScrollBarWidth : 0, horizontal ? -ScrollBarWidth : 0);
  if (vertical) {
    DrawScrollBar(painter, QRect(rest.right() + 1, inside.top(), ScrollBarWidth, rest.height()), Qt::Vertical, false);
  }
  if (horizontal) {
    DrawScrollBar(painter, QRect(inside.left(), rest.bottom() + 1, rest.width(), ScrollBarWidth), Qt::Horizontal,
                  false);
  }
  if (horizontal && vertical) {
    painter.fillRect(rest.right() + 1, rest.bottom() + 1, ScrollBarWidth, ScrollBarWidth, ColorOf(color::Face));
  }
  return rest;
}

void DrawTextBox(QPainter& painter, const FormNode& control, const QRect& place) {
  QRect inside = DrawBox(painter, control, place, color::Window);
  const bool multiLine = control.Flag("MultiLine");
  const int bars = static_cast<int>(std::clamp(control.Number("ScrollBars"), 0.0, 3.0));
  if (multiLine) inside = DrawScrollBars(painter, inside, bars);
  // Lines break at the border unless they can be scrolled.
  int flags = AlignmentOf(control) | Qt::AlignTop;
  if (!multiLine) flags |= Qt::TextSingleLine;
  if (multiLine && (bars & 1) == 0) flags |= Qt::TextWordWrap;
  std::string text = control.Text("Text");
  if (!control.Text("PasswordChar").empty()) text.assign(text.size(), '*');
  DrawText(painter, inside.adjusted(TextMargin, 0, -TextMargin, 0), flags, text, control, color::WindowText);
}

void DrawComboBox(QPainter& painter, const FormNode& control, const QRect& place) {
  constexpr int simple = 1;
  const bool isSimple = control.Number("Style") == simple;
  const QRect edit(place.left(), place.top(), place.width(), std::min(place.height(), EditHeight));
  QRect inside = DrawBox(painter, control, isSimple ? edit : place, color::Window);
  if (isSimple) {
    DrawBox(painter, control, place.adjusted(0, edit.height(), 0, 0), color::Window);
  } else {
    const QRect button(inside.right() + 1 - ScrollBarWidth, inside.top(), ScrollBarWidth, inside.height());
    DrawArrowButton(painter, button, Direction::Down, control.Flag("Enabled", true));
    inside.setRight(button.left() - 1);
  }
  DrawText(painter, inside.adjusted(TextMargin, 0, -TextMargin, 0),
           Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, control.Text("Text"), control, color::WindowText);
}

void DrawListBox(QPainter& painter, const FormNode& control, const QRect& place) {
  const QRect inside = DrawBox(painter, control, place, color::Window);
  DrawText(painter, inside.adjusted(TextMargin, 0, -TextMargin, 0), Qt::AlignLeft | Qt::AlignTop, control.Text("List"),
           control, color::WindowText);
}

// Of a graphical button that can be checked.
bool IsPressed(const FormNode& control) {
  return !runtime::EqualIgnoringCase(control.Class, "VB.CommandButton") && control.Flag("Value");
}

void DrawCommandButton(QPainter& painter, const FormNode& control, const QRect& place) {
  QRect button = place;
  if (control.Flag("Default")) {
    DrawFrame(painter, place, ColorOf(color::WindowText));
    button = Inside(place, 1);
  }
  painter.fillRect(button, control.Flag("Style") ? ColorOf(control, "BackColor", color::Face) : ColorOf(color::Face));
  DrawEdge(painter, button, IsPressed(control) ? Edge::Sunken : Edge::Raised);
  if (IsGraphicalButton(control) && !control.Pictures.empty()) return;  // the caption stands below the picture
  DrawText(painter, Inside(button, 3), Qt::AlignCenter | Qt::TextWordWrap | WithAccessKey, control.Text("Caption"),
           control, color::ButtonText);
}

void DrawFrameControl(QPainter& painter, const FormNode& control, const QRect& place) {
  const QColor background = ColorOf(control, "BackColor", color::Face);
  painter.fillRect(place, background);
  if (!control.Flag("BorderStyle", true)) return;
  const int height = HeightOfLine(control);
  DrawEdge(painter, place.adjusted(0, height / 2, 0, 0), Edge::Etched);
  const std::string caption = control.Text("Caption");
  if (caption.empty()) return;
  const int width = WidthOfLine(control, caption);
  const QRect gap(place.left() + CaptionIndent - 1, place.top(), std::min(width + 2, place.width() - 2 * CaptionIndent),
                  height);
  painter.fillRect(gap, background);
  DrawText(painter, gap.adjusted(1, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine | WithAccessKey,
           caption, control, color::ButtonText);
}

void DrawPictureBox(QPainter& painter, const FormNode& control, const QRect& place) {
  DrawBox(painter, control, place, color::Face);
}

// Without a border it is dotted, as the environment shows it where nothing else would.
void DrawImage(QPainter& painter, const FormNode& control, const QRect& place) {
  if (control.Flag("BorderStyle")) {
    DrawEdge(painter, place, BorderOf(control));
    return;
  }
  painter.setPen(QPen(ColorOf(color::Shadow), 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(place.adjusted(0, 0, -1, -1));
}

double ThumbPosition(const FormNode& control) {
  const double min = control.Number("Min");
  const double range = control.Number("Max", 32767) - min;
  return range == 0 ? 0 : (control.Number("Value") - min) / range;
}
void DrawVScrollBar(QPainter& painter, const FormNode& control, const QRect& place) {
  DrawScrollBar(painter, place, Qt::Vertical, control.Flag("Enabled", true), ThumbPosition(control));
}
void DrawHScrollBar(QPainter& painter, const FormNode& control, const QRect& place) {
  DrawScrollBar(painter, place, Qt::Horizontal, control.Flag("Enabled", true), ThumbPosition(control));
}

// The box or circle stands at the left, with Alignment 1 at the right; what it leaves for the caption. `mark` becomes
// its place.
QRect SplitCaption(const FormNode& control, const QRect& place, QRect& mark) {
  const bool right = control.Flag("Alignment");
  mark = QRect(right ? place.right() + 1 - CheckSize : place.left(), place.top() + (place.height() - CheckSize) / 2,
               CheckSize, CheckSize);
  constexpr int used = CheckSize + 4;
  return right ? place.adjusted(0, 0, -used, 0) : place.adjusted(used, 0, 0, 0);
}
void DrawMarkCaption(QPainter& painter, const FormNode& control, const QRect& place) {
  DrawText(painter, place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | WithAccessKey, control.Text("Caption"),
           control, color::ButtonText);
}

void DrawCheckBox(QPainter& painter, const FormNode& control, const QRect& place) {
  if (IsGraphicalButton(control)) return DrawCommandButton(painter, control, place);
  painter.fillRect(place, ColorOf(control, "BackColor", color::Face));
  QRect box;
  DrawMarkCaption(painter, control, SplitCaption(control, place, box));
  painter.fillRect(box, ColorOf(color::Window));
  DrawEdge(painter, box, Edge::Sunken);
  if (!control.Flag("Value")) return;
  for (int x = 0; x < 7; ++x) {  // the tick: down two pixels, then up four, three pixels high
    const int y = x < 3 ? x : 4 - x;
    painter.fillRect(box.left() + 3 + x, box.top() + 5 + y, 1, 3, ColorOf(color::WindowText));
  }
}

void DrawOptionButton(QPainter& painter, const FormNode& control, const QRect& place) {
  if (IsGraphicalButton(control)) return DrawCommandButton(painter, control, place);
  painter.fillRect(place, ColorOf(control, "BackColor", color::Face));
  QRect circle;
  DrawMarkCaption(painter, control, SplitCaption(control, place, circle));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ColorOf(color::Shadow), 1));
  painter.setBrush(ColorOf(color::Window));
  painter.drawEllipse(QRectF(circle).adjusted(0.5, 0.5, -1.5, -1.5));
  painter.setPen(Qt::NoPen);
  painter.setBrush(ColorOf(color::WindowText));
  if (control.Flag("Value")) painter.drawEllipse(QRectF(circle).adjusted(4, 4, -5, -5));
  painter.setRenderHint(QPainter::Antialiasing, false);
}

void DrawListView(QPainter& painter, const FormNode& control, const QRect& place) {
  constexpr int report = 3;
  const QRect inside = DrawBox(painter, control, place, color::Window);
  if (control.Number("View") != report || control.Flag("HideColumnHeaders")) return;
  // Columns are added at run time.
  const QRect header(inside.left(), inside.top(), inside.width(), std::min(HeaderHeight, inside.height()));
  painter.fillRect(header, ColorOf(color::Face));
  DrawEdge(painter, header, Edge::Raised);
}

void DrawNamedBox(QPainter& painter, const FormNode& control, const QRect& place) {
  painter.fillRect(place, ColorOf(control, "BackColor", color::Face));
  DrawFrame(painter, place, ColorOf(color::Shadow));
  const std::string caption = control.Text("Caption");
  const bool hasCaption = !IsInvisibleAtRunTime(control) && !caption.empty();
  const std::string& text = hasCaption ? caption : IsInvisibleAtRunTime(control) ? control.Name : control.Class;
  const int flags = hasCaption ? Qt::TextWordWrap | WithAccessKey : Qt::TextWrapAnywhere;
  DrawText(painter, Inside(place, 2), Qt::AlignCenter | flags, text, control, color::ButtonText);
}

enum class Layer { Lightweight, Windowed, Focusable };  // the last is windowed too

struct Look {
  std::string_view Class;
  void (*Draw)(QPainter& painter, const FormNode& control, const QRect& place);
  Layer OnLayer;
};
constexpr std::array Looks{
    Look{"VB.Label", DrawLabel, Layer::Lightweight},
    Look{"VB.TextBox", DrawTextBox, Layer::Focusable},
    Look{"VB.ComboBox", DrawComboBox, Layer::Focusable},
    Look{"VB.ListBox", DrawListBox, Layer::Focusable},
    Look{"VB.CommandButton", DrawCommandButton, Layer::Focusable},
    Look{"VB.Frame", DrawFrameControl, Layer::Windowed},
    Look{"VB.PictureBox", DrawPictureBox, Layer::Focusable},
    Look{"VB.Image", DrawImage, Layer::Lightweight},
    Look{"VB.VScrollBar", DrawVScrollBar, Layer::Focusable},
    Look{"VB.HScrollBar", DrawHScrollBar, Layer::Focusable},
    Look{"VB.CheckBox", DrawCheckBox, Layer::Focusable},
    Look{"VB.OptionButton", DrawOptionButton, Layer::Focusable},
    Look{"VB.Shape", DrawShape, Layer::Lightweight},
    Look{"TabDlg.SSTab", DrawPagedTabs, Layer::Focusable},
    Look{"MSComctlLib.TabStrip", DrawTabStrip, Layer::Focusable},
    Look{"ComctlLib.TabStrip", DrawTabStrip, Layer::Focusable},
    Look{generator::ide::ListView.Class, DrawListView, Layer::Focusable},
    Look{"ComctlLib.ListView", DrawListView, Layer::Focusable},
    Look{"MSComctlLib.TreeView", DrawListBox, Layer::Focusable},
    Look{"ComctlLib.TreeView", DrawListBox, Layer::Focusable},
    Look{"RichTextLib.RichTextBox", DrawTextBox, Layer::Focusable},
    Look{"MSMask.MaskEdBox", DrawTextBox, Layer::Focusable},
    Look{"MSComctlLib.ImageCombo", DrawComboBox, Layer::Focusable},
    Look{"MSComCtl2.DTPicker", DrawComboBox, Layer::Focusable},
    Look{"MSDataListLib.DataCombo", DrawComboBox, Layer::Focusable},
    Look{"MSDataListLib.DataList", DrawListBox, Layer::Focusable},
    Look{"MSComctlLib.Toolbar", DrawToolbar, Layer::Windowed},
    Look{"ComctlLib.Toolbar", DrawToolbar, Layer::Windowed},
    Look{"MSComctlLib.StatusBar", DrawStatusBar, Layer::Windowed},
    Look{"ComctlLib.StatusBar", DrawStatusBar, Layer::Windowed},
    Look{"MSComctlLib.ProgressBar", DrawProgressBar, Layer::Windowed},
    Look{"ComctlLib.ProgressBar", DrawProgressBar, Layer::Windowed},
    Look{"MSComctlLib.Slider", DrawSlider, Layer::Focusable},
    Look{"ComctlLib.Slider", DrawSlider, Layer::Focusable},
    Look{"MSComCtl2.UpDown", DrawUpDown, Layer::Windowed},
    Look{"ComCtl2.UpDown", DrawUpDown, Layer::Windowed},
    Look{"MSFlexGridLib.MSFlexGrid", DrawGrid, Layer::Focusable},
    Look{"MSHierarchicalFlexGridLib.MSHFlexGrid", DrawGrid, Layer::Focusable},
    Look{"MSDataGridLib.DataGrid", DrawGrid, Layer::Focusable},
};
constexpr Look AnyOther{"", DrawNamedBox, Layer::Focusable};

const Look& LookOf(const FormNode& control) {
  const auto found = std::ranges::find_if(
      Looks, [&](const Look& look) { return runtime::EqualIgnoringCase(look.Class, control.Class); });
  return found == Looks.end() ? AnyOther : *found;
}

}  // namespace

void DrawControl(QPainter& painter, const FormNode& control, const QRect& place) {
  LookOf(control).Draw(painter, control, place);
}

QRect InsideOf(const FormNode& control, const QRect& place) {
  if (!runtime::EqualIgnoringCase(control.Class, "VB.PictureBox") || !control.Flag("BorderStyle", true)) return place;
  return Inside(place, EdgeWidth(BorderOf(control)));
}

bool TakesFocus(const FormNode& control) {
  return LookOf(control).OnLayer == Layer::Focusable && control.Find("TabIndex") && control.Flag("TabStop", true) &&
         control.Flag("Enabled", true);
}

bool IsLightweight(const FormNode& control) { return IsLine(control) || LookOf(control).OnLayer == Layer::Lightweight; }

bool IsGraphicalButton(const FormNode& control) {
  constexpr std::array<std::string_view, 3> classes{"VB.CommandButton", "VB.CheckBox", "VB.OptionButton"};
  return control.Flag("Style") && std::ranges::any_of(classes, [&](std::string_view name) {
           return runtime::EqualIgnoringCase(name, control.Class);
         });
}

bool IsBorderlessLabel(const FormNode& control) {
  return runtime::EqualIgnoringCase(control.Class, "VB.Label") && !control.Flag("BorderStyle");
}

bool IsLine(const FormNode& control) { return runtime::EqualIgnoringCase(control.Class, "VB.Line"); }

bool IsInvisibleAtRunTime(const FormNode& control) { return !control.Find("Width") && !IsLine(control); }

}  // namespace formwizard::apps::desktop
