# Tests of sincronizacao.
foreach(teste IN ITEMS
    test_CorridasSimultaneas
    test_DecisaoDaSincronizacao
    test_DuasContas
    test_JuncaoDeTres
    test_LivroDosDoisLados
    test_MemoriaDaSincronizacao
    test_MesSimulado
    test_MortesDaSincronizacao
    test_PalavrasDaSincronizacao
    test_ResultadoDaSincronizacao
    test_Sincronizacao)
    morvex_teste(sincronizacao/${teste} LIGA sincronizacao)
endforeach()
foreach(teste IN ITEMS test_frmSincronizar test_Sincronizador)
    morvex_teste(sincronizacao/${teste} LIGA session)
endforeach()
foreach(teste IN ITEMS test_servidor_de_livros test_TresClientes)
    morvex_teste(sincronizacao/${teste} LIGA sincronizacao)
    morvex_servidores(${teste})
endforeach()
morvex_teste(sincronizacao/test_SincronizacaoNoServidor LIGA session servidor)
morvex_com_postgres(sincronizacao/test_SincronizacaoNoServidor)
# A thousand cards take their time where a server writes them one by one.
set_tests_properties(sincronizacao/test_servidor_de_livros sincronizacao/test_MesSimulado sincronizacao/test_TresClientes
    PROPERTIES TIMEOUT 900 COST 200)
