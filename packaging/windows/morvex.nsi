; The installer: for one user, without an administrator's rights. makensis is told VERSAO, ARVORE (what is installed, with
; "/" between folders), SAIDA and TAMANHO (in KB).
Target amd64-unicode
SetCompressor /SOLID lzma
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh

!define CHAVE "Software\Microsoft\Windows\CurrentVersion\Uninstall\Morvex"
!define CARTAO "Morvex.vcf"

Name "Morvex"
OutFile "${SAIDA}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Morvex"
InstallDirRegKey HKCU "Software\Morvex" "Pasta"
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText "Morvex ${VERSAO}"
VIProductVersion "${VERSAO}.0"
VIAddVersionKey "ProductName" "Morvex"
VIAddVersionKey "FileDescription" "Morvex"
VIAddVersionKey "FileVersion" "${VERSAO}"
VIAddVersionKey "ProductVersion" "${VERSAO}"
VIAddVersionKey "LegalCopyright" ""

!define MUI_ICON "${ICONE}"
!define MUI_UNICON "${ICONE}"
!define MUI_ABORTWARNING
!define MUI_LANGDLL_REGISTRY_ROOT HKCU
!define MUI_LANGDLL_REGISTRY_KEY "Software\Morvex"
!define MUI_LANGDLL_REGISTRY_VALUENAME "Lingua"
!define MUI_FINISHPAGE_RUN "$INSTDIR\bin\morvex.exe"

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Portuguese"
!insertmacro MUI_LANGUAGE "PortugueseBR"
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "Italian"
!insertmacro MUI_LANGUAGE "French"
!insertmacro MUI_LANGUAGE "German"
!insertmacro MUI_RESERVEFILE_LANGDLL

LangString aCorrer ${LANG_ENGLISH} "Morvex is running and has not ended by itself. End it (Exit in its menu) and try again."
LangString aCorrer ${LANG_PORTUGUESE} "O Morvex está a correr e não terminou por si. Termine-o (Sair, no menu dele) e tente outra vez."
LangString aCorrer ${LANG_PORTUGUESEBR} "O Morvex está em execução e não terminou sozinho. Encerre-o (Sair, no menu dele) e tente de novo."
LangString aCorrer ${LANG_SPANISH} "Morvex está en marcha y no ha terminado por sí solo. Termínelo (Salir, en su menú) e inténtelo de nuevo."
LangString aCorrer ${LANG_ITALIAN} "Morvex è in esecuzione e non è terminato da sé. Terminarlo (Esci, nel suo menu) e riprovare."
LangString aCorrer ${LANG_FRENCH} "Morvex est en marche et ne s’est pas terminé de lui-même. Quittez-le (Quitter, dans son menu) et réessayez."
LangString aCorrer ${LANG_GERMAN} "Morvex läuft und hat sich nicht von selbst beendet. Beenden Sie es (Beenden in seinem Menü) und versuchen Sie es noch einmal."
LangString cartaoDe ${LANG_ENGLISH} "Contact card"
LangString cartaoDe ${LANG_PORTUGUESE} "Cartão de contacto"
LangString cartaoDe ${LANG_PORTUGUESEBR} "Cartão de contato"
LangString cartaoDe ${LANG_SPANISH} "Tarjeta de contacto"
LangString cartaoDe ${LANG_ITALIAN} "Scheda di contatto"
LangString cartaoDe ${LANG_FRENCH} "Carte de contact"
LangString cartaoDe ${LANG_GERMAN} "Visitenkarte"

; A running copy of this folder has a hidden window with the folder as its title. Closing it ends the copy as the end of
; the session does: what is being written is kept.
!macro FECHAR un
Function ${un}Fechar
    tenta:
    StrCpy $1 0
    ${Do}
        FindWindow $0 "MorvexEnd" "$INSTDIR\bin"
        ${If} $0 == 0
            Sleep 300 ; it has let go of its window, and not yet of its files
            Return
        ${EndIf}
        SendMessage $0 ${WM_CLOSE} 0 0 /TIMEOUT=2000
        Sleep 250
        IntOp $1 $1 + 1
    ${LoopUntil} $1 > 40
    IfSilent 0 +2
    Abort
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(aCorrer)" IDRETRY tenta
    Abort
FunctionEnd
!macroend
!insertmacro FECHAR ""
!insertmacro FECHAR "un."

Function .onInit
    !insertmacro MUI_LANGDLL_DISPLAY
FunctionEnd

Function un.onInit
    !insertmacro MUI_UNGETLANGUAGE
FunctionEnd

Section "Morvex"
    Call Fechar
    ; Of an earlier version nothing stays but what is the person's, and that does not lie here.
    RMDir /r "$INSTDIR\bin"
    RMDir /r "$INSTDIR\plugins"
    RMDir /r "$INSTDIR\translations"
    RMDir /r "$INSTDIR\share"
    SetOutPath "$INSTDIR"
    File /r "${ARVORE}/*"
    SetOutPath "$INSTDIR\bin"
    CreateShortcut "$SMPROGRAMS\Morvex.lnk" "$INSTDIR\bin\morvex.exe"
    WriteRegStr HKCU "Software\Morvex" "Pasta" "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"

    WriteRegStr HKCU "${CHAVE}" "DisplayName" "Morvex"
    WriteRegStr HKCU "${CHAVE}" "DisplayVersion" "${VERSAO}"
    WriteRegStr HKCU "${CHAVE}" "DisplayIcon" "$INSTDIR\bin\morvex.exe"
    WriteRegStr HKCU "${CHAVE}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${CHAVE}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${CHAVE}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${CHAVE}" "EstimatedSize" ${TAMANHO}
    WriteRegDWORD HKCU "${CHAVE}" "NoModify" 1
    WriteRegDWORD HKCU "${CHAVE}" "NoRepair" 1

    ; Among the programs that open cards; the one where the person has none.
    WriteRegStr HKCU "Software\Classes\${CARTAO}" "" "$(cartaoDe)"
    WriteRegStr HKCU "Software\Classes\${CARTAO}\DefaultIcon" "" "$INSTDIR\bin\morvex.exe,0"
    WriteRegStr HKCU "Software\Classes\${CARTAO}\shell\open\command" "" '"$INSTDIR\bin\morvex.exe" "%1"'
    WriteRegStr HKCU "Software\Classes\.vcf\OpenWithProgids" "${CARTAO}" ""
    ReadRegStr $0 HKCR ".vcf" ""
    ${If} $0 == ""
        WriteRegStr HKCU "Software\Classes\.vcf" "" "${CARTAO}"
    ${EndIf}
    ${RefreshShellIcons}
SectionEnd

; The data (%LOCALAPPDATA%\morvex) stay: they are the person's.
Section "Uninstall"
    Call un.Fechar
    Delete "$SMPROGRAMS\Morvex.lnk"
    RMDir /r "$INSTDIR\bin"
    RMDir /r "$INSTDIR\plugins"
    RMDir /r "$INSTDIR\translations"
    RMDir /r "$INSTDIR\share"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    DeleteRegKey HKCU "${CHAVE}"
    DeleteRegKey HKCU "Software\Classes\${CARTAO}"
    DeleteRegValue HKCU "Software\Classes\.vcf\OpenWithProgids" "${CARTAO}"
    ReadRegStr $0 HKCU "Software\Classes\.vcf" ""
    ${If} $0 == "${CARTAO}"
        DeleteRegValue HKCU "Software\Classes\.vcf" ""
    ${EndIf}
    DeleteRegValue HKCU "Software\Microsoft\Windows\CurrentVersion\Run" "Morvex ${VERSAO}"
    DeleteRegKey HKCU "Software\Morvex"
    ${RefreshShellIcons}
SectionEnd
