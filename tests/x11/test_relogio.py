"""What the program does of itself when its hour comes, under a clock that the test moves. Usage: test_relogio.py
<program>"""

import datetime
import sys
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
IDIOMA = "PortuguesPT"
TITULO = "Morvex [0-9]"
AVISO = "Morvex$"
FERRAMENTAS, NOVA_TAREFA, ANIVERSARIOS = 146, 149, 175  # texts

VESPERA = datetime.datetime(2027, 12, 31, 23, 40)
QUASE_MEIA_NOITE = datetime.datetime(2027, 12, 31, 23, 59, 50)
DIA_NOVO = datetime.datetime(2028, 1, 1)
ESPERA_PELO_RELOGIO = 150  # real seconds; the change of day is looked for about once a minute

LINHA = (60, 54)  # the first row of the list of birthdays
FOTO = (430, 101)  # the middle of its picture
AZUL, VERMELHO = "#2040C0", "#C02020"


class Relogio(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)

    def comecar(self, hora):
        self.relogio = ecra.Relogio(self.programa, hora)
        self.programa.comecar()

    def contacto(self, nome, dia, mes, cor):
        """A contact with a birthday and a picture of one colour."""
        ecra.run("convert", "-size", "161x155", f"xc:{cor}", str(self.programa.pasta / f"{nome}.png"))
        self.programa.sql("INSERT INTO TblLista (Nome, Dia, Mes, Fotografia, Grupo) VALUES (?, ?, ?, ?, 1)",
                          nome, dia, mes, f"{nome}.png")

    def ver_foto(self, lista, cor):
        x, y, _, _ = ecra.geometria(lista)
        ecra.until(lambda: ecra.cor(x + FOTO[0], y + FOTO[1]) == cor, f"the picture in {cor}")

    def fechar_lista(self, lista):
        ecra.activar(lista)
        ecra.tecla("Escape")
        ecra.sem_janela(self.programa.texto(ANIVERSARIOS, IDIOMA))

    def test_a_meia_noite_vem_os_aniversarios_do_dia_novo(self):
        self.programa.sql("INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('Amigos', 0)")
        self.contacto("Ana", "31", "12", AZUL)
        self.contacto("Bento", "1", "1", VERMELHO)
        self.programa.definir("aniversarios", "dias", 1)  # today and no further
        self.comecar(VESPERA)
        lista = ecra.janela(self.programa.texto(ANIVERSARIOS, IDIOMA))
        self.ver_foto(lista, AZUL)  # at the start the first row is selected
        self.fechar_lista(lista)
        principal = ecra.janela(TITULO)

        self.relogio.acertar(QUASE_MEIA_NOITE)
        nome = self.programa.texto(ANIVERSARIOS, IDIOMA)
        lista = ecra.until(lambda: ecra.janelas(nome), "the birthdays of the new day", ESPERA_PELO_RELOGIO)[0]
        self.assertGreaterEqual(self.relogio.agora(), DIA_NOVO)
        ecra.activar(lista)
        ecra.clicar(lista, *LINHA)
        self.ver_foto(lista, VERMELHO)
        ecra.tecla("Home")
        self.ver_foto(lista, VERMELHO)  # nobody stands above
        self.fechar_lista(lista)
        ecra.activar(principal)
        ecra.tecla("Escape")  # a disabled window would not hear it
        ecra.sem_janela(TITULO)

    def test_uma_tarefa_do_dia_novo_toca_quando_o_dia_passa(self):
        self.programa.definir("aniversarios", "aviso", 2)
        self.programa.sql("INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) "
                          "VALUES ('Brindar', '2028-01-01', '00:00:00', 0, 1)")
        self.comecar(QUASE_MEIA_NOITE)
        ecra.janela(TITULO)
        self.assertGreaterEqual(self.hora_do_aviso(), DIA_NOVO)

    def test_uma_tarefa_marcada_pela_mao_toca_no_seu_minuto(self):
        self.programa.definir("aniversarios", "aviso", 2)
        self.comecar(VESPERA)
        ecra.activar(ecra.janela(TITULO))
        ecra.tecla("alt+" + self.programa.letra(FERRAMENTAS, IDIOMA), self.programa.letra(NOVA_TAREFA, IDIOMA))
        ecra.activar(ecra.janela(self.programa.legenda(NOVA_TAREFA, IDIOMA)))
        ecra.escrever("Regar")
        ecra.tecla("Tab", "Tab", "Tab", "Tab")  # past the three parts of the date, which is today
        ecra.escrever("2355")
        ecra.tecla("Return")
        ecra.sem_janela(self.programa.legenda(NOVA_TAREFA, IDIOMA))
        self.assertEqual(self.programa.sql("SELECT Tarefa, Data, Hora FROM TblTarefas"),
                         [("Regar", "2027-12-31", "23:55:00")])
        marcada = datetime.datetime(2027, 12, 31, 23, 55)
        self.relogio.acertar(marcada - datetime.timedelta(seconds=5))
        self.assertGreaterEqual(self.hora_do_aviso(), marcada)

    def hora_do_aviso(self):
        """When the notice of a task was first seen, by the program's clock."""
        def visto():
            return ecra.janelas(AVISO) and self.relogio.agora()

        self.assertEqual(ecra.janelas(AVISO), [])
        return ecra.until(visto, "the notice", ESPERA_PELO_RELOGIO)


if __name__ == "__main__":
    unittest.main()
