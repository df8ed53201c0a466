"""The notification area on a real screen: hiding, the icon's two clicks, and the locked window that only comes
back through the password. Usage: test_tabuleiro.py <program>"""

import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
TITULO = "Morvex [0-9]"
LOGIN = "Morvex - Login"
RECUSA = "Login"
ABRIR_MORVEX = 157
# Signs outside of the scrambled alphabet, so the database can be given the passwords as they are.
SENHA, SENHA_DA_OUTRA, SENHA_DO_RUI = "+-*/", "+*+*", "*/*/"


class Tabuleiro(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.definir("basedados", "caminhobd", self.programa.pasta / "morvex.mdb")
        self.programa.sql("UPDATE TblConfig SET Idioma='PortuguesPT'")

    def utilizador(self, nome, senha, pedir_senha=1):
        self.programa.sql("INSERT INTO TblUsers (Utilizador, Pass, SystemTray, Adicionar, Editar, Eliminar, "
                          "Grupos, Utilizadores) VALUES (?, ?, ?, 1, 1, 1, 1, 1)", nome, senha, pedir_senha)
        return self.programa.sql("SELECT max(ID) FROM TblUsers")[0][0]

    def dar_senha(self, senha):
        ecra.activar(ecra.janela(LOGIN))
        ecra.tecla("ctrl+a")
        ecra.escrever(senha)
        ecra.tecla("Return")

    def entrar(self):
        self.programa.comecar()
        ecra.activar(ecra.janela(LOGIN))
        ecra.escrever("Ana")
        ecra.tecla("Tab")
        self.dar_senha(SENHA)
        ecra.janela(TITULO + ".*Ana")
        ecra.icone_do_tabuleiro()

    def esconder(self):
        ecra.activar(ecra.janela(TITULO))
        ecra.tecla("Escape")
        ecra.sem_janela(TITULO)
        time.sleep(0.5)  # the other icon takes the first one's place
        self.assertTrue(self.programa.vive())

    def recusada(self, senha):
        self.dar_senha(senha)
        ecra.activar(ecra.janela(RECUSA + "$"))
        self.assertFalse(ecra.janelas(TITULO))
        ecra.tecla("Return")
        ecra.sem_janela(RECUSA + "$")

    def test_escape_esconde_e_um_clique_no_icone_traz_de_volta_sem_senha(self):
        self.programa.comecar()
        ecra.janela(TITULO)
        icone = ecra.icone_do_tabuleiro()
        self.esconder()
        self.assertEqual(ecra.icone_do_tabuleiro(), icone)
        ecra.clicar(*icone)
        ecra.janela(TITULO)
        self.assertFalse(ecra.janelas(LOGIN))

    def test_um_clique_com_a_janela_a_vista_tira_a_de_minimizada_e_tra_la_a_frente(self):
        self.programa.comecar()
        principal = ecra.janela(TITULO)
        icone = ecra.icone_do_tabuleiro()
        ecra.run("xdotool", "windowminimize", principal)
        ecra.until(lambda: ecra.minimizada(principal), "the minimised window")
        ecra.clicar(*icone)
        ecra.until(lambda: not ecra.minimizada(principal), "the window in its normal state")

        outra = ecra.Programa(EXECUTAVEL)  # a window of somebody else's, in front
        self.addCleanup(outra.fechar)
        outra.comecar()
        ecra.activar(ecra.janela("MORVEX - Idioma"))

        def em_frente():  # a form that has only just come may take the front back once
            ecra.clicar(*icone)
            time.sleep(0.5)
            return ecra.run("xdotool", "getactivewindow") == principal
        ecra.until(em_frente, "the window in front")

    def test_trancada_recusa_a_senha_errada_e_a_de_outro_nome(self):
        self.utilizador("Ana", SENHA)
        self.utilizador("Rui", SENHA_DO_RUI)
        self.entrar()
        self.esconder()
        ecra.clicar(*ecra.icone_do_tabuleiro())
        self.recusada("errada")
        self.recusada(SENHA_DO_RUI)  # the name stands there already, and cannot be typed over
        self.dar_senha(SENHA)
        ecra.janela(TITULO + ".*Ana")

    def test_a_senha_valida_de_outra_reabre_e_a_sessao_fica_com_a_primeira(self):
        primeira = self.utilizador("Ana", SENHA)
        outra = self.utilizador("Ana", SENHA_DA_OUTRA)
        self.entrar()
        self.esconder()
        ecra.clicar(*ecra.icone_do_tabuleiro())
        self.recusada("errada")
        self.dar_senha(SENHA_DA_OUTRA)
        ecra.sem_janela(LOGIN)
        ecra.activar(ecra.janela(TITULO + ".*Ana"))
        # Whose session it is shows in the settings that belong to a user.
        ecra.tecla("alt+" + self.programa.letra(146, "PortuguesPT"))
        time.sleep(0.3)
        ecra.tecla(self.programa.letra(151, "PortuguesPT"))
        opcoes = self.programa.legenda(151, "PortuguesPT")
        ecra.activar(ecra.janela(opcoes))
        ecra.tecla("Return")
        ecra.sem_janela(opcoes)
        self.assertIsNotNone(self.programa.ler_ini(f"emailnotify{primeira}", "minutos"))
        self.assertIsNone(self.programa.ler_ini(f"emailnotify{outra}", "minutos"))

    def test_o_menu_do_icone_trancado_abre_se_e_leva_ao_login(self):
        self.utilizador("Ana", SENHA)
        self.entrar()
        self.esconder()
        ecra.clicar(*ecra.icone_do_tabuleiro(), botao="3")
        time.sleep(0.5)
        self.assertFalse(ecra.janelas(TITULO))
        ecra.tecla(self.programa.letra(ABRIR_MORVEX, "PortuguesPT"))
        self.dar_senha(SENHA)
        ecra.janela(TITULO + ".*Ana")


if __name__ == "__main__":
    unittest.main()
