# Tests of store.
foreach(teste IN ITEMS
    test_Connection
    test_FailureKind
    test_PostgresAddress
    test_PostgresDialect
    test_Recordset
    test_TextRules
    test_Values)
    morvex_teste(store/${teste} LIGA store)
endforeach()
