#include "generator/DataBinding.h"

#include "generator/VisualBasic.h"
#include "generator/Writers.h"
#include "support/Pieces.h"

namespace formwizard::generator {

// The object's reference as the single entry of the combo box. "disableclick" keeps the assignment of ListIndex from
// re-entering the box's Click handler.
constexpr auto ReferenceComboPage = Page(R"vb(
    Set obj = m_object.{property}
    {control}.Clear
    If Not obj Is Nothing Then
        {control}.AddItem obj.{display}
        disableclick = True
        {control}.ListIndex = 0
        disableclick = False
    End If
)vb");

std::string_view ReferenceComboToScreen() { return ReferenceComboPage; }

namespace {

constexpr auto EnableField = Page(R"vb(
    lbl{base}.Enabled = Enabled
    {control}.Enabled = Enabled
)vb");

constexpr auto EnableMenu = Page(R"vb(
    mnu__Save.Enabled = Enabled
    mnu__Close.Enabled = Enabled
    mnu__Delete.Enabled = Enabled
)vb");

constexpr auto EnableButtons = Page(R"vb(
    cmd__Save.Enabled = Enabled
    cmd__Close.Enabled = Enabled
    cmd__Delete.Enabled = Enabled
)vb");

constexpr auto SyncObjectToScreenBegin = Page(R"vb(
Private Sub SyncObjectToScreen()
    Dim obj As Object
    Dim i As Integer
    Dim item As String
    Dim cnt As String
    Dim itemX As ListItem
)vb");

constexpr auto DateToScreen = Page(
    "    If m_object.{property} <> 0 Then \n"  // the trailing blank is output
    "       {control}.Text = m_object.{property}\n"
    "    Else\n"
    "       {control}.Text = \"\"\n"
    "    EndIf");  // "EndIf" here, "End If" below: both are the required output

constexpr auto ReferenceLabelToScreen = Page(R"vb(
    Set obj = m_object.{property}
    If Not obj Is Nothing Then {control}.Caption = obj.{display} Else {control}.Caption = ""
)vb");

constexpr auto ListToScreen = Page(R"vb(
    Set obj = m_object.{property}
    {control}.Clear
    Do
        item = obj.GetNext(cnt)
        If cnt = "" Then Exit Do
        {control}.AddItem item
    Loop
)vb");

constexpr auto ArrayToScreen = Page(R"vb(
    Set obj = m_object.{property}
    {control}.ColumnHeaders.Clear
    {control}.ColumnHeaders.Add , , "{header1}"
    {control}.ColumnHeaders.Add , , "{header2}"
    {control}.ListItems.Clear
    Do
        item = obj.GetNext(cnt)
        If cnt = "" Then Exit Do
        Set itemX = {control}.ListItems.Add(, , cnt)
        itemX.SubItems(1) = item
    Loop
)vb");

// "Item" and "item" side by side, as required. The control is not cleared first: EraseScreen has run.
constexpr auto StreamToScreen = Page(R"vb(
    For i = 1 to 100
      item = m_object.{property}.Read(10000)
      If Item = "" Then Exit For
      {control}.Text = {control}.Text & item
    Next i
)vb");

// The lines of a kind in each procedure; empty where the kind has none.
struct KindBinding {
  Int16 FieldKind;
  std::string_view Erase, ToScreen, ToObject;
};

constexpr std::string_view EraseText = "    {control}.Text = \"\"";
constexpr std::string_view EraseCaption = "    {control}.Caption = \"\"";
constexpr std::string_view EraseItems = "    {control}.Clear";

constexpr model::KindTable<KindBinding> Kinds{{
    KindBinding{model::kind::TextBox, EraseText, "    {control}.Text = m_object.{property}",
                "    m_object.{property} = {control}.Text"},
    KindBinding{model::kind::ReadOnlyLabel, EraseCaption, "    {control}.Caption = m_object.{property}", ""},
    KindBinding{model::kind::ReferenceLabel, EraseCaption, ReferenceLabelToScreen, ""},
    KindBinding{model::kind::ReferenceCombo, EraseItems, ReferenceComboPage, ""},
    KindBinding{model::kind::ListBox, EraseItems, ListToScreen, ""},
    KindBinding{model::kind::ListView, "    {control}.ListItems.Clear", ArrayToScreen, ""},
    KindBinding{model::kind::Picture, "    set {control} = Nothing",
                "    {control}.Picture = m_object.{property}.GetPicture",
                "    m_object.{property}.SetPicture {control}.Picture"},
    KindBinding{model::kind::MultiLine, EraseText, StreamToScreen, "    m_object.{property}.Write({control}.Text)"},
}};

constexpr KindBinding NoBinding{};

const KindBinding& BindingOf(const FieldRecord& field) {
  const KindBinding* kind = Kinds.Find(field.FieldKind);
  return kind ? *kind : NoBinding;
}

bool IsDate(const FieldRecord& field) {
  return field.FieldKind == model::kind::TextBox && support::GetPiece(field.PropertyType, ".", 2) == "Date";
}

}  // namespace

void WriteSubEnableScreen(Generation& run) {
  Procedure sub("Private Sub EnableScreen(Enabled as Boolean)");
  for (const Int16 index : run.Form.SelectedFields) sub.Add(EnableField, NamesOf(run.Form.Fields[index]));
  if (run.Settings.Menu) sub.Add(EnableMenu);
  if (run.Settings.Button) sub.Add(EnableButtons);
  sub.AppendTo(Required(run.NewCodeModule));
}

void WriteSubEraseScreen(Generation& run) {
  Procedure sub("Private Sub EraseScreen()");
  for (const Int16 index : run.Form.SelectedFields) {
    const FieldRecord& field = run.Form.Fields[index];
    sub.Add(BindingOf(field).Erase, NamesOf(field));
  }
  sub.AppendTo(Required(run.NewCodeModule));
}

void WriteSubSyncObjectToScreen(Generation& run) {
  support::LeaveOnError(run.Report, "WriteSubSyncObjectToScreen", [&] {
    Procedure sub(SyncObjectToScreenBegin);
    std::string header1;
    std::string header2;
    for (const Int16 index : run.Form.SelectedFields) {
      const FieldRecord& field = run.Form.Fields[index];
      if (field.FieldKind == model::kind::ListView) {
        header1 = run.Strings.LoadResStringLocal(222);
        header2 = run.Strings.LoadResStringLocal(223);
      }
      const std::string_view page = IsDate(field) ? DateToScreen : BindingOf(field).ToScreen;
      sub.Add(page, NamesOf(field).Set("header1", header1).Set("header2", header2));
    }
    sub.AppendTo(Required(run.NewCodeModule));
  });
}

void WriteSubSyncScreenToObject(Generation& run) {
  support::LeaveOnError(run.Report, "WriteSubSyncScreenToObject", [&] {
    Procedure sub("Private Sub SyncScreenToObject()");
    for (const Int16 index : run.Form.SelectedFields) {
      const FieldRecord& field = run.Form.Fields[index];
      sub.Add(BindingOf(field).ToObject, NamesOf(field));
    }
    sub.AppendTo(Required(run.NewCodeModule));
  });
}

}  // namespace formwizard::generator
