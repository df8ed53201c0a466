"""Contacts by keys alone: the mouse is never touched. Usage: test_sem_rato.py <program>"""

import os
import sys
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
TITULO = "Morvex [0-9]"
IDIOMA = "PortuguesPT"
# A stand-in for the desktop's opener of addresses, which notes what it was asked for.
ABRIDOR = '#!/bin/sh\nprintf "%s\\n" "$@" >>"$MORVEX_HOME/abertos"\n'


class SemRato(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)
        for grupo in ("Amigos", "Trabalho"):
            self.programa.sql("INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES (?, 0)", grupo)

    def contacto(self, **colunas):
        self.programa.sql(f"INSERT INTO TblLista ({', '.join(colunas)}, Grupo) "
                          f"VALUES ({', '.join('?' * len(colunas))}, 1)", *colunas.values())

    def comecar(self):
        abridor = self.programa.pasta / "bin" / "xdg-open"
        abridor.parent.mkdir()
        abridor.write_text(ABRIDOR, encoding="ascii")
        abridor.chmod(0o755)
        self.programa.ambiente |= {"PATH": f"{abridor.parent}:{os.environ['PATH']}"}
        self.programa.comecar()
        self.main = ecra.janela(TITULO)
        ecra.activar(self.main)

    def abertos(self):
        ficheiro = self.programa.pasta / "abertos"
        return ficheiro.read_text(encoding="utf-8").splitlines() if ficheiro.exists() else []

    def alt(self, texto):
        """Alt with the letter of that caption."""
        ecra.tecla("alt+" + self.programa.letra(texto, IDIOMA))

    def no_formulario(self, texto, *accoes):
        """Waits for the window of that title, does that in it, and waits for its end."""
        titulo = "^" + self.programa.legenda(texto, IDIOMA) + "$"
        ecra.activar(ecra.janela(titulo))
        for accao in accoes:
            accao()
        ecra.sem_janela(titulo)

    def responder(self, letra):
        """Answers the question that stands in front of the main window, which bears the same title."""
        ecra.until(lambda: len(ecra.janelas(TITULO)) == 2, "the question")
        pergunta = next(janela for janela in ecra.janelas(TITULO) if janela != self.main)
        ecra.activar(pergunta)
        ecra.tecla("alt+" + letra)
        ecra.until(lambda: ecra.janelas(TITULO) == [self.main], "the end of the question")

    def procurar_depressa(self, texto):
        ecra.activar(self.main)
        self.alt(3)
        ecra.tecla("ctrl+a")
        ecra.escrever(texto)

    def lista(self, colunas="Nome"):
        return self.programa.sql(f"SELECT {colunas} FROM TblLista ORDER BY ID")

    def test_um_contacto_novo_com_todos_os_campos(self):
        self.comecar()
        self.alt(45)
        campos = ["Rita Nunes", "211", "212", "213", "911", "912", "913", "", None, "www.rita.example",
                  "rita@x.example", "rita@y.example", "Rua 1\r\nLisboa", "gosta de mar", "7", "5", "1975"]

        def preencher():
            for texto in campos:
                primeira, *outras = (texto or "").split("\r\n")
                ecra.escrever(primeira)
                for linha in outras:
                    ecra.tecla("Return")  # which saves in any other field
                    ecra.escrever(linha)
                ecra.tecla("Tab")
            ecra.tecla("Tab", "Down")  # past the calendar, to the second group

        self.no_formulario(26, preencher, lambda: ecra.tecla("Return"))
        guardado = self.lista("Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3, Fotografia, "
                              "Website, Email1, Email2, Morada, Obs, Dia, Mes, Ano, Grupo")
        campos.remove(None)  # the button that looks for a picture
        self.assertEqual(guardado, [(*campos, 2)])

    def test_o_aniversario_escolhe_se_no_calendario(self):
        self.comecar()
        self.alt(45)

        def escolher():
            ecra.escrever("Rita")
            ecra.tecla(*["Tab"] * 16, "Home")  # to the year, whose calendar fills the year as well
            ecra.tecla("Tab", "Home", "Return")  # the calendar's first day of this month

        self.no_formulario(26, escolher, lambda: ecra.tecla("Return"))
        (dia, mes, ano), = self.lista("Dia, Mes, Ano")
        self.assertEqual(dia, "1")
        self.assertRegex(f"{mes}/{ano}", "^1?[0-9]/20[0-9][0-9]$")

    def test_encontrar_depressa_editar_e_eliminar(self):
        for nome in ("Ana Costa", "Berta Lima", "Rita Nunes"):
            self.contacto(Nome=nome, Telefone1="211")
        self.comecar()
        self.procurar_depressa("ber")
        ecra.tecla("F2")
        self.no_formulario(53, lambda: ecra.tecla("Tab", "ctrl+a"), lambda: ecra.escrever("999"),
                           lambda: ecra.tecla("Return"))
        self.assertEqual(self.lista("Nome, Telefone1"),
                         [("Ana Costa", "211"), ("Berta Lima", "999"), ("Rita Nunes", "211")])
        self.procurar_depressa("ri")
        ecra.tecla("Up")  # from Rita to the list, and there to Berta
        ecra.tecla("Delete")
        self.responder("n")
        self.assertEqual(len(self.lista()), 3)
        ecra.tecla("Delete")
        self.responder("s")
        self.assertEqual(self.lista(), [("Ana Costa",), ("Rita Nunes",)])

    def test_procurar_num_campo_e_eliminar_pelo_menu(self):
        self.contacto(Nome="Ana Costa", Telefone1="21 345", Obs="nada")
        self.contacto(Nome="Berta Lima", Telefone1="96 111", Obs="vive junto ao mar")
        self.contacto(Nome="Rita Nunes", Telefone1="96 222", Obs="o mar")
        self.comecar()

        def abrir_procura():
            self.alt(137)
            ecra.tecla(self.programa.letra(141, IDIOMA))

        # The second of two hits, and the end behind it.
        abrir_procura()
        titulo = "^" + self.programa.legenda(59, IDIOMA) + "$"
        procura = ecra.janela(titulo)
        ecra.activar(procura)
        left, top, *_ = ecra.geometria(self.main)
        self.assertEqual(ecra.geometria(procura)[:2], (left + 7450 // 15 + 1, top))
        ecra.escrever("MAR")
        ecra.tecla("Tab", *["Down"] * 7)  # to the notes
        ecra.tecla("Return", "Return", "Return")
        ecra.until(lambda: len(ecra.janelas(titulo)) == 2, "the message behind the last hit")
        ecra.tecla("Return")
        ecra.until(lambda: ecra.janelas(titulo) == [procura], "the end of the message")
        ecra.tecla("Escape")
        ecra.sem_janela(titulo)
        ecra.activar(self.main)
        self.alt(137)
        ecra.tecla(self.programa.letra(140, IDIOMA))
        self.responder("s")
        self.assertEqual(self.lista(), [("Ana Costa",), ("Berta Lima",)])

        # By the digits of a number.
        abrir_procura()
        ecra.activar(ecra.janela(titulo))
        ecra.escrever("+961")
        ecra.tecla("Tab", "Down", "Return", "Escape")  # in the telephones
        ecra.sem_janela(titulo)
        ecra.activar(self.main)
        self.alt(47)
        self.responder("s")
        self.assertEqual(self.lista(), [("Ana Costa",)])

    def test_a_fotografia_e_as_linhas_do_cartao(self):
        self.contacto(Nome="Ana Costa", Email1="Ana@x.example", Website="X.Example/Mar", Telefone1="",
                      Telefone2="", Fax="", Telemovel1="", Telemovel2="", Telemovel3="", Email2="", Morada="",
                      Obs="", Dia="", Fotografia=str(self.programa.pasta / "praca_sample.jpg"))
        self.comecar()
        self.alt(3)
        ecra.tecla("Tab", "Tab", "Tab", "Return")  # filter, list, picture
        self.no_formulario(11, lambda: ecra.tecla("x"))
        ecra.activar(self.main)
        ecra.tecla("Tab", "Tab", "Tab", "Tab", "Return")  # three buttons, the mail row
        ecra.until(lambda: self.abertos() == ["mailto:Ana@x.example"], "the letter")
        ecra.tecla("Tab", "Return")
        ecra.until(lambda: self.abertos()[1:] == ["http://www.x.example/mar"], "the page")

    def test_a_escolha_entre_dois_enderecos(self):
        self.contacto(Nome="Ana Costa", Email1="um@x.example", Email2="dois@x.example")
        self.comecar()
        self.alt(137)
        ecra.tecla(self.programa.letra(142, IDIOMA))
        self.no_formulario(55, lambda: ecra.tecla("Down", "space", "Return"))
        ecra.until(lambda: self.abertos() == ["mailto:dois@x.example"], "the letter")


if __name__ == "__main__":
    unittest.main(verbosity=2)
