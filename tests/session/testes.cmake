# Tests of session.
morvex_teste(session/test_frmLogin LIGA session)
