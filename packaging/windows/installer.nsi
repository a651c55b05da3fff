; The installer for Windows, as packaging/windows/make-packages has it made. Its switches and exit statuses stand in
; docs/windows.md. From outside come
;   VERSION    of three numbers
;   STAGE      the folder with the files to install
;   OUTPUT     the installer to make
;   CONTENTS   a file that CMake makes: TITLE, TARGET, PROGRAMS, HAS_ADDIN (where it is packed), the macros EachLanguage
;              and, of each language, EachLibraryOfXXX
;   SIGN       a command that signs the file behind it (where there is one)
Unicode true
!include "${CONTENTS}"
Target ${TARGET}
!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include nsDialogs.nsh
!include Sections.nsh
!include WordFunc.nsh

!define LIBRARY OstrelFormWizard.dll
!define PROGRAM ostrel-form-wizard.exe
!define SETTINGS outility.ini
!define UNINSTALLER uninstall.exe
!define PARENT_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define KEY "${PARENT_KEY}\${TITLE}"

; Exit statuses; 0 is done, 1 cancelled by the user.
!define WRONG_USAGE 2
!define RIGHTS_MISSING 3
!define IN_USE 4      ; and nothing was changed
!define INCOMPLETE 5

Name "${TITLE}"
OutFile "${OUTPUT}"
BrandingText "${TITLE} ${VERSION}"
RequestExecutionLevel highest
ManifestDPIAware true
SetCompressor /SOLID lzma
SetDateSave off  ; the same bytes whenever the files were made
AllowSkipFiles off
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${TITLE}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installer of ${TITLE}"
VIAddVersionKey LegalCopyright "MIT licence"
!ifdef SIGN
  !uninstfinalize '${SIGN} "%1"' = 0
  !finalize '${SIGN} "%1"' = 0
!endif

Var Mode         ; for whom: "machine" or "user"
Var Account      ; "Admin": the machine's part of the system may be written
Var GivenFolder  ; by /D=, which goes before the folder of a mode
Var Parameters
Var Unknown      ; languages asked for that there are not, between commas
Var ForAll       ; the radio button
!ifdef HAS_ADDIN
  Var Warned     ; of an add-in for one user
  !define SCOPE "/n /i:$Mode"
!endif

!define MUI_COMPONENTSPAGE_NODESC
!insertmacro MUI_PAGE_LICENSE "${STAGE}\LICENSE.txt"
Page custom ShowModes LeaveModes
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Ends with an exit status and, unless silent, with the reason.
!macro Fail status reason
  SetErrorLevel ${status}
  MessageBox MB_OK|MB_ICONSTOP `${reason}` /SD IDOK
  Abort `${reason}`
!macroend
!define Fail "!insertmacro Fail"

!include searchpath.nsh
!include earlier.nsh

Section "-Make room"
  Push $INSTDIR
  Call RequireFree
  !insertmacro CheckEarlier HKLM
  !insertmacro CheckEarlier HKCU
  SetOutPath $INSTDIR
  !insertmacro RemoveEarlier HKLM
  !insertmacro RemoveEarlier HKCU
SectionEnd

; First, so that what is broken off can be uninstalled.
Section "-Uninstaller"
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"
  WriteRegStr SHCTX "${KEY}" DisplayName "${TITLE}"
  WriteRegStr SHCTX "${KEY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${KEY}" DisplayIcon "$INSTDIR\${UNINSTALLER}"
  WriteRegStr SHCTX "${KEY}" Publisher "Ostrel Form Wizard developers"
  WriteRegStr SHCTX "${KEY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${KEY}" UninstallString '"$INSTDIR\${UNINSTALLER}"'
  WriteRegStr SHCTX "${KEY}" QuietUninstallString '"$INSTDIR\${UNINSTALLER}" /S'
  WriteRegDWORD SHCTX "${KEY}" NoModify 1
  WriteRegDWORD SHCTX "${KEY}" NoRepair 1
SectionEnd

; What is installed. Each file stands here and in the uninstaller, which removes no other.

Section "Command line"
  SectionIn RO
  File "${STAGE}\${PROGRAM}"
  File "${STAGE}\README.txt"
  File "${STAGE}\INSTALL.txt"
  File "${STAGE}\WINDOWS.txt"
  File "${STAGE}\GENERATED-FORMS.txt"
  File "${STAGE}\LICENSE.txt"
  File "${STAGE}\NOTICES.txt"
  SetOutPath $INSTDIR\docs
  File "${STAGE}\docs\dictionary.schema.json"
  File "${STAGE}\docs\form-description.schema.json"
  SetOutPath $INSTDIR\samples
  File "${STAGE}\samples\dictionary.json"
  File "${STAGE}\samples\toolbox.ini"
  SetOutPath $INSTDIR
SectionEnd

!ifdef HAS_ADDIN
  Section "Add-in for Visual Basic 6" AddIn
    File "${STAGE}\${LIBRARY}"
  SectionEnd
!endif

SectionGroup "Languages beside English"
  !macro PackLibrary name
    File "${STAGE}\${name}"
  !macroend
  !macro LanguageSection code name
    Section "${name}" ${code}
      !insertmacro EachLibraryOf${code} PackLibrary
    SectionEnd
  !macroend
  !insertmacro EachLanguage LanguageSection
SectionGroupEnd

Section /o "Command line on the path" OnPath
  Call AddToSearchPath
  Pop $0
  ${If} $0 == added
    WriteRegDWORD SHCTX "${KEY}" OnPath 1
  ${ElseIf} $0 == failed
    ${Fail} ${INCOMPLETE} "$INSTDIR cannot be added to the path."
  ${EndIf}
SectionEnd

Section "Start menu" StartMenu
  WriteRegDWORD SHCTX "${KEY}" StartMenu 1
  CreateDirectory "$SMPROGRAMS\${TITLE}"
  !ifdef HAS_ADDIN
    CreateShortcut "$SMPROGRAMS\${TITLE}\Check and mend the installation.lnk" "$SYSDIR\cmd.exe" \
      '/k ""$INSTDIR\${PROGRAM}" doctor --fix"' "$SYSDIR\cmd.exe"
  !endif
  CreateShortcut "$SMPROGRAMS\${TITLE}\Read me.lnk" "$INSTDIR\README.txt"
  CreateShortcut "$SMPROGRAMS\${TITLE}\Uninstall.lnk" "$INSTDIR\${UNINSTALLER}"
SectionEnd

; All languages include those of the next version; a language that is not on a list was not wanted.
!macro EnterLanguage code name
  ${If} ${SectionIsSelected} ${${code}}
    StrCpy $0 "$0,${code}"
  ${Else}
    StrCpy $1 some
  ${EndIf}
!macroend

; The library registers itself, for all users or for this one.
!macro Register arguments
  StrCpy $0 -1
  ExecWait '"$SYSDIR\regsvr32.exe" /s ${arguments} "$INSTDIR\${LIBRARY}"' $0
!macroend

Section "-Registration"
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${KEY}" EstimatedSize $0
  StrCpy $0 ""
  StrCpy $1 ALL
  !insertmacro EachLanguage EnterLanguage
  ${If} $1 != ALL
    StrCpy $1 $0 "" 1  ; without the first comma
  ${EndIf}
  WriteRegStr SHCTX "${KEY}" Languages $1
  !ifdef HAS_ADDIN
    WriteRegDWORD SHCTX "${KEY}" AddIn 0
    ${If} ${SectionIsSelected} ${AddIn}
      WriteRegDWORD SHCTX "${KEY}" AddIn 1
      !insertmacro Register "${SCOPE}"
      ${If} $0 <> 0
        ${Fail} ${INCOMPLETE} "The add-in cannot be registered (regsvr32: status $0)."
      ${EndIf}
    ${EndIf}
  !endif
SectionEnd

!include choices.nsh
!include uninstaller.nsh
