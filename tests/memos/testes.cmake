# Tests of memos.
morvex_teste(memos/test_frmMemo LIGA memos)
morvex_teste(memos/test_Memos LIGA session)

morvex_tambem_no_servidor(memos)
