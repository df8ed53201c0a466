"""The life of the program as a person sees it, in real windows. Usage: test_vida_do_programa.py <program>"""

import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
TITULO = "Morvex [0-9]"
# Signs outside of the scrambled alphabet, so the database can be given the password as it is.
SENHA = "+-*/"


class NaJanelaReal(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)

    def escolher_bandeira(self, coluna):
        self.programa.comecar()
        bandeiras = ecra.janela("MORVEX - Idioma")
        ecra.activar(bandeiras)
        ecra.clicar(bandeiras, 78 + 118 * coluna, 70)
        ecra.sem_janela("MORVEX - Idioma")
        return ecra.until(lambda: self.programa.sql("SELECT Idioma FROM TblConfig")[0][0], "the language")

    def confirmar_opcoes(self, idioma):
        """A first run isn't over until the options have been confirmed."""
        legenda = self.programa.texto(151, idioma).replace("&", "")
        ecra.activar(ecra.janela(legenda))
        ecra.tecla("Return")
        ecra.sem_janela(legenda)

    def instalado(self, com_utilizador=False, pedir_senha=0):
        """An installation whose first run is long past, just started."""
        self.escolher_bandeira(0)
        self.programa.processo.kill()
        self.programa.processo.wait()
        self.programa.definir("basedados", "caminhobd", self.programa.pasta / "morvex.mdb")
        if com_utilizador:
            self.programa.sql("INSERT INTO TblUsers (Utilizador, Pass, SystemTray, Adicionar, Editar, Eliminar, "
                              "Grupos, Utilizadores) VALUES ('Ana', ?, ?, 1, 1, 1, 1, 1)", SENHA, pedir_senha)
        self.programa.comecar()

    def entrar(self, nome, senha):
        login = ecra.janela("Morvex - Login")
        ecra.activar(login)
        if nome:
            ecra.tecla("ctrl+a")
            ecra.escrever(nome)
            ecra.tecla("Tab")
        ecra.escrever(senha)
        ecra.tecla("Return")
        return login

    def test_a_primeira_corrida_em_frances_enche_a_base(self):
        idioma = self.escolher_bandeira(3)
        self.confirmar_opcoes(idioma)
        ecra.janela(TITULO)
        self.assertEqual(self.programa.sql("SELECT Idioma FROM TblConfig"), [("FrancesFR",)])
        self.assertEqual(self.programa.sql("SELECT NomeGrupo FROM TblGrupos WHERE ID=1"), [("Amis",)])
        self.assertTrue(self.programa.vive())

    def test_sem_a_senha_certa_ninguem_entra(self):
        self.instalado(com_utilizador=True)
        login = self.entrar("Ana", "errada")
        recusa = ecra.janela("Login")
        ecra.activar(recusa)
        ecra.tecla("Return")
        ecra.sem_janela("Login")
        self.assertFalse(ecra.janelas(TITULO))
        ecra.activar(login)
        ecra.tecla("ctrl+a")
        ecra.escrever(SENHA)
        ecra.tecla("Return")
        ecra.janela(TITULO + ".*Ana")

    def test_cancelar_o_login_termina_o_processo(self):
        self.instalado(com_utilizador=True)
        ecra.activar(ecra.janela("Morvex - Login"))
        ecra.tecla("Escape")
        self.programa.terminou()

    def test_fechar_esconde_e_o_icone_traz_de_volta(self):
        self.instalado()
        principal = ecra.janela(TITULO)
        icone = ecra.icone_do_tabuleiro()
        ecra.activar(principal)
        ecra.tecla("alt+F4")
        ecra.sem_janela(TITULO)
        self.assertTrue(self.programa.vive())
        ecra.clicar(*icone)
        ecra.janela(TITULO)

    def test_escape_esconde(self):
        self.instalado()
        principal = ecra.janela(TITULO)
        ecra.icone_do_tabuleiro()
        ecra.activar(principal)
        ecra.tecla("Escape")
        ecra.sem_janela(TITULO)
        self.assertTrue(self.programa.vive())

    def test_a_janela_trancada_so_volta_com_a_senha(self):
        self.instalado(com_utilizador=True, pedir_senha=1)
        self.entrar("Ana", SENHA)
        principal = ecra.janela(TITULO)
        ecra.icone_do_tabuleiro()
        ecra.activar(principal)
        ecra.tecla("Escape")
        ecra.sem_janela(TITULO)
        time.sleep(0.5)  # the other icon takes the first one's place
        ecra.clicar(*ecra.icone_do_tabuleiro())
        self.entrar(None, SENHA)
        ecra.janela(TITULO)

    def test_comecar_outra_vez_traz_a_janela_e_acaba(self):
        self.instalado()
        ecra.activar(ecra.janela(TITULO))
        ecra.icone_do_tabuleiro()
        ecra.tecla("Escape")
        ecra.sem_janela(TITULO)
        self.assertEqual(self.programa.comecar_outra_vez(), 0)
        ecra.janela(TITULO)
        self.assertTrue(self.programa.vive())

    def test_a_janela_de_espera_fica_a_frente_da_principal_e_vai_se_sozinha(self):
        self.programa.instalar("PortuguesPT")
        self.programa.definir("messenger", "activo", 1)
        self.programa.comecar()
        espera, principal = ecra.janela("Morvex$"), ecra.janela(TITULO)

        def a_frente():
            ordem = ecra.empilhamento()
            return {espera, principal} <= set(ordem) and ordem.index(espera) > ordem.index(principal)

        ecra.until(a_frente, "the window of the loading in front")
        ecra.sem_janela("Morvex$")
        self.assertTrue(self.programa.vive())

    def test_sair_pelo_menu_termina(self):
        self.instalado()
        principal = ecra.janela(TITULO)
        ecra.icone_do_tabuleiro()
        ecra.activar(principal)
        ficheiro = self.programa.texto(125, "PortuguesPT")
        sair = self.programa.texto(136, "PortuguesPT")
        ecra.tecla("alt+" + ficheiro[ficheiro.index("&") + 1].lower())
        time.sleep(0.3)
        ecra.tecla(sair[sair.index("&") + 1].lower())
        self.programa.terminou()
        self.assertEqual(self.programa.processo.returncode, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
