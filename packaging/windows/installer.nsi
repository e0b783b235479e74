; The installer and the uninstaller. A person without an administrator's rights installs the program for
; himself or herself, in the own folders and registry; an administrator may do it for everybody, without
; being asked with /AllUsers /S. /D=FOLDER, as the last word, names another folder.
; Defined by scripts/package-windows: VERSION, FILES (the folder to install), REMOVALS (a script that
; removes each of its files), SIZE (in KB), ICON, PICTURE (of the last page) and OUTPUT.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS Win10

!define NAME "HTML Topicsmith"
!define PROJECT "HTMLTopicsmith.Project"
!define CLASSES "Software\Classes"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_MUI
!define MULTIUSER_USE_PROGRAMFILES64
!include LogicLib.nsh
!include MultiUser.nsh
!include MUI2.nsh

Name "${NAME}"
OutFile "${OUTPUT}"
BrandingText "${NAME} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs ${NAME}"
VIAddVersionKey "CompanyName" "The HTML Topicsmith authors"
VIAddVersionKey "LegalCopyright" "See LICENSE.txt"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\topicsmith.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start ${NAME}"
!define MUI_FINISHPAGE_NOREBOOTSUPPORT

!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function .onInit
    StrCpy $0 $INSTDIR
    !insertmacro MULTIUSER_INIT
    ${If} $0 != "" ; given as /D
        StrCpy $INSTDIR $0
    ${EndIf}
FunctionEnd

Function un.onInit
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

; Tells the file manager that files of a kind are shown or opened differently now.
!macro AssociationsChanged
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; Goes on when the programs in the folder do not run: one that runs cannot be replaced or removed.
!macro WaitForEnd PROGRAM
    ${Do}
        ${IfNot} ${FileExists} "$INSTDIR\${PROGRAM}"
            ${Break}
        ${EndIf}
        ClearErrors
        FileOpen $0 "$INSTDIR\${PROGRAM}" a
        ${IfNot} ${Errors}
            FileClose $0
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "${NAME} is running. Save your project, close the program and try again." \
            /SD IDCANCEL IDRETRY +3
        SetErrorLevel 2
        Abort
    ${Loop}
!macroend

; The version that is there goes first: it knows its files, of which this one may have fewer.
Function removeOldVersion
    ReadRegStr $1 SHCTX "${UNINSTALL}" "InstallLocation"
    ${If} $1 == ""
    ${OrIfNot} ${FileExists} "$1\uninstall.exe"
        Return
    ${EndIf}
    ExecWait '"$1\uninstall.exe" /$MultiUser.InstallMode /S _?=$1' $0
    ${If} $0 <> 0
        SetErrorLevel 2
        Abort "The version in $1 could not be removed."
    ${EndIf}
    Delete "$1\uninstall.exe"
    RMDir "$1"
FunctionEnd

Section
    !insertmacro WaitForEnd "topicsmith.exe"
    !insertmacro WaitForEnd "topicsmith-batch.exe"
    Call removeOldVersion

    SetOutPath "$INSTDIR"
    File /r "${FILES}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\topicsmith.exe"

    ; Who opened such files before gets them back from the uninstaller.
    ReadRegStr $0 SHCTX "${CLASSES}\.tsp" ""
    ${If} $0 != "${PROJECT}"
        WriteRegStr SHCTX "${CLASSES}\${PROJECT}" "Before" "$0"
    ${EndIf}
    WriteRegStr SHCTX "${CLASSES}\${PROJECT}" "" "${NAME} project"
    WriteRegStr SHCTX "${CLASSES}\${PROJECT}\DefaultIcon" "" "$INSTDIR\topicsmith.exe,0"
    WriteRegStr SHCTX "${CLASSES}\${PROJECT}\shell\open\command" "" '"$INSTDIR\topicsmith.exe" "%1"'
    WriteRegStr SHCTX "${CLASSES}\.tsp" "" "${PROJECT}"
    WriteRegStr SHCTX "${CLASSES}\.tsp\OpenWithProgids" "${PROJECT}" ""
    !insertmacro AssociationsChanged

    WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "${NAME}"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\topicsmith.exe"
    WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "The HTML Topicsmith authors"
    WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" \
        '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL}" "EstimatedSize" ${SIZE}
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
SectionEnd

; Projects and settings are the person's and stay.
Section Uninstall
    !insertmacro WaitForEnd "topicsmith.exe"
    !insertmacro WaitForEnd "topicsmith-batch.exe"

    !include "${REMOVALS}"
    Delete "$INSTDIR\temp.htm" ; the last preview
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR" ; unless somebody else's files lie there
    Delete "$SMPROGRAMS\${NAME}.lnk"

    ReadRegStr $0 SHCTX "${CLASSES}\.tsp" ""
    ${If} $0 == "${PROJECT}"
        ReadRegStr $0 SHCTX "${CLASSES}\${PROJECT}" "Before"
        ${If} $0 == ""
            DeleteRegValue SHCTX "${CLASSES}\.tsp" ""
        ${Else}
            WriteRegStr SHCTX "${CLASSES}\.tsp" "" "$0"
        ${EndIf}
    ${EndIf}
    DeleteRegValue SHCTX "${CLASSES}\.tsp\OpenWithProgids" "${PROJECT}"
    DeleteRegKey /ifempty SHCTX "${CLASSES}\.tsp\OpenWithProgids"
    DeleteRegKey /ifempty SHCTX "${CLASSES}\.tsp"
    DeleteRegKey SHCTX "${CLASSES}\${PROJECT}"
    !insertmacro AssociationsChanged
    DeleteRegKey SHCTX "${UNINSTALL}"
SectionEnd
