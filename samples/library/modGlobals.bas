Attribute VB_Name = "modGlobals"
Option Explicit

Public Const LOAN_DAYS As Long = 28

Public Function DueDate(ByVal lentOn As Date) As Date
    DueDate = DateAdd("d", LOAN_DAYS, lentOn)
End Function
