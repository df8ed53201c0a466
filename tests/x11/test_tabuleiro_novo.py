"""The notification area of the newer kind, which speaks over the session's bus: hiding, the icon's click and menu,
and an area that dies, comes back or comes late. Usage: test_tabuleiro_novo.py <program>"""

import os
import pathlib
import select
import subprocess
import sys
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
ANFITRIAO = pathlib.Path(__file__).parent.parent / "servidores" / "tabuleiro_novo"
TITULO = "Morvex [0-9]"
IDIOMA = "PortuguesPT"
ABRIR_MORVEX, SOBRE = 157, 156


class Tabuleiro:
    """The area, which the test clicks by telling it so."""

    def __init__(self):
        self.processo = subprocess.Popen([ANFITRIAO], stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)
        self.espera("area")

    def ouvir(self):
        assert select.select([self.processo.stdout], [], [], ecra.PATIENCE)[0], "the area says nothing"
        return self.processo.stdout.readline().decode().rstrip("\n")

    def espera(self, linha):
        dita = self.ouvir()
        assert dita == linha, f"{linha} was awaited and {dita} came"

    def manda(self, ordem):
        self.processo.stdin.write((ordem + "\n").encode())

    def menu(self):
        self.manda("menu")
        palavra, _, entradas = self.ouvir().partition(" ")
        assert palavra == "menu", palavra
        return entradas.split("|")

    def matar(self):
        self.processo.kill()
        self.processo.wait()
        self.processo.stdin.close()
        self.processo.stdout.close()


class TabuleiroNovo(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.programa.ambiente = {"DBUS_SESSION_BUS_ADDRESS": os.environ["DBUS_SESSION_BUS_ADDRESS"]}
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)

    def por_tabuleiro(self):
        tabuleiro = Tabuleiro()
        self.addCleanup(tabuleiro.matar)
        return tabuleiro

    def comecar_com_icone(self):
        tabuleiro = self.por_tabuleiro()
        self.programa.comecar()
        tabuleiro.espera("icone")
        return tabuleiro, ecra.janela(TITULO)

    def retirada(self, principal):
        ecra.until(lambda: ecra.retirada(principal), "the hidden window")

    def minimizada(self, principal):
        ecra.until(lambda: ecra.minimizada(principal), "the window in the task list")

    def escapar(self, principal):
        ecra.activar(principal)
        ecra.tecla("Escape")

    def test_escape_esconde_e_o_clique_no_icone_traz_de_volta(self):
        tabuleiro, principal = self.comecar_com_icone()
        self.escapar(principal)
        self.retirada(principal)
        tabuleiro.manda("clique")
        ecra.janela(TITULO)

    def test_o_menu_do_icone_tem_as_suas_entradas_e_elas_respondem(self):
        tabuleiro, principal = self.comecar_com_icone()
        self.escapar(principal)
        self.retirada(principal)
        abrir = self.programa.legenda(ABRIR_MORVEX, IDIOMA)
        entradas = tabuleiro.menu()
        self.assertIn(self.programa.legenda(SOBRE, IDIOMA), entradas)
        self.assertIn(abrir, entradas)
        tabuleiro.manda("entrada " + abrir)
        ecra.janela(TITULO)

    def test_o_tabuleiro_que_morre_deixa_a_janela_na_lista_de_tarefas_e_o_que_volta_toma_a(self):
        tabuleiro, principal = self.comecar_com_icone()
        self.escapar(principal)
        self.retirada(principal)
        tabuleiro.matar()
        self.minimizada(principal)
        tabuleiro = self.por_tabuleiro()
        tabuleiro.espera("icone")
        self.retirada(principal)
        tabuleiro.manda("clique")
        ecra.janela(TITULO)

    def test_o_tabuleiro_que_vem_tarde_toma_a_janela_minimizada(self):
        self.programa.comecar()
        principal = ecra.janela(TITULO)
        self.escapar(principal)
        self.minimizada(principal)
        tabuleiro = self.por_tabuleiro()
        tabuleiro.espera("icone")
        self.retirada(principal)
        tabuleiro.manda("clique")
        ecra.janela(TITULO)


if __name__ == "__main__":
    unittest.main()
