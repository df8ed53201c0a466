# Tests of jet.
foreach(teste IN ITEMS
    test_JetFile
    test_JetTable)
    morvex_teste(jet/${teste} LIGA jet)
endforeach()
