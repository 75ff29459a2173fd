; The installer, for one user and without an administrator's rights. Its German is in UTF-8.
; makensis -DVERSION=1.1.0 -DFILES=<folder of all files> -DICON=<icon> -DPICTURE=<of the first page>
; -DREMOVALS=<what the uninstaller does with those files> -DTARGET=<installer>
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
ManifestSupportedOS Win10
RequestExecutionLevel user

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"

!define NAME "Norvik Telefonregister"
!define PROGRAM "norvik-telefonregister.exe"
!define CONVERTER "norvik-konverter.exe"
!define CLASSES "Software\Classes"
!define REGISTER_TYPE "NorvikTelefonregister.t9t"
!define PHONEBOOK_TYPE "NorvikTelefonregister.pbo"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\NorvikTelefonregister"
!define BEFORE "VorNorvikTelefonregister"
!define APP_PATH "Software\Microsoft\Windows\CurrentVersion\App Paths\${PROGRAM}"

Name "${NAME} ${VERSION}"
OutFile "${TARGET}"
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
BrandingText "${NAME} ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1031 "ProductName" "${NAME}"
VIAddVersionKey /LANG=1031 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "FileDescription" "${NAME} installieren"
VIAddVersionKey /LANG=1031 "LegalCopyright" "FREEWARE, ohne Auftrag der Norvik AG erstellt"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_WELCOMEFINISHPAGE_BITMAP_STRETCH AspectFitHeight
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TITLE_3LINES
!define MUI_WELCOMEPAGE_TEXT "Das Programm wird für Sie allein eingerichtet; Rechte eines Administrators braucht es nicht.$\r$\n$\r$\nEine ältere Fassung wird ersetzt. Ihre Register, Einstellungen und früheren Stände bleiben, wie sie sind.$\r$\n$\r$\nKlicken Sie auf Weiter, um fortzufahren."
!define MUI_FINISHPAGE_TITLE_3LINES
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Das Programm wird von hier entfernt. Ihre Register, Einstellungen (norvik.ini) und früheren Stände bleiben, wo sie sind."
!define MUI_FINISHPAGE_RUN "$INSTDIR\${PROGRAM}"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "German"

; A type of the Explorer's own name, opened by the program.
!macro AddType TYPE DESCRIPTION
    WriteRegStr HKCU "${CLASSES}\${TYPE}" "" "${DESCRIPTION}"
    WriteRegStr HKCU "${CLASSES}\${TYPE}\DefaultIcon" "" "$INSTDIR\${PROGRAM},0"
    WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" --datei "%1"'
!macroend

; The ending opens with the program from now on; what it opened with before is noted.
!macro TakeEnding ENDING TYPE
    ReadRegStr $0 HKCU "${CLASSES}\${ENDING}" ""
    ${If} $0 != ""
    ${AndIf} $0 != "${TYPE}"
        WriteRegStr HKCU "${CLASSES}\${ENDING}" "${BEFORE}" "$0"
    ${EndIf}
    WriteRegStr HKCU "${CLASSES}\${ENDING}" "" "${TYPE}"
!macroend

; A program that runs would leave half of a new version.
!macro RefuseWhileRunning UN
Function ${UN}RefuseWhileRunning
    Push "${CONVERTER}"
    Push "${PROGRAM}"
    ${For} $1 1 2
        Pop $2
        ${If} ${FileExists} "$INSTDIR\$2"
            ClearErrors
            FileOpen $0 "$INSTDIR\$2" a
            ${If} ${Errors}
                MessageBox MB_OK|MB_ICONEXCLAMATION "Das Programm läuft noch. Bitte beenden Sie es zuerst." /SD IDOK
                SetErrorLevel 2
                Quit
            ${EndIf}
            FileClose $0
        ${EndIf}
    ${Next}
FunctionEnd
!macroend
!insertmacro RefuseWhileRunning ""
!insertmacro RefuseWhileRunning "un."

Section
    Call RefuseWhileRunning
    SetOutPath "$INSTDIR"
    File /r "${FILES}/*"
    WriteUninstaller "$INSTDIR\Entfernen.exe"

    SetShellVarContext current
    CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\${PROGRAM}"

    !insertmacro AddType "${REGISTER_TYPE}" "Telefonregister (Norvik 195/193)"
    !insertmacro AddType "${PHONEBOOK_TYPE}" "Telefonbuch (Norvik 175)"
    !insertmacro TakeEnding ".t9t" "${REGISTER_TYPE}"
    !insertmacro TakeEnding ".pbo" "${PHONEBOOK_TYPE}"
    ; Contacts and tables stay with their programs; ours is offered beside them.
    WriteRegStr HKCU "${CLASSES}\Applications\${PROGRAM}" "FriendlyAppName" "${NAME}"
    WriteRegStr HKCU "${CLASSES}\Applications\${PROGRAM}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" --datei "%1"'
    WriteRegStr HKCU "${CLASSES}\Applications\${PROGRAM}\SupportedTypes" ".t9t" ""
    WriteRegStr HKCU "${CLASSES}\Applications\${PROGRAM}\SupportedTypes" ".pbo" ""
    WriteRegStr HKCU "${CLASSES}\Applications\${PROGRAM}\SupportedTypes" ".csv" ""
    WriteRegStr HKCU "${CLASSES}\Applications\${PROGRAM}\SupportedTypes" ".vcf" ""
    WriteRegStr HKCU "${CLASSES}\.csv\OpenWithList\${PROGRAM}" "" ""
    WriteRegStr HKCU "${CLASSES}\.vcf\OpenWithList\${PROGRAM}" "" ""
    WriteRegStr HKCU "${APP_PATH}" "" "$INSTDIR\${PROGRAM}"

    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "${NAME}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\${PROGRAM}"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "${NAME}"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\Entfernen.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Entfernen.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" $0
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

; Gives the ending back, unless another program has taken it meanwhile.
!macro RemoveEnding ENDING TYPE
    ReadRegStr $0 HKCU "${CLASSES}\${ENDING}" ""
    ${If} $0 == "${TYPE}"
        ReadRegStr $1 HKCU "${CLASSES}\${ENDING}" "${BEFORE}"
        ${If} $1 == ""
            DeleteRegValue HKCU "${CLASSES}\${ENDING}" ""
        ${Else}
            WriteRegStr HKCU "${CLASSES}\${ENDING}" "" "$1"
        ${EndIf}
    ${EndIf}
    DeleteRegValue HKCU "${CLASSES}\${ENDING}" "${BEFORE}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\${ENDING}"
    DeleteRegKey HKCU "${CLASSES}\${TYPE}"
!macroend

!macro RemoveOffer ENDING
    DeleteRegKey HKCU "${CLASSES}\${ENDING}\OpenWithList\${PROGRAM}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\${ENDING}\OpenWithList"
    DeleteRegKey /ifempty HKCU "${CLASSES}\${ENDING}"
!macroend

Section "Uninstall"
    Call un.RefuseWhileRunning
    ; What was installed, file by file: settings and earlier versions are the user's.
    !include "${REMOVALS}"
    Delete "$INSTDIR\Entfernen.exe"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR\staende"  ; where it is empty
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs"  ; Windows makes it, too, when the first program comes
    SetShellVarContext current
    Delete "$SMPROGRAMS\${NAME}.lnk"
    !insertmacro RemoveEnding ".t9t" "${REGISTER_TYPE}"
    !insertmacro RemoveEnding ".pbo" "${PHONEBOOK_TYPE}"
    !insertmacro RemoveOffer ".csv"
    !insertmacro RemoveOffer ".vcf"
    DeleteRegKey HKCU "${CLASSES}\Applications\${PROGRAM}"
    DeleteRegKey HKCU "${APP_PATH}"
    DeleteRegKey HKCU "${UNINSTALL}"
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd
