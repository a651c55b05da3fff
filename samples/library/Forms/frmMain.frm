VERSION 5.00
Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "COMDLG32.OCX"
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmMain 
   Caption         =   "Stadtbücherei – Ausleihe"
   ClientHeight    =   5415
   ClientLeft      =   60
   ClientTop       =   630
   ClientWidth     =   9390
   Icon            =   "frmMain.frx":0000
   LinkTopic       =   "Form1"
   ScaleHeight     =   5415
   ScaleWidth      =   9390
   StartUpPosition =   2  'CenterScreen
   Begin MSComDlg.CommonDialog dlgExport 
      Left            =   8760
      Top             =   0
      _ExtentX        =   847
      _ExtentY        =   847
      _Version        =   393216
   End
   Begin MSComctlLib.ListView lvwLoans 
      Height          =   4335
      Left            =   120
      TabIndex        =   0
      Top             =   600
      Width           =   9135
      _ExtentX        =   16113
      _ExtentY        =   7646
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
      NumItems        =   4
      BeginProperty ColumnHeader(1) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Text            =   "Titel"
         Object.Width           =   5080
      EndProperty
      BeginProperty ColumnHeader(2) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   1
         Text            =   "Leser"
         Object.Width           =   4233
      EndProperty
      BeginProperty ColumnHeader(3) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   2
         Text            =   "Ausgeliehen"
         Object.Width           =   2540
      EndProperty
      BeginProperty ColumnHeader(4) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   3
         Text            =   "Fällig"
         Object.Width           =   2540
      EndProperty
   End
   Begin VB.Label lblStatus 
      Caption         =   "Bereit"
      Height          =   255
      Left            =   120
      TabIndex        =   2
      Top             =   5040
      Width           =   9135
   End
   Begin VB.Label lblHeading 
      Caption         =   "Offene Ausleihen"
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   9.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   300
      Left            =   480
      TabIndex        =   1
      Top             =   180
      Width           =   6015
   End
   Begin VB.Image imgLogo 
      Height          =   240
      Left            =   120
      Picture         =   "frmMain.frx":014A
      Top             =   180
      Width           =   240
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&Datei"
      Begin VB.Menu mnuFileExport 
         Caption         =   "&Exportieren..."
         Shortcut        =   ^E
      End
      Begin VB.Menu mnuFileBar 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "&Beenden"
      End
   End
   Begin VB.Menu mnuDesk 
      Caption         =   "&Ausleihe"
      Begin VB.Menu mnuDeskNew 
         Caption         =   "&Neue Ausleihe..."
         Shortcut        =   {F2}
      End
      Begin VB.Menu mnuDeskReturn 
         Caption         =   "&Rückgabe"
      End
      Begin VB.Menu mnuDeskSearch 
         Caption         =   "&Suchen..."
         Shortcut        =   ^F
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Hilfe"
      Begin VB.Menu mnuHelpAbout 
         Caption         =   "&Über..."
      End
   End
   Begin VB.Menu mnuPopup 
      Caption         =   "Kontext"
      Visible         =   0   'False
      Begin VB.Menu mnuPopupReturn 
         Caption         =   "&Rückgabe"
      End
      Begin VB.Menu mnuPopupRenew 
         Caption         =   "&Verlängern"
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
    FillLoans lvwLoans
    lblStatus.Caption = lvwLoans.ListItems.Count & " Bücher sind ausgeliehen"
End Sub

Private Sub Form_Resize()
    If WindowState = vbMinimized Then Exit Sub
    lvwLoans.Width = ScaleWidth - 2 * lvwLoans.Left
End Sub

Private Sub lvwLoans_MouseUp(Button As Integer, Shift As Integer, x As Single, y As Single)
    If Button = vbRightButton Then PopupMenu mnuPopup
End Sub

Private Sub mnuDeskNew_Click()
    frmLoan.Show vbModal, Me
    FillLoans lvwLoans
End Sub

Private Sub mnuDeskReturn_Click()
    If lvwLoans.SelectedItem Is Nothing Then Exit Sub
    ReturnBook Val(lvwLoans.SelectedItem.Tag)
    FillLoans lvwLoans
End Sub

Private Sub mnuDeskSearch_Click()
    frmSearch.Show vbModeless, Me
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

Private Sub mnuFileExport_Click()
    dlgExport.Filter = "Text (*.txt)|*.txt"
    dlgExport.ShowSave
    If dlgExport.FileName <> "" Then ExportLoans dlgExport.FileName
End Sub

Private Sub mnuHelpAbout_Click()
    frmAbout.Show vbModal, Me
End Sub

Private Sub mnuPopupRenew_Click()
    If lvwLoans.SelectedItem Is Nothing Then Exit Sub
    RenewLoan Val(lvwLoans.SelectedItem.Tag)
End Sub

Private Sub mnuPopupReturn_Click()
    mnuDeskReturn_Click
End Sub
