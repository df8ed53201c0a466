"""Two desks, each a real program in a real window, on one real database server: each sees what the other does.
Usage: test_dois_postos.py <program>; the server is told by MORVEX_POSTGRES."""

import os
import pathlib
import subprocess
import sys
import time
import unittest

import ecra

EXECUTAVEL = pathlib.Path(sys.argv.pop())
SERVIDOR = pathlib.Path(os.environ.get("MORVEX_POSTGRES", "/nenhum"))
TITULO = "Morvex [0-9]"
NOVO_CONTACTO = 26  # text
LISTA = "300x120+12+72"  # of the window, in pixels: rows of the list


class Base:
    """A database of its own on the server, made by the administrator's tool."""

    def __init__(self):
        morada = (SERVIDOR / "morada").read_text(encoding="ascii").strip()
        self.administrador = morada
        self.nome = f"ensaio_x11_{os.getpid()}"
        self.de_quem = lambda papel: morada.replace("morvex_ensaio@", papel + "@").rsplit("/", 1)[0] + "/" + self.nome
        self.sql(f"CREATE DATABASE {self.nome} OWNER morvex_dono TEMPLATE template0", self.administrador)
        feito = subprocess.run([EXECUTAVEL.parent / "morvex-servidor", "criar", self.de_quem("morvex_dono"),
                                "--idioma", "pt"], capture_output=True, text=True, check=False)
        assert feito.returncode == 0, feito.stderr
        self.sql("DELETE FROM tblmemos")  # the note would lie on a list

    def sql(self, texto, morada=None):
        return subprocess.run(["psql", morada or self.de_quem("morvex"), "-Atqc", texto],
                              capture_output=True, text=True, check=True).stdout.strip()

    def largar(self):
        self.sql(f"DROP DATABASE {self.nome} WITH (FORCE)", self.administrador)


class Posto:
    def __init__(self, base, lugar):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.programa.definir("basedados", "caminhobd", base.de_quem("morvex"))
        self.programa.comecar()
        self.janela = ecra.until(self.minha, "the window of a desk")
        # Nothing may cover the list of the one while something is done at the other.
        ecra.until(lambda: self.posta(*lugar), "a place of its own")
        ecra.until(lambda: len(set(self.lista())) > 2, "the names in the list")

    def posta(self, x, y):
        ecra.run("xdotool", "windowmove", "--sync", self.janela, str(x), str(y))
        return all(abs(a - b) < 60 for a, b in zip(ecra.geometria(self.janela), (x, y)))

    def minha(self):
        achadas = ecra.run("xdotool", "search", "--onlyvisible", "--all", "--pid", str(self.programa.processo.pid),
                           "--name", "^" + TITULO).split()
        return achadas[-1] if achadas else None

    def lista(self):
        """What the list shows."""
        return subprocess.run(["import", "-silent", "-window", self.janela, "-crop", LISTA, "-depth", "8", "ppm:-"],
                              capture_output=True, check=True).stdout


@unittest.skipUnless((SERVIDOR / "morada").exists(), "no database server is installed here")
class DoisPostos(unittest.TestCase):
    def setUp(self):
        self.base = Base()
        self.addCleanup(self.base.largar)
        self.um, self.outro = (self.posto(lugar) for lugar in ((0, 0), (638, 290)))

    def posto(self, lugar):
        posto = Posto(self.base, lugar)
        self.addCleanup(posto.programa.fechar)
        return posto

    def novo(self, posto, nome):
        ecra.activar(posto.janela)
        ecra.tecla("ctrl+n")
        editor = ecra.janela(posto.programa.legenda(NOVO_CONTACTO, "PortuguesPT"))
        ecra.activar(editor)
        ecra.escrever(nome)
        ecra.tecla("Return")

    def contactos(self, nome):
        return self.base.sql(f"SELECT count(*) FROM tbllista WHERE nome = '{nome}'")

    def test_cada_posto_ve_o_que_o_outro_faz(self):
        for um, outro, nome in ((self.um, self.outro, "Aaa"), (self.outro, self.um, "Aab")):
            antes = outro.lista()
            self.novo(um, nome)
            ecra.until(lambda nome=nome: self.contactos(nome) == "1", "the contact in the database")
            inicio = time.monotonic()
            ecra.until(lambda outro=outro, antes=antes: outro.lista() != antes, "the contact at the other desk")
            espera = time.monotonic() - inicio
            print(f"{nome}: seen at the other desk {espera:.2f} s after it was in the database")
            self.assertLess(espera, 10)  # a second, on a machine that has nothing else to do

    def test_quem_apaga_apaga_em_todos_os_postos(self):
        antes = self.outro.lista()
        self.novo(self.um, "Aaa")
        ecra.until(lambda: self.contactos("Aaa") == "1", "the contact in the database")
        ecra.until(lambda: self.outro.lista() != antes, "the contact at the other desk")
        self.base.sql("DELETE FROM tbllista WHERE nome = 'Aaa'")
        ecra.until(lambda: self.outro.lista() == antes, "the list as it was")

    def test_os_dois_ficam_vivos_quando_o_servidor_corta_as_ligacoes(self):
        self.base.sql(f"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = '{self.base.nome}'",
                      self.base.administrador)
        antes = self.outro.lista()
        ecra.until(lambda: self.base.sql(
            f"SELECT count(*) >= 2 FROM pg_stat_activity WHERE datname = '{self.base.nome}'",
            self.base.administrador) == "t", "both desks back")
        self.novo(self.um, "Aaa")
        ecra.until(lambda: self.outro.lista() != antes, "the contact at the other desk")
        self.assertTrue(self.um.programa.vive() and self.outro.programa.vive())


unittest.main(verbosity=2)
