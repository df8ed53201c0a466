# What only Windows has.

# The first process of Wine starts its services, which live on: a test that started them would seem to go on as long as they
# do.
add_test(NAME windows/wine_comeca COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --comeca)
add_test(NAME windows/wine_acaba COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --acaba)
set_tests_properties(windows/wine_comeca PROPERTIES FIXTURES_SETUP wine TIMEOUT 120)
set_tests_properties(windows/wine_acaba PROPERTIES FIXTURES_CLEANUP wine TIMEOUT 120)

morvex_teste(windows/test_Colours LIGA controls)
morvex_teste(windows/test_DarkFrames LIGA platform)
morvex_teste(windows/test_EndSignals LIGA platform)
morvex_teste(windows/test_FileName LIGA store)
morvex_teste(windows/test_InstancePlace LIGA platform)
morvex_teste(windows/test_OwnServices LIGA platform)
morvex_teste(windows/test_PicturePlaces LIGA platform)
morvex_teste(windows/test_ProgramFile LIGA Qt6::Core version)
target_compile_definitions(test_ProgramFile PRIVATE MORVEX_VERSION="${PROJECT_VERSION}")
add_dependencies(test_ProgramFile morvex)
morvex_teste(windows/test_ReplaceFile LIGA platform)
morvex_teste(windows/test_ServerStore LIGA store)
morvex_teste(windows/test_StartWithAddress LIGA session)

# What only a real window shows.
add_test(NAME windows/test_no_ecra
    COMMAND ${PROJECT_SOURCE_DIR}/scripts/ecra_virtual python3 ${CMAKE_CURRENT_SOURCE_DIR}/windows/test_no_ecra.py
        ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:morvex> ${MORVEX_HOST_TOOLS}/morvex)
set_tests_properties(windows/test_no_ecra PROPERTIES
    TIMEOUT 1200
    RUN_SERIAL TRUE # a second test on the machine would make windows late
    ENVIRONMENT "PYTHONDONTWRITEBYTECODE=1;LC_ALL=C.UTF-8")
