; The uninstaller: everything goes that the installer brings, and a folder that is empty then.

Function un.onInit
  ReadRegStr $0 HKCU "${KEY}" InstallLocation
  ${If} $0 == $INSTDIR
    StrCpy $Mode user
    SetShellVarContext current
  ${Else}
    StrCpy $Mode machine
    SetShellVarContext all
    UserInfo::GetAccountType
    Pop $Account
    ${If} $Account != Admin
      ${Fail} ${RIGHTS_MISSING} "It is installed for all users, which only an administrator takes back."
    ${EndIf}
  ${EndIf}
FunctionEnd

!macro DeleteLibrary name
  Delete "$INSTDIR\${name}"
!macroend
!macro DeleteLanguage code name
  !insertmacro EachLibraryOf${code} DeleteLibrary
!macroend

Section "Uninstall"
  Push $INSTDIR
  Call un.RequireFree
  !ifdef HAS_ADDIN
    ReadRegDWORD $0 SHCTX "${KEY}" AddIn
    ${If} $0 = 1
    ${AndIf} ${FileExists} "$INSTDIR\${LIBRARY}"
      !insertmacro Register "/u ${SCOPE}"
      ${If} $0 <> 0
        ${Fail} ${INCOMPLETE} "The add-in cannot be taken out of the registry (regsvr32: status $0)."
      ${EndIf}
    ${EndIf}
  !endif
  ReadRegDWORD $0 SHCTX "${KEY}" OnPath
  ${If} $0 = 1
    Call un.RemoveFromSearchPath
  ${EndIf}
  ClearErrors
  !ifdef HAS_ADDIN
    Delete "$INSTDIR\${LIBRARY}"
  !endif
  !insertmacro EachLanguage DeleteLanguage
  Delete "$INSTDIR\${PROGRAM}"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\INSTALL.txt"
  Delete "$INSTDIR\WINDOWS.txt"
  Delete "$INSTDIR\GENERATED-FORMS.txt"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\NOTICES.txt"
  Delete "$INSTDIR\docs\dictionary.schema.json"
  Delete "$INSTDIR\docs\form-description.schema.json"
  Delete "$INSTDIR\samples\dictionary.json"
  Delete "$INSTDIR\samples\toolbox.ini"
  Delete "$SMPROGRAMS\${TITLE}\*.lnk"
  ${If} ${Errors}
    ${Fail} ${INCOMPLETE} "Not every file in $INSTDIR can be deleted."
  ${EndIf}
  RMDir "$SMPROGRAMS\${TITLE}"
  RMDir "$INSTDIR\docs"
  RMDir "$INSTDIR\samples"
  DeleteRegKey SHCTX "${KEY}"
  ${If} $EXEDIR != $INSTDIR  ; else an installer waits for it and removes it
    ${For} $0 1 100  ; until what was started there, which started this copy, has ended
      Delete "$INSTDIR\${UNINSTALLER}"
      ${IfNot} ${FileExists} "$INSTDIR\${UNINSTALLER}"
        ${Break}
      ${EndIf}
      Sleep 100
    ${Next}
  ${EndIf}
  RMDir "$INSTDIR"
  ${If} $Mode == user  ; who may have had no other program
    RMDir "$LOCALAPPDATA\Programs"
    DeleteRegKey /ifempty HKCU "${PARENT_KEY}"
  ${EndIf}
SectionEnd
