# Tests of servidor, on a real server but for one.
morvex_teste(servidor/test_Dobra LIGA servidor)
foreach(teste IN ITEMS
    test_Comparacao
    test_EsquemaNoServidor)
    morvex_teste(servidor/${teste} LIGA servidor)
    morvex_com_postgres(servidor/${teste})
    set_tests_properties(servidor/${teste} PROPERTIES TIMEOUT 600)
endforeach()
