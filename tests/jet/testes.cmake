# Tests of jet.
foreach(teste IN ITEMS
    test_JetFile)
    morvex_teste(jet/${teste} LIGA jet)
endforeach()
