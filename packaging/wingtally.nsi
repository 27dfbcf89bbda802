; The installer for Windows. It works for one player, in his own folders: nobody has to be an
; administrator, and wtysettings.ini beside the program can be edited. ./package calls it with
;   VERSION   of the program
;   FILES     the folder whose content is installed
;   REMOVALS  a list of Delete and RMDir for just these files, for the uninstaller: whatever else lies
;             there is the player's own and stays
;   RESULT    the installer
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user

!include MUI2.nsh
!include LogicLib.nsh

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Wingtally"
!define SHORTCUT "$SMPROGRAMS\Wingtally.lnk"

Name "Wingtally"
OutFile "${RESULT}"
InstallDir "$LOCALAPPDATA\Programs\Wingtally"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"
BrandingText "Wingtally ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Wingtally"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Wingtally installer"
VIAddVersionKey "LegalCopyright" "The Wingtally developers, MIT licence"

!define MUI_ICON "${__FILEDIR__}/wingtally.ico"
!define MUI_UNICON "${__FILEDIR__}/wingtally.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\wingtally.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"
!insertmacro MUI_LANGUAGE "French"

LangString InUse ${LANG_ENGLISH} "Close this program first; then try again:"
LangString InUse ${LANG_GERMAN} "Bitte erst dieses Programm schließen, dann wiederholen:"
LangString InUse ${LANG_FRENCH} "Fermez d'abord ce programme, puis recommencez :"

; Goes on when the PROGRAM in the folder $0 isn't running: Windows lets nobody write to one that is.
; Otherwise the player is asked; if he gives up, or can't be asked (/S), all ends with exit code 2.
!macro WAIT_FOR PROGRAM
  ${DoWhile} ${FileExists} "$0\${PROGRAM}"
    ClearErrors
    FileOpen $1 "$0\${PROGRAM}" a
    ${IfNot} ${Errors}
      FileClose $1
      ${Break}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)$\r$\n$0\${PROGRAM}" /SD IDCANCEL IDCANCEL`
      SetErrorLevel 2
      Abort
    ${EndIf}
  ${Loop}
!macroend

!macro WAIT_FOR_PROGRAMS UN
Function ${UN}waitForPrograms
  !insertmacro WAIT_FOR wingtally.exe
  !insertmacro WAIT_FOR wingtally-career.exe
  !insertmacro WAIT_FOR wingtally-standin.exe
  !insertmacro WAIT_FOR wingtally-datacheck.exe
  !insertmacro WAIT_FOR wingtally-menucheck.exe
FunctionEnd
!macroend
!insertmacro WAIT_FOR_PROGRAMS ""
!insertmacro WAIT_FOR_PROGRAMS "un."

; An earlier version in the folder $0 takes away its own files, or those that this one no longer has
; would stay.
Function removeEarlier
  ${If} ${FileExists} "$0\Uninstall.exe"
    ExecWait '"$0\Uninstall.exe" /S _?=$0' $1
    ${If} $1 <> 0
      SetErrorLevel 2
      Abort
    ${EndIf}
  ${EndIf}
FunctionEnd

Section
  ; Nothing is touched before all of it can be done. The earlier version may lie in another folder.
  ReadRegStr $2 HKCU "${ENTRY}" "InstallLocation"
  StrCpy $0 $INSTDIR
  Call waitForPrograms
  ${If} $2 != ""
  ${AndIf} $2 != $INSTDIR
    StrCpy $0 $2
    Call waitForPrograms
    Call removeEarlier
    ; What the player made himself comes along; there it stays too.
    CreateDirectory "$INSTDIR\Data"
    ${IfNot} ${FileExists} "$INSTDIR\wtysettings.ini"
      CopyFiles /SILENT "$0\wtysettings.ini" "$INSTDIR"
    ${EndIf}
    ${IfNot} ${FileExists} "$INSTDIR\Data\Custom\*"
    ${AndIf} ${FileExists} "$0\Data\Custom\*"
      CopyFiles /SILENT "$0\Data\Custom" "$INSTDIR\Data"
    ${EndIf}
    Delete "$0\Uninstall.exe" ; it can't take itself away
    RMDir "$0"
  ${EndIf}
  StrCpy $0 $INSTDIR
  Call removeEarlier

  SetOutPath "$INSTDIR" ; which is the working folder of the shortcut too
  File /r "${FILES}/*"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateShortcut "${SHORTCUT}" "$INSTDIR\wingtally.exe"

  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Wingtally"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\wingtally.exe"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "The Wingtally developers"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

; Careers and switches, in the player's folder for application data, aren't touched.
Section "Uninstall"
  StrCpy $0 $INSTDIR
  Call un.waitForPrograms
  SetOutPath "$TEMP" ; a folder that is somebody's working folder can't be removed
  Delete "${SHORTCUT}"
  !include "${REMOVALS}"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${ENTRY}"
SectionEnd
