VERSION 5.00
Object = "{2B7E4F10-9C3D-4A55-8E61-7D0F3B9A1C24}#1.0#0"; "OSTRELQUERY.OCX"
Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "COMDLG32.OCX"
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmPerson 
   Caption         =   "Person"
   ClientHeight    =   7815
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   7635
   LinkTopic       =   "Form1"
   ScaleHeight     =   7920
   ScaleMode       =   0  'User
   ScaleWidth      =   7630
   StartUpPosition =   3  'Windows Default
   Begin VB.ListBox lst__Hidden 
      Height          =   444
      Left            =   0
      TabIndex        =   28
      Top             =   -444
      Visible         =   0   'False
      Width           =   1215
   End
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
      Height          =   7815
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   7635
      Begin VB.CommandButton cmd__Exit 
         Caption         =   "E&xit"
         Height          =   380
         Left            =   6419
         TabIndex        =   27
         Top             =   2339
         Width           =   1096
      End
      Begin VB.CommandButton cmd__Close 
         Caption         =   "&Close"
         Height          =   380
         Left            =   6419
         TabIndex        =   26
         Top             =   1954
         Width           =   1096
      End
      Begin VB.CommandButton cmd__Delete 
         Caption         =   "&Delete"
         Height          =   380
         Left            =   6419
         TabIndex        =   25
         Top             =   1480
         Width           =   1096
      End
      Begin VB.CommandButton cmd__Save 
         Caption         =   "&Save"
         Height          =   380
         Left            =   6419
         TabIndex        =   24
         Top             =   1095
         Width           =   1096
      End
      Begin VB.CommandButton cmd__Find 
         Caption         =   "&Find..."
         Height          =   380
         Left            =   6419
         TabIndex        =   23
         Top             =   622
         Width           =   1096
      End
      Begin VB.CommandButton cmd__New 
         Caption         =   "&New"
         Height          =   380
         Left            =   6419
         TabIndex        =   22
         Top             =   237
         Width           =   1096
      End
      Begin VB.TextBox txtNotes 
         Height          =   1021
         Left            =   2176
         MultiLine       =   -1  'True
         ScrollBars      =   3  'Both
         TabIndex        =   21
         Text            =   "frmPerson.frx":0000
         Top             =   6631
         Width           =   4003
      End
      Begin MSComctlLib.ListView lvwPhones 
         Height          =   1021
         Left            =   2176
         TabIndex        =   18
         Top             =   3789
         Width           =   2702
         _ExtentX        =   4766
         _ExtentY        =   1801
         View            =   3
         LabelEdit       =   1
         LabelWrap       =   -1  'True
         HideSelection   =   -1  'True
         FullRowSelect   =   -1  'True
         _Version        =   393217
         ForeColor       =   -2147483640
         BackColor       =   -2147483643
         BorderStyle     =   1
         Appearance      =   1
         NumItems        =   0
      End
      Begin VB.ListBox lstFavoriteColors 
         Height          =   1021
         Left            =   2176
         TabIndex        =   16
         Top             =   2723
         Width           =   2702
      End
      Begin VB.ComboBox cmbSpouseName 
         Height          =   315
         Left            =   2176
         Style           =   2  'Dropdown List
         TabIndex        =   14
         Top             =   2368
         Width           =   4003
      End
      Begin VB.TextBox txtHomeCity 
         Height          =   321
         Left            =   2176
         TabIndex        =   10
         Text            =   "txtHomeCity"
         Top             =   1658
         Width           =   4003
      End
      Begin VB.TextBox txtDOB 
         Height          =   321
         Left            =   2176
         TabIndex        =   6
         Text            =   "txtDOB"
         Top             =   947
         Width           =   811
      End
      Begin VB.TextBox txtName 
         Height          =   321
         Left            =   2176
         TabIndex        =   2
         Text            =   "txtName"
         Top             =   237
         Width           =   4003
      End
      Begin VB.Label lblNotes 
         Alignment       =   1  'Right Justify
         Caption         =   "Notes"
         Height          =   321
         Left            =   120
         TabIndex        =   20
         Top             =   6631
         Width           =   1936
      End
      Begin VB.Image imgPhoto 
         BorderStyle     =   1  'Fixed Single
         Height          =   1732
         Left            =   2176
         Top             =   4855
         Width           =   811
      End
      Begin VB.Label lblPhoto 
         Alignment       =   1  'Right Justify
         Caption         =   "Photo"
         Height          =   321
         Left            =   120
         TabIndex        =   19
         Top             =   4855
         Width           =   1936
      End
      Begin VB.Label lblPhones 
         Alignment       =   1  'Right Justify
         Caption         =   "Phones"
         Height          =   321
         Left            =   120
         TabIndex        =   17
         Top             =   3789
         Width           =   1936
      End
      Begin VB.Label lblFavoriteColors 
         Alignment       =   1  'Right Justify
         Caption         =   "Favorite Colors"
         Height          =   321
         Left            =   120
         TabIndex        =   15
         Top             =   2723
         Width           =   1936
      End
      Begin VB.Label lblSpouseName 
         Alignment       =   1  'Right Justify
         Caption         =   "Spouse Name"
         Height          =   321
         Left            =   120
         TabIndex        =   13
         Top             =   2368
         Width           =   1936
      End
      Begin VB.Label refSpouseSSN 
         BorderStyle     =   1  'Fixed Single
         Caption         =   "refSpouseSSN"
         Height          =   321
         Left            =   2176
         TabIndex        =   12
         Top             =   2013
         Width           =   1486
      End
      Begin VB.Label lblSpouseSSN 
         Alignment       =   1  'Right Justify
         Caption         =   "Spouse Social Security No."
         Height          =   321
         Left            =   120
         TabIndex        =   11
         Top             =   2013
         Width           =   1936
      End
      Begin VB.Label lblHomeCity 
         Alignment       =   1  'Right Justify
         Caption         =   "Home City"
         Height          =   321
         Left            =   120
         TabIndex        =   9
         Top             =   1658
         Width           =   1936
      End
      Begin VB.Label conAge 
         BorderStyle     =   1  'Fixed Single
         Caption         =   "conAge"
         Height          =   321
         Left            =   2176
         TabIndex        =   8
         Top             =   1302
         Width           =   811
      End
      Begin VB.Label lblAge 
         Alignment       =   1  'Right Justify
         Caption         =   "Age"
         Height          =   321
         Left            =   120
         TabIndex        =   7
         Top             =   1302
         Width           =   1936
      End
      Begin VB.Label lblDOB 
         Alignment       =   1  'Right Justify
         Caption         =   "Date of Birth"
         Height          =   321
         Left            =   120
         TabIndex        =   5
         Top             =   947
         Width           =   1936
      End
      Begin VB.Label conSSN 
         BorderStyle     =   1  'Fixed Single
         Caption         =   "conSSN"
         Height          =   321
         Left            =   2176
         TabIndex        =   4
         Top             =   592
         Width           =   1486
      End
      Begin VB.Label lblSSN 
         Alignment       =   1  'Right Justify
         Caption         =   "Social Security No."
         Height          =   321
         Left            =   120
         TabIndex        =   3
         Top             =   592
         Width           =   1936
      End
      Begin VB.Label lblName 
         Alignment       =   1  'Right Justify
         Caption         =   "Name"
         Height          =   321
         Left            =   120
         TabIndex        =   1
         Top             =   237
         Width           =   1936
      End
   End
   Begin VB.PictureBox picPatch 
      BorderStyle     =   0  'None
      Height          =   252
      Left            =   0
      ScaleHeight     =   252
      ScaleWidth      =   255
      TabIndex        =   31
      Top             =   0
      Visible         =   0   'False
      Width           =   255
   End
   Begin VB.VScrollBar VSCroll 
      Height          =   1184
      LargeChange     =   24
      Left            =   7635
      TabIndex        =   30
      Top             =   0
      Visible         =   0   'False
      Width           =   255
   End
   Begin VB.HScrollBar HSCroll 
      Height          =   252
      LargeChange     =   24
      Left            =   0
      TabIndex        =   29
      Top             =   7815
      Visible         =   0   'False
      Width           =   1201
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
   Begin VB.Menu mnuSpouse 
      Caption         =   "mnuSpouse"
      Visible         =   0   'False
      Begin VB.Menu mnuSpouseChange 
         Caption         =   "&Change "
      End
      Begin VB.Menu mnuSpouseRemove 
         Caption         =   "&Remove "
      End
   End
   Begin VB.Menu mnuFavoriteColors 
      Caption         =   "mnuFavoriteColors"
      Visible         =   0   'False
      Begin VB.Menu mnuFavoriteColorsAddToEnd 
         Caption         =   "&Add to End"
      End
      Begin VB.Menu mnuFavoriteColorsInsert 
         Caption         =   "&Insert"
      End
      Begin VB.Menu mnuFavoriteColorsRemove 
         Caption         =   "&Remove"
      End
   End
   Begin VB.Menu mnuPhones 
      Caption         =   "mnuPhones"
      Visible         =   0   'False
      Begin VB.Menu mnuPhonesInsert 
         Caption         =   "&Insert"
      End
      Begin VB.Menu mnuPhonesRemove 
         Caption         =   "&Remove"
      End
   End
   Begin VB.Menu mnuPhoto 
      Caption         =   "mnuPhoto"
      Visible         =   0   'False
      Begin VB.Menu mnuPhotoChange 
         Caption         =   "&Change"
      End
      Begin VB.Menu mnuPhotoRemove 
         Caption         =   "&Remove"
      End
   End
End
Attribute VB_Name = "frmPerson"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Const m_classname = "Sample.Person"

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
    lblSSN.Enabled = Enabled
    conSSN.Enabled = Enabled
    lblDOB.Enabled = Enabled
    txtDOB.Enabled = Enabled
    lblAge.Enabled = Enabled
    conAge.Enabled = Enabled
    lblHomeCity.Enabled = Enabled
    txtHomeCity.Enabled = Enabled
    lblSpouseSSN.Enabled = Enabled
    refSpouseSSN.Enabled = Enabled
    lblSpouseName.Enabled = Enabled
    cmbSpouseName.Enabled = Enabled
    lblFavoriteColors.Enabled = Enabled
    lstFavoriteColors.Enabled = Enabled
    lblPhones.Enabled = Enabled
    lvwPhones.Enabled = Enabled
    lblPhoto.Enabled = Enabled
    imgPhoto.Enabled = Enabled
    lblNotes.Enabled = Enabled
    txtNotes.Enabled = Enabled
    mnu__Save.Enabled = Enabled
    mnu__Close.Enabled = Enabled
    mnu__Delete.Enabled = Enabled
    cmd__Save.Enabled = Enabled
    cmd__Close.Enabled = Enabled
    cmd__Delete.Enabled = Enabled
End Sub

Private Sub EraseScreen()
    txtName.Text = ""
    conSSN.Caption = ""
    txtDOB.Text = ""
    conAge.Caption = ""
    txtHomeCity.Text = ""
    refSpouseSSN.Caption = ""
    cmbSpouseName.Clear
    lstFavoriteColors.Clear
    lvwPhones.ListItems.Clear
    set imgPhoto = Nothing
    txtNotes.Text = ""
End Sub

Private Sub SyncObjectToScreen()
    Dim obj As Object
    Dim i As Integer
    Dim item As String
    Dim cnt As String
    Dim itemX As ListItem
    txtName.Text = m_object.Name
    conSSN.Caption = m_object.SSN
    If m_object.DOB <> 0 Then 
       txtDOB.Text = m_object.DOB
    Else
       txtDOB.Text = ""
    EndIf
    conAge.Caption = m_object.Age
    txtHomeCity.Text = m_object.Home.City
    Set obj = m_object.Spouse
    If Not obj Is Nothing Then refSpouseSSN.Caption = obj.SSN Else refSpouseSSN.Caption = ""
    Set obj = m_object.Spouse
    cmbSpouseName.Clear
    If Not obj Is Nothing Then
        cmbSpouseName.AddItem obj.Name
        disableclick = True
        cmbSpouseName.ListIndex = 0
        disableclick = False
    End If
    Set obj = m_object.FavoriteColors
    lstFavoriteColors.Clear
    Do
        item = obj.GetNext(cnt)
        If cnt = "" Then Exit Do
        lstFavoriteColors.AddItem item
    Loop
    Set obj = m_object.Phones
    lvwPhones.ColumnHeaders.Clear
    lvwPhones.ColumnHeaders.Add , , "Index"
    lvwPhones.ColumnHeaders.Add , , "Value"
    lvwPhones.ListItems.Clear
    Do
        item = obj.GetNext(cnt)
        If cnt = "" Then Exit Do
        Set itemX = lvwPhones.ListItems.Add(, , cnt)
        itemX.SubItems(1) = item
    Loop
    imgPhoto.Picture = m_object.Photo.GetPicture
    For i = 1 to 100
      item = m_object.Notes.Read(10000)
      If Item = "" Then Exit For
      txtNotes.Text = txtNotes.Text & item
    Next i
End Sub

Private Sub SyncScreenToObject()
    m_object.Name = txtName.Text
    m_object.DOB = txtDOB.Text
    m_object.Home.City = txtHomeCity.Text
    m_object.Photo.SetPicture imgPhoto.Picture
    m_object.Notes.Write(txtNotes.Text)
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

Private Sub txtDOB_Change()
    m_modified = True

End Sub

Private Sub txtDOB_LostFocus()
    SyncScreenToObject
    conAge.Caption = m_object.Age

End Sub

Private Sub txtHomeCity_Change()
    m_modified = True

End Sub

Private Sub refSpouseSSN_Change()
    m_modified = True

End Sub

Private Sub refSpouseSSN_MouseUp(Button As Integer, Shift As Integer, X As Single, Y As Single)
    If Button = 2 then PopupMenu mnuSpouse

End Sub

Private Sub cmbSpouseName_DropDown()
    Dim rs As Object
    Dim text As String
    Dim i As Integer
    
    Set rs = m_factory.ResultSet("Sample.Person", "ByName")
    rs.Execute ""
    text = cmbSpouseName.text
    cmbSpouseName.Clear
    lst__Hidden.Clear
    cmbSpouseName.AddItem ""
    lst__Hidden.AddItem ""
    While rs.Next
        cmbSpouseName.AddItem rs.GetDataByName("Name")
        lst__Hidden.AddItem rs.GetData(1)
    Wend
    rs.Close
    For i = 0 To cmbSpouseName.ListCount - 1
        If cmbSpouseName.List(i) = text Then
            disableclick = True
            cmbSpouseName.ListIndex = i
            disableclick = False
            Exit For
        End If
    Next

End Sub

Private Sub cmbSpouseName_Click()
    If disableclick Then Exit Sub
    Dim index As Integer
    Dim obj As Object
    index = cmbSpouseName.ListIndex
    m_object.SpouseSetObjectId lst__Hidden.List(index)
    m_modified = True
    Set obj = m_object.Spouse
    cmbSpouseName.Clear
    If Not obj Is Nothing Then
        cmbSpouseName.AddItem obj.Name
        disableclick = True
        cmbSpouseName.ListIndex = 0
        disableclick = False
    End If

End Sub

Private Sub lstFavoriteColors_MouseUp(Button As Integer, Shift As Integer, X As Single, Y As Single)
    If Button = 2 then PopupMenu mnuFavoriteColors

End Sub

Private Sub lvwPhones_MouseUp(Button As Integer, Shift As Integer, x As Single, y As Single)
    If Button = 2 then PopupMenu mnuPhones

End Sub

Private Sub imgPhoto_MouseUp(Button As Integer, Shift As Integer, X As Single, Y As Single)
    If Button = 2 then PopupMenu mnuPhoto

End Sub

Private Sub txtNotes_Change()
    m_modified = True

End Sub

Private Sub mnuSpouseChange_Click()
    Dim obj As Object
    Set OstrelQuery1.Factory = m_factory
    OstrelQuery1.ClassName = "Sample.Person"
    id = OstrelQuery1.FindId
    If id = "" Then Exit Sub
    Set obj = m_factory.OpenId("Sample.Person", id)
    Set m_object.Spouse = obj
    refSpouseSSN.Caption = obj.SSN
    cmbSpouseName.Caption = obj.Name
    obj.sys_Close

End Sub

Private Sub mnuSpouseRemove_Click()
    Set m_object.Spouse = Nothing
    refSpouseSSN.Caption = ""
    cmbSpouseName.Caption = ""

End Sub

Private Sub lstFavoriteColors_Click()
    Dim Enabled As Boolean
    Enabled = lstFavoriteColors.ListIndex <> -1
    mnuFavoriteColorsInsert.Enabled = Enabled
    mnuFavoriteColorsRemove.Enabled = Enabled

End Sub

Private Sub mnuFavoriteColorsAddToEnd_Click()
    Dim newvalue As String
    newvalue = InputBox("Please type new element.", "Insert into Favorite Colors")
    If newvalue = "" Then Exit Sub
    m_object.FavoriteColors.Insert newvalue
    lstFavoriteColors.AddItem newvalue
    m_modified = True

End Sub

Private Sub mnuFavoriteColorsInsert_Click()
    Dim newvalue As String
    newvalue = InputBox("Please type new element.", "Insert into Favorite Colors")
    If newvalue = "" Then Exit Sub
    m_object.FavoriteColors.InsertAt newvalue, lstFavoriteColors.ListIndex + 1
    lstFavoriteColors.AddItem newvalue, lstFavoriteColors.ListIndex
    m_modified = True

End Sub

Private Sub mnuFavoriteColorsRemove_Click()
    m_object.FavoriteColors.RemoveAt lstFavoriteColors.ListIndex + 1
    lstFavoriteColors.RemoveItem lstFavoriteColors.ListIndex
    m_modified = True

End Sub

Private Sub mnuPhonesInsert_Click()
    Dim newindex As String, newvalue As String, itemX As ListItem
    newindex = InputBox("Please enter new index.", "Insert into Phones")
    If newindex = "" Then Exit Sub
    newvalue = InputBox("Please enter new value.", "Insert into Phones")
    If newvalue = "" Then Exit Sub
    m_object.Phones.SetAt newvalue, newindex
    Set itemX = lvwPhones.ListItems.Add(, , newindex)
    itemX.SubItems(1) = newvalue
    m_modified = True

End Sub

Private Sub mnuPhonesRemove_Click()
    If lvwPhones.ListItems.Count < 1 Then Exit Sub
    m_object.Phones.RemoveAt lvwPhones.SeletedItem.Text
    lvwPhones.Remove lvwPhones.SeletecItem.Index
    m_modified = True

End Sub

Private Sub lvwPhones_ColumnClick(ByVal ColumnHeader As MSComctlLib.ColumnHeader)
    Call ListView_ColumnClick(lvwPhones, ColumnHeader)

End Sub

Private Sub mnuPhotoChange_Click()
    dlgCommon.Filter = "All Picture Files|*.bmp;*.dib;*.gif;*.jpg;*.wmf;*.emf;*.ico;*.cur|Bitmaps (*.bmp;*.dib)|*.bmp;*.dib|GIF Images (*.gif)|*.gif|JPEG Images (*.jpg)|*.jpg|Metafiles (*.wmf;*.emf)|*.wmf;*.emf|Icons (*.ico;*.cur)|*.ico;*.cur|All Files (*.*)|*.*"
    dlgCommon.Flags = cdlOFNHideReadOnly
    dlgCommon.ShowOpen
    If dlgCommon.CancelError Then Exit Sub
    If dlgCommon.FileName = "" Then Exit Sub
    Set imgPhoto.Picture = LoadPicture(dlgCommon.FileName)
    m_modified = True

End Sub

Private Sub mnuPhotoRemove_Click()
    Set imgPhoto.Picture = Nothing
    m_modified = True

End Sub
