# Tests of platform.
foreach(teste IN ITEMS
    test_Caption
    test_ChooseDesktop
    test_CommandLine
    test_DesktopRegistry
    test_DesktopSessionEnd
    test_DesktopShell
    test_DesktopSound
    test_DesktopTray
    test_Dialogs
    test_ErrorText
    test_FreeMemory
    test_HttpGet
    test_IniFile
    test_MailProgram
    test_MessageBoxes
    test_Picture
    test_Process
    test_ProgramFolder
    test_RegistryMailProgram
    test_SecretService
    test_SingleInstance
    test_SomGravado
    test_Terminal
    test_TextEncoding
    test_ToolkitLanguage
    test_TrayHosts
    test_WindowsRegistry)
    morvex_teste(platform/${teste} LIGA platform)
endforeach()
morvex_teste(platform/test_ColourScheme LIGA controls)
morvex_teste(platform/test_PurpleMessenger LIGA session)
morvex_servidores(test_PurpleMessenger)
morvex_servidores(test_SecretService)
