# Tests of csv.
foreach(teste IN ITEMS
    test_CsvReader
    test_CsvHeaders
    test_CsvValues
    test_CsvWriter)
    morvex_teste(csv/${teste} LIGA csv)
endforeach()
