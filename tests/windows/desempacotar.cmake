# The large samples, which are kept packed: no program there unpacks them, so the build does.
set(desempacotados ${PROJECT_BINARY_DIR}/tests/desempacotados)
file(MAKE_DIRECTORY ${desempacotados})
file(GLOB_RECURSE pacotes CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/fixtures/*.xz)
set(feitos)
foreach(pacote IN LISTS pacotes)
    get_filename_component(nome ${pacote} NAME_WLE)
    add_custom_command(OUTPUT ${desempacotados}/${nome}
        COMMAND xz -dkc ${pacote} > ${desempacotados}/${nome}
        DEPENDS ${pacote} VERBATIM)
    list(APPEND feitos ${desempacotados}/${nome})
endforeach()
add_custom_target(desempacotar DEPENDS ${feitos})
foreach(teste IN ITEMS test_JetFile test_frmImportarMDB)
    target_compile_definitions(${teste} PRIVATE MORVEX_DESEMPACOTADOS="${desempacotados}")
    add_dependencies(${teste} desempacotar)
endforeach()
