; The installer of the component and the program: for the machine or for one user, chosen on its second page or by
; /AllUsers and /CurrentUser; silent with /S. Built by CMake's target "installer", which gives VERSION, COMPONENT,
; COMPONENT32, PROGRAM, WINDOWSPROGRAM (the last three need not be there), FILES (made by list-files), LICENSE and OUTPUT.
;
; What users may have changed or added (job options, plotter files, plot styles, help) is theirs: a file is replaced or
; deleted only when it is as it was installed. install.ini keeps the time of each file for that.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma

!define PRODUCT "Sheetmaker PDF for AutoCAD"
!define PRODUCT_KEY "Software\Tarnwick Software\Sheetmaker PDF"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\SheetmakerPdfAutoCAD"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "Tarnwick Software\Sheetmaker PDF\AutoCAD"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include "${FILES}"

Var Given
Name "${PRODUCT}"
OutFile "${OUTPUT}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Tarnwick Sheetmaker PDF"
VIAddVersionKey CompanyName "Tarnwick Software"
VIAddVersionKey FileDescription "Installs ${PRODUCT}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Tarnwick Software"

!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function .onInit
    SetRegView 64
    ; A folder given by /D goes before that of the chosen mode.
    StrCpy $Given $INSTDIR
    !insertmacro MULTIUSER_INIT
    ${If} $Given != ""
        StrCpy $INSTDIR $Given
    ${EndIf}
FunctionEnd

Function un.onInit
    SetRegView 64
    ; Who installs for one user beside an installation for the machine has two: this one is where this program lies, which
    ; choosing a mode forgets.
    StrCpy $Given $INSTDIR
    !insertmacro MULTIUSER_UNINIT
    StrCpy $INSTDIR $Given
    ; Whose installation this is was written down beside it: the command line need not tell.
    ReadINIStr $0 "$INSTDIR\install.ini" "Install" "Mode"
    ${If} $0 == "CurrentUser"
        Call un.MultiUser.InstallMode.CurrentUser
    ${ElseIf} $0 == "AllUsers"
        Call un.MultiUser.InstallMode.AllUsers
    ${EndIf}
    StrCpy $INSTDIR $Given
FunctionEnd

; Takes a path within the folder from the stack and gives 1 when nothing is there or the file is as it was installed.
!macro IsAsInstalled UN
Function ${UN}IsAsInstalled
    Pop $R0
    StrCpy $R1 1
    ${If} ${FileExists} "$INSTDIR\$R0"
        GetFileTime "$INSTDIR\$R0" $R2 $R3
        ReadINIStr $R4 "$INSTDIR\install.ini" "Files" "$R0"
        ${If} $R4 != "$R2 $R3"
            StrCpy $R1 0
        ${EndIf}
    ${EndIf}
    ClearErrors
    Push $R1
FunctionEnd
!macroend
!insertmacro IsAsInstalled ""
!insertmacro IsAsInstalled "un."

!macro InstallFile FOLDER NAME SOURCE
    Push "${FOLDER}\${NAME}"
    Call IsAsInstalled
    Pop $R1
    ${If} $R1 == 1
        SetOutPath "$INSTDIR\${FOLDER}"
        File "/oname=${NAME}" "${SOURCE}"
        GetFileTime "$INSTDIR\${FOLDER}\${NAME}" $R2 $R3
        WriteINIStr "$INSTDIR\install.ini" "Files" "${FOLDER}\${NAME}" "$R2 $R3"
    ${EndIf}
!macroend

!macro RemoveFile FOLDER NAME SOURCE
    Push "${FOLDER}\${NAME}"
    Call un.IsAsInstalled
    Pop $R1
    ${If} $R1 == 1
        Delete "$INSTDIR\${FOLDER}\${NAME}"
    ${EndIf}
!macroend

!macro RemoveFolder FOLDER
    RMDir "$INSTDIR\${FOLDER}"
!macroend

!macro Regsvr32 OPTIONS
    ExecWait '"$SYSDIR\regsvr32.exe" /s ${OPTIONS} "$INSTDIR\TwAcadPdf.dll"' $0
!macroend

; The component of 32-bit processes lies beside the other one; their own regsvr32 makes it known to them.
!macro Regsvr32Other OPTIONS
    ${If} ${FileExists} "$INSTDIR\TwAcadPdf32.dll"
    ${AndIf} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
        ExecWait '"$WINDIR\SysWOW64\regsvr32.exe" /s ${OPTIONS} "$INSTDIR\TwAcadPdf32.dll"'
    ${EndIf}
!macroend

!macro WriteFacts
    WriteRegStr SHCTX "${PRODUCT_KEY}" "Version" "${VERSION}"
    WriteRegStr SHCTX "${PRODUCT_KEY}\AutoCAD" "HelpFile" "$INSTDIR\help\index.html"
    WriteRegStr SHCTX "${PRODUCT_KEY}\AutoCAD" "SettingsFolder" "$INSTDIR\Settings"
!macroend

!macro DeleteFacts
    DeleteRegValue SHCTX "${PRODUCT_KEY}\AutoCAD" "HelpFile"
    DeleteRegValue SHCTX "${PRODUCT_KEY}\AutoCAD" "SettingsFolder"
    DeleteRegKey /ifempty SHCTX "${PRODUCT_KEY}\AutoCAD"
    DeleteRegValue SHCTX "${PRODUCT_KEY}" "Version"
    DeleteRegKey /ifempty SHCTX "${PRODUCT_KEY}"
    DeleteRegKey /ifempty SHCTX "Software\Tarnwick Software"
!macroend

Section "Program"
    !if /FileExists "${PROGRAM}"
        SetOutPath "$INSTDIR"
        File "${PROGRAM}"
        File "${WINDOWSPROGRAM}"
        !insertmacro ProgramFiles InstallFile
    !endif
SectionEnd

Section "Component for CAD programs"
    SectionIn RO
    SetOutPath "$INSTDIR"
    File "${COMPONENT}"
    !if /FileExists "${COMPONENT32}"
        File "/oname=TwAcadPdf32.dll" "${COMPONENT32}"
    !endif
    File "/oname=License.txt" "${LICENSE}"
    !insertmacro ComponentFiles InstallFile
    WriteINIStr "$INSTDIR\install.ini" "Install" "Mode" "$MultiUser.InstallMode"
    WriteUninstaller "$INSTDIR\Uninstall.exe"

    !insertmacro WriteFacts
    ; Programs of 32 bits see keys of the machine of their own.
    SetRegView 32
    !insertmacro WriteFacts
    SetRegView 64
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Tarnwick Software"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0

    ${If} $MultiUser.InstallMode == "CurrentUser"
        !insertmacro Regsvr32Other "/n /i:user"
        !insertmacro Regsvr32 "/n /i:user"
    ${Else}
        !insertmacro Regsvr32Other ""
        !insertmacro Regsvr32 ""
    ${EndIf}
    ${If} $0 != 0
        SetErrorLevel 2
        MessageBox MB_OK|MB_ICONSTOP "The component could not be registered ($0)." /SD IDOK
    ${EndIf}
SectionEnd

; The settings that users made stay: they are theirs.
Section "Uninstall"
    ${If} $MultiUser.InstallMode == "CurrentUser"
        !insertmacro Regsvr32 "/u /n /i:user"
        !insertmacro Regsvr32Other "/u /n /i:user"
    ${Else}
        !insertmacro Regsvr32 "/u"
        !insertmacro Regsvr32Other "/u"
    ${EndIf}
    Delete "$INSTDIR\TwAcadPdf.dll"
    Delete "$INSTDIR\TwAcadPdf32.dll"
    Delete "$INSTDIR\sheetmaker.exe"
    Delete "$INSTDIR\sheetmaker-windows.exe"
    Delete "$INSTDIR\License.txt"
    !insertmacro ProgramFiles RemoveFile
    !insertmacro ComponentFiles RemoveFile
    !insertmacro ProgramFolders RemoveFolder
    !insertmacro ComponentFolders RemoveFolder
    Delete "$INSTDIR\install.ini"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"

    !insertmacro DeleteFacts
    SetRegView 32
    !insertmacro DeleteFacts
    SetRegView 64
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    ${If} $MultiUser.InstallMode == "CurrentUser"
        ; A user's first program of this kind has made it.
        DeleteRegKey /ifempty HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall"
    ${EndIf}
SectionEnd
