# Tests of printing.
morvex_teste(printing/test_OpcoesRelatorio LIGA printing)
morvex_teste(printing/test_frmImprimir LIGA printing)
morvex_teste(printing/test_frmEnvelope LIGA printing)
morvex_teste(printing/test_frmEtiquetas LIGA printing)
morvex_teste(printing/test_Impressao LIGA printing)
morvex_teste(printing/test_Paginas LIGA session)
