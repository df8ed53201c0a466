# Tests of reminders.
foreach(teste IN ITEMS
    test_Alarme
    test_Aniversarios
    test_frmAddEditTarefa
    test_frmAniversarios
    test_frmListaTarefas
    test_frmPopup
    test_ProximosAniversarios
    test_Repeticao
    test_TarefasLidas
    test_UmAno)
    morvex_teste(reminders/${teste} LIGA reminders)
endforeach()
morvex_teste(reminders/test_Lembretes LIGA session)
morvex_teste(reminders/test_frmTarefas LIGA reminders report)

morvex_tambem_no_servidor(reminders FORA
    test_Repeticao # asks no database
    test_TarefasLidas # over a server of its own making
    test_UmAno) # a year of lives and deaths of the program over one file
