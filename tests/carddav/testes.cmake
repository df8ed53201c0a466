# Tests of carddav.
foreach(teste IN ITEMS
    test_AddressBook
    test_Cards
    test_DavBodies
    test_DavExchange
    test_DavStatus
    test_Discovery
    test_Href
    test_Multistatus
    test_Patience
    test_servidores_carddav)
    morvex_teste(carddav/${teste} LIGA carddav vcard)
endforeach()
morvex_servidores(test_servidores_carddav)
