; The setup program of Ravlin, for the whole machine. It writes its files, two entries of the Start menu, a shortcut on the
; desktop for who wants it, and its entry under "Apps"; it removes these and nothing else. Profiles and settings in the
; registry belong to the terminal and its users.
;
; Handed over by CMake: VERSION, DESCRIPTION, FILES (what is installed, laid out as on the terminal), PICTURES, ICON, OUTPUT.

Unicode true
ManifestDPIAware true
ManifestSupportedOS Win10
RequestExecutionLevel admin
SetCompressor /SOLID lzma

!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "MUI2.nsh"
!include "Sections.nsh"
!include "WinVer.nsh"

!define MAKER "Tavrin Instruments"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Ravlin"

; What a setup that did not come to its end returns. 1 and 2 are what NSIS itself gives: cancelled, or failed on the way.
!define OLD_WINDOWS 3
!define IN_USE 4
!define NO_ADMINISTRATOR 5

Name "Ravlin"
Caption "Ravlin ${VERSION} Setup"
BrandingText "Ravlin ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES32\Ravlin"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Ravlin"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "${MAKER}"
VIAddVersionKey "FileDescription" "Ravlin Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "Comments" "${DESCRIPTION}"
VIAddVersionKey "LegalCopyright" "MIT licence"

; The one list of what is installed. ACTION is a macro that is given each.
!macro EachFile ACTION
    !insertmacro ${ACTION} "ravlin.exe"
    !insertmacro ${ACTION} "ravlin-reg.exe"
    !insertmacro ${ACTION} "Ravlin.chm"
    !insertmacro ${ACTION} "README.txt"
    !insertmacro ${ACTION} "LICENSE.txt"
    !insertmacro ${ACTION} "licences\Third-party.txt"
    !insertmacro ${ACTION} "licences\Qt.txt"
    !insertmacro ${ACTION} "licences\Asio.txt"
    !insertmacro ${ACTION} "licences\MinGW-w64.txt"
    !insertmacro ${ACTION} "licences\GCC.txt"
    !insertmacro ${ACTION} "licences\LGPL-3.txt"
    !insertmacro ${ACTION} "licences\GPL-3.txt"
!macroend
!macro WriteFile NAME
    File "/oname=$INSTDIR\${NAME}" "${FILES}/${NAME}"
!macroend
!macro DeleteFile NAME
    Delete "$INSTDIR\${NAME}"
!macroend

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURES}/side.bmp"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "${PICTURES}/header.bmp"
!define MUI_HEADERIMAGE_UNBITMAP "${PICTURES}/header.bmp"
!define MUI_CUSTOMFUNCTION_GUIINIT SharpPictures
!define MUI_ABORTWARNING

!define MUI_WELCOMEPAGE_TITLE "Ravlin ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "This installs Ravlin, which sets up the scanners and scales of this terminal, for all its users.$\r$\n$\r$\n\
Profiles that the terminal has already stay as they are.$\r$\n$\r$\nClick Next to go on."
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${FILES}/LICENSE.txt"
!define MUI_COMPONENTSPAGE_NODESC
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
; By the desktop's own process: as the user who is signed in, not as the administrator who installs.
!define MUI_FINISHPAGE_RUN "$WINDIR\explorer.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS '$\"$INSTDIR\ravlin.exe$\"'
!define MUI_FINISHPAGE_RUN_TEXT "Start Ravlin"
!insertmacro MUI_PAGE_FINISH

!define MUI_UNCONFIRMPAGE_TEXT_TOP "Ravlin will be removed from this terminal. The profiles of its scanners and scales stay, so that \
till programs go on working. The settings of Ravlin's users stay too."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"

; Ends with CODE where a file that is there cannot be written because a program uses it. A person may close that program.
!macro RefuseWhileInUse FUNCTION
Function ${FUNCTION}
    Push $0
    Push $1
    !insertmacro EachFile RefuseFileInUse
    Pop $1
    Pop $0
FunctionEnd
!macroend
!macro RefuseFileInUse NAME
    ${Do}
        StrCpy $1 free
        ${IfThen} ${FileExists} "$INSTDIR\${NAME}" ${|} StrCpy $1 used ${|}
        ${If} $1 == used
            ClearErrors
            FileOpen $0 "$INSTDIR\${NAME}" a
            ${IfNot} ${Errors}
                FileClose $0
                StrCpy $1 free
            ${EndIf}
        ${EndIf}
        ${If} $1 == used
        ${AndIf} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Ravlin or its help is open: ${NAME} is in use, perhaps \
by another user of this terminal.$\r$\n$\r$\nClose it, then choose Retry." /SD IDCANCEL IDCANCEL`
            SetErrorLevel ${IN_USE}
            Quit
        ${EndIf}
    ${LoopUntil} $1 == free
!macroend
!insertmacro RefuseWhileInUse RefuseWhileInUse
!insertmacro RefuseWhileInUse un.RefuseWhileInUse

Section "Ravlin" Program
    SectionIn RO
    Call RefuseWhileInUse
    Call RemoveFromOtherPlace
    SetShellVarContext all
    CreateDirectory "$INSTDIR\licences"
    !insertmacro EachFile WriteFile
    WriteUninstaller "$INSTDIR\uninstall.exe"

    SetOutPath "$INSTDIR" ; where the shortcuts begin
    CreateDirectory "$SMPROGRAMS\Ravlin"
    CreateShortcut "$SMPROGRAMS\Ravlin\Ravlin.lnk" "$INSTDIR\ravlin.exe" "" "" "" "" "" "${DESCRIPTION}"
    CreateShortcut "$SMPROGRAMS\Ravlin\Ravlin Help.lnk" "$INSTDIR\Ravlin.chm"

    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Ravlin"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${MAKER}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Comments" "${DESCRIPTION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\ravlin.exe,0"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
    SectionGetSize ${Program} $0
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section /o "Shortcut on the desktop" Desktop
    SetShellVarContext all
    CreateShortcut "$DESKTOP\Ravlin.lnk" "$INSTDIR\ravlin.exe" "" "" "" "" "" "${DESCRIPTION}"
SectionEnd

; Where an earlier setup put Ravlin somewhere else, its own uninstaller takes it away from there.
Function RemoveFromOtherPlace
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 == ""
    ${OrIf} $0 == $INSTDIR
    ${OrIfNot} ${FileExists} "$0\uninstall.exe"
        Return
    ${EndIf}
    ExecWait '"$0\uninstall.exe" /S _?=$0' $1
    ${If} $1 <> 0
        MessageBox MB_OK|MB_ICONEXCLAMATION "The Ravlin in $0 could not be removed: it or its help is open, perhaps by \
another user of this terminal.$\r$\n$\r$\nClose it, then start the setup again." /SD IDOK
        SetErrorLevel $1
        Quit
    ${EndIf}
    Delete "$0\uninstall.exe" ; it does not delete itself when it is waited for
    RMDir "$0"
FunctionEnd

Function .onInit
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONSTOP "Ravlin needs Windows 10 or newer." /SD IDOK
        SetErrorLevel ${OLD_WINDOWS}
        Quit
    ${EndIf}
    UserInfo::GetAccountType ; without the system's own question somebody may start this without the rights
    Pop $0
    ${If} $0 != "Admin"
        MessageBox MB_OK|MB_ICONSTOP "Ravlin is installed for all users of this terminal. Start the setup as an \
administrator." /SD IDOK
        SetErrorLevel ${NO_ADMINISTRATOR}
        Quit
    ${EndIf}

    ; A shortcut that is there already stays; "/DESKTOP" asks for one.
    SetShellVarContext all
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/DESKTOP" $1
    ${IfNot} ${Errors}
    ${OrIf} ${FileExists} "$DESKTOP\Ravlin.lnk"
        !insertmacro SelectSection ${Desktop}
    ${EndIf}
FunctionEnd

; Takes the larger renderings of the pictures on screens of a higher density.
Function SharpPictures
    !define LOGPIXELSX 88
    System::Call 'user32::GetDC(p 0) p.r0'
    System::Call 'gdi32::GetDeviceCaps(p r0, i ${LOGPIXELSX}) i.r1'
    System::Call 'user32::ReleaseDC(p 0, p r0)'
    ${If} $1 >= 240
        File "/oname=$PLUGINSDIR\modern-wizard.bmp" "${PICTURES}/side@3x.bmp"
        File "/oname=$PLUGINSDIR\modern-header.bmp" "${PICTURES}/header@3x.bmp"
    ${ElseIf} $1 >= 144
        File "/oname=$PLUGINSDIR\modern-wizard.bmp" "${PICTURES}/side@2x.bmp"
        File "/oname=$PLUGINSDIR\modern-header.bmp" "${PICTURES}/header@2x.bmp"
    ${Else}
        Return
    ${EndIf}
    SetBrandingImage /IMGID=1046 /RESIZETOFIT "$PLUGINSDIR\modern-header.bmp"
FunctionEnd

Section "Uninstall"
    Call un.RefuseWhileInUse
    SetShellVarContext all
    Delete "$DESKTOP\Ravlin.lnk"
    Delete "$SMPROGRAMS\Ravlin\Ravlin.lnk"
    Delete "$SMPROGRAMS\Ravlin\Ravlin Help.lnk"
    RMDir "$SMPROGRAMS\Ravlin"
    !insertmacro EachFile DeleteFile
    Delete "$INSTDIR\uninstall.exe"
    ; Only where they are empty: a folder may hold what somebody else put there. A file that something still reads, such as a
    ; virus scanner or the desktop drawing its icon, goes a moment later.
    ${ForEach} $0 1 10 + 1
        RMDir "$INSTDIR\licences"
        RMDir "$INSTDIR"
        ${IfThen} ${FileExists} "$INSTDIR" ${|} Sleep 200 ${|}
    ${Next}
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
