# Tests of report.
foreach(teste IN ITEMS
    test_CompoundFile
    test_CrystalReport
    test_ReportData
    test_ReportDefinition
    test_ReportPages
    test_ReportPreview
    test_ReportPrinting
    test_ReportText
    test_ReportWords
    test_SelectionFormula)
    morvex_teste(report/${teste} LIGA report)
endforeach()
morvex_teste(report/test_ReportExport LIGA report freexl)
morvex_servidores(test_ReportPrinting)
