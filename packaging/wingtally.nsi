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

Section
  ; An earlier version takes away its own files first, or those that this one no longer has would stay.
  IfFileExists "$INSTDIR\Uninstall.exe" 0 +2
    ExecWait '"$INSTDIR\Uninstall.exe" /S _?=$INSTDIR'

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
  SetOutPath "$TEMP" ; a folder that is somebody's working folder can't be removed
  Delete "${SHORTCUT}"
  !include "${REMOVALS}"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${ENTRY}"
SectionEnd
