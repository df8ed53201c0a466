"""The program for Windows as a person uses it, in real windows of Wine; with the program of this system, from which a
database goes there and back. Usage: test_no_ecra.py <no_wine> <morvex.exe> <morvex>

MORVEX_RETRATOS names a folder for pictures of what was seen."""

import os
import pathlib
import shutil
import subprocess
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "x11"))
import ecra  # noqa: E402

NO_WINE, EXECUTAVEL, NATIVO = sys.argv[1:4]
del sys.argv[1:4]
BASES = pathlib.Path(__file__).parent.parent / "fixtures" / "jet"
IDIOMA = "PortuguesPT"
TITULO = "Morvex [0-9]"
WINE = dict(os.environ, MORVEX_WINE=os.environ["MORVEX_BIBLIOTECAS"] + "/../wine_janelas", MORVEX_QPA="windows")


def janelas(caminho):
    """A path of this system as the program knows it."""
    return "Z:" + str(caminho).replace("/", "\\")


def retrato(nome):
    pasta = os.environ.get("MORVEX_RETRATOS")
    if pasta:
        time.sleep(1)
        ecra.run("import", "-window", "root", f"{pasta}/{nome}.png")


class Programa(ecra.Programa):
    def lancar(self, *palavras, onde=None, calado=False):
        ambiente = WINE | {"MORVEX_HOME": janelas(self.pasta)} | self.ambiente
        return subprocess.Popen([NO_WINE, str(self.executavel), *palavras], env=ambiente, cwd=onde,
                                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def instalar(self, idioma):
        super().instalar(idioma)
        self.definir("basedados", "caminhobd", janelas(self.pasta / "morvex.mdb"))
        self.sql("INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('Amigos', 0)")


class NoEcra(unittest.TestCase):
    @classmethod
    def tearDownClass(cls):
        subprocess.run([NO_WINE, "--acaba"], env=WINE, check=True)

    def setUp(self):
        self.programa = Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.addCleanup(retrato, "fim_de_" + self._testMethodName)

    def comecar(self):
        self.programa.comecar()
        self.main = ecra.janela(TITULO)
        ecra.activar(self.main)

    def alt(self, numero):
        ecra.tecla("alt+" + self.programa.letra(numero, IDIOMA))

    def menu(self, *numeros):
        """Opens the menu of the first caption, and in it the entries of the others."""
        ecra.activar(self.main)
        self.alt(numeros[0])
        for numero in numeros[1:]:
            time.sleep(0.5)
            ecra.tecla(self.programa.letra(numero, IDIOMA))

    def form(self, numero):
        form = ecra.janela("^" + self.programa.legenda(numero, IDIOMA) + "$")
        ecra.activar(form)
        return form

    def sair(self):
        self.menu(125, 136)
        self.programa.terminou()
        self.assertEqual(self.programa.processo.returncode, 0)

    def guardar_em(self, form, caminho):
        """Writes the path into the system's dialog, which stands in front of that form."""
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", form), "the question where")
        time.sleep(1)
        ecra.tecla("ctrl+a")
        ecra.escrever(janelas(caminho))
        ecra.tecla("Return")

    def primeira_corrida(self):
        self.programa.comecar()
        bandeiras = ecra.janela("MORVEX - Idioma")
        ecra.activar(bandeiras)
        retrato("primeira_corrida")
        ecra.clicar(bandeiras, 78, 70)
        ecra.sem_janela("MORVEX - Idioma")
        ecra.until(lambda: self.programa.sql("SELECT Idioma FROM TblConfig") == [(IDIOMA,)], "the language")
        self.form(151)
        retrato("opcoes")
        ecra.tecla("Return")
        self.main = ecra.janela(TITULO)
        ecra.activar(self.main)

    def novo_contacto(self, nome, telefone):
        ecra.activar(self.main)
        self.alt(45)
        self.form(26)
        ecra.escrever(nome)
        ecra.tecla("Tab")
        ecra.escrever(telefone)
        retrato("editor")
        ecra.tecla("Return")
        ecra.sem_janela("^" + self.programa.legenda(26, IDIOMA) + "$")

    def test_da_primeira_corrida_ate_sair(self):
        self.primeira_corrida()
        self.assertEqual(len(self.programa.sql("SELECT * FROM TblLista")), 3)
        retrato("principal")
        self.sair()
        self.assertEqual(self.programa.sql("PRAGMA integrity_check"), [("ok",)])

    def test_um_contacto_novo_acha_se_e_guarda_se_em_pdf(self):
        self.programa.instalar(IDIOMA)
        self.comecar()
        self.novo_contacto("Rita Nunes", "213456789")
        ecra.activar(self.main)
        self.alt(3)
        ecra.escrever("rit")
        retrato("cartao")
        self.menu(125, 126, 127)
        imprimir = self.form(73)
        self.alt(79)
        self.alt(77)
        self.alt(80)
        previsao = ecra.janela("^" + self.programa.legenda(77, IDIOMA) + "$")
        ecra.activar(previsao)
        retrato("previsao")
        alvo = self.programa.pasta / "lista.pdf"
        ecra.tecla("ctrl+s")
        self.guardar_em(previsao, alvo)
        ecra.until(alvo.exists, "the file")
        ecra.activar(previsao)
        ecra.tecla("alt+F4")
        ecra.until(lambda: previsao not in ecra.janelas(""), "the end of the preview")
        self.assertIn("213456789", ecra.run("pdftotext", str(alvo), "-"))
        ecra.activar(imprimir)
        self.alt(43)
        self.sair()

    def test_os_contactos_exportam_se(self):
        self.programa.instalar(IDIOMA)
        self.programa.sql("INSERT INTO TblLista (Nome, Telefone1, Grupo) VALUES ('Ângela', '213333333', 1), ('Rui', '', 1)")
        self.comecar()
        self.menu(137, 275)
        form = self.form(275)
        self.alt(393)
        retrato("exportar")
        self.alt(401)
        alvo = self.programa.pasta / "gente.vcf"
        self.guardar_em(form, alvo)
        ecra.until(alvo.exists, "the file")
        ecra.until(lambda: len(ecra.janelas(self.programa.legenda(275, IDIOMA))) == 2, "the answer")
        ecra.tecla("Return")
        ecra.sem_janela(self.programa.legenda(275, IDIOMA))
        cartoes = alvo.read_text(encoding="utf-8")
        self.assertEqual([linha for linha in cartoes.splitlines() if linha.startswith("FN:")], ["FN:Ângela", "FN:Rui"])
        self.sair()

    def test_uma_base_antiga_funde_se(self):
        self.programa.instalar(IDIOMA)
        antiga = self.programa.pasta / "antiga.mdb"
        shutil.copy(BASES / "pequena.mdb", antiga)
        self.comecar()
        self.menu(125, 133)
        primeira = self.form(82)
        self.alt(69)
        self.guardar_em(primeira, antiga)
        time.sleep(2)  # Wine gives the keyboard back to nobody
        ecra.activar(primeira)
        self.alt(71)
        ecra.until(lambda: primeira not in ecra.janelas("Importar"), "the end of the first form")
        fusao = self.form(82)
        retrato("fusao")
        self.alt(229)
        ecra.until(lambda: ecra.run("xdotool", "getactivewindow") not in ("", fusao), "the box that closes it")
        ecra.tecla("Return")
        self.programa.terminou()
        self.assertEqual(self.programa.sql("SELECT count(*) FROM TblLista"), [(45,)])

    def test_uma_nota_fica_no_ecra(self):
        self.programa.instalar(IDIOMA)
        self.comecar()
        self.menu(146, 148)
        ecra.activar(ecra.janela("Memo"))
        ecra.escrever("leite")  # its title
        ecra.tecla("Return")
        ecra.until(lambda: self.programa.sql("SELECT count(*) FROM TblMemos") == [(1,)], "the note")
        retrato("nota")
        self.assertTrue(self.programa.vive())

    def test_um_aviso_sobe(self):
        self.programa.instalar(IDIOMA)
        self.comecar()
        self.programa.sql("INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) "
                          "VALUES ('Regar', date('now', 'localtime', '-1 days'), '08:00:00', 0, 1)")
        aviso = ecra.janela("Morvex$")
        time.sleep(3)  # it rises
        retrato("aviso")
        ecra.clicar(aviso, 80, 50)
        ecra.activar(ecra.janela("Aviso de Tarefas"))
        retrato("aviso_aberto")
        ecra.tecla("Return")
        ecra.until(lambda: self.programa.sql("SELECT count(*) FROM TblTarefas") == [(0,)], "the end of the task")
        self.assertTrue(self.programa.vive())

    def test_o_endereco_de_um_servidor_diz_que_nao_chega_la(self):
        self.programa.instalar(IDIOMA)
        self.programa.definir("basedados", "caminhobd", "postgresql://ana@servidor/agenda")
        self.programa.comecar()
        caixa = ecra.janela("Morvex$")
        ecra.activar(caixa)
        retrato("sem_servidores")
        ecra.tecla("Escape")
        self.programa.terminou()

    def test_a_base_vai_de_linux_para_windows_e_volta(self):
        # Made on this system,
        nativo = ecra.Programa(NATIVO)
        self.addCleanup(nativo.fechar)
        windows, self.programa = self.programa, nativo
        self.primeira_corrida()
        self.novo_contacto("Feito em Linux", "1")
        self.sair()
        # changed there,
        base = nativo.pasta / "morvex.mdb"
        windows.definir("basedados", "caminhobd", janelas(base))
        windows.sql = nativo.sql
        self.programa = windows
        self.comecar()
        self.novo_contacto("Feito em Windows", "2")
        ecra.activar(self.main)
        self.alt(3)
        ecra.escrever("feito em l")
        ecra.tecla("F2")
        self.form(53)
        ecra.tecla("Tab", "ctrl+a")
        ecra.escrever("111")
        ecra.tecla("Return")
        ecra.sem_janela("^" + self.programa.legenda(53, IDIOMA) + "$")
        self.sair()
        # and read here again.
        self.programa = nativo
        self.comecar()
        ecra.activar(self.main)
        self.alt(3)
        ecra.escrever("feito em w")
        retrato("de_volta_em_linux")
        ecra.tecla("F2")
        self.form(53)
        ecra.tecla("Tab", "ctrl+a")
        ecra.escrever("222")
        ecra.tecla("Return")
        ecra.sem_janela("^" + self.programa.legenda(53, IDIOMA) + "$")
        self.sair()
        self.assertEqual(nativo.sql("SELECT Nome, Telefone1 FROM TblLista ORDER BY ID")[-2:],
                         [("Feito em Linux", "111"), ("Feito em Windows", "222")])
        self.assertEqual(nativo.sql("PRAGMA integrity_check"), [("ok",)])


if __name__ == "__main__":
    unittest.main(verbosity=2)
