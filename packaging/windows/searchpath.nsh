; The path on which programs are looked for: the machine's or the user's, as $Mode says. It may be longer than a string of
; NSIS, which ends at 1,023 characters, so that it is edited in memory of its own. There it stands between two semicolons;
; an entry is added behind a semicolon and leaves with it, so that what was there before comes back to the character.

; With the registry's key in $R0: the whole text in memory in $R1, its type in $R2; $R3 is 0, or no text can be had.
!macro ReadSearchPath
  ${If} $Mode == machine
    StrCpy $0 -2147483646  ; HKEY_LOCAL_MACHINE
    StrCpy $1 "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
  ${Else}
    StrCpy $0 -2147483647  ; HKEY_CURRENT_USER
    StrCpy $1 "Environment"
  ${EndIf}
  System::Call 'advapi32::RegOpenKeyExW(p r0, w r1, i 0, i 0x2001F, *p .R0) i .R3'  ; to read and to write
  ${If} $R3 = 0
    System::Call 'advapi32::RegQueryValueExW(p R0, w "Path", p 0, *i .R2, p 0, *i .r2) i .R3'
    ${If} $R3 = 2  ; there is none yet
      StrCpy $R2 2  ; REG_EXPAND_SZ
      StrCpy $R3 0
      StrCpy $2 0
    ${EndIf}
    IntOp $3 $2 + 4096  ; room for another folder
    System::Alloc $3
    Pop $R1
    System::Call 'kernel32::lstrcpyW(p R1, w ";")'
    ${If} $2 > 0
      IntPtrOp $4 $R1 + 2
      System::Call 'advapi32::RegQueryValueExW(p R0, w "Path", p 0, p 0, p r4, *i r2) i .R3'
    ${EndIf}
    System::Call 'kernel32::lstrcatW(p R1, w ";")'
  ${EndIf}
!macroend

; Writes the text at an address in $0, or removes what is empty, and tells the programs that run.
!macro WriteSearchPath
  System::Call 'kernel32::lstrlenW(p r0) i .r1'
  ${If} $1 = 0
    System::Call 'advapi32::RegDeleteValueW(p R0, w "Path") i .R3'
  ${Else}
    IntOp $1 $1 * 2
    IntOp $1 $1 + 2
    System::Call 'advapi32::RegSetValueExW(p R0, w "Path", i 0, i R2, p r0, i r1) i .R3'
  ${EndIf}
  SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=1000
!macroend

!macro CloseSearchPath
  System::Free $R1
  System::Call 'advapi32::RegCloseKey(p R0)'
!macroend

; The place of $INSTDIR in the text, in $5; 0 where it is not there. $4 is the entry between its semicolons.
!macro FindInSearchPath
  StrCpy $4 ";$INSTDIR;"
  System::Call 'shlwapi::StrStrIW(p R1, w r4) p .r5'
!macroend

; Puts "added", "there" (already) or "failed" on the stack.
Function AddToSearchPath
  StrCpy $6 failed
  !insertmacro ReadSearchPath
  ${If} $R3 = 0
    !insertmacro FindInSearchPath
    ${If} $5 P<> 0
      StrCpy $6 there
    ${Else}
      System::Call 'kernel32::lstrcatW(p R1, w "$INSTDIR")'
      IntPtrOp $0 $R1 + 2
      ${If} $2 <= 2
        IntPtrOp $0 $0 + 2  ; nothing stands between the two semicolons
      ${EndIf}
      !insertmacro WriteSearchPath
      ${If} $R3 = 0
        StrCpy $6 added
      ${EndIf}
    ${EndIf}
  ${EndIf}
  !insertmacro CloseSearchPath
  Push $6
FunctionEnd

Function un.RemoveFromSearchPath
  !insertmacro ReadSearchPath
  ${If} $R3 = 0
    !insertmacro FindInSearchPath
    ${If} $5 P<> 0
      StrLen $0 $4
      IntOp $0 $0 * 2
      IntPtrOp $0 $5 + $0
      IntPtrOp $0 $0 - 2  ; the semicolon behind the entry
      System::Call 'kernel32::lstrlenW(p r0) i .r1'
      IntOp $1 $1 * 2
      IntOp $1 $1 + 2
      System::Call 'kernel32::RtlMoveMemory(p r5, p r0, p r1)'
      System::Call 'kernel32::lstrlenW(p R1) i .r1'
      IntOp $1 $1 * 2
      IntPtrOp $0 $R1 + $1
      IntPtrOp $0 $0 - 2
      System::Call '*$0(&i2 0)'  ; the last semicolon, which may be the first
      IntPtrOp $0 $R1 + 2
      !insertmacro WriteSearchPath
    ${EndIf}
  ${EndIf}
  !insertmacro CloseSearchPath
FunctionEnd
