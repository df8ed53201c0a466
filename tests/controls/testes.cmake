# Tests of controls.
foreach(teste IN ITEMS
    test_ComboBox
    test_Contrast
    test_DrawnIcon
    test_ElidingLabel
    test_EmptyText
    test_ListBox
    test_LongText
    test_ReachablePlace
    test_RisingCard
    test_Scale
    test_SmallControls
    test_Style)
    morvex_teste(controls/${teste} LIGA controls)
endforeach()
