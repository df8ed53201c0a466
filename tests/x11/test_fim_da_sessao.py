"""A real process that is told to end while something is not saved. Usage: test_fim_da_sessao.py <program>"""

import signal
import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
IDIOMA = "PortuguesPT"
TITULO = "Morvex [0-9]"
FERRAMENTAS, NOVO_MEMO = 146, 148  # texts
CONTACTOS, NOVO_CONTACTO, TITULO_DO_EDITOR = 137, 138, 26
A_SER_RAPIDO = 1.0  # seconds


class FimDaSessao(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)
        self.programa.sql("INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('Amigos', 0)")
        self.comecar()

    def comecar(self):
        self.programa.comecar()
        self.principal = ecra.janela(TITULO)

    def mandar_acabar(self, sinal):
        inicio = time.monotonic()
        self.programa.processo.send_signal(sinal)
        codigo = self.programa.processo.wait(timeout=ecra.PATIENCE)
        self.demora = time.monotonic() - inicio
        print(f"{sinal.name}: {self.demora * 1000:.0f} ms", file=sys.stderr)
        self.assertEqual(codigo, 0)
        self.assertLess(self.demora, A_SER_RAPIDO)

    def mandar_abrir_editor(self):
        ecra.activar(self.principal)
        ecra.tecla("alt+" + self.programa.letra(CONTACTOS, IDIOMA), self.programa.letra(NOVO_CONTACTO, IDIOMA))

    def test_a_nota_por_guardar_fica_guardada(self):
        ecra.activar(self.principal)
        ecra.tecla("alt+" + self.programa.letra(FERRAMENTAS, IDIOMA), self.programa.letra(NOVO_MEMO, IDIOMA))
        ecra.activar(ecra.janela("Memo$"))
        ecra.escrever("Compras")
        ecra.tecla("Return")
        nota = ecra.janela("Compras")
        ecra.activar(nota)
        ecra.escrever("leite")
        time.sleep(0.3)
        self.assertEqual(self.programa.sql("SELECT Descricao FROM TblMemos WHERE Titulo='Compras' COLLATE BINARY"), [("",)])
        self.mandar_acabar(signal.SIGTERM)
        self.assertEqual(self.programa.sql("SELECT Descricao FROM TblMemos WHERE Titulo='Compras' COLLATE BINARY"), [("leite",)])

    def test_o_contacto_por_confirmar_volta_a_ser_oferecido(self):
        self.mandar_abrir_editor()
        ecra.activar(ecra.janela(self.programa.legenda(TITULO_DO_EDITOR, IDIOMA)))
        ecra.escrever("Zita")
        time.sleep(0.3)
        self.mandar_acabar(signal.SIGHUP)
        self.assertEqual(self.programa.sql("SELECT Nome FROM TblLista WHERE Nome='Zita' COLLATE BINARY"), [])

        self.comecar()
        self.mandar_abrir_editor()
        titulo = self.programa.legenda(TITULO_DO_EDITOR, IDIOMA)
        ecra.until(lambda: len(ecra.janelas(titulo)) == 2, "the editor and the offer")
        oferta = ecra.until(lambda: [j for j in ecra.empilhamento() if j in ecra.janelas(titulo)], "the order")[-1]
        ecra.activar(oferta)
        ecra.tecla("Return")
        ecra.until(lambda: oferta not in ecra.janelas(titulo), "the answer")
        ecra.activar(ecra.janela(titulo))
        ecra.tecla("Return")
        ecra.until(lambda: self.programa.sql("SELECT Nome FROM TblLista WHERE Nome='Zita' COLLATE BINARY"), "the contact")
        rascunho = self.programa.pasta / "rascunho.json"
        ecra.until(lambda: not rascunho.exists(), "the end of the draft")


if __name__ == "__main__":
    unittest.main()
