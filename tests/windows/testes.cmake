# What only Windows has.

# The first process of Wine starts its services, which live on: a test that started them would seem to go on as long as they
# do.
add_test(NAME windows/wine_comeca COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --comeca)
add_test(NAME windows/wine_acaba COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} --acaba)
set_tests_properties(windows/wine_comeca PROPERTIES FIXTURES_SETUP wine TIMEOUT 120)
set_tests_properties(windows/wine_acaba PROPERTIES FIXTURES_CLEANUP wine TIMEOUT 120)

morvex_teste(windows/test_DarkFrames LIGA platform)
morvex_teste(windows/test_EndSignals LIGA platform)
morvex_teste(windows/test_FileName LIGA store)
morvex_teste(windows/test_OwnServices LIGA platform)
morvex_teste(windows/test_PicturePlaces LIGA platform)
morvex_teste(windows/test_ReplaceFile LIGA platform)
morvex_teste(windows/test_ServerStore LIGA store)
morvex_teste(windows/test_StartWithAddress LIGA session)
