# Tests of interchange.
morvex_teste(interchange/test_AvisosDaFusao LIGA interchange)
morvex_teste(interchange/test_RegistoMorvex LIGA session)
morvex_teste(interchange/test_RegistosEstragados LIGA session)
morvex_teste(interchange/test_frmImportar LIGA session)
morvex_teste(interchange/test_frmImportarMDB LIGA session)
morvex_teste(interchange/test_frmBackup LIGA session)
add_dependencies(test_frmBackup morvex) # which it starts
morvex_teste(interchange/test_frmExportar LIGA session)
morvex_teste(interchange/test_exportacao LIGA session)
set_tests_properties(interchange/test_exportacao PROPERTIES TIMEOUT 900) # an office suite reads 32,767 contacts
morvex_teste(interchange/test_ImportacaoCortada LIGA session servidor)
morvex_com_postgres(interchange/test_ImportacaoCortada)
set_tests_properties(interchange/test_ImportacaoCortada PROPERTIES TIMEOUT 600)

morvex_tambem_no_servidor(interchange FORA
    test_ImportacaoCortada # has its own
    test_RegistoMorvex # asks no database
    test_AvisosDaFusao # what is said of an older file
    test_exportacao # long, and about what the exported files look like
    LENTOS test_frmImportarMDB) # 32,768 groups, one by one
