; What stands in the way of an installation: files in use, and what other runs of installers have left.

; RequireFree, with a folder on the stack: fails as long as one of our files there is in use.
!macro DefineRequireFree un
  Function ${un}RequireFree
    Pop $0
    again:
    StrCpy $1 ""
    FindFirst $2 $3 "$0\Ostrel*"
    ${DoUntil} $3 == ""
      ClearErrors
      FileOpen $4 "$0\$3" a
      ${If} ${Errors}
        StrCpy $1 "$0\$3"
      ${Else}
        FileClose $4
      ${EndIf}
      FindNext $2 $3
    ${Loop}
    FindClose $2
    ${If} $1 != ""
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$1 is in use. Close Visual Basic and what else uses the wizard, \
        and try again." /SD IDCANCEL IDRETRY again
      SetErrorLevel ${IN_USE}
      Abort "$1 is in use; nothing was changed."
    ${EndIf}
  FunctionEnd
!macroend
!insertmacro DefineRequireFree ""
!insertmacro DefineRequireFree un.

; What other runs of installers have left, for all users or for this one, goes; first it is asked whether it can.

!macro CheckEarlier hive
  ReadRegStr $9 ${hive} "${KEY}" InstallLocation
  ${If} $9 != ""
    !if ${hive} == HKLM
      ${If} $Account != Admin
        ${Fail} ${RIGHTS_MISSING} "It is installed for all users; remove that as an administrator first."
      ${EndIf}
    !endif
    Push $9
    Call RequireFree
  ${EndIf}
!macroend

!macro RemoveEarlier hive
  ReadRegStr $9 ${hive} "${KEY}" InstallLocation
  ${If} ${FileExists} "$9\${UNINSTALLER}"
    ClearErrors
    ExecWait '"$9\${UNINSTALLER}" /S _?=$9' $1
    ${If} ${Errors}
    ${OrIf} $1 <> 0
      ${Fail} ${INCOMPLETE} "The version in $9 cannot be removed (status $1)."
    ${EndIf}
    Delete "$9\${UNINSTALLER}"
    ${If} $9 != $INSTDIR
      Rename "$9\${SETTINGS}" "$INSTDIR\${SETTINGS}"  ; not over settings that are there
      RMDir "$9"
      !if ${hive} == HKCU
        RMDir "$9\.."
      !endif
    ${EndIf}
  ${EndIf}
  DeleteRegKey ${hive} "${KEY}"
!macroend
