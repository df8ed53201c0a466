# Tests of ferramentas.
morvex_teste(ferramentas/test_LinhaDoServidor LIGA ferramentas)
morvex_teste(ferramentas/test_Manual LIGA ferramentas)
morvex_teste(ferramentas/test_criar LIGA platform)
target_compile_definitions(test_criar PRIVATE
    MORVEX_RAIZ="${PROJECT_SOURCE_DIR}"
    CRIAR_BD="$<TARGET_FILE:criar_bd>" CRIAR_MANUAL="$<TARGET_FILE:criar_manual>")
add_dependencies(test_criar criar_bd criar_manual)
morvex_teste(ferramentas/test_desenhos LIGA platform)
target_compile_definitions(test_desenhos PRIVATE
    MORVEX_RAIZ="${PROJECT_SOURCE_DIR}"
    DESENHAR_ICO="$<TARGET_FILE:desenhar_ico>" DESENHAR_ICONE="$<TARGET_FILE:desenhar_icone>"
    DESENHAR_PONTOS="$<TARGET_FILE:desenhar_pontos>")
add_dependencies(test_desenhos desenhar_ico desenhar_icone desenhar_pontos)
if(WIN32)
    return()
endif()
morvex_teste(ferramentas/test_ler_cartoes LIGA vcard)
target_compile_definitions(test_ler_cartoes PRIVATE LER_CARTOES="$<TARGET_FILE:ler_cartoes>")
add_dependencies(test_ler_cartoes ler_cartoes)
add_test(NAME ferramentas/test_morvex_servidor
    COMMAND python3 ${CMAKE_CURRENT_SOURCE_DIR}/ferramentas/test_morvex_servidor.py
        $<TARGET_FILE:morvex-servidor> ${PROJECT_BINARY_DIR}/bin/morvex.mdb)
set_tests_properties(ferramentas/test_morvex_servidor PROPERTIES
    TIMEOUT 900 COST 100 ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1;ASAN_OPTIONS=detect_leaks=0")
morvex_com_postgres(ferramentas/test_morvex_servidor)
