Attribute VB_Name = "modFormat"
Option Explicit

Public Function FormatDay(ByVal day As Date) As String
    FormatDay = Format$(day, "dd.mm.yyyy")
End Function

Public Function FormatMoney(ByVal amount As Currency) As String
    FormatMoney = Format$(amount, "0.00") & " €"
End Function
