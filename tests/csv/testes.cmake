# Tests of csv.
foreach(teste IN ITEMS
    test_CsvReader
    test_CsvHeaders
    test_CsvValues
    test_CsvWriter
    test_tabelas_estragadas)
    morvex_teste(csv/${teste} LIGA csv)
endforeach()
