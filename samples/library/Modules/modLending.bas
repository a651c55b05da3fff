Attribute VB_Name = "modLending"
Option Explicit

Private m_loans As New Collection
Private m_books As New Collection
Private m_readers As New Collection

Public Sub LendBook(ByVal bookId As Long, ByVal readerId As Long, ByVal days As Long)
    Dim item As New Loan
    item.BookId = bookId
    item.ReaderId = readerId
    item.DueOn = DateAdd("d", days, Date)
    m_loans.Add item, CStr(bookId)
End Sub

Public Sub ReturnBook(ByVal bookId As Long)
    m_loans.Remove CStr(bookId)
End Sub

Public Sub RenewLoan(ByVal bookId As Long)
    m_loans(CStr(bookId)).Renew
End Sub

Public Sub SavePerson(ByVal personName As String, ByVal street As String, ByVal kind As Long, ByVal notes As String)
    m_readers.Add Array(personName, street, kind, notes)
End Sub

Public Sub FillLoans(ByVal list As MSComctlLib.ListView)
    Dim item As Loan
    Dim line As MSComctlLib.ListItem
    list.ListItems.Clear
    For Each item In m_loans
        Set line = list.ListItems.Add(, , m_books(CStr(item.BookId)).Title)
        line.SubItems(1) = m_readers(item.ReaderId)(0)
        line.SubItems(2) = FormatDay(item.LentOn)
        line.SubItems(3) = FormatDay(item.DueOn)
        line.Tag = CStr(item.BookId)
    Next
End Sub

Public Sub FillReaders(ByVal list As ComboBox)
    Dim i As Long
    For i = 1 To m_readers.Count
        list.AddItem m_readers(i)(0)
        list.ItemData(list.NewIndex) = i
    Next
End Sub

Public Sub FillBooks(ByVal list As ListBox)
    Dim item As Book
    For Each item In m_books
        list.AddItem item.Title
        list.ItemData(list.NewIndex) = item.Id
    Next
End Sub

Public Function FindBooks(ByVal text As String) As Collection
    Dim item As Book
    Set FindBooks = New Collection
    For Each item In m_books
        If InStr(1, item.Title & " " & item.Author, text, vbTextCompare) > 0 Then FindBooks.Add item
    Next
End Function

Public Sub ExportLoans(ByVal fileName As String)
    Dim item As Loan
    Dim file As Integer
    file = FreeFile
    Open fileName For Output As #file
    For Each item In m_loans
        Print #file, item.BookId & ";" & item.ReaderId & ";" & FormatDay(item.DueOn)
    Next
    Close #file
End Sub
