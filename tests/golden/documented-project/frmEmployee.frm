VERSION 5.00
Object = "{2B7E4F10-9C3D-4A55-8E61-7D0F3B9A1C24}#1.0#0"; "OSTRELQUERY.OCX"
Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "COMDLG32.OCX"
Begin VB.Form frmEmployee 
   BorderStyle     =   1  'Fixed Single
   Caption         =   "Employee"
   ClientHeight    =   2895
   ClientLeft      =   150
   ClientTop       =   720
   ClientWidth     =   6855
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   2975
   ScaleMode       =   0  'User
   ScaleWidth      =   6820
   StartUpPosition =   3  'Windows Default
   Begin MSComDlg.CommonDialog dlgCommon 
      Left            =   0
      Top             =   0
      _ExtentX        =   847
      _ExtentY        =   847
      _Version        =   393216
   End
   Begin OSTRELQUERYLib.OstrelQuery OstrelQuery1 
      Left            =   0
      Top             =   0
      _ExtentX        =   847
      _ExtentY        =   847
   End
   Begin VB.Frame fra_Main 
      BorderStyle     =   0  'None
      Caption         =   "fra_Main"
      Height          =   2895
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   6855
      Begin VB.CommandButton cmd__Exit 
         Caption         =   "E&xit"
         Height          =   375
         Left            =   5634
         TabIndex        =   12
         Top             =   2306
         Width           =   1101
      End
      Begin VB.CommandButton cmd__Close 
         Caption         =   "&Close"
         Height          =   375
         Left            =   5634
         TabIndex        =   11
         Top             =   1927
         Width           =   1101
      End
      Begin VB.CommandButton cmd__Delete 
         Caption         =   "&Delete"
         Height          =   375
         Left            =   5634
         TabIndex        =   10
         Top             =   1460
         Width           =   1101
      End
      Begin VB.CommandButton cmd__Save 
         Caption         =   "&Save"
         Height          =   375
         Left            =   5634
         TabIndex        =   9
         Top             =   1080
         Width           =   1101
      End
      Begin VB.CommandButton cmd__Find 
         Caption         =   "&Find..."
         Height          =   375
         Left            =   5634
         TabIndex        =   8
         Top             =   613
         Width           =   1101
      End
      Begin VB.CommandButton cmd__New 
         Caption         =   "&New"
         Height          =   375
         Left            =   5634
         TabIndex        =   7
         Top             =   234
         Width           =   1101
      End
      Begin VB.TextBox txtsys_Concurrency 
         Height          =   316
         Left            =   1372
         TabIndex        =   6
         Text            =   "txtsys_Concurrency"
         Top             =   934
         Width           =   814
      End
      Begin VB.TextBox txtName 
         Height          =   316
         Left            =   1372
         TabIndex        =   2
         Text            =   "txtName"
         Top             =   234
         Width           =   4021
      End
      Begin VB.Label lblsys_Concurrency 
         Alignment       =   1  'Right Justify
         Caption         =   "Concurrency"
         Height          =   316
         Left            =   121
         TabIndex        =   5
         Top             =   934
         Width           =   1131
      End
      Begin VB.Label refCompanyName 
         BorderStyle     =   1  'Fixed Single
         Caption         =   "refCompanyName"
         Height          =   316
         Left            =   1372
         TabIndex        =   4
         Top             =   584
         Width           =   4021
      End
      Begin VB.Label lblCompanyName 
         Alignment       =   1  'Right Justify
         Caption         =   "Company Name"
         Height          =   316
         Left            =   121
         TabIndex        =   3
         Top             =   584
         Width           =   1131
      End
      Begin VB.Label lblName 
         Alignment       =   1  'Right Justify
         Caption         =   "Name"
         Height          =   316
         Left            =   121
         TabIndex        =   1
         Top             =   234
         Width           =   1131
      End
   End
   Begin VB.PictureBox picPatch 
      BorderStyle     =   0  'None
      Height          =   248
      Left            =   0
      ScaleHeight     =   248
      ScaleWidth      =   256
      TabIndex        =   15
      Top             =   0
      Visible         =   0   'False
      Width           =   256
   End
   Begin VB.VScrollBar VSCroll 
      Height          =   1168
      LargeChange     =   24
      Left            =   6855
      TabIndex        =   14
      Top             =   0
      Visible         =   0   'False
      Width           =   256
   End
   Begin VB.HScrollBar HSCroll 
      Height          =   248
      LargeChange     =   24
      Left            =   0
      TabIndex        =   13
      Top             =   2895
      Visible         =   0   'False
      Width           =   1206
   End
   Begin VB.Menu mnuObject 
      Caption         =   "&Object"
      Begin VB.Menu mnu__New 
         Caption         =   "&New"
      End
      Begin VB.Menu mnu__Find 
         Caption         =   "&Find..."
      End
      Begin VB.Menu mnu__Bar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnu__Save 
         Caption         =   "&Save"
      End
      Begin VB.Menu mnu__Delete 
         Caption         =   "&Delete"
      End
      Begin VB.Menu mnu__Close 
         Caption         =   "&Close"
      End
      Begin VB.Menu mnu__Bar2 
         Caption         =   "-"
      End
      Begin VB.Menu mnu__Exit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuCompany 
      Caption         =   "mnuCompany"
      Visible         =   0   'False
      Begin VB.Menu mnuCompanyChange 
         Caption         =   "&Change "
      End
      Begin VB.Menu mnuCompanyRemove 
         Caption         =   "&Remove "
      End
   End
End
Attribute VB_Name = "frmEmployee"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Const m_classname = "Sample.Employee"

Private m_factory As Object
Private m_object As Object
Private m_modified As Boolean
Private m_WaitFlag As Integer
Private id as Variant
Private disableclick As Boolean

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
End Sub

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
End Sub

Private Sub HScroll_Change()
	fra_Main.Left = -HScroll.value * 15
End Sub

Private Sub HScroll_Scroll()
	HScroll_Change
End Sub

Private Sub VScroll_Change()
	fra_Main.Top = -VScroll.value * 15
End Sub

Private Sub VScroll_Scroll()
	VScroll_Change
End Sub

Private Sub actionNew()
    actionClose
    Set m_object = m_factory.new(m_classname)
    If m_object Is Nothing Then
         MsgBox "Cannot create new object."
         actionClose
    Else
         EnableScreen True
         SyncObjectToScreen
         m_modified = True
         cmd__Delete.Enabled = False
         mnu__Delete.Enabled = False
    End If
End Sub

Private Sub actionFind()
    actionClose
    Set OstrelQuery1.Factory = m_factory
    OstrelQuery1.classname = m_classname
    id = OstrelQuery1.FindId
    If id = "" Then Exit Sub
    Set m_object = m_factory.OpenId(m_classname, id)
    If m_object Is Nothing Then
        MsgBox "Can not open object."
        actionClose
    Else
        EnableScreen True
        SyncObjectToScreen
        m_modified = False
    End If
End Sub

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
End Sub

Private Sub actionDelete()
    If id = "" then
        MsgBox"Unable to delete record (ID unknown).", vbInformation
        Exit Sub
    EndIf
    If MsgBox("Are you sure that you want to delete this record?",vbYesNo) = vbNo Then Exit Sub
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
End Sub

Private Sub actionClose()
    If Not m_object Is Nothing And m_modified Then
      If MsgBox("Do you want to save?",vbYesNo) = vbYes Then actionSave
    End If
    If Not m_object Is Nothing Then
      m_object.SYS_Close
      Set m_object = Nothing
    EndIf
    EnableScreen False
    EraseScreen
    id = ""
    m_modified = False
End Sub

Private Sub actionExit()
    actionClose
    End
End Sub

Private Sub BeginWait()
    'turn on the hourglass cursor;
    'you can nest calls to BeginWait-the cursor is restored
    'after the same number of calls to EndWait

    m_WaitFlag=m_WaitFlag + 1

    Screen.MousePointer = vbHourglass
End Sub

Private Sub EndWait()
    'turn off the hourglass cursor

    If m_WaitFlag <= 0 Then Exit Sub

    m_WaitFlag=m_WaitFlag - 1

    If m_WaitFlag = 0 Then
        Screen.MousePointer = vbDefault
    EndIf
End Sub

Private Function minmax(val As Long, min As Long, max As Long)
    minmax = val
    If min <> -1 And val < min Then minmax = min
    If max <> -1 And val > max Then minmax = max
End Function

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
Private Sub EnableScreen(Enabled as Boolean)
    lblName.Enabled = Enabled
    txtName.Enabled = Enabled
    lblCompanyName.Enabled = Enabled
    refCompanyName.Enabled = Enabled
    lblsys_Concurrency.Enabled = Enabled
    txtsys_Concurrency.Enabled = Enabled
    mnu__Save.Enabled = Enabled
    mnu__Close.Enabled = Enabled
    mnu__Delete.Enabled = Enabled
    cmd__Save.Enabled = Enabled
    cmd__Close.Enabled = Enabled
    cmd__Delete.Enabled = Enabled
End Sub

Private Sub EraseScreen()
    txtName.Text = ""
    refCompanyName.Caption = ""
    txtsys_Concurrency.Text = ""
End Sub

Private Sub SyncObjectToScreen()
    Dim obj As Object
    Dim i As Integer
    Dim item As String
    Dim cnt As String
    Dim itemX As ListItem
    txtName.Text = m_object.Name
    Set obj = m_object.Company
    If Not obj Is Nothing Then refCompanyName.Caption = obj.Name Else refCompanyName.Caption = ""
    txtsys_Concurrency.Text = m_object.%Concurrency
End Sub

Private Sub SyncScreenToObject()
    m_object.Name = txtName.Text
    m_object.%Concurrency = txtsys_Concurrency.Text
End Sub


Private Sub cmd__New_Click()
    actionNew

End Sub

Private Sub cmd__Find_Click()
    actionFind

End Sub

Private Sub cmd__Save_Click()
    actionSave

End Sub

Private Sub cmd__Delete_Click()
    actionDelete

End Sub

Private Sub cmd__Close_Click()
    actionClose

End Sub

Private Sub cmd__Exit_Click()
    actionExit

End Sub

Private Sub mnu__New_Click()
    actionNew

End Sub

Private Sub mnu__Find_Click()
    actionFind

End Sub

Private Sub mnu__Save_Click()
    actionSave

End Sub

Private Sub mnu__Delete_Click()
    actionDelete

End Sub

Private Sub mnu__Close_Click()
    actionClose

End Sub

Private Sub mnu__Exit_Click()
    actionExit

End Sub

Private Sub txtName_Change()
    m_modified = True

End Sub

Private Sub refCompanyName_Change()
    m_modified = True

End Sub

Private Sub refCompanyName_MouseUp(Button As Integer, Shift As Integer, X As Single, Y As Single)
    If Button = 2 then PopupMenu mnuCompany

End Sub

Private Sub txtsys_Concurrency_Change()
    m_modified = True

End Sub

Private Sub mnuCompanyChange_Click()
    Dim obj As Object
    Set OstrelQuery1.Factory = m_factory
    OstrelQuery1.ClassName = "Sample.Company"
    id = OstrelQuery1.FindId
    If id = "" Then Exit Sub
    Set obj = m_factory.OpenId("Sample.Company", id)
    Set m_object.Company = obj
    refCompanyName.Caption = obj.Name
    obj.sys_Close

End Sub

Private Sub mnuCompanyRemove_Click()
    Set m_object.Company = Nothing
    refCompanyName.Caption = ""

End Sub
