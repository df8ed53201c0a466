"""Contacts in and out as cards, in real windows. Usage: test_cartoes.py <program>"""

import pathlib
import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
ARRASTO = pathlib.Path(__file__).parent.parent / "servidores" / "arrasto"
IDIOMA = "PortuguesPT"
TITULO = "Morvex [0-9]"


class Cartoes(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)
        self.programa.sql("INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('Amigos', 0)")

    def comecar(self):
        self.programa.comecar()
        self.main = ecra.janela(TITULO)
        ecra.activar(self.main)

    def alt(self, texto):
        """Alt with the letter of that caption."""
        ecra.tecla("alt+" + self.programa.letra(texto, IDIOMA))

    def largar(self, nome, conteudo):
        """Drops a file of that content in the middle of the main window. Returns what became of it."""
        ficheiro = self.programa.pasta / nome
        ficheiro.write_text(conteudo, encoding="utf-8")
        esquerda, cimo, largura, altura = ecra.geometria(self.main)
        ponto = (esquerda + largura // 2, cimo + altura // 2)
        return ecra.run(str(ARRASTO), self.main, *map(str, ponto), str(ficheiro))

    def test_um_cartao_largado_na_janela_principal_abre_a_importacao(self):
        self.comecar()
        self.assertEqual(self.largar("a Ana.vcf", "BEGIN:VCARD\r\nFN:Ana\r\nEND:VCARD\r\n"), "copiado")
        importar = ecra.janela(self.programa.legenda(285, IDIOMA))
        ecra.activar(importar)
        time.sleep(1)  # the list has the keyboard once the file is read
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(0,)])
        self.alt(287)
        ecra.until(lambda: self.programa.sql("SELECT Nome FROM TblLista") == [("Ana",)], "the contact")
        self.alt(135)
        ecra.sem_janela(self.programa.legenda(285, IDIOMA))
        self.assertTrue((self.programa.pasta / "a Ana.vcf").exists())
        self.assertTrue(self.programa.vive())

    def test_um_ficheiro_de_outra_especie_nao_se_aceita(self):
        self.comecar()
        self.assertEqual(self.largar("carta.doc", "Cara Ana"), "recusado")
        time.sleep(1)
        self.assertEqual(ecra.janelas(self.programa.legenda(285, IDIOMA)), [])
        self.assertTrue(self.programa.vive())

    def test_os_contactos_exportam_se_so_com_o_teclado(self):
        self.programa.sql("INSERT INTO TblLista (Nome, Telefone1, Grupo) VALUES ('Ana', '213333333', 1), ('Rui', '', 1)")
        self.comecar()
        exportar = "^" + self.programa.legenda(275, IDIOMA) + "$"
        self.alt(137)
        time.sleep(0.3)
        ecra.tecla(self.programa.letra(275, IDIOMA))
        form = ecra.janela(exportar)
        ecra.activar(form)
        self.alt(393)
        self.alt(401)
        alvo = self.programa.pasta / "gente.vcf"
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", form), "the question where")
        time.sleep(0.5)
        ecra.escrever(str(alvo))
        ecra.tecla("Return")
        ecra.until(alvo.exists, "the file")
        ecra.until(lambda: len(ecra.janelas(exportar)) == 2, "the answer, which bears the same title")
        ecra.tecla("Return")
        ecra.sem_janela(exportar)
        cartoes = alvo.read_text(encoding="utf-8")
        self.assertEqual(cartoes.count("BEGIN:VCARD"), 2)
        for linha in ("FN:Ana", "FN:Rui"):
            self.assertIn(linha, cartoes)
        self.assertIn("213333333", cartoes)
        self.assertTrue(self.programa.vive())


if __name__ == "__main__":
    unittest.main(verbosity=2)
