# Tests of store.
foreach(teste IN ITEMS
    test_Connection
    test_FailureKind
    test_PostgresAddress
    test_PostgresDialect
    test_PostgresStore
    test_Recordset
    test_TextRules
    test_Values)
    morvex_teste(store/${teste} LIGA store)
endforeach()
morvex_com_postgres(store/test_PostgresStore)
