# Tests of vcard.
foreach(teste IN ITEMS
    test_CardReader
    test_CardContent
    test_CardWriter
    test_CardInVersion
    test_CardPatch
    test_CardProperty
    test_CardVersion3
    test_cartoes_estragados)
    morvex_teste(vcard/${teste} LIGA vcard)
endforeach()
