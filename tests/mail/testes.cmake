# Tests of mail.
foreach(teste IN ITEMS
    test_MailTexts
    test_Pop3Check
    test_PopMailNotification
    test_servidor_pop3)
    morvex_teste(mail/${teste} LIGA mail)
endforeach()
morvex_servidores(test_servidor_pop3)
