# Tests of platform.
foreach(teste IN ITEMS
    test_Values
    test_TextRules
    test_Recordset
    test_Connection
    test_IniFile
    test_ProgramFolder
    test_ListBox
    test_ComboBox
    test_Picture
    test_Dialogs
    test_MessageBoxes
    test_ErrorText
    test_FailureKind
    test_DesktopShell
    test_DesktopRegistry
    test_WindowsRegistry
    test_JetFile)
    morvex_teste(platform/${teste} LIGA platform)
endforeach()
morvex_teste(platform/test_DesktopSound LIGA platform)
morvex_teste(platform/test_SingleInstance LIGA platform)
morvex_teste(platform/test_SomGravado LIGA platform)
morvex_teste(platform/test_LongText LIGA platform)
morvex_teste(platform/test_RisingCard LIGA platform)
morvex_teste(platform/test_ElidingLabel LIGA platform)
morvex_teste(platform/test_Pop3Check LIGA platform)
# The report engine.
foreach(teste IN ITEMS
    test_SelectionFormula
    test_ReportDefinition
    test_ReportData
    test_ReportPages
    test_ReportPrinting
    test_CrystalReport)
    morvex_teste(platform/${teste} LIGA platform_report)
endforeach()
morvex_teste(platform/test_PopMailNotification LIGA platform)
morvex_teste(platform/test_MailProgram LIGA platform)
morvex_teste(platform/test_ReportExport LIGA platform_report freexl)
morvex_teste(platform/test_servidor_pop3 LIGA platform)
morvex_teste(platform/test_PurpleMessenger LIGA session)
foreach(teste IN ITEMS test_servidor_pop3 test_PurpleMessenger test_ReportPrinting)
    target_compile_definitions(${teste} PRIVATE MORVEX_SERVIDORES="${CMAKE_CURRENT_SOURCE_DIR}/servidores")
endforeach()
