"""Where the main window stands and how large it is, in a real window. Usage: test_janela.py <program>"""

import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
TITULO = "Morvex [0-9]"
LUGAR = (211, 157)


class AJanela(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar("InglesUK")
        self.programa.comecar()
        self.janela = ecra.janela(TITULO)
        time.sleep(1)

    def outra_vez(self):
        """The program ends as hard as a power cut and starts anew."""
        self.programa.processo.kill()
        self.programa.processo.wait()
        self.programa.comecar()
        self.janela = ecra.janela(TITULO)
        time.sleep(1)

    def mover(self):
        ecra.run("xdotool", "windowmove", "--sync", self.janela, *map(str, LUGAR))
        time.sleep(1)
        return ecra.geometria(self.janela)

    def esconder(self):
        ecra.activar(self.janela)
        ecra.tecla("Escape")
        ecra.sem_janela(TITULO)

    def chamar(self):
        self.programa.comecar_outra_vez()
        self.janela = ecra.janela(TITULO)
        time.sleep(0.5)

    def test_escondida_e_trazida_de_volta_esta_onde_estava(self):
        onde = self.mover()
        for _ in range(3):
            self.esconder()
            self.chamar()
            self.assertEqual(ecra.geometria(self.janela), onde)

    def test_depois_de_um_novo_arranque_esta_onde_estava(self):
        onde = self.mover()
        self.outra_vez()
        self.assertEqual(ecra.geometria(self.janela), onde)

    def test_de_um_ecra_que_ja_nao_ha_vem_para_o_que_ha(self):
        self.mover()
        self.programa.definir("janela", "left", 5000 * 15)
        self.outra_vez()
        esquerda, topo, _, _ = ecra.geometria(self.janela)
        self.assertTrue(0 <= esquerda <= 1280 - 60 and 0 <= topo <= 800, (esquerda, topo))

    def test_o_tamanho_que_lhe_deram_volta(self):
        _, _, largura, altura = ecra.geometria(self.janela)
        ecra.run("xdotool", "windowsize", "--sync", self.janela, str(largura + 100), str(altura + 60))
        time.sleep(1)
        self.outra_vez()
        self.assertEqual(ecra.geometria(self.janela)[2:], (largura + 100, altura + 60))

    def test_maximizada_volta_maximizada_sobre_o_lugar_e_o_tamanho_que_tinha(self):
        onde = self.mover()
        ecra.maximizar(self.janela)
        time.sleep(1)
        self.assertGreater(ecra.geometria(self.janela)[2], onde[2])
        self.outra_vez()
        self.assertTrue(ecra.maximizada(self.janela))
        self.esconder()
        self.chamar()
        self.assertTrue(ecra.maximizada(self.janela))
        ecra.maximizar(self.janela, ligar=False)
        time.sleep(1)
        self.assertEqual(ecra.geometria(self.janela), onde)
        self.outra_vez()
        self.assertFalse(ecra.maximizada(self.janela))
        self.assertEqual(ecra.geometria(self.janela), onde)

    def test_nao_fica_menor_do_que_foi_desenhada(self):
        antes = ecra.geometria(self.janela)[2:]
        ecra.run("xdotool", "windowsize", self.janela, "300", "200")
        time.sleep(1)
        self.assertEqual(ecra.geometria(self.janela)[2:], antes)


if __name__ == "__main__":
    unittest.main()
