"""Notes on a real desktop of 1280 x 800, handled with the mouse. Usage: test_memos.py <program>"""

import sys
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
IDIOMA = "PortuguesPT"
TITULO = "Morvex [0-9]"
FERRAMENTAS, NOVO_MEMO, FICHEIRO, SAIR = 146, 148, 125, 136  # texts
PERGUNTA = "Morvex - Memo"
AO_LADO = (990, 306)  # beside the main window


def activa():
    return ecra.run("xdotool", "getactivewindow")


class Memos(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)
        self.comecar()

    def comecar(self):
        self.programa.comecar()
        self.main = ecra.janela(TITULO)  # the last one to show: the notes are there before it

    def recomecar(self):
        """Out by the menu and in again."""
        self.escolher(FICHEIRO, SAIR)
        self.programa.terminou()
        self.assertEqual(self.programa.processo.returncode, 0)
        self.comecar()

    def escolher(self, menu, entrada):
        ecra.activar(self.main)
        ecra.tecla("alt+" + self.programa.letra(menu, IDIOMA), self.programa.letra(entrada, IDIOMA))

    def criar(self, titulo):
        self.escolher(FERRAMENTAS, NOVO_MEMO)
        ecra.activar(ecra.janela("Memo$"))
        ecra.escrever(titulo)
        ecra.tecla("Return")
        nota = ecra.janela(titulo)
        ecra.until(lambda: self.linha(titulo), "the row of the new note")
        return nota

    def linha(self, titulo):
        """The row of the note: place and size in pixels, text and colour."""
        return self.programa.sql("SELECT LeftForm / 15, TopForm / 15, Width / 15, Height / 15, Descricao, CorFundo "
                                 "FROM TblMemos WHERE Titulo = ? COLLATE BINARY", titulo)

    def esperar(self, nota, titulo, lugar):
        """Waits until the note stands there on the screen and in its row. Both in pixels."""
        ecra.until(lambda: ecra.geometria(nota) == lugar, f"the note at {lugar}")
        ecra.until(lambda: self.linha(titulo)[0][:4] == lugar, f"the row at {lugar}")

    def pegar(self, nota, x, y, por):
        """Drags what is at that point of the note by so much. Points count from the far edges where negative."""
        esquerda, topo, largura, altura = ecra.geometria(nota)
        de = esquerda + (x if x >= 0 else largura + x), topo + (y if y >= 0 else altura + y)
        ecra.arrastar(de, (de[0] + por[0], de[1] + por[1]))

    def por_ao_lado(self, nota, titulo):
        x, y, largura, altura = ecra.geometria(nota)
        self.pegar(nota, 60, 8, (AO_LADO[0] - x, AO_LADO[1] - y))
        self.esperar(nota, titulo, (*AO_LADO, largura, altura))

    def carregar(self, nota, da_direita):
        """A click on the button whose left edge is that many twips from the right edge."""
        _, _, largura, altura = ecra.geometria(nota)
        ecra.clicar(nota, largura - da_direita // 15 + 6, altura - 350 // 15 + 6)

    def sossegado(self, nota):
        """The note's picture with keyboard and pointer elsewhere."""
        ecra.activar(self.main)
        ecra.run("xdotool", "mousemove", "5", "5")
        return ecra.retrato(nota)

    def test_a_vida_inteira_de_uma_nota(self):
        nota = self.criar("Compras")
        self.assertIn("TYPE_UTILITY", ecra.run("xprop", "-id", nota, "_NET_WM_WINDOW_TYPE"))  # no task bar shows these
        self.assertEqual(ecra.geometria(nota)[2:], (185, 93))
        self.por_ao_lado(nota, "Compras")

        self.pegar(nota, -2, 40, (60, 9))
        self.esperar(nota, "Compras", (*AO_LADO, 245, 93))
        self.pegar(nota, 40, -2, (9, 70))
        self.esperar(nota, "Compras", (*AO_LADO, 245, 163))
        self.pegar(nota, -6, -5, (-30, 40))
        self.esperar(nota, "Compras", (*AO_LADO, 215, 203))

        self.carregar(nota, 680)
        dialogo = ecra.until(lambda: activa() not in ("", nota, self.main) and activa(), "the colours")
        ecra.activar(dialogo)
        ecra.tecla("alt+h", "ctrl+a")
        ecra.escrever("#40c080")
        ecra.tecla("Return")
        ecra.until(lambda: self.linha("Compras")[0][5] == 0x80C040, "the colour in the row")
        for ponto in ((120, 8), (120, 100), (3, 100)):  # title, text, form
            ecra.until(lambda p=ponto: ecra.cor(AO_LADO[0] + p[0], AO_LADO[1] + p[1]) == "#40C080", "the colour")

        ecra.clicar(nota, 60, 60)
        ecra.until(lambda: activa() == nota, "the keyboard")
        ecra.escrever("leite")
        ecra.tecla("Return")
        ecra.escrever("queijo")
        ecra.tecla("ctrl+s")
        ecra.until(lambda: self.linha("Compras")[0][4] == "leite\r\nqueijo", "the text in the row")

        antes, linha = self.sossegado(nota), self.linha("Compras")
        self.recomecar()
        nota = ecra.janela("Compras")
        self.assertEqual(ecra.geometria(nota), (*AO_LADO, 215, 203))
        ecra.until(lambda: self.sossegado(nota) == antes, "the same note as before")
        self.assertEqual(self.linha("Compras"), linha)

        ecra.clicar(nota, 60, 60)
        ecra.until(lambda: activa() == nota, "the keyboard")
        ecra.tecla("ctrl+End")
        ecra.escrever(" fresco")
        ecra.tecla("ctrl+s")
        ecra.until(lambda: self.linha("Compras")[0][4] == "leite\r\nqueijo fresco", "the text, written on")

    def test_uma_nota_apagada_nao_volta_e_a_outra_sim(self):
        fica = self.criar("Fica")
        self.por_ao_lado(fica, "Fica")
        lugar = ecra.geometria(fica)
        some = self.criar("Some")
        self.carregar(some, 350)
        ecra.activar(ecra.janela(PERGUNTA))
        ecra.tecla("Escape")
        ecra.sem_janela(PERGUNTA)
        self.assertEqual(ecra.janelas("Some"), [some])
        self.assertEqual(len(self.linha("Some")), 1)
        self.carregar(some, 350)
        ecra.activar(ecra.janela(PERGUNTA))
        ecra.tecla("Return")
        ecra.sem_janela("Some")
        self.assertEqual(self.linha("Some"), [])
        self.recomecar()
        self.assertEqual(ecra.geometria(ecra.janela("Fica")), lugar)
        self.assertEqual(ecra.janelas("Some"), [])

    def test_uma_nota_fora_do_ecra_volta_ao_alcance_da_mao(self):
        nota = self.criar("Longe")
        self.por_ao_lado(nota, "Longe")
        self.programa.processo.kill()
        self.programa.processo.wait()
        self.programa.sql("UPDATE TblMemos SET LeftForm=60000, TopForm=-45000")
        self.comecar()
        nota = ecra.janela("Longe")
        x, y, largura, altura = ecra.geometria(nota)
        self.assertEqual((x, y), (1280 - 60, 0))
        self.assertEqual(self.linha("Longe")[0][:2], (4000, -3000))
        self.pegar(nota, 20, 8, (-500, 300))
        self.esperar(nota, "Longe", (x - 500, y + 300, largura, altura))


if __name__ == "__main__":
    unittest.main()
