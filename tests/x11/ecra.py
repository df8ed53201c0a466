"""Drives the real program in a real window: an installation of its own, keys and mouse through the X server."""

import datetime
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import tempfile
import time

PATIENCE = 40.0  # seconds for anything to appear, on a machine that is busy with other things
A_REPOUSAR = 5.0  # seconds for a program to be at rest; one that never is, is not waited for any longer
UM_INSTANTE = 0.02  # seconds between two looks at what a program does

lancados = []  # the processes of this test


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def andamento():
    """Each thread of the living programs: what it does, and how long it has worked so far."""
    linhas = []
    for processo in lancados:
        for pasta in pathlib.Path(f"/proc/{processo.pid}/task").glob("*") if processo.poll() is None else ():
            try:
                estado, *contas = (pasta / "stat").read_text(encoding="utf-8").rpartition(") ")[2].split()
                fino = pasta / "schedstat"  # to the nanosecond, on a kernel that keeps such books
                linhas.append((estado, fino.read_text(encoding="ascii").split()[0] if fino.exists() else contas[10:12]))
            except OSError:  # it has just ended
                linhas.append(None)
    return linhas


def repousar():
    """Waits until the programs have done all that they were asked: what one does last is seen after what it does
    first, and a key that comes between the two may fall on a window that is not ready."""
    fim = time.monotonic() + A_REPOUSAR
    antes = andamento()
    while time.monotonic() < fim:
        time.sleep(UM_INSTANTE)
        agora = andamento()
        if agora == antes and all(linha and linha[0] == "S" for linha in agora):
            return
        antes = agora


def until(condition, what, patience=PATIENCE):
    """Waits until the condition yields something true and the programs are at rest, and returns what it yielded."""
    end = time.monotonic() + patience
    while time.monotonic() < end:
        found = condition()
        if found:
            repousar()
            return found
        time.sleep(0.05)
    raise AssertionError(f"it did not come: {what}; on the screen: {no_ecra()}")


def no_ecra():
    """What a person would see: the titles of the windows, the lowest one first, the one with the keyboard starred."""
    activa = run("xdotool", "getactivewindow")
    return [run("xdotool", "getwindowname", numero) + "*" * (numero == activa) for numero in empilhamento()]


class Relogio:
    """A wall clock for one program, which the test sets while the program runs. Timers keep to real seconds."""

    def __init__(self, programa, hora):
        self.ficheiro = programa.pasta / "relogio"
        self.acertar(hora)
        # A sanitizer wants to be the first library of the process.
        sanitizador = re.findall(r"=> (\S*/libasan\S*)", run("ldd", str(programa.executavel)))
        biblioteca = run("faketime", "-m", "-f", "+0", "printenv", "LD_PRELOAD")
        programa.ambiente |= {"LD_PRELOAD": ":".join([*sanitizador, biblioteca]),
                              "FAKETIME_TIMESTAMP_FILE": str(self.ficheiro), "FAKETIME_NO_CACHE": "1",
                              "FAKETIME_DONT_FAKE_MONOTONIC": "1", "NO_FAKE_STAT": "1"}

    def acertar(self, hora):
        """From now on it is that hour, and the clock goes on from there."""
        novo = self.ficheiro.with_suffix(".novo")
        novo.write_text(f"{hora.timestamp() - time.time():+.3f}\n", encoding="ascii")
        novo.replace(self.ficheiro)

    def agora(self):
        return datetime.datetime.fromtimestamp(time.time() + float(self.ficheiro.read_text(encoding="ascii")))


class Programa:
    """One installation and the process that runs on it."""

    def __init__(self, executavel):
        self.executavel = pathlib.Path(executavel)
        self.pasta = pathlib.Path(tempfile.mkdtemp(prefix="morvex-x11-"))
        for enviado in self.executavel.parent.iterdir():
            if enviado.suffix in (".jpg", ".mdb", ".ini", ".txt", ".wav", ".rpt"):
                shutil.copy(enviado, self.pasta)
        self.processo = None
        self.ambiente = {}  # what the process gets beside the test's own variables

    def instalar(self, idioma):
        """The first run is long past, in that language."""
        self.definir("basedados", "caminhobd", self.pasta / "morvex.mdb")
        self.sql("UPDATE TblConfig SET Idioma=?", idioma)
        self.sql("INSERT INTO TblRepeticao (Nome) VALUES ('Não'), ('Diariamente')")

    def lancar(self, *palavras, onde=None, calado=False):
        """Starts a process on the folder, with those words in that place; or as a menu does, where nobody reads
        what it prints."""
        ambiente = dict(os.environ, MORVEX_HOME=str(self.pasta), QT_QPA_PLATFORM="xcb",
                        DBUS_SESSION_BUS_ADDRESS="disabled:", XDG_CONFIG_HOME=str(self.pasta / "config"))
        canal = subprocess.DEVNULL if calado else None
        lancados.append(subprocess.Popen([str(self.executavel), *palavras], env=ambiente | self.ambiente, cwd=onde,
                                         stdin=canal, stdout=canal, stderr=canal))
        return lancados[-1]

    def comecar(self, *palavras):
        self.processo = self.lancar(*palavras)

    def comecar_outra_vez(self, *palavras, onde=None):
        """A second start on the same folder. Returns its exit code."""
        return self.lancar(*palavras, onde=onde).wait(timeout=PATIENCE)

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


def janelas_de(processo):
    """All that a process shows, its open menus among it."""
    return set(run("xdotool", "search", "--onlyvisible", "--pid", str(processo.pid)).split())


def sem_janela(nome):
    until(lambda: not janelas(nome), f"the end of the window {nome}")


def geometria(id_janela):
    """Left, top, width and height of a window on the screen, in pixels."""
    dito = run("xwininfo", "-id", id_janela)
    return tuple(int(re.search(nome + r":\s+(-?\d+)", dito)[1])
                 for nome in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))


def empilhamento():
    """The windows of the screen, the lowest one first."""
    return [str(int(numero, 16)) for numero in
            re.findall(r"0x[0-9a-f]+", run("xprop", "-root", "_NET_CLIENT_LIST_STACKING").split("#")[-1])]


def cor(x, y):
    """The colour of one point of the screen, as "#RRGGBB"."""
    dito = run("import", "-silent", "-window", "root", "-crop", f"1x1+{x}+{y}", "-depth", "8", "txt:-")
    return re.search(r"#[0-9A-F]{6}", dito)[0]


def retrato(id_janela):
    """What the window shows. Equal pictures are equal in every point."""
    return subprocess.run(["import", "-silent", "-window", id_janela, "-depth", "8", "ppm:-"],
                          capture_output=True, check=True).stdout


def arrastar(de, ate):
    """Drags with the left button from one point of the screen to another, in steps as a hand does."""
    run("xdotool", "mousemove", *map(str, de))
    run("xdotool", "mousedown", "1")
    for passo in range(1, 6):
        run("xdotool", "mousemove", *(str(a + (b - a) * passo // 5) for a, b in zip(de, ate)))
    run("xdotool", "mouseup", "1")


def activar(id_janela):
    run("xdotool", "windowactivate", "--sync", id_janela)
    until(lambda: run("xdotool", "getactivewindow") == id_janela, "the focus")


def maximizar(id_janela, ligar=True):
    """By a double click on its title, which also takes it back."""
    activar(id_janela)
    run("xdotool", "mousemove", "--window", id_janela, "--", "200", "-8")
    run("xdotool", "click", "--repeat", "2", "--delay", "60", "1")
    until(lambda: maximizada(id_janela) == ligar, "the window maximised or not")


def maximizada(id_janela):
    return "_NET_WM_STATE_MAXIMIZED_VERT" in run("xprop", "-id", id_janela, "_NET_WM_STATE")


def minimizada(id_janela):
    return "Iconic" in run("xprop", "-id", id_janela, "WM_STATE")


def retirada(id_janela):
    """Neither on the screen nor in the task list."""
    estado = run("xprop", "-id", id_janela, "WM_STATE")
    return "Withdrawn" in estado or "not found" in estado


def tecla(*teclas):
    repousar()
    run("xdotool", "key", "--delay", "40", *teclas)


def escrever(texto):
    repousar()
    run("xdotool", "type", "--delay", "40", texto)


def clicar(id_janela, x, y, botao="1"):
    run("xdotool", "mousemove", "--window", id_janela, str(x), str(y))
    repousar()
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
