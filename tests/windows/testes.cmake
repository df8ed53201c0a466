# What only Windows has.
morvex_teste(windows/test_EndSignals LIGA platform)
morvex_teste(windows/test_FileName LIGA store)
morvex_teste(windows/test_OwnServices LIGA platform)
morvex_teste(windows/test_ServerStore LIGA store)
