# Tests of interchange.
foreach(teste IN ITEMS
    test_ContactoDoCartao
    test_CartaoDoContacto
    test_CodigoQR
    test_ConteudoDoQR
    test_ContactosDaTabela
    test_ExportacaoDeContactos
    test_JuncaoDeContactos
    test_LeituraDaTabela
    test_RegraDosDuplicados)
    morvex_teste(interchange/${teste} LIGA interchange)
endforeach()
morvex_teste(interchange/test_AvisosDaFusao LIGA interchange)
morvex_teste(interchange/test_RegistoMorvex LIGA session)
morvex_teste(interchange/test_RegistosEstragados LIGA session)
morvex_teste(interchange/test_ImportacaoDeContactos LIGA interchange)
morvex_teste(interchange/test_EscritaDaImportacao LIGA interchange)
morvex_teste(interchange/test_frmImportarContactos LIGA session)
morvex_teste(interchange/test_frmCampos LIGA session)
morvex_teste(interchange/test_frmDuplicados LIGA session)
morvex_teste(interchange/test_frmImportar LIGA session)
morvex_teste(interchange/test_frmImportarMDB LIGA session)
morvex_teste(interchange/test_frmBackup LIGA session)
add_dependencies(test_frmBackup morvex) # which it starts
morvex_teste(interchange/test_frmExportar LIGA session)
morvex_teste(interchange/test_frmExportarContactos LIGA session)
morvex_teste(interchange/test_SaidaDeContactos LIGA session)
morvex_teste(interchange/test_exportacao LIGA session)
set_tests_properties(interchange/test_exportacao PROPERTIES TIMEOUT 900) # an office suite reads 32,767 contacts
