# Tests of ferramentas.
morvex_teste(ferramentas/test_Manual LIGA ferramentas)
