"""Drives the real program in a real window: an installation of its own, keys and mouse through the X server."""

import os
import pathlib
import shutil
import sqlite3
import subprocess
import tempfile
import time

PATIENCE = 15.0  # seconds for anything to appear


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def until(condition, what):
    """Waits until the condition yields something true, and returns it."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = condition()
        if found:
            return found
        time.sleep(0.05)
    raise AssertionError(f"it did not come: {what}")


class Programa:
    """One installation and the process that runs on it."""

    def __init__(self, executavel):
        self.executavel = pathlib.Path(executavel)
        self.pasta = pathlib.Path(tempfile.mkdtemp(prefix="morvex-x11-"))
        for enviado in self.executavel.parent.iterdir():
            if enviado.suffix in (".jpg", ".mdb", ".ini", ".txt", ".wav", ".rpt"):
                shutil.copy(enviado, self.pasta)
        self.processo = None

    def lancar(self):
        ambiente = dict(os.environ, MORVEX_HOME=str(self.pasta), QT_QPA_PLATFORM="xcb",
                        DBUS_SESSION_BUS_ADDRESS="disabled:", XDG_CONFIG_HOME=str(self.pasta / "config"))
        return subprocess.Popen([str(self.executavel)], env=ambiente)

    def comecar(self):
        self.processo = self.lancar()

    def comecar_outra_vez(self):
        """A second start on the same folder. Returns its exit code."""
        return self.lancar().wait(timeout=PATIENCE)

    def fechar(self):
        if self.processo and self.processo.poll() is None:
            self.processo.kill()
            self.processo.wait()
        shutil.rmtree(self.pasta, ignore_errors=True)

    def vive(self):
        return self.processo.poll() is None

    def terminou(self):
        return until(lambda: self.processo.poll() is not None, "the end of the process")

    def sql(self, texto, *valores):
        with sqlite3.connect(self.pasta / "morvex.mdb") as base:
            return base.execute(texto, valores).fetchall()

    def definir(self, seccao, chave, valor):
        """Sets one key of config.ini that is there already."""
        caminho = self.pasta / "config.ini"
        linhas = caminho.read_text(encoding="cp1252").splitlines()
        inicio = linhas.index(f"[{seccao}]")
        alvo = next(i for i in range(inicio, len(linhas)) if linhas[i].startswith(chave + "="))
        linhas[alvo] = f"{chave}={valor}"
        caminho.write_bytes(("\r\n".join(linhas) + "\r\n").encode("cp1252"))

    def ler_ini(self, seccao, chave):
        """One key of config.ini; None if it isn't there."""
        actual = None
        for linha in (self.pasta / "config.ini").read_text(encoding="cp1252").splitlines():
            if linha.startswith("["):
                actual = linha.strip("[]")
            elif actual == seccao and linha.startswith(chave + "="):
                return linha[len(chave) + 1:]
        return None

    def texto(self, numero, idioma):
        return self.sql(f"SELECT {idioma} FROM TblIdiomas WHERE ID=?", numero)[0][0]

    def legenda(self, numero, idioma):
        """A text as a title shows it."""
        return self.texto(numero, idioma).replace("&", "")

    def letra(self, numero, idioma):
        """The key that triggers a caption."""
        texto = self.texto(numero, idioma)
        return texto[texto.index("&") + 1].lower()


def janelas(nome):
    """The visible windows whose name begins so."""
    return run("xdotool", "search", "--onlyvisible", "--name", "^" + nome).split()


def janela(nome):
    return until(lambda: janelas(nome), f"a window named {nome}")[-1]


def sem_janela(nome):
    until(lambda: not janelas(nome), f"the end of the window {nome}")


def activar(id_janela):
    run("xdotool", "windowactivate", "--sync", id_janela)
    until(lambda: run("xdotool", "getactivewindow") == id_janela, "the focus")


def tecla(*teclas):
    run("xdotool", "key", "--delay", "40", *teclas)


def escrever(texto):
    run("xdotool", "type", "--delay", "40", texto)


def clicar(id_janela, x, y, botao="1"):
    run("xdotool", "mousemove", "--window", id_janela, str(x), str(y))
    time.sleep(0.1)
    run("xdotool", "click", botao)


def icone_do_tabuleiro():
    """The one icon in the notification area."""
    area = until(lambda: run("xdotool", "search", "--onlyvisible", "--class", "trayer").split(),
                 "the notification area")[-1]

    def com_icone():
        medidas = dict(par.split("=") for par in run("xdotool", "getwindowgeometry", "--shell", area).splitlines())
        return medidas if int(medidas["WIDTH"]) >= 16 else None

    medidas = until(com_icone, "the icon in the notification area")
    time.sleep(0.3)
    return area, int(medidas["WIDTH"]) // 2, int(medidas["HEIGHT"]) // 2
