; The installer of the component and the program: for the machine or for one user, chosen on its second page or by
; /AllUsers and /CurrentUser; silent with /S. Built by CMake's target "installer", which gives VERSION, STAGE (the folder
; that stage-files made), FILES (made by list-files), ICON, SIGN (what signs installer and uninstaller) and OUTPUT.
;
; What users may have changed or added (job options, plotter files, plot styles, help) is theirs: a file is replaced or
; deleted only when it is as it was installed. install.ini keeps the time of each file for that.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
!finalize '"${SIGN}" "%1"' = 0
!uninstfinalize '"${SIGN}" "%1"' = 0

!define PRODUCT "Sheetmaker PDF for AutoCAD"
!define PRODUCT_KEY "Software\Tarnwick Software\Sheetmaker PDF"
!define CLASSES "Software\Classes"
!define DRAWING_CLASS "Tarnwick.SheetmakerPdf.Drawing"
!define MENU "$SMPROGRAMS\Sheetmaker PDF"
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
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
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

!insertmacro MUI_PAGE_LICENSE "${STAGE}/License.txt"
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

; A library or program that is in use can't be written over. It is put aside under another name, by which the programs
; that use it go on with it until they end, and the new one takes its place; where even that can't be done, Windows
; exchanges them when it starts.
!macro InstallProgram NAME
    Delete "$INSTDIR\${NAME}.former"
    ClearErrors
    SetOverwrite try
    File "/oname=${NAME}" "${STAGE}/${NAME}"
    ${If} ${Errors}
        Push "${NAME}"
        Call PutAside
        Pop $R1
        ${If} $R1 == 1
            File "/oname=${NAME}" "${STAGE}/${NAME}"
        ${Else}
            File "/oname=${NAME}.new" "${STAGE}/${NAME}"
            Rename /REBOOTOK "$INSTDIR\${NAME}.new" "$INSTDIR\${NAME}"
        ${EndIf}
    ${EndIf}
    SetOverwrite on
    ClearErrors
!macroend

!macro RemoveProgram NAME
    ClearErrors
    Delete "$INSTDIR\${NAME}"
    ${If} ${Errors}
        Rename "$INSTDIR\${NAME}" "$INSTDIR\${NAME}.former"
        Delete /REBOOTOK "$INSTDIR\${NAME}"
    ${EndIf}
    Delete /REBOOTOK "$INSTDIR\${NAME}.former"
    ClearErrors
!macroend

; Takes the name of a file in use from the stack, gives 1 when it could be put aside, and tells the user.
Function PutAside
    Pop $R0
    ClearErrors
    Rename "$INSTDIR\$R0" "$INSTDIR\$R0.former"
    ${If} ${Errors}
        StrCpy $R1 0
        StrCpy $R2 "$R0 is in use. It is replaced when Windows is started next."
        SetErrorLevel 3010 ; what Windows Installer says then
    ${Else}
        StrCpy $R1 1
        StrCpy $R2 "$R0 is in use. Programs that run now go on with the former one,"
        StrCpy $R2 "$R2 and take the new one when they are started next."
        Delete /REBOOTOK "$INSTDIR\$R0.former"
    ${EndIf}
    DetailPrint "$R2"
    WriteINIStr "$INSTDIR\install.ini" "InUse" "$R0" "$R2"
    MessageBox MB_OK|MB_ICONINFORMATION "$R2" /SD IDOK
    ClearErrors
    Push $R1
FunctionEnd

!macro RemoveFolder FOLDER
    RMDir "$INSTDIR\${FOLDER}"
!macroend

!macro Regsvr32 OPTIONS
    ExecWait '"$SYSDIR\regsvr32.exe" /s ${OPTIONS} "$INSTDIR\TwAcadPdf.dll"' $0
!macroend

; The component of 32-bit processes lies beside the other one; their own regsvr32 makes it known to them.
!macro Regsvr32Other OPTIONS
    StrCpy $1 0
    ${If} ${FileExists} "$INSTDIR\TwAcadPdf32.dll"
    ${AndIf} ${FileExists} "$WINDIR\SysWOW64\regsvr32.exe"
        ExecWait '"$WINDIR\SysWOW64\regsvr32.exe" /s ${OPTIONS} "$INSTDIR\TwAcadPdf32.dll"' $1
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

; Whatever opens drawings stays what opens them; this is one more under "Open with".
!macro OfferFor TYPE
    WriteRegStr SHCTX "${CLASSES}\${TYPE}\OpenWithProgids" "${DRAWING_CLASS}" ""
!macroend
!macro OfferNoMoreFor TYPE
    DeleteRegValue SHCTX "${CLASSES}\${TYPE}\OpenWithProgids" "${DRAWING_CLASS}"
    DeleteRegKey /ifempty SHCTX "${CLASSES}\${TYPE}\OpenWithProgids"
    DeleteRegKey /ifempty SHCTX "${CLASSES}\${TYPE}"
!macroend

Section "-Beginning"
    DeleteINISec "$INSTDIR\install.ini" "InUse"
SectionEnd

!if /FileExists "${STAGE}/sheetmaker.exe"
Section "Program" SecProgram
    SetOutPath "$INSTDIR"
    !insertmacro InstallProgram sheetmaker.exe
    !insertmacro InstallProgram sheetmaker-windows.exe
    !insertmacro ProgramFiles InstallFile
SectionEnd

Section "Start menu entries" SecMenu
    CreateDirectory "${MENU}"
    SetOutPath "$INSTDIR" ; in which what the entries name is started
    CreateShortCut "${MENU}\Sheetmaker PDF.lnk" "$INSTDIR\sheetmaker-windows.exe" "settings"
    CreateShortCut "${MENU}\Global Page Setup.lnk" "$INSTDIR\sheetmaker-windows.exe" "page-setup"
    CreateShortCut "${MENU}\Sheetmaker PDF Command Prompt.lnk" "$SYSDIR\cmd.exe" '/k set "PATH=$INSTDIR;%PATH%"' \
        "$INSTDIR\sheetmaker.exe"
    CreateShortCut "${MENU}\Sheetmaker PDF Help.lnk" "$INSTDIR\help\index.html"
SectionEnd

Section "File types DXF and DWG" SecTypes
    WriteRegStr SHCTX "${CLASSES}\${DRAWING_CLASS}" "" "Drawing (Sheetmaker PDF)"
    WriteRegStr SHCTX "${CLASSES}\${DRAWING_CLASS}\DefaultIcon" "" "$INSTDIR\sheetmaker-windows.exe,0"
    WriteRegStr SHCTX "${CLASSES}\${DRAWING_CLASS}\shell\open" "FriendlyAppName" "Sheetmaker PDF"
    WriteRegStr SHCTX "${CLASSES}\${DRAWING_CLASS}\shell\open\command" "" \
        '"$INSTDIR\sheetmaker-windows.exe" settings "%1"'
    !insertmacro OfferFor .dxf
    !insertmacro OfferFor .dwg
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; types of files have changed
SectionEnd

; Without the program there is nothing to start.
Function .onSelChange
    ${IfNot} ${SectionIsSelected} ${SecProgram}
        !insertmacro UnselectSection ${SecMenu}
        !insertmacro UnselectSection ${SecTypes}
    ${EndIf}
FunctionEnd
!endif

; A program of its own, under a licence of its own, which the other two find in this folder.
!if /FileExists "${STAGE}/ghostscript/gs.exe"
Section "Ghostscript (PDF underlays, PostScript of other programs)"
    CreateDirectory "$INSTDIR\ghostscript"
    SetOutPath "$INSTDIR"
    !insertmacro InstallProgram "ghostscript\gs.exe"
    SetOutPath "$INSTDIR\ghostscript"
    File "${STAGE}/ghostscript/License.txt"
    File "${STAGE}/ghostscript/Source.txt"
SectionEnd
!endif

Section "Component for CAD programs"
    SectionIn RO
    SetOutPath "$INSTDIR"
    !insertmacro InstallProgram TwAcadPdf.dll
    !if /FileExists "${STAGE}/TwAcadPdf32.dll"
        !insertmacro InstallProgram TwAcadPdf32.dll
    !endif
    File "${STAGE}/License.txt"
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
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Uninstall.exe,0"
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
    ${If} $1 != 0
        SetErrorLevel 2
        MessageBox MB_OK|MB_ICONSTOP "The component for 32-bit programs could not be registered ($1)." /SD IDOK
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
    !insertmacro RemoveProgram TwAcadPdf.dll
    !insertmacro RemoveProgram TwAcadPdf32.dll
    !insertmacro RemoveProgram sheetmaker.exe
    !insertmacro RemoveProgram sheetmaker-windows.exe
    !insertmacro RemoveProgram "ghostscript\gs.exe"
    Delete "$INSTDIR\ghostscript\License.txt"
    Delete "$INSTDIR\ghostscript\Source.txt"
    RMDir "$INSTDIR\ghostscript"
    Delete "${MENU}\Sheetmaker PDF.lnk"
    Delete "${MENU}\Global Page Setup.lnk"
    Delete "${MENU}\Sheetmaker PDF Command Prompt.lnk"
    Delete "${MENU}\Sheetmaker PDF Help.lnk"
    RMDir "${MENU}"
    DeleteRegKey SHCTX "${CLASSES}\${DRAWING_CLASS}"
    !insertmacro OfferNoMoreFor .dxf
    !insertmacro OfferNoMoreFor .dwg
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
