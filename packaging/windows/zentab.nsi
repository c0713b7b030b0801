; The installer of Zentab for Windows. scripts/windows-package.sh gives
;   VERSION, BITS (32 or 64), OUTPUT, and LIST: with .install.nsh and .uninstall.nsh behind it, what
;   is put into $INSTDIR and what is taken from there.
; On the command line, with what NSIS knows (/S for silence, /D=FOLDER last):
;   /CurrentUser /AllUsers   for whom; all, where the user may
;   /Associate               *.dat opens with Zentab
;   /NoStartMenu             no entry in the Start menu
SetCompressor /SOLID lzma
ManifestDPIAware true

!if ${BITS} == 64
  Target amd64-unicode
  !define MULTIUSER_USE_PROGRAMFILES64
!else
  Target x86-unicode
!endif
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR Zentab
!define MULTIUSER_INSTALLMODE_FUNCTION ChooseFolder
!define MULTIUSER_INSTALLMODE_UNFUNCTION un.KeepFolder
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define SUITE "SOFTWARE\HALDOR\MIRAXWIN"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Zentab"
!define CLASSES "Software\Classes"
!define TABLE "Zentab.Table"
!define UNINSTALLER "Uninstall-Zentab.exe"

Name "Zentab ${VERSION}"
OutFile "${OUTPUT}"
BrandingText " "
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "Zentab"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "Installs Zentab"
VIAddVersionKey /LANG=0 "LegalCopyright" "GNU General Public License 3 or later"

!define MUI_ICON "${__FILEDIR__}/zentab.ico"
!define MUI_UNICON "${__FILEDIR__}/zentab.ico"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Zentab.exe"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE German
!insertmacro MUI_LANGUAGE SimpChinese

LangString Program ${LANG_ENGLISH} "Program"
LangString Program ${LANG_GERMAN} "Programm"
LangString Program ${LANG_SIMPCHINESE} "程序"
LangString StartMenu ${LANG_ENGLISH} "Entry in the Start menu"
LangString StartMenu ${LANG_GERMAN} "Eintrag im Startmenü"
LangString StartMenu ${LANG_SIMPCHINESE} "开始菜单项"
LangString Associate ${LANG_ENGLISH} "Open table files (*.dat) with Zentab"
LangString Associate ${LANG_GERMAN} "Tabellendateien (*.dat) mit Zentab öffnen"
LangString Associate ${LANG_SIMPCHINESE} "用 Zentab 打开曲线表文件 (*.dat)"
LangString TableFile ${LANG_ENGLISH} "Relay curve table"
LangString TableFile ${LANG_GERMAN} "Kennlinientabelle"
LangString TableFile ${LANG_SIMPCHINESE} "继电器曲线表"
LangString Running ${LANG_ENGLISH} "Zentab is running. Close it and try again."
LangString Running ${LANG_GERMAN} "Zentab läuft noch. Beenden Sie das Programm und versuchen Sie es erneut."
LangString Running ${LANG_SIMPCHINESE} "Zentab 正在运行。请将其关闭后重试。"

Var chosen

; Whether $INSTDIR can be written: clears the error flag or sets it.
!macro TRY_TO_WRITE
  ClearErrors
  FileOpen $1 "$INSTDIR\Zentab.try" w
  ${IfNot} ${Errors}
    FileClose $1
    Delete "$INSTDIR\Zentab.try"
    ClearErrors
  ${EndIf}
!macroend

; Beside the modules of the test set, unless another folder was asked for or that one is closed.
Function ChooseFolder
  ${If} $chosen != ""
    StrCpy $INSTDIR $chosen
    Return
  ${EndIf}
  StrCpy $2 $INSTDIR
  SetRegView 32
  ReadRegStr $0 HKLM "${SUITE}" "MIRAX"
  SetRegView ${BITS}
  ${If} $0 == ""
    ReadRegStr $0 HKLM "${SUITE}" "MIRAX"
  ${EndIf}
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\*.*"
    StrCpy $INSTDIR $0
    !insertmacro TRY_TO_WRITE
    ${If} ${Errors}
      StrCpy $INSTDIR $2
    ${EndIf}
  ${EndIf}
FunctionEnd

; It is removed from where it lies.
Function un.KeepFolder
  StrCpy $INSTDIR $chosen
FunctionEnd

; A virus scanner, too, may have it open for a moment.
!macro STOP_IF_RUNNING
  ${If} ${FileExists} "$INSTDIR\Zentab.exe"
    ${For} $2 1 20
      ClearErrors
      FileOpen $1 "$INSTDIR\Zentab.exe" a
      ${IfNot} ${Errors}
        FileClose $1
        ${Break}
      ${EndIf}
      Sleep 100
    ${Next}
    ${If} ${Errors}
      MessageBox MB_OK|MB_ICONEXCLAMATION "$(Running)" /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
  ${EndIf}
!macroend

Section "$(Program)" program
  SectionIn RO
  !insertmacro STOP_IF_RUNNING
  !include "${LIST}.install.nsh"
  WriteUninstaller "$INSTDIR\${UNINSTALLER}"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "Zentab"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Zentab.exe"
  WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "The Zentab developers"
  WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" \
    '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" \
    '"$INSTDIR\${UNINSTALLER}" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "$(StartMenu)" startMenu
  CreateShortcut "$SMPROGRAMS\Zentab.lnk" "$INSTDIR\Zentab.exe"
SectionEnd

Section /o "$(Associate)" associate
  ReadRegStr $0 SHCTX "${CLASSES}\.dat" ""
  ${If} $0 != "${TABLE}"
    WriteRegStr SHCTX "${CLASSES}\${TABLE}" "Former" $0
  ${EndIf}
  WriteRegStr SHCTX "${CLASSES}\.dat" "" "${TABLE}"
  WriteRegStr SHCTX "${CLASSES}\${TABLE}" "" "$(TableFile)"
  WriteRegStr SHCTX "${CLASSES}\${TABLE}\DefaultIcon" "" "$INSTDIR\Zentab.exe,0"
  WriteRegStr SHCTX "${CLASSES}\${TABLE}\shell\open\command" "" '"$INSTDIR\Zentab.exe" "%1"'
  ${RefreshShellIcons}
SectionEnd

Function .onInit
  SetRegView ${BITS}
  StrCpy $chosen $INSTDIR
  !insertmacro MULTIUSER_INIT
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/Associate" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${associate}
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/NoStartMenu" $1
  ${IfNot} ${Errors}
    !insertmacro UnselectSection ${startMenu}
  ${EndIf}
FunctionEnd

Function un.onInit
  SetRegView ${BITS}
  StrCpy $chosen $INSTDIR
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

; Compares the files $0 and $1: $2 is 1 where they are alike.
Function un.Compare
  StrCpy $2 0
  ClearErrors
  FileOpen $3 $0 r
  FileOpen $4 $1 r
  ${If} ${Errors}
    Goto close
  ${EndIf}
  next:
    ClearErrors
    FileReadByte $3 $5
    ${If} ${Errors}
      StrCpy $5 end
    ${EndIf}
    ClearErrors
    FileReadByte $4 $6
    ${If} ${Errors}
      StrCpy $6 end
    ${EndIf}
    ${If} $5 != $6
      Goto close
    ${EndIf}
    ${If} $5 != end
      Goto next
    ${EndIf}
  StrCpy $2 1
  close:
  FileClose $3
  FileClose $4
FunctionEnd

; What the list is made of. A table file or catalogue goes only as it came.
!macro REMOVE_FILE name
  Delete "$INSTDIR\${name}"
!macroend
!macro REMOVE_IF_AS_IT_CAME source name
  ${If} ${FileExists} "$INSTDIR\${name}"
    File "/oname=$PLUGINSDIR\came" "${source}"
    StrCpy $0 "$PLUGINSDIR\came"
    StrCpy $1 "$INSTDIR\${name}"
    Call un.Compare
    ${If} $2 == 1
      Delete "$INSTDIR\${name}"
    ${EndIf}
    Delete "$PLUGINSDIR\came"
  ${EndIf}
!macroend
; Only where it is empty.
!macro REMOVE_FOLDER name
  RMDir "$INSTDIR\${name}"
!macroend

Section "Uninstall"
  !insertmacro STOP_IF_RUNNING
  InitPluginsDir
  !include "${LIST}.uninstall.nsh"
  Delete "$SMPROGRAMS\Zentab.lnk"
  DeleteRegKey SHCTX "${UNINSTALL}"
  ReadRegStr $0 SHCTX "${CLASSES}\.dat" ""
  ${If} $0 == "${TABLE}"
    ReadRegStr $0 SHCTX "${CLASSES}\${TABLE}" "Former"
    ${If} $0 == ""
      DeleteRegValue SHCTX "${CLASSES}\.dat" ""
      DeleteRegKey /ifempty SHCTX "${CLASSES}\.dat"
    ${Else}
      WriteRegStr SHCTX "${CLASSES}\.dat" "" $0
    ${EndIf}
  ${EndIf}
  DeleteRegKey SHCTX "${CLASSES}\${TABLE}"
  ${RefreshShellIcons}
  ; Last: who waits for the end waits for this.
  Delete "$INSTDIR\${UNINSTALLER}"
  RMDir "$INSTDIR"
SectionEnd
