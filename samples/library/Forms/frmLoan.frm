VERSION 5.00
Begin VB.Form frmLoan 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Neue Ausleihe"
   ClientHeight    =   3735
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   5535
   LinkTopic       =   "Form4"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   3735
   ScaleWidth      =   5535
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Abbrechen"
      Height          =   375
      Left            =   4200
      TabIndex        =   9
      Top             =   3240
      Width           =   1215
   End
   Begin VB.CommandButton cmdLend 
      Caption         =   "&Ausleihen"
      Default         =   -1  'True
      Height          =   375
      Left            =   2880
      TabIndex        =   8
      Top             =   3240
      Width           =   1215
   End
   Begin VB.TextBox txtDays 
      Height          =   315
      Left            =   1440
      TabIndex        =   5
      Text            =   "28"
      Top             =   2340
      Width           =   735
   End
   Begin VB.ListBox lstBooks 
      Height          =   1620
      Left            =   1440
      TabIndex        =   3
      Top             =   540
      Width           =   3975
   End
   Begin VB.ComboBox cboReader 
      Height          =   315
      Left            =   1440
      Style           =   2  'Dropdown List
      TabIndex        =   1
      Top             =   120
      Width           =   3975
   End
   Begin VB.Label lblFee 
      BorderStyle     =   1  'Fixed Single
      Height          =   315
      Left            =   3600
      TabIndex        =   7
      Top             =   2340
      Width           =   1815
   End
   Begin VB.Label lblGebühr 
      Caption         =   "Gebühr"
      Height          =   255
      Left            =   2400
      TabIndex        =   6
      Top             =   2400
      Width           =   1095
   End
   Begin VB.Label lblDays 
      Caption         =   "&Frist (Tage)"
      Height          =   255
      Left            =   120
      TabIndex        =   4
      Top             =   2400
      Width           =   1215
   End
   Begin VB.Label lblBooks 
      Caption         =   "&Bücher"
      Height          =   255
      Left            =   120
      TabIndex        =   2
      Top             =   600
      Width           =   1215
   End
   Begin VB.Label lblReader 
      Caption         =   "&Leser"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   1215
   End
End
Attribute VB_Name = "frmLoan"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdCancel_Click()
    Unload Me
End Sub

Private Sub cmdLend_Click()
    If cboReader.ListIndex < 0 Or lstBooks.ListIndex < 0 Then Exit Sub
    LendBook lstBooks.ItemData(lstBooks.ListIndex), cboReader.ItemData(cboReader.ListIndex), Val(txtDays.Text)
    Unload Me
End Sub

Private Sub Form_Load()
    FillReaders cboReader
    FillBooks lstBooks
End Sub

Private Sub txtDays_Change()
    Dim fee As New Gebühr
    lblFee.Caption = FormatMoney(fee.ForDays(Val(txtDays.Text)))
End Sub
