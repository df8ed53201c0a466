"""What the program is started with, in real windows and with two processes. Usage: test_linha_de_comandos.py <program>"""

import pathlib
import shutil
import sys
import time
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
FICHEIROS = pathlib.Path(__file__).parent.parent / "fixtures"
IDIOMA = "PortuguesPT"
TITULO = "Morvex [0-9]"


class LinhaDeComandos(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)
        self.programa.sql("INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('Amigos', 0)")

    def em_frente(self, titulo):
        def da_frente():
            activa = ecra.run("xdotool", "getactivewindow")
            return activa if activa in ecra.janelas(titulo) else None
        return ecra.until(da_frente, f"{titulo} in front")

    def test_um_segundo_processo_entrega_os_seus_ficheiros_ao_primeiro(self):
        self.programa.comecar("--minimized")
        ecra.icone_do_tabuleiro()
        time.sleep(1)
        self.assertFalse(ecra.janelas(TITULO))
        self.assertEqual(self.programa.comecar_outra_vez("--minimized"), 0)
        time.sleep(1)
        self.assertFalse(ecra.janelas(TITULO))

        pasta = self.programa.pasta / "com espaço"
        pasta.mkdir()
        shutil.copyfile(FICHEIROS / "dat" / "normal.dat", pasta / "ântiga.dat")
        self.assertEqual(self.programa.comecar_outra_vez("ântiga.dat", onde=pasta), 0)
        importar = self.programa.legenda(82, IDIOMA)
        primeira = self.em_frente(importar)
        ecra.janela(TITULO)
        ecra.tecla("alt+" + self.programa.letra(71, IDIOMA))
        ecra.until(lambda: primeira not in ecra.janelas(importar), "the end of the first form")
        self.em_frente(importar)
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(0,)])
        ecra.tecla("alt+" + self.programa.letra(71, IDIOMA))
        ecra.sem_janela(importar)
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(50,)])
        self.assertTrue(self.programa.vive())

    def test_um_cartao_importa_se_so_com_o_teclado(self):
        self.programa.comecar()
        self.em_frente(TITULO)
        cartoes = self.programa.pasta / "gente.vcf"
        cartoes.write_text("".join(f"BEGIN:VCARD\r\nFN:{nome}\r\nEND:VCARD\r\n" for nome in ("Ana", "Rui", "Eva")))
        self.assertEqual(self.programa.comecar_outra_vez(str(cartoes)), 0)
        importar = self.programa.legenda(285, IDIOMA)
        self.em_frente(importar)
        time.sleep(1)  # the list has the keyboard once the file is read
        ecra.tecla("Down")
        ecra.tecla("space")  # Rui does not come
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(0,)])
        ecra.tecla("alt+" + self.programa.letra(287, IDIOMA))
        ecra.until(lambda: self.programa.sql("SELECT Nome FROM TblLista ORDER BY ID") == [("Ana",), ("Eva",)],
                   "the two who are ticked")
        ecra.tecla("alt+" + self.programa.letra(288, IDIOMA))
        ecra.until(lambda: self.programa.sql("SELECT count(*) FROM TblLista") == [(0,)], "the import taken back")
        ecra.tecla("alt+" + self.programa.letra(287, IDIOMA))
        ecra.until(lambda: self.programa.sql("SELECT count(*) FROM TblLista") == [(2,)], "the import once more")
        ecra.tecla("alt+" + self.programa.letra(135, IDIOMA))
        ecra.sem_janela(importar)
        self.assertTrue(self.programa.vive())

    def test_o_gestor_de_ficheiros_ouve_a_recusa_numa_caixa(self):
        carta = self.programa.pasta / "carta.doc"
        carta.touch()
        recusado = self.programa.lancar(str(carta), calado=True)
        self.addCleanup(recusado.kill)
        caixa = self.em_frente("Morvex$")
        self.assertIsNone(recusado.poll())
        ecra.activar(caixa)
        ecra.tecla("Return")
        self.assertEqual(recusado.wait(timeout=ecra.PATIENCE), 2)


if __name__ == "__main__":
    unittest.main(verbosity=2)
