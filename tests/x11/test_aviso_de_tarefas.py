"""The notice of a due task on a real screen of 1280 x 800. Usage: test_aviso_de_tarefas.py <program>"""

import datetime
import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
TITULO = "Morvex [0-9]"
AVISO = "Morvex$"
CARTAO = "Aviso de Tarefas"
# Where the rise ends, in pixels: 15 twips each.
LUGAR = ((1280 * 15 - (2640 + 100)) / 15, (800 * 15 - 1690) / 15)


def lugar(id_janela):
    medidas = dict(par.split("=") for par in ecra.run("xdotool", "getwindowgeometry", "--shell", id_janela).splitlines())
    return int(medidas["X"]), int(medidas["Y"])


def por_cima(id_janela):
    return "_NET_WM_STATE_ABOVE" in ecra.run("xprop", "-id", id_janela, "_NET_WM_STATE")


class AvisoDeTarefas(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.definir("basedados", "caminhobd", self.programa.pasta / "morvex.mdb")
        self.programa.sql("UPDATE TblConfig SET Idioma='PortuguesPT'")
        self.programa.sql("INSERT INTO TblRepeticao (Nome) VALUES ('Não'), ('Diariamente')")
        self.programa.comecar()
        self.main = ecra.janela(TITULO)
        ecra.activar(self.main)

    def nova(self, repeticao):
        self.programa.sql("INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) "
                          "VALUES ('Regar', date('now', 'localtime'), '00:00:00', 0, ?)", repeticao)

    def em_cima(self):
        aviso = ecra.janela(AVISO)
        ecra.until(lambda: por_cima(aviso), "the end of the rise")
        return aviso

    def test_sobe_ao_seu_lugar_por_cima_de_tudo_sem_tirar_o_teclado(self):
        self.nova(1)
        aviso = self.em_cima()
        x, y = lugar(aviso)
        self.assertAlmostEqual(x, LUGAR[0], delta=1)
        self.assertAlmostEqual(y, LUGAR[1], delta=1)
        self.assertEqual(ecra.run("xdotool", "getactivewindow"), self.main)
        time.sleep(2.5)  # ticks of the alarm go on under it
        self.assertEqual(lugar(aviso), (x, y))

    def test_um_clique_leva_ao_cartao_e_ok_deixa_descer_e_main_livre(self):
        self.nova(1)
        ecra.clicar(self.em_cima(), 80, 50)
        cartao = ecra.janela(CARTAO)
        self.assertTrue(ecra.janelas(AVISO))
        ecra.activar(cartao)
        ecra.tecla("Return")
        ecra.sem_janela(CARTAO)
        ecra.sem_janela(AVISO)
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblTarefas"), [(0,)])
        ecra.activar(self.main)
        ecra.tecla("Escape")  # a disabled window would not hear it
        ecra.sem_janela(TITULO)

    def test_com_escape_no_cartao_toca_outra_vez(self):
        self.nova(2)
        for _ in range(2):
            ecra.clicar(self.em_cima(), 80, 50)
            ecra.activar(ecra.janela(CARTAO))
            ecra.tecla("Escape")
            ecra.sem_janela(CARTAO)
            ecra.sem_janela(AVISO)
        self.assertEqual(self.programa.sql("SELECT Data FROM TblTarefas"), [(str(datetime.date.today()),)])


if __name__ == "__main__":
    unittest.main()
