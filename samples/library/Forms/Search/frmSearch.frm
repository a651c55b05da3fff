VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmSearch 
   Caption         =   "Suchen"
   ClientHeight    =   4215
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7095
   LinkTopic       =   "Form5"
   ScaleHeight     =   4215
   ScaleWidth      =   7095
   StartUpPosition =   3  'Windows Default
   Begin MSComctlLib.ListView lvwFound 
      Height          =   3495
      Left            =   120
      TabIndex        =   3
      Top             =   600
      Width           =   6855
      _ExtentX        =   12091
      _ExtentY        =   6165
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
      NumItems        =   3
      BeginProperty ColumnHeader(1) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Text            =   "Titel"
         Object.Width           =   5080
      EndProperty
      BeginProperty ColumnHeader(2) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   1
         Text            =   "Verfasser"
         Object.Width           =   4233
      EndProperty
      BeginProperty ColumnHeader(3) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   2
         Text            =   "Regal"
         Object.Width           =   1693
      EndProperty
   End
   Begin VB.CommandButton cmdSearch 
      Caption         =   "&Suchen"
      Default         =   -1  'True
      Height          =   375
      Left            =   5760
      TabIndex        =   2
      Top             =   120
      Width           =   1215
   End
   Begin VB.TextBox txtSearch 
      Height          =   315
      Left            =   1440
      TabIndex        =   1
      Top             =   120
      Width           =   4095
   End
   Begin VB.Label lblText 
      Caption         =   "&Suchtext"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   1215
   End
End
Attribute VB_Name = "frmSearch"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdSearch_Click()
    Dim hit As Book
    Dim line As MSComctlLib.ListItem
    lvwFound.ListItems.Clear
    For Each hit In FindBooks(txtSearch.Text)
        Set line = lvwFound.ListItems.Add(, , hit.Title)
        line.SubItems(1) = hit.Author
        line.SubItems(2) = hit.Shelf
    Next
End Sub

Private Sub lvwFound_ColumnClick(ByVal ColumnHeader As MSComctlLib.ColumnHeader)
    lvwFound.SortKey = ColumnHeader.Index - 1
    lvwFound.Sorted = True
End Sub
