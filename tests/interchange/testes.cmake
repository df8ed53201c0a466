# Tests of interchange.
morvex_teste(interchange/test_RegistoMorvex LIGA session)
morvex_teste(interchange/test_frmImportar LIGA session)
morvex_teste(interchange/test_frmImportarMDB LIGA session)
morvex_teste(interchange/test_frmBackup LIGA session)
morvex_teste(interchange/test_frmExportar LIGA session)
morvex_teste(interchange/test_exportacao LIGA session)
