; The installer and the uninstaller. A person without an administrator's rights installs the program for
; himself or herself, in the own folders and registry; an administrator may do it for everybody, without
; being asked with /AllUsers /S. /D=FOLDER, as the last word, names another folder.
; Defined by scripts/package-windows: VERSION, FILES (the folder to install), REMOVALS (a script that
; removes each of its files), SIZE (in KB), ICON, PICTURE (of the last page) and OUTPUT.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
AllowSkipFiles off
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
!include FileFunc.nsh
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

!define MULTIUSER_PAGE_CUSTOMFUNCTION_LEAVE useGivenFolder
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE useFolderOfOurOwn
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_PAGE_CUSTOMFUNCTION_SHOW startOnlyAsThePerson
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Var givenFolder ; as /D, or empty

Function .onInit
    StrCpy $givenFolder $INSTDIR
    ; Whoever asks not to be asked is not told by a window what is missing.
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/AllUsers" $2
    ${IfNot} ${Errors}
        UserInfo::GetAccountType
        Pop $3
        ${If} ${Silent}
        ${AndIf} $3 != "Admin"
            SetErrorLevel 2
            Quit
        ${EndIf}
    ${EndIf}
    !insertmacro MULTIUSER_INIT
    Call useGivenFolder
FunctionEnd

Function useGivenFolder
    ${If} $givenFolder != ""
        StrCpy $INSTDIR $givenFolder
    ${EndIf}
FunctionEnd

; In a folder with other things the program gets one below it.
Function useFolderOfOurOwn
    ${DirState} "$INSTDIR" $0
    ${GetFileName} "$INSTDIR" $1
    ${If} $0 == 1
    ${AndIf} $1 != "${NAME}"
    ${AndIfNot} ${FileExists} "$INSTDIR\uninstall.exe"
        StrCpy $INSTDIR "$INSTDIR\${NAME}"
    ${EndIf}
FunctionEnd

; An administrator's rights are for installing.
Function startOnlyAsThePerson
    ${If} $MultiUser.Privileges == "Admin"
        SendMessage $mui.FinishPage.Run ${BM_SETCHECK} ${BST_UNCHECKED} 0
        ShowWindow $mui.FinishPage.Run ${SW_HIDE}
    ${EndIf}
FunctionEnd

; The folder tells which of two installations this is.
Function un.onInit
    StrCpy $1 $INSTDIR
    !insertmacro MULTIUSER_UNINIT
    ${If} $INSTDIR != $1
        ${If} $MultiUser.InstallMode == "CurrentUser"
            Call un.MultiUser.InstallMode.AllUsers
        ${Else}
            Call un.MultiUser.InstallMode.CurrentUser
        ${EndIf}
        StrCpy $INSTDIR $1
    ${EndIf}
FunctionEnd

; Tells the file manager that files of a kind are shown or opened differently now.
!macro AssociationsChanged
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; Goes on when the program's files can be changed: none can that is in use.
!macro WaitForFiles PATTERN
    ${Do}
        StrCpy $2 "" ; a file that cannot
        FindFirst $0 $1 "$INSTDIR\${PATTERN}"
        ${DoWhile} $1 != ""
            ${If} $1 != "uninstall.exe"
                ClearErrors
                FileOpen $3 "$INSTDIR\$1" a
                ${If} ${Errors}
                    StrCpy $2 $1
                ${Else}
                    FileClose $3
                ${EndIf}
            ${EndIf}
            FindNext $0 $1
        ${Loop}
        FindClose $0
        ${If} $2 == ""
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "$INSTDIR\$2 is in use, or may not be changed.$\r$\n$\r$\nSave your project, close ${NAME} and its help, and try again." \
            /SD IDCANCEL IDRETRY +3
        SetErrorLevel 2
        Abort
    ${Loop}
!macroend
!macro WaitForAllFiles
    !insertmacro WaitForFiles "*.exe"
    !insertmacro WaitForFiles "*.dll"
    !insertmacro WaitForFiles "*.chm"
!macroend

; A version that is there goes first: it knows its files, of which this one may have fewer.
!macro RemoveOldVersion ROOT MODE
    ReadRegStr $1 ${ROOT} "${UNINSTALL}" "InstallLocation"
    ${If} $1 != ""
    ${AndIf} ${FileExists} "$1\uninstall.exe"
        ClearErrors
        ExecWait '"$1\uninstall.exe" /${MODE} /S _?=$1' $0
        ${If} ${Errors}
        ${OrIf} $0 <> 0
            SetErrorLevel 2
            Abort "The version in $1 could not be removed."
        ${EndIf}
        Delete "$1\uninstall.exe"
        RMDir "$1"
    ${EndIf}
!macroend

Section
    !insertmacro WaitForAllFiles
    !insertmacro RemoveOldVersion HKCU CurrentUser
    ${If} $MultiUser.InstallMode == "AllUsers" ; otherwise that one is the others'
        !insertmacro RemoveOldVersion HKLM AllUsers
    ${EndIf}

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
    !insertmacro WaitForAllFiles

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
