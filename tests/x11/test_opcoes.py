"""The options in real windows: the first run that ends with them, what the next start makes of them, and the
entry among the programs that start with the desktop. Usage: test_opcoes.py <program>"""

import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
TITULO = "Morvex [0-9]"
BANDEIRAS = "MORVEX - Idioma"
ABRE_FERRAMENTAS, OPCOES, IDIOMA, ARRANQUE, SIM, NAO = 146, 151, 239, 192, 202, 203  # texts


class Opcoes(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)

    def instalado(self):
        """An installation whose first run is long past, just started."""
        self.programa.definir("basedados", "caminhobd", self.programa.pasta / "morvex.mdb")
        self.programa.sql("UPDATE TblConfig SET Idioma='PortuguesPT'")
        self.programa.comecar()
        ecra.janela(TITULO)

    def recomecar(self):
        self.programa.processo.kill()
        self.programa.processo.wait()
        self.programa.comecar()
        ecra.janela(TITULO)

    def abrir(self, idioma="PortuguesPT"):
        """The options from the menu."""
        ecra.activar(ecra.janela(TITULO))
        ecra.tecla("alt+" + self.programa.letra(ABRE_FERRAMENTAS, idioma))
        time.sleep(0.3)
        ecra.tecla(self.programa.letra(OPCOES, idioma))
        opcoes = ecra.janela(self.programa.legenda(OPCOES, idioma))
        ecra.activar(opcoes)
        return opcoes

    def confirmar(self, idioma="PortuguesPT"):
        time.sleep(0.3)  # a button that was triggered by its letter is down for a moment
        ecra.tecla("Return")
        ecra.sem_janela(self.programa.legenda(OPCOES, idioma))

    def test_a_primeira_corrida_acaba_nas_opcoes_e_a_segunda_e_como_as_outras(self):
        self.assertEqual(self.programa.ler_ini("basedados", "caminhobd"), "")
        self.programa.comecar()
        bandeiras = ecra.janela(BANDEIRAS)
        ecra.activar(bandeiras)
        ecra.clicar(bandeiras, 78 + 118 * 2, 70)
        opcoes = ecra.janela("Options")
        ecra.activar(opcoes)
        for fuga in ("Escape", "alt+F4", "alt+" + self.programa.letra(43, "InglesUK")):
            ecra.tecla(fuga)
            time.sleep(0.5)
            self.assertEqual(ecra.janelas("Options"), [opcoes], fuga)
        self.assertFalse(ecra.janelas(TITULO))
        self.assertEqual(self.programa.ler_ini("basedados", "caminhobd"), "")
        self.confirmar("InglesUK")
        ecra.janela(TITULO)
        self.assertEqual(self.programa.ler_ini("basedados", "caminhobd"),
                         str(self.programa.pasta / "morvex.mdb"))
        self.assertEqual(self.programa.ler_ini("emailnotify0", "minutos"),
                         self.programa.ler_ini("emailnotify", "minutos"))
        self.assertEqual(self.programa.ler_ini("fotografias", "lastpathpic"), "c:\\")

        self.recomecar()
        self.assertFalse(ecra.janelas(BANDEIRAS) or ecra.janelas("Options"))
        self.abrir("InglesUK")
        ecra.tecla("Escape")  # this time they can be cancelled
        ecra.sem_janela("Options")
        self.assertTrue(self.programa.vive())

    def test_o_idioma_escolhido_so_se_ve_depois_de_recomecar(self):
        self.instalado()
        self.abrir()
        ecra.tecla("alt+" + self.programa.letra(IDIOMA, "PortuguesPT"), "Tab")
        for _ in range(2):  # two rows down, and each choice announces the change
            ecra.tecla("Down")
            ecra.activar(ecra.janela("Morvex$"))
            ecra.tecla("Return")
            ecra.sem_janela("Morvex$")
        self.assertEqual(self.programa.sql("SELECT Idioma FROM TblConfig"), [("PortuguesPT",)])
        self.confirmar()
        self.assertEqual(self.programa.sql("SELECT Idioma FROM TblConfig"), [("InglesUK",)])
        self.abrir("PortuguesPT")
        ecra.tecla("Escape")
        ecra.sem_janela(self.programa.legenda(OPCOES, "PortuguesPT"))
        self.recomecar()
        self.abrir("InglesUK")

    def test_o_arranque_com_o_computador_poe_uma_entrada_e_tira_a(self):
        self.instalado()
        versao = self.programa.sql("SELECT Versao FROM TblConfig")[0][0]
        entrada = self.programa.pasta / "config" / "autostart" / f"Morvex {versao}.desktop"
        arranque = "alt+" + self.programa.letra(ARRANQUE, "PortuguesPT")
        self.assertFalse(entrada.exists())
        self.abrir()
        ecra.tecla(arranque, "alt+" + self.programa.letra(SIM, "PortuguesPT"))
        self.assertFalse(entrada.exists())  # nothing before the confirmation
        self.confirmar()
        self.assertEqual(self.programa.ler_ini("arranque", "autorun"), "sim")
        linhas = entrada.read_text(encoding="utf-8").splitlines()
        self.assertIn(f'Exec="{self.programa.executavel}"', linhas)
        self.assertIn(f"Name=Morvex {versao}", linhas)

        self.recomecar()  # the setting comes back, and can be taken back
        self.abrir()
        ecra.tecla(arranque, "alt+" + self.programa.letra(NAO, "PortuguesPT"))
        self.confirmar()
        self.assertEqual(self.programa.ler_ini("arranque", "autorun"), "nao")
        self.assertFalse(entrada.exists())


if __name__ == "__main__":
    unittest.main()
