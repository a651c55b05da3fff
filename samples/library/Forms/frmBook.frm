VERSION 5.00
Begin VB.Form frmBook 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Buch"
   ClientHeight    =   3615
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   6255
   LinkTopic       =   "Form3"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   3615
   ScaleWidth      =   6255
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdZurück 
      Cancel          =   -1  'True
      Caption         =   "&Zurück"
      Height          =   375
      Left            =   4920
      TabIndex        =   10
      Top             =   3120
      Width           =   1215
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Left            =   3480
      TabIndex        =   9
      Top             =   3120
      Width           =   1215
   End
   Begin VB.Frame fraBook 
      Caption         =   "Angaben"
      Height          =   2775
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   6015
      Begin VB.TextBox txtPrice 
         Alignment       =   1  'Right Justify
         Height          =   315
         Left            =   1440
         TabIndex        =   8
         Top             =   1620
         Width           =   1215
      End
      Begin VB.TextBox txtIsbn 
         Height          =   315
         Left            =   1440
         TabIndex        =   6
         ToolTipText     =   $"frmBook.frx":0000
         Top             =   1200
         Width           =   2175
      End
      Begin VB.TextBox txtAuthor 
         Height          =   315
         Left            =   1440
         TabIndex        =   4
         Top             =   780
         Width           =   4335
      End
      Begin VB.TextBox txtTitle 
         Height          =   315
         Left            =   1440
         TabIndex        =   2
         Top             =   360
         Width           =   4335
      End
      Begin VB.Label lblPrice 
         Caption         =   "&Preis"
         Height          =   255
         Left            =   180
         TabIndex        =   7
         Top             =   1680
         Width           =   1215
      End
      Begin VB.Image imgCover 
         BorderStyle     =   1  'Fixed Single
         Height          =   1335
         Left            =   4560
         Picture         =   "frmBook.frx":0096
         Stretch         =   -1  'True
         Top             =   1200
         Width           =   1215
      End
      Begin VB.Label lblIsbn 
         Caption         =   "&ISBN"
         Height          =   255
         Left            =   180
         TabIndex        =   5
         Top             =   1260
         Width           =   1215
      End
      Begin VB.Label lblAuthor 
         Caption         =   "&Verfasser"
         Height          =   255
         Left            =   180
         TabIndex        =   3
         Top             =   840
         Width           =   1215
      End
      Begin VB.Label lblTitle 
         Caption         =   "&Titel"
         Height          =   255
         Left            =   180
         TabIndex        =   1
         Top             =   420
         Width           =   1215
      End
   End
End
Attribute VB_Name = "frmBook"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private m_book As Book

Public Sub Edit(ByVal bookToEdit As Book)
    Set m_book = bookToEdit
    txtTitle.Text = m_book.Title
    txtAuthor.Text = m_book.Author
    txtIsbn.Text = m_book.Isbn
    txtPrice.Text = FormatMoney(m_book.Price)
    Show vbModal
End Sub

Private Sub cmdOK_Click()
    m_book.Title = txtTitle.Text
    m_book.Author = txtAuthor.Text
    m_book.Isbn = txtIsbn.Text
    If IsNumeric(txtPrice.Text) Then m_book.Price = CCur(txtPrice.Text)
    Unload Me
End Sub

Private Sub cmdZurück_Click()
    Unload Me
End Sub
