#include "generator/DataBinding.h"
#include "generator/VisualBasic.h"
#include "generator/Writers.h"

#include <array>

namespace formwizard::generator {
namespace {

constexpr std::array<std::string_view, 6> Actions{"New", "Find", "Save", "Delete", "Close", "Exit"};

constexpr std::string_view MarkModified = "    m_modified = True";
constexpr std::string_view ShowPopupMenu = "    If Button = 2 then PopupMenu mnu{property}";

constexpr auto RefreshReadOnly = Page(R"vb(
    SyncScreenToObject
    {control}.Caption = m_object.{property}
)vb");

constexpr auto FillComboBegin = Page(
    "    Dim rs As Object\n"
    "    Dim text As String\n"
    "    Dim i As Integer\n"
    "    \n"  // four blanks
    "    Set rs = m_factory.ResultSet(\"{class}\", \"{query}\")\n"
    "    rs.Execute {arguments}");  // without parameters the blank stays at the end of the line

// lst__Hidden holds the object ids beside the entries shown; both begin with an empty one.
constexpr auto FillComboEnd = Page(R"vb(
    text = {control}.text
    {control}.Clear
    lst__Hidden.Clear
    {control}.AddItem ""
    lst__Hidden.AddItem ""
    While rs.Next
        {control}.AddItem rs.GetDataByName("{column}")
        lst__Hidden.AddItem rs.GetData({containId})
    Wend
    rs.Close
    For i = 0 To {control}.ListCount - 1
        If {control}.List(i) = text Then
            disableclick = True
            {control}.ListIndex = i
            disableclick = False
            Exit For
        End If
    Next
)vb");

constexpr auto ChooseReference = Page(R"vb(
    If disableclick Then Exit Sub
    Dim index As Integer
    Dim obj As Object
    index = {control}.ListIndex
    m_object.{property}SetObjectId lst__Hidden.List(index)
    m_modified = True
)vb");

// One empty text a parameter.
std::string EmptyArguments(Int16 count) {
  std::string arguments;
  for (Int16 i(1); i <= count; i += Int16(1)) arguments += i == Int16(1) ? R"("")" : R"(, "")";
  return arguments;
}

void WriteRefComboEvents(Generation& run, const FieldRecord& field) {
  support::LeaveOnError(run.Report, "WriteSubRefComboEvents", [&] {
    const std::string arguments = EmptyArguments(field.QueryParamCount);
    const std::string containId = Text(field.QueryContainId);
    const Values values = NamesOf(field)
                              .Set("class", field.ReferenceClass)
                              .Set("query", field.QueryName)
                              .Set("arguments", arguments)
                              .Set("column", field.QueryColumn)
                              .Set("containId", containId);
    Lines dropDown;
    dropDown.Add(FillComboBegin, values);
    dropDown.Add(FillComboEnd, values);
    WriteEvent(run, field.ControlName, "DropDown", dropDown);

    Lines click;
    click.Add(ChooseReference, values);
    click.Add(ReferenceComboToScreen(), values);
    WriteEvent(run, field.ControlName, "Click", click);
  });
}

void WriteMarkModified(Generation& run, const FieldRecord& field) {
  WriteEvent(run, field.ControlName, "Change", MarkModified);
}

void WritePopup(Generation& run, const FieldRecord& field) {
  WriteEvent(run, field.ControlName, "MouseUp", ShowPopupMenu, NamesOf(field));
}

void WriteReferenceLabelEvents(Generation& run, const FieldRecord& field) {
  WriteMarkModified(run, field);
  WritePopup(run, field);
}

// A read-only value is refreshed when the control of its update-after field loses the focus.
void WriteUpdateAfter(Generation& run, const FieldRecord& field) {
  if (field.UpdateAfter == Int16(0)) return;
  WriteEvent(run, run.Form.Fields[field.UpdateAfter].ControlName, "LostFocus", RefreshReadOnly, NamesOf(field));
}

struct KindEvents {
  Int16 FieldKind;
  void (*Write)(Generation& run, const FieldRecord& field);
};

constexpr model::KindTable<KindEvents> Kinds{{
    KindEvents{model::kind::TextBox, WriteMarkModified},
    KindEvents{model::kind::ReadOnlyLabel, WriteUpdateAfter},
    KindEvents{model::kind::ReferenceLabel, WriteReferenceLabelEvents},
    KindEvents{model::kind::ReferenceCombo, WriteRefComboEvents},
    KindEvents{model::kind::ListBox, WritePopup},
    KindEvents{model::kind::ListView, WritePopup},
    KindEvents{model::kind::Picture, WritePopup},
    KindEvents{model::kind::MultiLine, WriteMarkModified},
}};

void WriteActionHandlers(Generation& run, std::string_view prefix) {
  for (const std::string_view action : Actions) {
    WriteEvent(run, std::string(prefix) + std::string(action), "Click", "    action{action}",
               Values().Set("action", action));
  }
}

}  // namespace

void WriteSubActions(Generation& run) {
  if (run.Settings.Button) WriteActionHandlers(run, "cmd__");
  if (run.Settings.Menu) WriteActionHandlers(run, "mnu__");
}

void WriteSubControlEvents(Generation& run) {
  support::LeaveOnError(run.Report, "WriteSubControlEvents", [&] {
    for (const Int16 index : run.Form.SelectedFields) {
      const FieldRecord& field = run.Form.Fields[index];
      if (const KindEvents* kind = Kinds.Find(field.FieldKind)) kind->Write(run, field);
    }
  });
}

}  // namespace formwizard::generator
