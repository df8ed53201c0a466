"""A desktop without a notification area, on which one comes up later, is killed and comes back. Usage:
test_sem_tabuleiro.py <program>"""

import pathlib
import subprocess
import sys
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
MENTIROSO = pathlib.Path(__file__).parent.parent / "servidores" / "tabuleiro_mentiroso"
TITULO = "Morvex [0-9]"
LOGIN = "Morvex - Login"
# Signs outside of the scrambled alphabet, so the database can be given the password as it is.
SENHA = "+-*/"


class SemTabuleiro(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar("PortuguesPT")
        self.tabuleiro = None
        self.addCleanup(self.matar_tabuleiro)

    def por_tabuleiro(self):
        self.tabuleiro = subprocess.Popen(["trayer", "--edge", "bottom", "--align", "right", "--widthtype", "request",
                                           "--height", "32", "--SetDockType", "true"], stderr=subprocess.DEVNULL)

    def matar_tabuleiro(self):
        if self.tabuleiro:
            self.tabuleiro.kill()
            self.tabuleiro.wait()
            self.tabuleiro = None

    def escapar(self, principal):
        ecra.activar(principal)
        ecra.tecla("Escape")
        ecra.until(lambda: ecra.minimizada(principal), "the minimised window")

    def retirada(self, principal):
        ecra.until(lambda: ecra.retirada(principal), "the hidden window")

    def test_o_tabuleiro_que_vem_morre_e_volta(self):
        self.programa.comecar()
        principal = ecra.janela(TITULO)
        self.escapar(principal)
        self.por_tabuleiro()
        self.retirada(principal)
        ecra.clicar(*ecra.icone_do_tabuleiro())
        ecra.until(lambda: ecra.janelas(TITULO) and not ecra.minimizada(principal), "the window")

        ecra.activar(principal)
        ecra.tecla("Escape")
        self.retirada(principal)
        self.matar_tabuleiro()
        ecra.until(lambda: ecra.minimizada(principal), "the window in the task list")
        self.por_tabuleiro()
        self.retirada(principal)
        ecra.clicar(*ecra.icone_do_tabuleiro())
        ecra.until(lambda: ecra.janelas(TITULO) and not ecra.minimizada(principal), "the window once more")

    def mentir_no_tamanho(self, largura, altura):
        self.programa.comecar()
        principal = ecra.janela(TITULO)
        mentiroso = subprocess.Popen([MENTIROSO, str(largura), str(altura)], stdout=subprocess.PIPE, text=True)
        self.addCleanup(mentiroso.stdout.close)
        self.addCleanup(mentiroso.wait)
        self.addCleanup(mentiroso.kill)
        self.assertEqual([mentiroso.stdout.readline() for _ in range(2)], ["area\n", "icone\n"])
        ecra.activar(principal)
        ecra.tecla("Escape")
        self.retirada(principal)  # there is an area, whatever it says of its size
        mentiroso.kill()
        ecra.until(lambda: ecra.minimizada(principal), "the window in the task list")

    def test_um_tabuleiro_sem_tamanho_nada_estraga(self):
        self.mentir_no_tamanho(1, 1)

    def test_um_tabuleiro_enorme_nada_estraga(self):
        self.mentir_no_tamanho(6000, 5000)

    def test_a_trancada_na_lista_de_tarefas_so_volta_com_a_senha(self):
        self.programa.sql("INSERT INTO TblUsers (Utilizador, Pass, SystemTray, Adicionar, Editar, Eliminar, Grupos, "
                          "Utilizadores) VALUES ('Ana', ?, 1, 1, 1, 1, 1, 1)", SENHA)
        self.programa.comecar()
        ecra.activar(ecra.janela(LOGIN))
        ecra.escrever("Ana")
        ecra.tecla("Tab")
        ecra.escrever(SENHA)
        ecra.tecla("Return")
        principal = ecra.janela(TITULO + ".*Ana")
        self.escapar(principal)

        ecra.run("xdotool", "windowactivate", principal)  # as a task list does
        ecra.activar(ecra.janela(LOGIN))
        ecra.until(lambda: ecra.minimizada(principal), "the window down again")
        ecra.tecla("Escape")
        ecra.sem_janela(LOGIN)
        self.assertTrue(ecra.minimizada(principal))

        ecra.run("xdotool", "windowactivate", principal)
        ecra.activar(ecra.janela(LOGIN))
        ecra.escrever(SENHA)
        ecra.tecla("Return")
        ecra.sem_janela(LOGIN)
        ecra.until(lambda: not ecra.minimizada(principal), "the open window")

    def test_arrancar_minimizado_deixa_a_janela_na_lista_de_tarefas(self):
        self.programa.definir("arranque", "minimizar", "sim")
        self.programa.comecar()
        principal = ecra.until(lambda: ecra.run("xdotool", "search", "--name", "^" + TITULO).split(), "a window")[-1]
        ecra.until(lambda: ecra.minimizada(principal), "the minimised window")
        ecra.run("xdotool", "windowactivate", principal)
        ecra.until(lambda: not ecra.minimizada(principal), "the window")


if __name__ == "__main__":
    unittest.main()
