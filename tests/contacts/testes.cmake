# Tests of contacts.
morvex_teste(contacts/test_CartaoContacto LIGA session)
morvex_teste(contacts/test_DisposicaoCartao LIGA contacts)
morvex_teste(contacts/test_Idade LIGA contacts)
morvex_teste(contacts/test_ListaContactos LIGA session)
morvex_teste(contacts/test_AccoesContacto LIGA session)
morvex_teste(contacts/test_frmEmail LIGA contacts)
morvex_teste(contacts/test_frmProcurar LIGA session)
morvex_teste(contacts/test_frmVerImagem LIGA contacts)
morvex_teste(contacts/test_ProcuraRapida LIGA session)
morvex_teste(contacts/test_DataAniversario LIGA contacts)
morvex_teste(contacts/test_DisputaDoContacto LIGA session)
morvex_teste(contacts/test_EdicaoContacto LIGA session)
morvex_teste(contacts/test_FotografiaNoServidor LIGA session)
morvex_teste(contacts/test_FotografiaNova LIGA session)
morvex_teste(contacts/test_DesfazerEliminacao LIGA session)
morvex_teste(contacts/test_frmAddEdit LIGA session)
morvex_teste(contacts/test_frmDeleteGroup LIGA session)
morvex_teste(contacts/test_frmEditGroup LIGA session)
morvex_teste(contacts/test_frmNovoGrupo LIGA session)

morvex_tambem_no_servidor(contacts FORA
    test_DataAniversario test_DisposicaoCartao test_Idade # these ask no database
    test_FotografiaNova) # pictures that stay files; a server's are those of test_FotografiaNoServidor
