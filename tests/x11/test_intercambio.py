"""Import of an older text file and backup, by the menus of the real program. Usage: test_intercambio.py <program>"""

import pathlib
import shutil
import sqlite3
import sys
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
FICHEIROS = pathlib.Path(__file__).parent.parent / "fixtures"
IDIOMA = "PortuguesPT"
TITULO = "Morvex [0-9]"
GRUPOS = ("Amigos", "Família", "Trabalho")


class Intercambio(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar(IDIOMA)
        for grupo in GRUPOS:
            self.programa.sql("INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES (?, 0)", grupo)
        self.programa.comecar()
        self.main = ecra.janela(TITULO)

    def atalho(self, numero):
        ecra.tecla("alt+" + self.programa.letra(numero, IDIOMA))

    def abrir(self, menu, entrada, titulo):
        """Opens a dialog by the main menu, as the keyboard does it."""
        ecra.activar(self.main)
        antes = ecra.janelas_de(self.programa.processo)
        self.atalho(menu)
        ecra.until(lambda: ecra.janelas_de(self.programa.processo) - antes, "the open menu")
        ecra.tecla(self.programa.letra(entrada, IDIOMA))
        return self.em_frente(titulo)

    def em_frente(self, titulo):
        """Waits for the window of that title to have the keyboard, and returns it."""
        def da_frente():
            activa = ecra.run("xdotool", "getactivewindow")
            return activa if activa in ecra.janelas(titulo) else None
        return ecra.until(da_frente, f"{titulo} in front")

    def escolher_ficheiro(self, form, ficheiro):
        """Asks for the dialog and types the path into it."""
        ecra.activar(form)
        self.atalho(69)
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", form), "the file dialog")
        ecra.escrever(str(ficheiro))
        ecra.tecla("Return")
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") == form, "the end of the file dialog")

    def seguinte_com(self, ficheiro):
        """Opens the first form, chooses a copy of the file and goes on. Returns the form and the path."""
        copia = self.programa.pasta / ficheiro.name
        shutil.copyfile(ficheiro, copia)
        primeira = self.abrir(125, 133, self.programa.legenda(82, IDIOMA))
        self.escolher_ficheiro(primeira, copia)
        self.atalho(71)
        return primeira, copia

    def importar(self, nome):
        """Goes on to the second form, which is returned."""
        primeira, _ = self.seguinte_com(FICHEIROS / "dat" / nome)
        ecra.until(lambda: primeira not in ecra.janelas("Importar"), "the end of the first form")
        return self.em_frente("Importar")

    def test_um_ficheiro_de_texto_entra_no_grupo_escolhido(self):
        segunda = self.importar("normal.dat")
        ecra.tecla("Down", "Down")  # the combo has the keyboard: the third group
        self.atalho(71)
        ecra.sem_janela("Importar")
        self.assertEqual(self.programa.sql("SELECT g.NomeGrupo, count(*) FROM TblLista l JOIN TblGrupos g "
                                           "ON g.ID=l.Grupo GROUP BY g.ID"), [(GRUPOS[2], 50)])
        self.assertEqual(self.programa.sql("SELECT Nome, Dia, Mes, Ano, Obs FROM TblLista ORDER BY ID LIMIT 1 OFFSET 3"),
                         [("Jürgen Groß", "4", "4", "", "Nota n.º 3: «preço» 10 €")])
        self.assertNotIn(segunda, ecra.janelas(""))
        ecra.activar(self.main)
        ecra.tecla("Escape")  # a disabled window would not hear it
        ecra.sem_janela(TITULO)

    def test_cancelar_a_segunda_janela_nao_importa_nada(self):
        self.importar("normal.dat")
        self.atalho(43)
        ecra.sem_janela("Importar")
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(0,)])
        self.assertTrue(self.programa.vive())

    def test_uma_linha_estragada_termina_o_programa_e_o_que_vem_antes_fica(self):
        self.importar("para_no_oitavo.dat")
        self.atalho(71)
        self.em_frente("Morvex$")
        ecra.tecla("Return")
        self.programa.terminou()
        self.assertEqual(self.programa.sql("SELECT Nome FROM TblLista ORDER BY ID"),
                         [("Álvaro Conceição",), ("Zé Ninguém",)])

    def test_a_recusa_de_um_ficheiro_fica_em_frente_da_sua_janela(self):
        primeira, _ = self.seguinte_com(FICHEIROS / "jet" / "vazia.mdb")
        ecra.until(lambda: primeira not in ecra.janelas("Importar"), "the end of the first form")
        self.em_frente("Importar")
        self.atalho(43)  # the older database stays open, so the refusal is told and not fatal
        ecra.sem_janela("Importar")

        primeira, _ = self.seguinte_com(FICHEIROS / "dat" / "linhas_5000.dat")
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", primeira), "the box that tells it")
        caixa = ecra.run("xdotool", "getactivewindow")
        ordem = ecra.empilhamento()
        self.assertLess(ordem.index(self.main), ordem.index(primeira))
        self.assertLess(ordem.index(primeira), ordem.index(caixa))
        ecra.tecla("Return")
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") == primeira, "the form after the box")
        self.atalho(43)
        ecra.sem_janela("Importar")
        self.assertTrue(self.programa.vive())
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(0,)])

    def test_uma_base_trancada_nao_se_funde_e_a_janela_fica(self):
        primeira, _ = self.seguinte_com(FICHEIROS / "jet" / "pequena.mdb")
        ecra.until(lambda: primeira not in ecra.janelas("Importar"), "the end of the first form")
        form = self.em_frente("Importar")
        iniciar = "alt+" + self.programa.letra(229, IDIOMA)
        tranca = sqlite3.connect(self.programa.pasta / "morvex.mdb", isolation_level=None)
        self.addCleanup(tranca.close)
        tranca.execute("BEGIN EXCLUSIVE")
        ecra.tecla(iniciar)
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", form), "the box that tells it")
        tranca.execute("ROLLBACK")
        ecra.tecla("Return")
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") == form, "the form after the box")
        self.assertTrue(self.programa.vive())
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(0,)])

        ecra.tecla(iniciar)  # the lock has gone
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", form), "the box that closes it")
        ecra.tecla("Return")
        self.programa.terminou()
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(45,)])

    def test_a_copia_faz_se_com_dois_cliques(self):
        copias = self.programa.pasta / "copias"
        copias.mkdir()
        self.programa.sql("INSERT INTO TblLista (Nome, Grupo) VALUES ('Ângela', 1)")
        form = self.abrir(146, 254, self.programa.legenda(254, IDIOMA))
        largura, altura = ecra.geometria(form)[2:]

        ecra.clicar(form, largura - 30, 54)  # the picture beside the folder
        self.em_frente("Choose a directory")
        ecra.escrever(str(copias))
        ecra.tecla("Return")
        ecra.sem_janela("Choose a directory")
        ecra.activar(form)
        ecra.clicar(form, largura - 130, altura - 26)  # start

        ecra.until((copias / "Morvex.mdb").exists, "the copy")
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", form), "the box that tells it")
        ecra.tecla("Return")
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") == form, "the end of the box")
        self.assertEqual([ficheiro.name for ficheiro in copias.iterdir()], ["Morvex.mdb"])
        with sqlite3.connect(copias / "Morvex.mdb") as copia:
            self.assertEqual(copia.execute("PRAGMA integrity_check").fetchall(), [("ok",)])
            self.assertEqual(copia.execute("SELECT Nome FROM TblLista").fetchall(), [("Ângela",)])
        self.assertFalse((self.programa.pasta / "MorvexCopy.mdb").exists())
        ecra.until(lambda: self.programa.ler_ini("basedados", "caminhobackup") == str(copias) + "/",
                   "the folder in config.ini")
        self.atalho(136)
        ecra.sem_janela(self.programa.legenda(254, IDIOMA))
        ecra.activar(self.main)
        ecra.tecla("Escape")
        ecra.sem_janela(TITULO)


if __name__ == "__main__":
    unittest.main(verbosity=2)
