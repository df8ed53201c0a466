# Tests of session.
morvex_teste(session/test_frmLogin LIGA session)
morvex_teste(session/test_Contraste LIGA session)
morvex_teste(session/test_frmOpcoes LIGA session)
morvex_teste(session/test_autorun LIGA session)
morvex_teste(session/test_BaseDesaparecida LIGA session)
morvex_teste(session/test_Chamar LIGA session)
morvex_teste(session/test_frmDeleteUser LIGA session)
morvex_teste(session/test_frmEditUser LIGA session)
morvex_teste(session/test_frmNovoUser LIGA session)
morvex_teste(session/test_Ajuda LIGA session)
target_compile_definitions(test_Ajuda PRIVATE MORVEX_WEB_HOST="${MORVEX_WEB_HOST}")
morvex_teste(session/test_PaginasDoManual LIGA session)
target_compile_definitions(test_PaginasDoManual PRIVATE MORVEX_FORMULARIOS="${PROJECT_SOURCE_DIR}/src")
morvex_teste(session/test_Arranque LIGA session)
morvex_teste(session/test_PedidosAoServidor LIGA session)
morvex_teste(session/test_ServidorAusente LIGA session)
morvex_teste(session/test_EnderecoNasOpcoes LIGA session)
morvex_teste(session/test_OQueOsPostosPartilham LIGA session)
morvex_teste(session/test_SemServidor LIGA session)
morvex_teste(session/test_RespostaPerdida LIGA session)
morvex_teste(session/test_AvisosDosPostos LIGA session)
morvex_teste(session/test_frmLoading LIGA session)
morvex_teste(session/test_frmSobre LIGA session)
morvex_teste(session/test_Legendas LIGA session)
morvex_teste(session/test_LegendasDosFormularios LIGA session)
morvex_teste(session/test_ConjuntosFechados LIGA session)
morvex_teste(session/test_LetrasDoAmbiente LIGA session)
morvex_teste(session/test_LetrasDosFormularios LIGA session)
morvex_teste(session/test_NomesAcessiveis LIGA session)
morvex_teste(session/test_DisposicaoDaJanela LIGA session)
morvex_teste(session/test_Main LIGA session)
morvex_teste(session/test_Sair LIGA session)
morvex_teste(session/test_FimDaSessao LIGA session)
morvex_teste(session/test_SystemTray LIGA session)
morvex_teste(session/test_duas_copias LIGA session)
morvex_teste(session/test_partilha LIGA session)
morvex_teste(session/test_Direitos LIGA session)
morvex_teste(session/test_Utilizadores LIGA session)
morvex_teste(session/test_FicheirosPedidos LIGA session)
morvex_teste(session/test_linha_de_comandos LIGA session)
target_compile_definitions(test_linha_de_comandos PRIVATE MORVEX_VERSION="${PROJECT_VERSION}")
add_dependencies(test_linha_de_comandos morvex)

morvex_tambem_no_servidor(session FORA
    test_autorun test_frmLoading test_linha_de_comandos # these ask no database
    test_ConjuntosFechados test_Contraste test_DisposicaoDaJanela test_LegendasDosFormularios test_LetrasDoAmbiente
    test_LetrasDosFormularios test_NomesAcessiveis
    test_Ajuda test_PaginasDoManual # long, and about how all the forms look
    test_BaseDesaparecida # a file that is gone
    test_AvisosDosPostos test_EnderecoNasOpcoes test_OQueOsPostosPartilham test_PedidosAoServidor
    test_RespostaPerdida test_SemServidor test_ServidorAusente) # have a server of their own making

# No test: pictures of every form, which scripts/vistas asks for.
add_executable(vistas EXCLUDE_FROM_ALL session/vistas.cpp)
target_link_libraries(vistas PRIVATE session morvex_testlib Qt6::Test morvex_opcoes morvex_opcoes_dos_testes)
target_precompile_headers(vistas REUSE_FROM morvex_cabecalhos_dos_testes)
set_target_properties(vistas PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
