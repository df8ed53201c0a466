# Tests of online.
morvex_teste(online/test_VerificarVersao LIGA session)
