# Tests of data.
foreach(teste IN ITEMS
    test_Comandos
    test_CopiaParaFicheiro
    test_DE
    test_EncontroDeLinhas
    test_EstadoMessenger
    test_LinhaEditada
    test_NovaPorSaber
    test_Esquema
    test_Fotografias
    test_PassosDoEsquema
    test_CartoesGuardados
    test_Rascunho
    test_ReadWriteINI
    test_Relatorio
    test_Ler_Idioma
    test_Textos
    test_Sementes
    test_TamanhoGuardado
    test_frmSeleccionarIdioma
    test_Codificar_Email
    test_Codificar_Pass
    test_Temporizadores
    test_config_enviado
    test_IndicesDoLivro
    test_Inteiro
    test_Tocar_Som
    test_ValorLongo
    test_criar_bd)
    morvex_teste(data/${teste} LIGA data)
endforeach()

morvex_tambem_no_servidor(data FORA
    test_Codificar_Email test_Codificar_Pass test_EncontroDeLinhas test_EstadoMessenger test_Inteiro test_Temporizadores test_Tocar_Som
    test_Rascunho test_ReadWriteINI test_Relatorio test_TamanhoGuardado test_ValorLongo # these ask no database
    test_NovaPorSaber # over a fake server of its own
    test_config_enviado test_criar_bd test_Textos test_Esquema # what is shipped
    test_IndicesDoLivro test_PassosDoEsquema # what a file lacks until it is opened
    test_frmSeleccionarIdioma) # a first run, which a server has not
