# Tests of online.
morvex_teste(online/test_frmAddEditEmail LIGA online)
morvex_teste(online/test_VerificarVersao LIGA session)
morvex_teste(online/test_CicloCorreio LIGA session)
morvex_teste(online/test_Presenca LIGA session)
morvex_teste(online/test_Segredos LIGA session)
