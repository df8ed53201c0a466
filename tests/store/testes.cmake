# Tests of store.
foreach(teste IN ITEMS
    test_Connection
    test_FailureKind
    test_PostgresAddress
    test_PostgresDialect
    test_PostgresFaults
    test_PostgresStore
    test_PostgresWrites
    test_Recordset
    test_TextRules
    test_Values)
    morvex_teste(store/${teste} LIGA store)
endforeach()
morvex_com_postgres(store/test_PostgresFaults store/test_PostgresStore store/test_PostgresWrites)
