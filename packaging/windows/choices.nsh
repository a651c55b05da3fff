; What is wanted: by switches, by what was chosen the last time, by mode.

!macro SetSelected section selected
  ${If} ${selected} = 1
    !insertmacro SelectSection ${section}
  ${Else}
    !insertmacro UnselectSection ${section}
  ${EndIf}
!macroend

; `withAddIn`: 1 where it is installed unless something else is said.
!macro UseMode mode context folder hive withAddIn
  StrCpy $Mode ${mode}
  SetShellVarContext ${context}
  ReadRegStr $INSTDIR ${hive} "${KEY}" InstallLocation
  ${If} $GivenFolder != ""
    StrCpy $INSTDIR $GivenFolder
  ${ElseIf} $INSTDIR == ""
    StrCpy $INSTDIR "${folder}\${TITLE}"
  ${EndIf}
  !ifdef HAS_ADDIN
    ClearErrors
    ReadRegDWORD $0 ${hive} "${KEY}" AddIn
    ${If} ${Errors}
      StrCpy $0 ${withAddIn}
    ${EndIf}
    !insertmacro SetSelected ${AddIn} $0
  !endif
!macroend

Function UseMachine
  !insertmacro UseMode machine all "${PROGRAMS}" HKLM 1
FunctionEnd

Function UseUser
  !insertmacro UseMode user current "$LOCALAPPDATA\Programs" HKCU 0
FunctionEnd

; Languages that there are, are taken out of $Unknown.
!macro SelectLanguage code name
  ${WordReplace} $Unknown ",${code}," "," "+" $1
  StrCpy $2 1
  ${If} $1 == $Unknown
    StrCpy $2 $0
  ${EndIf}
  !insertmacro SetSelected ${${code}} $2
  StrCpy $Unknown $1
!macroend

; Takes codes with commas between, ALL or NONE from the stack.
Function SelectLanguages
  Pop $Unknown
  StrCpy $0 0
  ${If} $Unknown == ALL
    StrCpy $0 1
  ${EndIf}
  ${WordReplace} ",$Unknown," ",ALL," "," "+" $Unknown
  ${WordReplace} $Unknown ",NONE," "," "+" $Unknown
  !insertmacro EachLanguage SelectLanguage
FunctionEnd

!macro Remember hive
  ClearErrors
  ReadRegStr $0 ${hive} "${KEY}" Languages
  ${IfNot} ${Errors}
    Push $0
    Call SelectLanguages
    ReadRegDWORD $0 ${hive} "${KEY}" OnPath
    !insertmacro SetSelected ${OnPath} $0
    ReadRegDWORD $0 ${hive} "${KEY}" StartMenu
    !insertmacro SetSelected ${StartMenu} $0
  ${EndIf}
!macroend

; A section by a switch: /NAME or /NAME=YES, /NAME=NO.
!macro SectionSwitch name section
  ClearErrors
  ${GetOptions} $Parameters "/${name}" $0
  ${IfNot} ${Errors}
    ${If} $0 == ""
    ${OrIf} $0 == "=YES"
      !insertmacro SelectSection ${section}
    ${ElseIf} $0 == "=NO"
      !insertmacro UnselectSection ${section}
    ${Else}
      ${Fail} ${WRONG_USAGE} "/${name} stands alone or is followed by =YES or =NO."
    ${EndIf}
  ${EndIf}
!macroend

; The mode that is asked for; else the one of the last time; else all users', where that is allowed or nobody can be asked.
Function ChooseMode
  ReadRegStr $1 HKLM "${KEY}" InstallLocation
  ReadRegStr $2 HKCU "${KEY}" InstallLocation
  StrCpy $Mode machine
  ${If} $1 == ""
  ${AndIf} $2 != ""
    StrCpy $Mode user
  ${ElseIf} $Account != Admin
  ${AndIfNot} ${Silent}
    StrCpy $Mode user
  ${EndIf}
  ClearErrors
  ${GetOptions} $Parameters "/CURRENTUSER" $0
  ${IfNot} ${Errors}
    StrCpy $Mode user
  ${EndIf}
  ClearErrors
  ${GetOptions} $Parameters "/ALLUSERS" $0
  ${IfNot} ${Errors}
    StrCpy $Mode machine
  ${EndIf}
FunctionEnd

Function .onInit
  StrCpy $GivenFolder $INSTDIR
  ${GetParameters} $Parameters
  UserInfo::GetAccountType
  Pop $Account
  Call ChooseMode
  ${If} $Mode == user
    Call UseUser
  ${ElseIf} $Account == Admin
    Call UseMachine
  ${Else}
    ${Fail} ${RIGHTS_MISSING} "Only an administrator installs for all users; /CURRENTUSER installs for you only."
  ${EndIf}
  !insertmacro Remember HKCU
  !insertmacro Remember HKLM
  !insertmacro SectionSwitch PATH ${OnPath}
  !insertmacro SectionSwitch STARTMENU ${StartMenu}
  !ifdef HAS_ADDIN
    !insertmacro SectionSwitch ADDIN ${AddIn}
  !endif
  ClearErrors
  ${GetOptions} $Parameters "/LANGUAGES=" $0
  ${IfNot} ${Errors}
    Push $0
    Call SelectLanguages
    ${If} $Unknown != ","
      ${Fail} ${WRONG_USAGE} "There are no languages $Unknown."
    ${EndIf}
  ${EndIf}
FunctionEnd

Function .onInstFailed
  GetErrorLevel $0
  ${If} $0 = -1
    SetErrorLevel ${INCOMPLETE}
  ${EndIf}
FunctionEnd

; The page that asks for whom

Function ShowModes
  !insertmacro MUI_HEADER_TEXT "For whom?" "All users of this computer, or only you."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 34u "Visual Basic 6 commonly runs as an administrator, and then sees only add-ins that are \
    installed for all users. Installing for all users needs an administrator."
  Pop $0
  ${NSD_CreateRadioButton} 0 40u 100% 12u "&All users: the add-in and the command line"
  Pop $ForAll
  ${NSD_CreateRadioButton} 0 56u 100% 12u "Only &me: the command line"
  Pop $1
  ${If} $Account != Admin
    EnableWindow $ForAll 0
  ${EndIf}
  ${If} $Mode == machine
    ${NSD_Check} $ForAll
  ${Else}
    ${NSD_Check} $1
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function LeaveModes
  ${NSD_GetState} $ForAll $1
  ${If} $1 = ${BST_CHECKED}
  ${AndIf} $Mode == user
    Call UseMachine
  ${ElseIf} $1 <> ${BST_CHECKED}
  ${AndIf} $Mode == machine
    Call UseUser
  ${EndIf}
FunctionEnd

!ifdef HAS_ADDIN
  Function .onSelChange
    ${If} $Mode == user
    ${AndIf} ${SectionIsSelected} ${AddIn}
    ${AndIf} $Warned == ""
      StrCpy $Warned yes
      MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "When Visual Basic runs as an administrator, as it commonly does, it does not \
        see an add-in that is installed for you only. Install it for all users if you can.$\n$\n\
        Install the add-in for you only nevertheless?" IDYES done
      !insertmacro UnselectSection ${AddIn}
      StrCpy $Warned ""
      done:
    ${EndIf}
  FunctionEnd
!endif
