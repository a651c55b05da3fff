VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmMain 
   Caption         =   "Bibliothèque - prêts"
   ClientHeight    =   5205
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   7680
   Icon            =   "frmMain.frx":0000
   LinkTopic       =   "Form1"
   ScaleHeight     =   5205
   ScaleWidth      =   7680
   StartUpPosition =   3  'Windows Default
   Begin MSComctlLib.ListView lvwLoans 
      Height          =   4335
      Left            =   120
      TabIndex        =   0
      Top             =   480
      Width           =   7455
      _ExtentX        =   13150
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
      NumItems        =   0
   End
   Begin VB.Label lblPrêts 
      Caption         =   "Prêts en &cours:"
      Height          =   255
      Left            =   120
      TabIndex        =   1
      Top             =   120
      Width           =   2415
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
         Shortcut        =   ^Q
      End
   End
   Begin VB.Menu mnuReader 
      Caption         =   "&Reader"
      Begin VB.Menu mnuReaderNew 
         Caption         =   "&New..."
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private m_loans As Collection

Private Sub Form_Load()
    Set m_loans = New Collection
    ShowLoans
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

Private Sub mnuReaderNew_Click()
    frmReader.Show vbModal, Me
    ShowLoans
End Sub

' Une ligne par prêt, le plus ancien d'abord.
Private Sub ShowLoans()
    Dim loan As clsLoan
    lvwLoans.ListItems.Clear
    For Each loan In m_loans
        lvwLoans.ListItems.Add , , loan.Title
    Next loan
End Sub
