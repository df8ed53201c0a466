# Tests of carddav.
foreach(teste IN ITEMS
    test_AddressBook
    test_DavExchange
    test_Discovery
    test_Href
    test_Multistatus)
    morvex_teste(carddav/${teste} LIGA carddav)
endforeach()
