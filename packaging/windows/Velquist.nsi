; SPDX-License-Identifier: MIT
; The installer: for the one user who runs it, without administrator rights.
;
; makensis -DVERSION=1.2.3 -DFOLDER=<what ships> -DFILES=<lists of files> -DOUT=<installer>
;   -DICON=<icon> -DSIDE=<bitmap> -DBANNER=<bitmap> -DCOPYRIGHT=<line>
;
; Data files and default setups are the user's to change. Beside each, an untouched copy lies in
; Originals: an update replaces only what is still the same as its copy, and removing the program
; leaves what was changed. The settings file is never touched.

Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
Name "Velquist"
BrandingText "Velquist ${VERSION}"
OutFile "${OUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Velquist"
InstallDirRegKey HKCU "Software\Velquist Project\Velquist" "Directory"
ManifestDPIAware true
ManifestSupportedOS Win10
VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey "CompanyName" "Velquist Project"
VIAddVersionKey "FileDescription" "Velquist installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "${COPYRIGHT}"
VIAddVersionKey "ProductName" "Velquist"
VIAddVersionKey "ProductVersion" "${VERSION}"

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velquist"
!define OPEN_WITH_KEY "Software\Classes\Applications\Velquist.exe"
!define SETTINGS "Velquist Program Settings.ini"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "${BANNER}"
!define MUI_HEADERIMAGE_UNBITMAP "${BANNER}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\Velquist.exe"
; What the page calls its read-me box is the shortcut's.
!define MUI_FINISHPAGE_SHOWREADME
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME_TEXT "&Put a shortcut on the desktop"
!define MUI_FINISHPAGE_SHOWREADME_FUNCTION PutShortcutOnDesktop
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function PutShortcutOnDesktop
  CreateShortCut "$DESKTOP\Velquist.lnk" "$INSTDIR\Velquist.exe"
FunctionEnd

; The list of programs that open a file is read again.
!define ASSOCIATIONS_CHANGED "System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'"

; $R0 becomes 1 when both files are there and hold the same bytes, else 0.
!macro SameFile PREFIX
Function ${PREFIX}SameFile
  Exch $0
  Exch
  Exch $1
  Push $2
  Push $3
  Push $4
  Push $5
  StrCpy $R0 0
  ${If} ${FileExists} "$0"
  ${AndIf} ${FileExists} "$1"
    FileOpen $2 "$0" r
    FileOpen $3 "$1" r
    FileSeek $2 0 END $4
    FileSeek $3 0 END $5
    ${If} $4 = $5
      FileSeek $2 0 SET
      FileSeek $3 0 SET
      StrCpy $R0 1
      ${Do}
        ClearErrors
        FileReadByte $2 $4
        ${If} ${Errors}
          ${ExitDo}
        ${EndIf}
        FileReadByte $3 $5
        ${If} $4 != $5
          StrCpy $R0 0
          ${ExitDo}
        ${EndIf}
      ${Loop}
    ${EndIf}
    FileClose $2
    FileClose $3
  ${EndIf}
  ClearErrors
  Pop $5
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Pop $0
FunctionEnd
!macroend
!insertmacro SameFile ""
!insertmacro SameFile "un."

; PLACE is "" or a folder with "\" in front of it.

; What the version before brought and nobody changed goes first: what ships no longer is not left.
!macro RemoveUnchangedData PLACE
  FindFirst $R1 $R2 "$INSTDIR\Originals${PLACE}\*.*"
  ${DoUntil} $R2 == ""
    ${If} ${FileExists} "$INSTDIR${PLACE}\$R2"
    ${AndIfNot} ${FileExists} "$INSTDIR${PLACE}\$R2\*.*"
      Push "$INSTDIR${PLACE}\$R2"
      Push "$INSTDIR\Originals${PLACE}\$R2"
      Call SameFile
      ${If} $R0 = 1
        Delete "$INSTDIR${PLACE}\$R2"
      ${EndIf}
      Delete "$INSTDIR\Originals${PLACE}\$R2"
    ${EndIf}
    FindNext $R1 $R2
  ${Loop}
  FindClose $R1
!macroend

!macro InstallData PLACE FILE
  SetOutPath "$INSTDIR\Originals${PLACE}"
  File "${FOLDER}${PLACE}\${FILE}"
  ${IfNot} ${FileExists} "$INSTDIR${PLACE}\${FILE}"
    SetOutPath "$INSTDIR${PLACE}"
    File "${FOLDER}${PLACE}\${FILE}"
  ${EndIf}
!macroend

!macro RemoveData PLACE FILE
  Push "$INSTDIR${PLACE}\${FILE}"
  Push "$INSTDIR\Originals${PLACE}\${FILE}"
  Call un.SameFile
  ${If} $R0 = 1
    Delete "$INSTDIR${PLACE}\${FILE}"
  ${ElseIf} ${FileExists} "$INSTDIR${PLACE}\${FILE}"
    StrCpy $R9 1
  ${EndIf}
  Delete "$INSTDIR\Originals${PLACE}\${FILE}"
!macroend

!macro RemoveChangedData PLACE FILE
  Delete "$INSTDIR${PLACE}\${FILE}"
!macroend

!macro InstallLicence FILE
  File "${FOLDER}\Licences\${FILE}"
!macroend

!macro RemoveLicence FILE
  Delete "$INSTDIR\Licences\${FILE}"
!macroend

!include "${FILES}"

Section
  ; A program that runs cannot be replaced.
  SetOutPath "$INSTDIR"
  SetOverwrite try
  ClearErrors
  File "${FOLDER}\Velquist.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Velquist is running. Close it and install again." /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  File "${FOLDER}\velquist-cli.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "velquist-cli is running. Wait for it and install again." /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  SetOverwrite on
  File "${FOLDER}\Velquist Manual.txt"
  SetOutPath "$INSTDIR\Licences"
  !insertmacro LicenceFiles InstallLicence
  !insertmacro RemoveUnchangedData ""
  !insertmacro RemoveUnchangedData "\Metric"
  !insertmacro DataFiles InstallData

  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateShortCut "$SMPROGRAMS\Velquist.lnk" "$INSTDIR\Velquist.exe"
  WriteRegStr HKCU "Software\Velquist Project\Velquist" "Directory" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Velquist"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Velquist.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Velquist Project"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Contact" "Velquist Project"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Readme" "$INSTDIR\Velquist Manual.txt"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "HelpLink" "file:///$INSTDIR\Velquist Manual.txt"
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" "$0"
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1

  ; Offered for any file, taken for none: setups have too many endings, and the game's own tools
  ; know some of them.
  WriteRegStr HKCU "${OPEN_WITH_KEY}" "FriendlyAppName" "Velquist"
  WriteRegStr HKCU "${OPEN_WITH_KEY}\DefaultIcon" "" "$INSTDIR\Velquist.exe,0"
  WriteRegStr HKCU "${OPEN_WITH_KEY}\shell\open" "FriendlyAppName" "Velquist"
  WriteRegStr HKCU "${OPEN_WITH_KEY}\shell\open\command" "" '"$INSTDIR\Velquist.exe" "%1"'
  ${ASSOCIATIONS_CHANGED}
SectionEnd

Section Uninstall
  ClearErrors
  Delete "$INSTDIR\Velquist.exe"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "Velquist is running. Close it and remove it again." /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}
  Delete "$INSTDIR\velquist-cli.exe"
  Delete "$INSTDIR\Velquist Manual.txt"
  !insertmacro LicenceFiles RemoveLicence
  Delete "$INSTDIR\MyPicture.tmp"
  Delete "$INSTDIR\Uninstall.exe"
  Delete "$SMPROGRAMS\Velquist.lnk"
  Delete "$DESKTOP\Velquist.lnk"

  StrCpy $R9 0
  !insertmacro DataFiles RemoveData
  ${If} ${FileExists} "$INSTDIR\${SETTINGS}"
    StrCpy $R9 1
  ${EndIf}
  ${If} $R9 = 1
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
      "Remove your settings and the data files and default setups that you have changed, too?" \
      /SD IDNO IDNO keep
    !insertmacro DataFiles RemoveChangedData
    Delete "$INSTDIR\${SETTINGS}"
    keep:
  ${EndIf}

  ; Folders go when nothing of the user's is left in them.
  RMDir "$INSTDIR\Originals\Metric"
  RMDir "$INSTDIR\Originals"
  RMDir "$INSTDIR\Licences"
  RMDir "$INSTDIR\Metric"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${OPEN_WITH_KEY}"
  ${ASSOCIATIONS_CHANGED}
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "Software\Velquist Project\Velquist"
  DeleteRegKey /ifempty HKCU "Software\Velquist Project"
SectionEnd
