# Building blocks of the project: one library a folder, one function for a test.

add_library(morvex_opcoes INTERFACE)
target_compile_options(morvex_opcoes INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Werror)
target_compile_definitions(morvex_opcoes INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# The compiled headers alone are more than what the compiler lets gather before it looks for waste: left alone it would do
# so in each source, for a tenth of the time and no memory to speak of.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    target_compile_options(morvex_opcoes INTERFACE "SHELL:--param ggc-min-heapsize=1000000") # kilobytes
endif()
if(WIN32)
    target_compile_definitions(morvex_opcoes INTERFACE UNICODE NOMINMAX WIN32_LEAN_AND_MEAN U_STATIC_IMPLEMENTATION)
endif()
if(MORVEX_SANITIZE)
    target_compile_options(morvex_opcoes INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        -Wno-maybe-uninitialized) # the sanitizers' own code makes the compiler see ghosts
    target_link_options(morvex_opcoes INTERFACE -fsanitize=address,undefined)
endif()

# A test program mostly waits when it runs, and there are three hundred to compile: an eighth less each. The libraries
# below them work for the tests.
add_library(morvex_opcoes_dos_testes INTERFACE)
if(NOT MORVEX_SANITIZE)
    target_compile_options(morvex_opcoes_dos_testes INTERFACE $<$<CONFIG:RelWithDebInfo>:-Og>)
endif()

include(CheckLinkerFlag)

# Three hundred test programs are linked: gold takes a quarter of the time. What people get is linked by the default one.
# Libraries are looked for in LD_LIBRARY_PATH first, as with any other linker: by this one that has to be said.
set(embalagem zstd)
check_linker_flag(CXX -fuse-ld=gold MORVEX_QUICK_LINKER)
if(MORVEX_QUICK_LINKER AND BUILD_SHARED_LIBS AND NOT MORVEX_SANITIZE)
    target_link_options(morvex_opcoes INTERFACE -fuse-ld=gold LINKER:--enable-new-dtags)
    set(embalagem zlib)
endif()

# Two thirds of a program with its debug information are that, and each test program has it anew: packed it takes a
# quarter of the room and no more time. Valgrind and the sanitizers cannot read it so.
check_linker_flag(CXX LINKER:--compress-debug-sections=${embalagem} MORVEX_PACKED_DEBUG_INFORMATION)
if(MORVEX_PACKED_DEBUG_INFORMATION AND NOT MORVEX_SANITIZE)
    target_link_options(morvex_opcoes INTERFACE LINKER:--compress-debug-sections=${embalagem})
endif()

# morvex_cabecalhos_comuns(<name> LIGA <libraries> CABECALHOS <headers>)
# Headers that are compiled once for all who say REUSE_FROM: a set of its own for each would fill the disk.
# Only what many sources include belongs there. Whatever templates the headers leave open each source instantiates anew:
# with the whole toolkit in it that took longer than most sources themselves.
function(morvex_cabecalhos_comuns nome)
    cmake_parse_arguments(ARG "" "" "LIGA;CABECALHOS" ${ARGN})
    set(fonte ${CMAKE_CURRENT_BINARY_DIR}/${nome}.cpp)
    file(CONFIGURE OUTPUT ${fonte} CONTENT "// Carries compiled headers that others share.\n")
    add_library(${nome} OBJECT ${fonte})
    set_target_properties(${nome} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${nome} PRIVATE ${ARG_LIGA} morvex_opcoes)
    target_precompile_headers(${nome} PRIVATE ${ARG_CABECALHOS})
endfunction()

set(morvex_cabecalhos_do_costume
    <QDate> <QDialog> <QFile> <QHash> <QLabel> <QLineEdit> <QObject> <QPainter> <QSet> <QString> <QStringList> <QTimer>
    <algorithm> <array> <functional> <map> <memory> <optional> <vector>)
morvex_cabecalhos_comuns(morvex_cabecalhos
    LIGA Qt6::Widgets
    CABECALHOS ${morvex_cabecalhos_do_costume})

# Where two hundred test programs are linked the libraries are shared: none holds them anew, and a change in one needs no
# new link. What people get has all of it in the program.
if(BUILD_SHARED_LIBS)
    set(morvex_pasta_das_bibliotecas ${CMAKE_INSTALL_LIBDIR}/morvex)
    file(RELATIVE_PATH para_as_bibliotecas
        ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/morvex)
    set(CMAKE_INSTALL_RPATH "\$ORIGIN" "\$ORIGIN/${para_as_bibliotecas}")
endif()

# morvex_biblioteca(<folder> LIGA <libraries below it> FONTES <sources>)
# The library of one folder. It sees its own folder and what it links, so an include that runs upwards does
# not find its file.
function(morvex_biblioteca nome)
    cmake_parse_arguments(ARG "" "" "LIGA;FONTES" ${ARGN})
    add_library(${nome} ${ARG_FONTES})
    # Each floor's public include root holds a link to that folder alone.
    set(raiz ${PROJECT_BINARY_DIR}/include/${nome})
    file(MAKE_DIRECTORY ${raiz})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${raiz}/${nome} SYMBOLIC)
    target_include_directories(${nome} PUBLIC ${raiz} ${CMAKE_CURRENT_BINARY_DIR}/${nome}_autogen/include)
    target_link_libraries(${nome} PUBLIC ${ARG_LIGA} PRIVATE morvex_opcoes)
    target_precompile_headers(${nome} REUSE_FROM morvex_cabecalhos)
    if(BUILD_SHARED_LIBS)
        install(TARGETS ${nome} LIBRARY DESTINATION ${morvex_pasta_das_bibliotecas})
    endif()
endfunction()

# morvex_moc(<program> <source>)
# What moc reads in the one source of a test. The toolkit's own way takes a process and an empty unit for each program,
# which for three hundred of them is a third of the time that they take to build.
function(morvex_moc nome fonte)
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/moc)
    file(MAKE_DIRECTORY ${moc})
    set_target_properties(${nome} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    add_custom_command(OUTPUT ${moc}/${nome}.moc
        COMMAND Qt6::moc ${CMAKE_CURRENT_SOURCE_DIR}/${fonte} -o ${moc}/${nome}.moc
        DEPENDS ${fonte} COMMENT "Moc of ${fonte}" VERBATIM)
    target_sources(${nome} PRIVATE ${moc}/${nome}.moc)
    target_include_directories(${nome} PRIVATE ${moc})
endfunction()

# morvex_teste(<folder>/<test> LIGA <libraries>)
# One Qt Test program from tests/<folder>/<test>.cpp. It runs without a display, with a home, time zone and
# locale of its own, so it can neither read nor harm what belongs to the person who runs it.
# FICHEIROS names further sources. Preparing and clearing up count as two passed functions: a program that ran no
# other one has tested nothing, and fails.
function(morvex_teste caminho)
    cmake_parse_arguments(ARG "" "" "LIGA;FICHEIROS" ${ARGN})
    get_filename_component(nome ${caminho} NAME)
    # What only Linux has to be tested with is not built elsewhere, and CTest says that it was left out.
    set(calado FALSE)
    set(construir)
    if(WIN32 AND ${caminho} IN_LIST morvex_so_linux)
        set(calado TRUE)
        set(construir EXCLUDE_FROM_ALL)
    endif()
    add_executable(${nome} ${construir} ${caminho}.cpp ${ARG_FICHEIROS})
    target_link_libraries(${nome} PRIVATE
        ${ARG_LIGA} morvex_testlib ${morvex_do_sistema} Qt6::Test morvex_opcoes morvex_opcoes_dos_testes)
    target_precompile_headers(${nome} REUSE_FROM morvex_cabecalhos_dos_testes)
    set_target_properties(${nome} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    morvex_moc(${nome} ${caminho}.cpp)
    add_test(NAME ${caminho} COMMAND ${nome})
    # All tests of a folder can be built by one name.
    get_filename_component(pasta ${caminho} DIRECTORY)
    if(NOT TARGET testes_${pasta})
        add_custom_target(testes_${pasta})
    endif()
    if(NOT calado)
        add_dependencies(testes_${pasta} ${nome})
    endif()
    set_property(GLOBAL APPEND PROPERTY morvex_testes_${pasta} ${nome})
    morvex_ambiente(${caminho} ${nome})
    set_tests_properties(${caminho} PROPERTIES DISABLED ${calado})
endfunction()

# The surroundings of a test that bears that name in CTest, with a home of that name.
function(morvex_ambiente teste nome)
    set(casa ${PROJECT_BINARY_DIR}/tests/casa/${nome})
    file(MAKE_DIRECTORY ${casa})
    set(ambiente
        QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES=qt.qpa.*=false LC_ALL=C.UTF-8 TZ=Europe/Lisbon
        HOME=${casa} XDG_DATA_HOME=${casa}/dados XDG_CONFIG_HOME=${casa}/config XDG_RUNTIME_DIR=${casa}
        DBUS_SESSION_BUS_ADDRESS=disabled: MORVEX_ENVIADOS=${PROJECT_BINARY_DIR}/bin
        # The leak sanitizer now and then takes a place in a library's thread-local storage for another, and dies of it.
        ASAN_OPTIONS=detect_leaks=1:abort_on_error=0:intercept_tls_get_addr=0
        LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0
        UBSAN_OPTIONS=print_stacktrace=1
        # CTest alone decides how long a test may take.
        QTEST_FUNCTION_TIMEOUT=1800000)
    set_tests_properties(${teste} PROPERTIES
        TIMEOUT 300
        FAIL_REGULAR_EXPRESSION "Totals: [0-2] passed, 0 failed"
        ENVIRONMENT "${ambiente}")
    if(WIN32)
        set_tests_properties(${teste} PROPERTIES FIXTURES_REQUIRED wine)
        set_property(TEST ${teste} PROPERTY TIMEOUT 900) # under Wine it takes longer
    endif()
endfunction()

# morvex_teste_x11(<script>)
# A test of tests/x11 that drives the program itself on a screen of its own, with window manager and notification
# area. They come early, in three queues: beside many others of their kind windows come late.
set(morvex_fila_do_ecra 0)
function(morvex_teste_x11 nome)
    math(EXPR morvex_fila_do_ecra "(${morvex_fila_do_ecra} + 1) % 3")
    set(morvex_fila_do_ecra ${morvex_fila_do_ecra} PARENT_SCOPE)
    add_test(NAME x11/${nome} COMMAND ${PROJECT_SOURCE_DIR}/scripts/ecra_virtual
        python3 ${CMAKE_CURRENT_SOURCE_DIR}/x11/${nome}.py $<TARGET_FILE:morvex>)
    set_tests_properties(x11/${nome} PROPERTIES
        TIMEOUT 300
        RESOURCE_LOCK ecra${morvex_fila_do_ecra} COST 100
        ENVIRONMENT "MORVEX_TABULEIRO=1;PYTHONDONTWRITEBYTECODE=1;LC_ALL=C.UTF-8;ASAN_OPTIONS=detect_leaks=0")
endfunction()

# morvex_bench(<program> LIGA <libraries>)
# A program that measures, from bench/<program>.cpp, with the shipped files at hand and what the tests share.
function(morvex_bench nome)
    cmake_parse_arguments(ARG "" "" "LIGA" ${ARGN})
    add_executable(${nome} ${nome}.cpp)
    target_link_libraries(${nome} PRIVATE ${ARG_LIGA} morvex_testlib morvex_opcoes)
    target_compile_definitions(${nome} PRIVATE MORVEX_ENVIADOS="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
        MORVEX_SERVIDORES="${PROJECT_SOURCE_DIR}/tests/servidores")
    target_precompile_headers(${nome} REUSE_FROM morvex_cabecalhos)
    add_dependencies(${nome} ficheiros_enviados)
endfunction()
