#include "generator/VisualBasic.h"
#include "generator/Writers.h"

namespace formwizard::generator {
namespace {

constexpr auto Declarations = Page(R"vb(
Private m_factory As Object
Private m_object As Object
Private m_modified As Boolean
Private m_WaitFlag As Integer
Private id as Variant
Private disableclick As Boolean
)vb");

// "EndIf" here and there, "End If" elsewhere: both are the required output, as are all blanks and capitals below.
constexpr auto FormLoad = Page(R"vb(
Private Sub Form_Load()
    Dim sdir as String
    actionClose
    Set m_factory = CreateObject("OstrelObject.Factory")
    sdir = m_factory.ConnectDlg
    If sdir <> "" Then
        m_factory.Connect sdir
    Else
        End
    EndIf
)vb");

// Written whether or not the form can be resized.
constexpr auto FormResize = Page(R"vb(
Private Sub Form_Resize()
picPatch.Visible = False
If Me.ScaleWidth < fra_Main.Width Then
    HScroll.Top = Me.ScaleHeight - HScroll.Height
    HScroll.Width = Me.ScaleWidth
    HScroll.max = (fra_Main.Width - Me.ScaleWidth) \ 15
    HScroll.Visible = True
    HScroll.ZOrder
    If Me.ScaleHeight - HScroll.Height < fra_Main.Height Then
        HScroll.Width = Me.ScaleWidth - VScroll.Width
        VScroll.Left = Me.ScaleWidth - VScroll.Width
        VScroll.Height = Me.ScaleHeight - HScroll.Height
        HScroll.max = (fra_Main.Width - Me.ScaleWidth + VScroll.Width) \ 15
        VScroll.max = (fra_Main.Height - Me.ScaleHeight + HScroll.Height) \ 15
        VScroll.Visible = True
        VScroll.ZOrder
        picPatch.Top = HScroll.Top
        picPatch.Left = HScroll.Width
        picPatch.Visible = True
        picPatch.ZOrder
    Else
        VScroll.Visible = False
    End If
Else
   HScroll.Visible = False
    If Me.ScaleHeight < fra_Main.Height Then
        VScroll.Left = Me.ScaleWidth - VScroll.Width
        VScroll.Height = Me.ScaleHeight
        VScroll.max = (fra_Main.Height - Me.ScaleHeight) \ 15
        VScroll.Visible = True
        VScroll.ZOrder
        If Me.ScaleWidth - VScroll.Width < fra_Main.Width Then
            VScroll.Height = Me.ScaleHeight - HScroll.Height
            HScroll.Top = Me.ScaleHeight - HScroll.Height
            HScroll.Width = Me.ScaleWidth - VScroll.Width
            VScroll.max = (fra_Main.Height - Me.ScaleHeight + HScroll.Height) \ 15
            HScroll.max = (fra_Main.Width - Me.ScaleWidth + VScroll.Width) \ 15
            HScroll.Visible = True
            HScroll.ZOrder
            picPatch.Top = HScroll.Top
            picPatch.Left = HScroll.Width
            picPatch.Visible = True
            picPatch.ZOrder
        End If
    Else
        VScroll.Visible = False
    End If
End If
)vb");

// The body lines begin with a tab.
constexpr std::string_view ScrollHandlers[] = {
    "Private Sub HScroll_Change()\r\n\tfra_Main.Left = -HScroll.value * 15",
    "Private Sub HScroll_Scroll()\r\n\tHScroll_Change",
    "Private Sub VScroll_Change()\r\n\tfra_Main.Top = -VScroll.value * 15",
    "Private Sub VScroll_Scroll()\r\n\tVScroll_Change",
};

constexpr auto ActionNewBegin = Page(R"vb(
Private Sub actionNew()
    actionClose
    Set m_object = m_factory.new(m_classname)
    If m_object Is Nothing Then
         MsgBox "{cannotCreate}"
         actionClose
    Else
         EnableScreen True
         SyncObjectToScreen
         m_modified = True
)vb");
constexpr std::string_view ActionNewButton = "         cmd__Delete.Enabled = False";
constexpr std::string_view ActionNewMenu = "         mnu__Delete.Enabled = False";
constexpr std::string_view ActionNewEnd = "    End If";

constexpr auto ActionFind = Page(R"vb(
Private Sub actionFind()
    actionClose
    Set OstrelQuery1.Factory = m_factory
    OstrelQuery1.classname = m_classname
    id = OstrelQuery1.FindId
    If id = "" Then Exit Sub
    Set m_object = m_factory.OpenId(m_classname, id)
    If m_object Is Nothing Then
        MsgBox "{cannotOpen}"
        actionClose
    Else
        EnableScreen True
        SyncObjectToScreen
        m_modified = False
    End If
)vb");

constexpr auto ActionSave = Page(R"vb(
Private Sub actionSave()
    SyncScreenToObject
    On Error GoTo actionSaveError
    BeginWait
    m_object.sys_Save
    EndWait
    m_modified = False
    Exit Sub
actionSaveError:
    EndWait
    MsgBox Err.Description
)vb");

constexpr auto ActionDelete = Page(R"vb(
Private Sub actionDelete()
    If id = "" then
        MsgBox"{idUnknown}", vbInformation
        Exit Sub
    EndIf
    If MsgBox("{askDelete}",vbYesNo) = vbNo Then Exit Sub
    SyncScreenToObject
    On Error GoTo actionDeleteError
    BeginWait
    m_object.sys_DeleteId (id)
    actionClose
    EndWait
    m_modified = False
    Exit Sub
actionDeleteError:
    EndWait
    MsgBox Err.Description
)vb");

constexpr auto ActionClose = Page(R"vb(
Private Sub actionClose()
    If Not m_object Is Nothing And m_modified Then
      If MsgBox("{askSave}",vbYesNo) = vbYes Then actionSave
    End If
    If Not m_object Is Nothing Then
      m_object.SYS_Close
      Set m_object = Nothing
    EndIf
    EnableScreen False
    EraseScreen
    id = ""
    m_modified = False
)vb");

constexpr auto ActionExit = Page(R"vb(
Private Sub actionExit()
    actionClose
    End
)vb");

constexpr auto BeginWait = Page(R"vb(
Private Sub BeginWait()
    'turn on the hourglass cursor;
    'you can nest calls to BeginWait-the cursor is restored
    'after the same number of calls to EndWait

    m_WaitFlag=m_WaitFlag + 1

    Screen.MousePointer = vbHourglass
)vb");

constexpr auto EndWait = Page(R"vb(
Private Sub EndWait()
    'turn off the hourglass cursor

    If m_WaitFlag <= 0 Then Exit Sub

    m_WaitFlag=m_WaitFlag - 1

    If m_WaitFlag = 0 Then
        Screen.MousePointer = vbDefault
    EndIf
)vb");

constexpr auto MinMax = Page(R"vb(
Private Function minmax(val As Long, min As Long, max As Long)
    minmax = val
    If min <> -1 And val < min Then minmax = min
    If max <> -1 And val > max Then minmax = max
End Function
)vb");

constexpr auto ListViewColumnClick = Page(R"vb(
Public Sub ListView_ColumnClick(hList As ListView, ByVal ColumnHeader As MSComctlLib.ColumnHeader)
    'Handle any listview
    If hList.Sorted = False Then
       hList.Sorted = True
       hList.SortKey = ColumnHeader.Index - 1
       hList.SortOrder = lvwAscending
       Exit Sub
    End If
    If hList.SortKey = (ColumnHeader.Index - 1) Then
        If hList.SortOrder = lvwAscending Then
            hList.SortOrder = lvwDescending
        Else
            hList.SortOrder = lvwAscending
        End If
    Else
        hList.SortKey = ColumnHeader.Index - 1
    End If
End Sub
)vb");

void AppendSub(ide::CodeModule& module, std::string_view page) { Procedure(page).AppendTo(module); }

void AppendSub(ide::CodeModule& module, std::string_view page, std::string_view gap, const std::string& text) {
  Procedure(page, Values().Set(gap, text)).AppendTo(module);
}

void AppendPage(ide::CodeModule& module, std::string_view page, std::string_view ending) {
  Append(module, std::string(page).append(ending));
}

void AppendActionNew(Generation& run, ide::CodeModule& module) {
  const std::string cannotCreate = run.Strings.LoadResStringLocal(303);
  Procedure sub(ActionNewBegin, Values().Set("cannotCreate", cannotCreate));
  if (run.Settings.Button) sub.Add(ActionNewButton);
  if (run.Settings.Menu) sub.Add(ActionNewMenu);
  sub.Add(ActionNewEnd);
  sub.AppendTo(module);
}

void AppendActionDelete(Generation& run, ide::CodeModule& module) {
  const std::string idUnknown = run.Strings.LoadResStringLocal(306);
  const std::string askDelete = run.Strings.LoadResStringLocal(220);
  Procedure(ActionDelete, Values().Set("idUnknown", idUnknown).Set("askDelete", askDelete)).AppendTo(module);
}

}  // namespace

void WriteSubCommon(Generation& run) {
  support::LeaveOnError(run.Report, "WriteSubCommon", [&] {
    ide::CodeModule& module = Required(run.NewCodeModule);
    AppendPage(module, Declarations, "\r\n");
    AppendSub(module, FormLoad);
    AppendSub(module, FormResize);
    for (const std::string_view handler : ScrollHandlers) AppendSub(module, handler);
    AppendActionNew(run, module);
    AppendSub(module, ActionFind, "cannotOpen", run.Strings.LoadResStringLocal(304));
    AppendSub(module, ActionSave);
    AppendActionDelete(run, module);
    AppendSub(module, ActionClose, "askSave", run.Strings.LoadResStringLocal(305));
    AppendSub(module, ActionExit);
    AppendSub(module, BeginWait);
    AppendSub(module, EndWait);
    AppendPage(module, MinMax, "\r\n");
    AppendPage(module, ListViewColumnClick, "");  // no line break after its "End Sub", unlike every other procedure
  });
}

}  // namespace formwizard::generator
