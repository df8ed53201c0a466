"""An installation to a folder of its own, moved as a whole. Usage: test_instalacao.py <cmake> <build folder>"""

import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import xml.etree.ElementTree

CONSTRUCAO = pathlib.Path(sys.argv.pop())
CMAKE = sys.argv.pop()
LADOS = (16, 22, 24, 32, 48, 64, 128, 256)
LINGUAS = {None, "pt", "pt_BR", "es", "it", "fr", "de"}
LINGUA = "{http://www.w3.org/XML/1998/namespace}lang"
PACIENCIA = 40.0  # seconds for a start to write its files, on a machine that is busy with other things


class Instalacao(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pasta = pathlib.Path(tempfile.mkdtemp(prefix="morvex-instalacao-"))
        cls.addClassCleanup(shutil.rmtree, cls.pasta, ignore_errors=True)
        subprocess.run([CMAKE, "--install", CONSTRUCAO, "--prefix", cls.pasta / "primeiro"], check=True,
                       stdout=subprocess.DEVNULL)
        cls.prefixo = cls.pasta / "outro lugar"
        (cls.pasta / "primeiro").rename(cls.prefixo)
        cls.partilha = cls.prefixo / "share"

    def programa(self, *palavras, **ambiente):
        limpo = {nome: valor for nome, valor in os.environ.items()
                 if not nome.startswith("MORVEX") and nome not in ("DISPLAY", "WAYLAND_DISPLAY")}
        limpo |= {"HOME": str(self.pasta / "casa"), "XDG_DATA_HOME": str(self.pasta / "casa/dados"),
                  "XDG_CONFIG_HOME": str(self.pasta / "casa/config"), "XDG_RUNTIME_DIR": str(self.pasta),
                  "DBUS_SESSION_BUS_ADDRESS": "disabled:", "LC_ALL": "C.UTF-8"}
        return subprocess.Popen([self.prefixo / "bin" / "morvex", *palavras], env=limpo | ambiente,
                                stdout=subprocess.PIPE, text=True)

    def test_diz_a_sua_versao(self):
        processo = self.programa("--version")
        self.assertEqual(processo.communicate()[0].split()[0], "Morvex")
        self.assertEqual(processo.returncode, 0)

    def test_movida_comeca_com_os_dados_na_casa_de_quem_a_usa_e_nada_escreve_em_si(self):
        antes = sorted(self.prefixo.rglob("*"))
        processo = self.programa("--minimized", QT_QPA_PLATFORM="offscreen")
        self.addCleanup(processo.communicate)
        self.addCleanup(processo.kill)
        dados = self.pasta / "casa" / "dados" / "morvex"
        fim = time.monotonic() + PACIENCIA
        while not (dados / "config.ini").exists() and time.monotonic() < fim:
            time.sleep(0.05)  # the settings come last
        time.sleep(0.5)
        self.assertIsNone(processo.poll())
        self.assertEqual({f.name for f in (self.partilha / "morvex").iterdir()} - {f.name for f in dados.iterdir()},
                         {"manual"})  # it is read where it was installed
        carregadas = pathlib.Path(f"/proc/{processo.pid}/maps").read_text()
        self.assertIn("libsqlite3", carregadas)
        self.assertNotIn("libpq", carregadas)  # who works with a file does not wait for what speaks with servers
        self.assertEqual((dados / "morvex.mdb").read_bytes()[:15], b"SQLite format 3")
        self.assertEqual(sorted(self.prefixo.rglob("*")), antes)

    def test_nenhum_ficheiro_fala_da_pasta_em_que_foi_feito(self):
        onde = str(CONSTRUCAO.parent.parent).encode()
        for ficheiro in self.partilha.rglob("*"):
            if ficheiro.is_file():
                self.assertNotIn(onde, ficheiro.read_bytes(), ficheiro.name)

    def test_a_entrada_do_menu_e_valida_e_aceita_ficheiros(self):
        entrada = self.partilha / "applications" / "morvex.desktop"
        validacao = subprocess.run(["desktop-file-validate", entrada], capture_output=True, text=True, check=False)
        self.assertEqual((validacao.returncode, validacao.stdout), (0, ""))
        linhas = entrada.read_text(encoding="utf-8").splitlines()
        self.assertIn("Exec=morvex %F", linhas)
        self.assertIn("MimeType=text/vcard;", linhas)

    def test_a_descricao_e_valida_e_fala_sete_linguas(self):
        descricao, = (self.partilha / "metainfo").iterdir()
        subprocess.run(["appstreamcli", "validate", "--no-net", descricao], check=True, stdout=subprocess.DEVNULL)
        raiz = xml.etree.ElementTree.parse(descricao).getroot()
        self.assertEqual({e.get(LINGUA) for e in raiz.findall("summary")}, LINGUAS)
        paragrafos = [e.get(LINGUA) for e in raiz.findall("description/p")]
        self.assertEqual(set(paragrafos), LINGUAS)
        self.assertTrue(all(paragrafos.count(lingua) == paragrafos.count(None) for lingua in LINGUAS))
        self.assertEqual(raiz.findtext("launchable"), "morvex.desktop")

    def test_cada_icone_tem_o_seu_tamanho(self):
        icones = self.partilha / "icons" / "hicolor"
        self.assertTrue((icones / "scalable" / "apps" / "morvex.svg").is_file())
        for lado in LADOS:
            imagem = (icones / f"{lado}x{lado}" / "apps" / "morvex.png").read_bytes()
            self.assertEqual(struct.unpack(">II", imagem[16:24]), (lado, lado))
            self.assertGreater(len(set(imagem)), 100, f"{lado}: nothing is drawn")

    def test_a_pagina_do_manual_fala_de_cada_opcao_da_ajuda(self):
        ajuda = self.programa("--help").communicate()[0]
        manual = (self.prefixo / "share/man/man1/morvex.1").read_text(encoding="utf-8").replace("\\-", "-")
        opcoes = [palavra.rstrip(",") for palavra in ajuda.split() if palavra.startswith("--")]
        self.assertEqual(len(opcoes), 3)
        for opcao in opcoes:
            self.assertIn(opcao, manual)

    def test_a_pagina_da_ferramenta_do_servidor_fala_de_cada_ordem_e_opcao(self):
        ajuda = subprocess.run([self.prefixo / "bin" / "morvex-servidor", "--help"], check=True, capture_output=True,
                               text=True, env={"LC_ALL": "C.UTF-8"}).stdout
        manual = (self.prefixo / "share/man/man1/morvex-servidor.1").read_text(encoding="utf-8").replace("\\-", "-")
        ditas = [linha.split()[0].rstrip(",") for linha in ajuda.splitlines() if linha.startswith("  ")
                 and not linha.startswith("       ")]
        self.assertEqual(len(ditas), 10)
        for dita in ditas:
            self.assertIn(dita, manual)
        for fim in range(5):
            self.assertIn(f".B {fim}\n", manual)

    def test_a_licenca_da_descricao_e_a_dos_direitos(self):
        descricao, = (self.partilha / "metainfo").iterdir()
        licenca = xml.etree.ElementTree.parse(descricao).getroot().findtext("project_license")
        direitos = (self.partilha / "doc" / "morvex" / "copyright").read_text(encoding="utf-8")
        self.assertIn(f"License: {licenca}\n", direitos)


if __name__ == "__main__":
    unittest.main(verbosity=2)
