# Tests of store.
foreach(teste IN ITEMS
    test_Connection
    test_FailureKind
    test_Libpq
    test_PostgresAddress
    test_PostgresCopy
    test_PostgresDialect
    test_PostgresFailure
    test_PostgresFaults
    test_PostgresLedger
    test_PostgresLink
    test_PostgresNotices
    test_PostgresOpening
    test_PostgresSilence
    test_PostgresStore
    test_PostgresWrites
    test_Recordset
    test_ServerSession
    test_TextRules
    test_UntouchedSource
    test_Values)
    morvex_teste(store/${teste} LIGA store)
endforeach()
morvex_servidores(test_PostgresLedger)
morvex_servidores(test_PostgresOpening)
morvex_servidores(test_PostgresSilence)
morvex_com_postgres(store/test_PostgresCopy store/test_PostgresFaults store/test_PostgresLedger store/test_PostgresLink store/test_PostgresNotices store/test_PostgresOpening
    store/test_PostgresSilence
    store/test_PostgresStore store/test_PostgresWrites store/test_ServerSession)
if(MORVEX_SERVIDOR)
    # It measures how soon silence is noticed: in a crowd it would be late itself.
    set_tests_properties(store/test_PostgresSilence PROPERTIES PROCESSORS 2)
endif()
