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
ManifestDPIAware true
AllowSkipFiles off ; it needs all of its files

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
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "SpanishInternational"
!insertmacro MUI_LANGUAGE "Italian"
!insertmacro MUI_LANGUAGE "Polish"

LangString InUse ${LANG_ENGLISH} "This program is running, or write-protected. Close it or lift the protection; then try again:"
LangString InUse ${LANG_GERMAN} "Dieses Programm läuft noch oder ist schreibgeschützt. Bitte schließen oder den Schutz aufheben, dann wiederholen:"
LangString InUse ${LANG_FRENCH} "Ce programme est ouvert ou protégé en écriture. Fermez-le ou levez la protection, puis recommencez :"
LangString InUse ${LANG_SPANISH} "Este programa está en marcha o protegido contra escritura. Ciérrelo o quite la protección y vuelva a intentarlo:"
LangString InUse ${LANG_SPANISHINTERNATIONAL} "Este programa está en marcha o protegido contra escritura. Ciérrelo o quite la protección y vuelva a intentarlo:"
LangString InUse ${LANG_ITALIAN} "Questo programma è in esecuzione o di sola lettura. Chiuderlo o togliere la protezione, poi riprovare:"
LangString InUse ${LANG_POLISH} "Ten program jest uruchomiony albo tylko do odczytu. Proszę go zamknąć lub znieść ochronę i spróbować ponownie:"
LangString NotRemoved ${LANG_ENGLISH} "The earlier version could not be removed; nothing was installed:"
LangString NotRemoved ${LANG_GERMAN} "Die frühere Fassung ließ sich nicht entfernen; es wurde nichts installiert:"
LangString NotRemoved ${LANG_FRENCH} "La version précédente n'a pas pu être supprimée ; rien n'a été installé :"
LangString NotRemoved ${LANG_SPANISH} "No se pudo quitar la versión anterior; no se instaló nada:"
LangString NotRemoved ${LANG_SPANISHINTERNATIONAL} "No se pudo quitar la versión anterior; no se instaló nada:"
LangString NotRemoved ${LANG_ITALIAN} "Impossibile rimuovere la versione precedente; nulla è stato installato:"
LangString NotRemoved ${LANG_POLISH} "Nie udało się usunąć poprzedniej wersji; niczego nie zainstalowano:"
LangString NotWritten ${LANG_ENGLISH} "Not all files could be written; try again with more space or in another folder:"
LangString NotWritten ${LANG_GERMAN} "Nicht alle Dateien ließen sich schreiben; bitte mit mehr Platz oder in einem anderen Ordner wiederholen:"
LangString NotWritten ${LANG_FRENCH} "Certains fichiers n'ont pas pu être écrits ; recommencez avec plus d'espace ou dans un autre dossier :"
LangString NotWritten ${LANG_SPANISH} "No se pudieron escribir todos los archivos; inténtelo de nuevo con más espacio o en otra carpeta:"
LangString NotWritten ${LANG_SPANISHINTERNATIONAL} "No se pudieron escribir todos los archivos; inténtelo de nuevo con más espacio o en otra carpeta:"
LangString NotWritten ${LANG_ITALIAN} "Impossibile scrivere tutti i file; riprovare con più spazio o in un'altra cartella:"
LangString NotWritten ${LANG_POLISH} "Nie udało się zapisać wszystkich plików; proszę spróbować z większą ilością miejsca albo w innym folderze:"

; Tells the player WHY it can't be done in FOLDER, and ends with exit code 2.
!macro GIVE_UP WHY FOLDER
  MessageBox MB_OK|MB_ICONSTOP "${WHY}$\r$\n${FOLDER}" /SD IDOK
  SetErrorLevel 2
  Abort
!macroend

; Goes on when the PROGRAM in the folder $0 can be written to: Windows lets nobody write to one that
; runs. Otherwise the player is asked; if he gives up, or can't be asked (/S), all ends with exit code 2.
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
; would stay. An Uninstall.exe without our program is somebody else's. Ours may not start, then the new
; files go over the old ones.
Function removeEarlier
  ${If} ${FileExists} "$0\Uninstall.exe"
  ${AndIf} ${FileExists} "$0\wingtally.exe"
    ClearErrors
    StrCpy $1 0
    ExecWait '"$0\Uninstall.exe" /S _?=$0' $1
    ${IfNot} ${Errors}
      ${If} $1 <> 0
        !insertmacro GIVE_UP "$(NotRemoved)" $0
      ${EndIf}
      Delete "$0\Uninstall.exe" ; it can't take itself away
    ${EndIf}
  ${EndIf}
FunctionEnd

; Copies the player's own files from the folder $0 to $INSTDIR; in $0 they stay too. What lies in
; $INSTDIR already, of an installation before that one, is older, and is kept as .bak. A copy that
; fails doesn't count, and $0 may be $INSTDIR in another spelling.
Function bringOwnFiles
  ${If} ${FileExists} "$0\wtysettings.ini"
    ClearErrors
    CopyFiles /SILENT "$0\wtysettings.ini" "$INSTDIR\wtysettings.ini.new"
    ${IfNot} ${Errors}
      Delete "$INSTDIR\wtysettings.ini.bak"
      Rename "$INSTDIR\wtysettings.ini" "$INSTDIR\wtysettings.ini.bak"
      Rename "$INSTDIR\wtysettings.ini.new" "$INSTDIR\wtysettings.ini"
    ${EndIf}
  ${EndIf}
  ${If} ${FileExists} "$0\Data\Custom\*.*"
    RMDir /r "$INSTDIR\Data\Custom.new"
    CreateDirectory "$INSTDIR\Data\Custom.new"
    ClearErrors
    CopyFiles /SILENT "$0\Data\Custom\*.*" "$INSTDIR\Data\Custom.new"
    ${IfNot} ${Errors}
      RMDir /r "$INSTDIR\Data\Custom.bak"
      Rename "$INSTDIR\Data\Custom" "$INSTDIR\Data\Custom.bak"
      Rename "$INSTDIR\Data\Custom.new" "$INSTDIR\Data\Custom"
    ${EndIf}
  ${EndIf}
FunctionEnd

Section
  ; Nothing is touched while one of the programs runs. The earlier version may lie in another folder.
  ReadRegStr $2 HKCU "${ENTRY}" "InstallLocation"
  StrCpy $0 $INSTDIR
  Call waitForPrograms
  ${If} $2 != ""
  ${AndIf} $2 != $INSTDIR
    StrCpy $0 $2
    Call waitForPrograms
    Call removeEarlier
    CreateDirectory "$INSTDIR"
    Call bringOwnFiles
    RMDir "$0"
  ${EndIf}
  StrCpy $0 $INSTDIR
  Call removeEarlier

  SetOutPath "$INSTDIR" ; which is the working folder of the shortcut too
  ClearErrors
  File /r "${FILES}/*"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ${If} ${Errors}
    !insertmacro GIVE_UP "$(NotWritten)" $INSTDIR
  ${EndIf}
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
