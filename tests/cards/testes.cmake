# Tests of cards.
foreach(teste IN ITEMS
    test_CartaoDoContacto
    test_Codificacoes
    test_CodigoQR
    test_ConteudoDoQR
    test_ContactoDoCartao
    test_ContactosDaTabela
    test_DestinosDeSaida
    test_EscritaDaImportacao
    test_ExportacaoDeContactos
    test_FicheiroDeContactos
    test_ImportacaoDeContactos
    test_JuncaoDeContactos
    test_LeituraDaTabela
    test_LinhasDoContacto
    test_RegraDosDuplicados
    test_RetratoDoContacto
    test_RotulosDoCartao
    test_TabelaDeSaida)
    morvex_teste(cards/${teste} LIGA cards)
endforeach()
foreach(teste IN ITEMS
    test_frmCampos
    test_frmDuplicados
    test_frmExportarContactos
    test_frmImportarContactos
    test_SaidaDeContactos)
    morvex_teste(cards/${teste} LIGA session)
endforeach()
