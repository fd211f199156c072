; The installer. packaging/make.py calls it with VERSION, OUTPUT, PAYLOAD and FILES, the list of what to
; install that it wrote. Options on the command line of the installer: /S silent. Of the uninstaller: /S
; silent, settings and logs stay; /REMOVESETTINGS with /S, they go; /UPGRADE, for a newer installer.
; Exit codes: 0 done, 1 cancelled, 2 the plug-in is in use, 3 a newer version is installed, 4 a file could
; not be written.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin
ManifestDPIAware true
CRCCheck force

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include "${FILES}"

!define PRODUCT "Orv Rendering"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\OrvRendering"

Name "${PRODUCT} ${VERSION}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION} for 3ds Max 2019"
ShowInstDetails show
ShowUninstDetails show

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${PRODUCT} installer"
VIAddVersionKey LegalCopyright "${COPYRIGHT}"

Var Product ; the product folder
Var Bundle  ; what 3ds Max loads
Var Removes ; 1: the uninstaller takes settings and logs as well
Var Upgrades

!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "This installs ${PRODUCT} for every user of this computer.$\r$\n$\r$\nIf it is installed already, it is brought up to date or repaired; settings and logs stay.$\r$\n$\r$\nPlease close 3ds Max first."
!define MUI_FINISHPAGE_TEXT "Start 3ds Max 2019: the menu bar has a menu ${PRODUCT}.$\r$\n$\r$\nSettings and logs are in $Product.$\r$\n$\r$\nThe first start prepares the scene parser; if you may not write to the folder, start 3ds Max once as administrator."
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE SimpChinese

LangString InUse ${LANG_ENGLISH} "The plug-in is in use. Please close 3ds Max and try again."
LangString InUse ${LANG_SIMPCHINESE} "插件正在使用中。请关闭 3ds Max 后重试。"
LangString Newer ${LANG_ENGLISH} "A newer version is installed. To go back, uninstall it first."
LangString Newer ${LANG_SIMPCHINESE} "已安装更新的版本。如需退回旧版本，请先将其卸载。"
LangString Unwritable ${LANG_ENGLISH} "A file could not be written. Please check the disk and try again."
LangString Unwritable ${LANG_SIMPCHINESE} "文件无法写入。请检查磁盘后重试。"
LangString AskSettings ${LANG_ENGLISH} "Remove settings and logs as well?$\r$\n$\r$\nChoose No to keep them for a later installation."
LangString AskSettings ${LANG_SIMPCHINESE} "是否同时删除设置和日志？$\r$\n$\r$\n选择“否”可保留它们，供以后安装时使用。"

!macro Folders
  SetShellVarContext all
  SetRegView 64
  StrCpy $Product "$APPDATA\${PRODUCT}"
  StrCpy $Bundle "$APPDATA\Autodesk\ApplicationPlugins\OrvRendering.bundle"
!macroend

!macro FailWith code text
  SetErrorLevel ${code}
  MessageBox MB_OK|MB_ICONEXCLAMATION "${text}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend

; A library that 3ds Max has loaded can neither be opened for writing nor deleted.
!macro StopIfInUse
  ${If} ${FileExists} "$Bundle\Contents\OrvRendering.gup"
    ClearErrors
    FileOpen $0 "$Bundle\Contents\OrvRendering.gup" a
    ${If} ${Errors}
      !insertmacro FailWith 2 "$(InUse)"
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

; Rights by well-known numbers, which are the same in every language: S-1-5-18 the system, S-1-5-32-544
; administrators, S-1-5-32-545 users.
!macro Rights arguments
  nsExec::Exec 'icacls.exe ${arguments}'
  Pop $0
!macroend
!define READ_ONLY "/inheritance:r /grant *S-1-5-18:(OI)(CI)F /grant *S-1-5-32-544:(OI)(CI)F /grant *S-1-5-32-545:(OI)(CI)RX"

Function .onInit
  !insertmacro Folders
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "DisplayVersion"
  ${If} $0 != ""
    ${VersionCompare} $0 "${VERSION}" $1
    ${If} $1 = 1
      !insertmacro FailWith 3 "$(Newer)"
    ${EndIf}
  ${EndIf}
  !insertmacro StopIfInUse
FunctionEnd

Section
  SetOverwrite on
  ; An older or the same version leaves first, so that nothing of it stays that this one does not have. The
  ; key tells that it is ours: before the first installation any user can make such a folder.
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "DisplayVersion"
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$Product\uninstall.exe"
    ExecWait '"$Product\uninstall.exe" /S /UPGRADE _?=$Product'
  ${EndIf}

  ; New files, not old ones with a new content: an old one may belong to a user.
  !insertmacro RemoveFiles
  ClearErrors
  CreateDirectory "$Product\json"
  CreateDirectory "$Product\compress"
  CreateDirectory "$Product\log${VERSION}"
  !insertmacro InstallFiles
  WriteUninstaller "$Product\uninstall.exe"
  ${If} ${Errors}
    !insertmacro FailWith 4 "$(Unwritable)"
  ${EndIf}

  ; Settings that are there already count.
  SetOverwrite off
  SetOutPath "$Product\script"
  File "${PAYLOAD}\rud_plugin.ini"
  SetOverwrite on

  DetailPrint "Rights"
  !insertmacro Rights '"$Product" /setowner *S-1-5-32-544'
  !insertmacro Rights '"$Product\script" /setowner *S-1-5-32-544'
  !insertmacro Rights '"$Product\7-Zip" /setowner *S-1-5-32-544'
  !insertmacro Rights '"$Bundle" /setowner *S-1-5-32-544'
  ; Every user may add log folders and write in them; what runs may be changed by administrators only.
  !insertmacro Rights '"$Product" ${READ_ONLY} /grant *S-1-5-32-545:(AD) /grant *S-1-5-32-545:(OI)(CI)(IO)M'
  !insertmacro Rights '"$Product\7-Zip" ${READ_ONLY}'
  !insertmacro Rights '"$Product\licences" ${READ_ONLY}'
  !insertmacro Rights '"$Product\script" ${READ_ONLY}'
  !insertmacro Rights '"$Product\uninstall.exe" /inheritance:r /grant *S-1-5-18:F /grant *S-1-5-32-544:F /grant *S-1-5-32-545:RX'
  !insertmacro Rights '"$Product\script\rud_plugin.ini" /grant *S-1-5-32-545:M'
  !insertmacro Rights '"$Bundle" ${READ_ONLY}'

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT} for 3ds Max 2019"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${PRODUCT}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$Product"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$Product\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$Product\uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  ${GetSize} "$Product" "/S=0K" $0 $1 $2
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
  SetErrorLevel 0
SectionEnd

Function un.onInit
  !insertmacro Folders
  StrCpy $Removes 0
  StrCpy $Upgrades 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/UPGRADE" $1
  ${IfNot} ${Errors}
    StrCpy $Upgrades 1
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/REMOVESETTINGS" $1
  ${IfNot} ${Errors}
    StrCpy $Removes 1
  ${EndIf}
  !insertmacro StopIfInUse
FunctionEnd

; A folder that is a link to another place is left alone: users may make folders here.
!macro RemoveIn folder pattern
  System::Call 'kernel32::GetFileAttributesW(w "${folder}") i.r0'
  IntOp $0 $0 & 0x400
  ${If} $0 = 0
    Delete "${folder}\${pattern}"
    RMDir "${folder}"
  ${EndIf}
!macroend

Section Uninstall
  !insertmacro RemoveFiles
  ${If} $Upgrades = 0
    ${If} $Removes = 0
    ${AndIfNot} ${Silent}
      MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(AskSettings)" IDNO +2
      StrCpy $Removes 1
    ${EndIf}
    ${If} $Removes = 1
      Delete "$Product\script\rud_plugin.ini"
      Delete "$Product\script\custom.bin"
      !insertmacro RemoveIn "$Product\json" "*.ret"
      !insertmacro RemoveIn "$Product\json" "*.log"
      !insertmacro RemoveIn "$Product\compress" "*.7z"
      FindFirst $2 $3 "$Product\log*"
      ${DoWhile} $3 != ""
        Delete "$Product\log\OrvAntivirus.log*"
        !insertmacro RemoveIn "$Product\$3" "rud_*.log"
        FindNext $2 $3
      ${Loop}
      FindClose $2
    ${EndIf}
    ; Folders that are empty go; a folder with something in it stays.
    RMDir "$Product\json"
    RMDir "$Product\compress"
    RMDir "$Product\log${VERSION}"
    RMDir "$Product\script"
    RMDir "$Product\licences"
    RMDir "$Product\7-Zip"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
  ${EndIf}
  Delete "$Product\uninstall.exe"
  RMDir "$Product"
  RMDir "$Bundle\Contents"
  RMDir "$Bundle"
  SetErrorLevel 0
SectionEnd

