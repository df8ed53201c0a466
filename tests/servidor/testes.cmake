# Tests of servidor, on a real server.
foreach(teste IN ITEMS
    test_EsquemaNoServidor)
    morvex_teste(servidor/${teste} LIGA servidor)
    morvex_com_postgres(servidor/${teste})
endforeach()
