"""The notice of a due task on a real screen of 1280 x 800. Usage: test_aviso_de_tarefas.py <program>"""

import datetime
import re
import subprocess
import sys
import tempfile
import unittest

import ecra

EXECUTAVEL = sys.argv.pop()
TITULO = "Morvex [0-9]"
AVISO = "Morvex$"
CARTAO = "Aviso de Tarefas"

# In twips, 15 a pixel.
LARGURA, ALTURA = 1280 * 15, 800 * 15
ESQUERDA = LARGURA - (2640 + 100)
SUBIDA = [ALTURA + 10 - 50 * passo for passo in range(35)]  # the tops from out of sight to the place of rest


def pixels(twips):
    return int(twips / 15 + 0.5)


LUGAR = (pixels(ESQUERDA), pixels(SUBIDA[-1]), pixels(2640), pixels(1665))
# The window manager holds back the last few pixels of a window that leaves the screen; what it shows of the way.
PRESO = 789
CAMINHO = [y for y in map(pixels, SUBIDA) if y < PRESO]


def por_cima(id_janela):
    return "_NET_WM_STATE_ABOVE" in ecra.run("xprop", "-id", id_janela, "_NET_WM_STATE")


class AvisoDeTarefas(unittest.TestCase):
    def setUp(self):
        self.programa = ecra.Programa(EXECUTAVEL)
        self.addCleanup(self.programa.fechar)
        self.programa.instalar("PortuguesPT")
        self.escutar_sons()
        self.acompanhar_janelas()
        self.programa.comecar()
        self.main = ecra.janela(TITULO)
        ecra.activar(self.main)
        ecra.until(self.rasto.tell, "the X server's account of the windows")

    def escutar_sons(self):
        """A player that notes what it is given."""
        leitor = self.programa.pasta / "leitor" / "pw-play"
        leitor.parent.mkdir()
        leitor.write_text(f'#!/bin/sh\necho "$1" >>"{self.programa.pasta}/tocados"\n', encoding="utf-8")
        leitor.chmod(0o755)
        self.programa.ambiente["PATH"] = f"{leitor.parent}:/usr/bin:/bin"

    def tocados(self):
        ficheiro = self.programa.pasta / "tocados"
        return ficheiro.read_text(encoding="utf-8").split() if ficheiro.exists() else []

    def acompanhar_janelas(self):
        """Has the X server tell each move of each window from now on."""
        self.rasto = tempfile.TemporaryFile("a+", encoding="utf-8")
        self.addCleanup(self.rasto.close)
        relator = subprocess.Popen(["xev", "-root", "-event", "substructure"], stdout=self.rasto)
        self.addCleanup(relator.wait)
        self.addCleanup(relator.kill)

    def lugares_do_aviso(self):
        """Where the card has been on the screen, one entry a move, as (left, top)."""
        self.rasto.seek(0)
        medidas = r"ConfigureNotify.*\n.*\((-?\d+),(-?\d+)\), width %d, height %d," % LUGAR[2:]
        vistos = [tuple(map(int, lugar)) for lugar in re.findall(medidas, self.rasto.read())]
        return [lugar for i, lugar in enumerate(vistos) if i == 0 or lugar != vistos[i - 1]]

    def nova(self, repeticao, hora="00:00:00", dias=0):
        self.programa.sql("INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) "
                          "VALUES (?, date('now', 'localtime', ?), ?, 0, ?)", f"Regar às {hora}", f"{dias} days",
                          hora, repeticao)

    def tarefas(self):
        return [hora for hora, in self.programa.sql("SELECT Hora FROM TblTarefas ORDER BY ID")]

    def em_cima(self):
        aviso = ecra.janela(AVISO)
        ecra.until(lambda: por_cima(aviso), "the end of the rise")
        return aviso

    def abrir_cartao(self, aviso):
        ecra.clicar(aviso, 80, 50)
        ecra.activar(ecra.janela(CARTAO))

    def responder(self, aviso, tecla="Return"):
        """Answers the alert card and waits for the end of the sink. The next notice may come right behind it."""
        ecra.tecla(tecla)
        ecra.sem_janela(CARTAO)
        ecra.until(lambda: aviso not in ecra.janelas(AVISO), "the end of the sink")

    def main_ouve(self):
        ecra.activar(self.main)
        ecra.tecla("Escape")  # a disabled window would not hear it
        ecra.sem_janela(TITULO)

    def acima(self, uma, outra):
        pilha = ecra.empilhamento()
        return pilha.index(uma) > pilha.index(outra)

    def test_sobe_ao_seu_lugar_por_cima_de_tudo_sem_tirar_o_teclado(self):
        self.nova(1, hora="08:00:00", dias=-1)
        aviso = self.em_cima()
        self.assertEqual(ecra.geometria(aviso), LUGAR)
        self.assertEqual(ecra.run("xdotool", "getactivewindow"), self.main)
        antes = ecra.retrato(aviso)
        self.nova(1, hora="09:00:00", dias=-1)
        ecra.until(lambda: ecra.retrato(aviso) != antes, "the later task, written over the first one")
        self.assertEqual(ecra.geometria(aviso), LUGAR)
        self.assertEqual(len(self.tocados()), 1)

    def test_sobe_e_desce_passo_a_passo_pela_margem_direita(self):
        self.nova(1)
        aviso = self.em_cima()
        self.abrir_cartao(aviso)
        self.responder(aviso)
        lugares = self.lugares_do_aviso()
        self.assertEqual({x for x, _ in lugares}, {LUGAR[0]})
        self.assertGreaterEqual(lugares[0][1], PRESO)
        self.assertEqual([y for _, y in lugares if y < PRESO], CAMINHO + CAMINHO[-2::-1])

    def test_fica_por_cima_da_janela_de_outro_programa_que_enche_o_ecra(self):
        outro = subprocess.Popen(["display", "-title", "Outro", "-geometry", "1280x800+0+0", "-size", "1280x800",
                                  "xc:#204060"])
        self.addCleanup(outro.wait)
        self.addCleanup(outro.kill)
        tapa = ecra.janela("Outro")
        ecra.activar(tapa)
        ecra.until(lambda: ecra.cor(1180, 760) == "#204060", "the other window in full")
        self.nova(1)
        aviso = self.em_cima()
        self.assertEqual(ecra.run("xdotool", "getactivewindow"), tapa)
        ecra.run("xdotool", "windowraise", tapa)
        ecra.until(lambda: self.acima(tapa, self.main), "the other window raised")
        self.assertEqual(ecra.empilhamento()[-1], aviso)
        self.assertEqual(ecra.cor(1180, 760), "#FFFFFF")
        self.assertEqual(ecra.cor(1090, 760), "#204060")
        self.abrir_cartao(aviso)  # the click falls on what lies on top there
        self.assertTrue(self.acima(ecra.janela(CARTAO), tapa))
        self.responder(aviso)
        self.assertEqual(self.tarefas(), [])

    def test_um_clique_leva_ao_cartao_e_ok_deixa_descer_e_main_livre(self):
        self.nova(1)
        aviso = self.em_cima()
        ecra.activar(self.main)
        ecra.tecla("Escape")
        self.abrir_cartao(aviso)
        self.assertTrue(ecra.janelas(TITULO))  # it was disabled and did not hear
        self.assertEqual(ecra.geometria(aviso), LUGAR)
        self.responder(aviso)
        self.assertEqual(self.tarefas(), [])
        self.main_ouve()

    def test_de_duas_vem_a_mais_tardia_e_depois_dela_a_outra(self):
        self.nova(1, hora="08:00:00", dias=-1)
        self.nova(1, hora="09:00:00", dias=-1)
        for restam in (["08:00:00"], []):
            aviso = self.em_cima()
            self.abrir_cartao(aviso)
            self.responder(aviso)
            self.assertEqual(self.tarefas(), restam)
        voltas = CAMINHO + CAMINHO[-2::-1]
        self.assertEqual([y for _, y in self.lugares_do_aviso() if y < PRESO], voltas + voltas)
        self.assertEqual(self.tocados(), [str(self.programa.pasta / "tarefa.wav")] * 2)
        self.main_ouve()

    def test_com_escape_no_cartao_toca_outra_vez(self):
        hoje = self.programa.sql("SELECT date('now', 'localtime')")
        self.nova(2)
        for _ in range(2):
            aviso = self.em_cima()
            self.abrir_cartao(aviso)
            self.responder(aviso, "Escape")
        self.assertEqual(self.programa.sql("SELECT Data FROM TblTarefas"), hoje)


if __name__ == "__main__":
    unittest.main()
