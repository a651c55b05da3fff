VERSION 5.00
Begin VB.Form frmPerson 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Leser"
   ClientHeight    =   4095
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   6015
   LinkTopic       =   "Form2"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   4095
   ScaleWidth      =   6015
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Abbrechen"
      Height          =   375
      Left            =   4680
      TabIndex        =   9
      Top             =   3600
      Width           =   1215
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   3360
      TabIndex        =   8
      Top             =   3600
      Width           =   1215
   End
   Begin VB.TextBox txtNotes 
      Height          =   1935
      Left            =   1440
      MultiLine       =   -1  'True
      ScrollBars      =   2  'Vertical
      TabIndex        =   7
      Text            =   "frmPerson.frx":0000
      Top             =   1380
      Width           =   4455
   End
   Begin VB.ComboBox cboKind 
      Height          =   315
      ItemData        =   "frmPerson.frx":0027
      Left            =   1440
      List            =   "frmPerson.frx":0034
      Style           =   2  'Dropdown List
      TabIndex        =   5
      Top             =   960
      Width           =   2415
   End
   Begin VB.TextBox txtStraﬂe 
      Height          =   315
      Left            =   1440
      TabIndex        =   3
      Top             =   540
      Width           =   4455
   End
   Begin VB.TextBox txtName 
      Height          =   315
      Left            =   1440
      TabIndex        =   1
      Top             =   120
      Width           =   4455
   End
   Begin VB.Label lblNotes 
      Caption         =   "&Bemerkung"
      Height          =   255
      Left            =   120
      TabIndex        =   6
      Top             =   1440
      Width           =   1215
   End
   Begin VB.Label lblKind 
      Caption         =   "&Gruppe"
      Height          =   255
      Left            =   120
      TabIndex        =   4
      Top             =   1020
      Width           =   1215
   End
   Begin VB.Label lblStraﬂe 
      Caption         =   "&Straﬂe"
      Height          =   255
      Left            =   120
      TabIndex        =   2
      Top             =   600
      Width           =   1215
   End
   Begin VB.Label lblName 
      Caption         =   "&Name"
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   1215
   End
End
Attribute VB_Name = "frmPerson"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdCancel_Click()
    Unload Me
End Sub

Private Sub cmdOK_Click()
    If Trim$(txtName.Text) = "" Then
        MsgBox "Der Name fehlt.", vbExclamation
        txtName.SetFocus
        Exit Sub
    End If
    SavePerson txtName.Text, txtStraﬂe.Text, cboKind.ItemData(cboKind.ListIndex), txtNotes.Text
    Unload Me
End Sub

Private Sub Form_Load()
    cboKind.ListIndex = 0
End Sub
