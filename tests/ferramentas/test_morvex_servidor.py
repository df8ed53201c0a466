"""morvex-servidor on a real server: what each order makes, refuses and leaves alone.
Usage: test_morvex_servidor.py <program> <shipped database>"""

import os
import pathlib
import pty
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM, SHIPPED = sys.argv.pop(1), sys.argv.pop(1)
SERVER = pathlib.Path(os.environ["MORVEX_POSTGRES"])
TABLES = ["TblLista", "TblGrupos", "TblUsers", "TblMemos", "TblTarefas", "TblRepeticao", "TblConfig", "TblIdiomas",
          "TblEmails", "TblFotografias", "TblCartoes", "TblDiferentes"]


def contents(path):
    """Every row of a file with its cells' types, and its counters."""
    with sqlite3.connect(f"file:{path}?mode=ro", uri=True) as file:
        rows = {table: sorted(map(repr, file.execute(f"SELECT * FROM {table}"))) for table in TABLES}
        rows["counters"] = sorted(file.execute("SELECT name, seq FROM sqlite_sequence WHERE seq > 0"))
        rows["steps"] = file.execute("PRAGMA user_version").fetchone()
    return rows


class MorvexServidor(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.address = (SERVER / "morada").read_text().strip() if (SERVER / "morada").exists() else None
        if not self.address:
            self.skipTest("no database server is installed here")
        self.bases = 0
        self.base = self.new_base()

    def new_base(self):
        self.bases += 1
        name = f"ensaio_f_{os.getpid()}_{time.monotonic_ns()}_{self.bases}"
        self.sql("postgres", f"CREATE DATABASE {name} OWNER morvex_dono TEMPLATE template0")
        self.addCleanup(self.sql, "postgres", f"DROP DATABASE {name} WITH (FORCE)")
        return name

    def at(self, base, who="morvex_dono"):
        return self.address.replace("morvex_ensaio", who).rsplit("/", 1)[0] + "/" + base

    def sql(self, base, *statements):
        command = ["psql", self.at(base, "morvex_ensaio"), "-XAtq", "-v", "ON_ERROR_STOP=1"]
        for statement in statements:
            command += ["-c", statement]
        return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()

    def run_program(self, *words, language="en_GB.UTF-8"):
        environment = dict(os.environ, LC_ALL=language)
        return subprocess.run([PROGRAM, *map(str, words)], capture_output=True, text=True, stdin=subprocess.DEVNULL,
                              env=environment, timeout=120)

    def good(self, *words):
        done = self.run_program(*words)
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)
        return done.stdout

    def refused(self, code, says, *words):
        done = self.run_program(*words)
        self.assertEqual(done.returncode, code, done.stderr + done.stdout)
        self.assertIn(says, done.stderr + done.stdout)
        return done.stderr

    def refused_by_the_look(self, says):
        """The lines of verificar, of which one says that; it finds nothing else."""
        done = self.run_program("verificar", self.at(self.base))
        self.assertEqual(done.returncode, 4, done.stderr + done.stdout)
        self.assertEqual(len(done.stdout.splitlines()), 1, done.stdout)
        self.assertIn(says, done.stdout)
        return done.stdout

    def file(self, *statements):
        path = self.folder / f"livro{len(list(self.folder.iterdir()))}.mdb"
        shutil.copy(SHIPPED, path)
        with sqlite3.connect(path) as file:
            for statement in statements:
                file.execute(*statement) if isinstance(statement, tuple) else file.execute(statement)
        return path

    def tables_of(self, base):
        return self.sql(base, "SELECT count(*) FROM pg_class WHERE relnamespace = 'public'::regnamespace AND relkind = 'r'")

    def test_the_help_speaks_the_administrators_language(self):
        for language, word in (("pt_PT.UTF-8", "ENDEREÇO"), ("pt_BR.UTF-8", "ENDEREÇO"), ("en_GB.UTF-8", "ADDRESS"),
                               ("C", "ADDRESS"), ("de_DE.UTF-8", "ADDRESS")):
            shown = self.run_program("--help", language=language)
            self.assertEqual((shown.returncode, shown.stderr), (0, ""))
            # A locale that is not installed has no accents to write with.
            self.assertIn(word.replace("Ç", "") [:6], shown.stdout.replace("Ç", "").replace("?", ""))
            for order in ("criar", "atualizar", "mudar", "trazer", "verificar"):
                self.assertIn(f"\n  {order}", shown.stdout)
        self.assertRegex(self.good("--version"), r"^morvex-servidor \d+\.\d+\.\d+\n$")

    def test_a_line_that_is_not_understood_does_nothing(self):
        address = self.at(self.base)
        for says, words in (("not said what", []), ("no such order: fazer", ["fazer"]),
                            ("criar takes ADDRESS", ["criar"]), ("mudar takes FILE ADDRESS", ["mudar", address]),
                            ("Unknown option: --tudo", ["criar", address, "--tudo"]),
                            ("value of --posto", ["criar", address, "--posto"]),
                            ("does not belong to trazer: --posto", ["trazer", address, "x", "--posto", "y"]),
                            ("does not belong to mudar: --vazia", ["mudar", "x", address, "--vazia"]),
                            ("no rows to begin with in this language: de", ["criar", address, "--idioma", "de"]),
                            ("exclude each other", ["criar", address, "--idioma", "pt", "--vazia"]),
                            ("no address of a server: /tmp/x.mdb", ["criar", "/tmp/x.mdb", "--vazia"]),
                            ("--idioma or --vazia", ["criar", address])):
            self.refused(2, says, *words)
        self.assertEqual(self.tables_of(self.base), "0")

    def test_criar_gives_the_first_rows_the_numbers_of_a_new_file(self):
        self.good("criar", self.at(self.base), "--idioma", "pt")
        self.assertEqual(self.sql(self.base, "SELECT string_agg(id || nome, ' ' ORDER BY id) FROM tblrepeticao"),
                         "1Não 2Diariamente 3Semanalmente 4Mensalmente 5Anualmente")
        self.assertEqual(self.sql(self.base, "SELECT string_agg(id || nomegrupo, ' ' ORDER BY id) FROM tblgrupos"),
                         "1Amigos 2Colegas 3Familia 4Clientes 5Fornecedores 6Outros")
        self.assertEqual(self.sql(self.base, "SELECT idioma FROM tblconfig"), "PortuguesPT")
        self.assertEqual(self.sql(self.base, "INSERT INTO TblGrupos (NomeGrupo) VALUES ('g') RETURNING id"), "7")
        self.assertIn("All is as it should be.", self.good("verificar", self.at(self.base)))

    def test_criar_speaks_four_languages(self):
        for language, group in (("br", "Amigos"), ("en", "Friends"), ("fr", "Amis")):
            base = self.new_base()
            self.good("criar", self.at(base), "--idioma", language)
            self.assertEqual(self.sql(base, "SELECT nomegrupo FROM tblgrupos WHERE id = 1"), group)

    def at_a_terminal(self, typed, *words):
        """The program with somebody at its keyboard; what it wrote, and the code with which it ended."""
        keyboard, terminal = pty.openpty()
        try:
            os.write(keyboard, typed)
            done = subprocess.run([PROGRAM, *map(str, words)], stdin=terminal, capture_output=True, text=True,
                                  env=dict(os.environ, LC_ALL="en_GB.UTF-8"), timeout=120)
        finally:
            os.close(keyboard)
            os.close(terminal)
        return done.returncode, done.stdout

    def test_criar_asks_whoever_sits_there_for_the_language_until_it_is_one(self):
        code, said = self.at_a_terminal(b"de\n FR \n", "criar", self.at(self.base))
        self.assertEqual((code, said.count("In which language?")), (0, 2), said)
        self.assertEqual(self.sql(self.base, "SELECT nomegrupo FROM tblgrupos WHERE id = 1"), "Amis")

    def test_criar_asks_nobody_where_the_line_says_it(self):
        for words in (["--vazia"], ["--idioma", "en"]):
            code, said = self.at_a_terminal(b"fr\n", "criar", self.at(self.new_base()), *words)
            self.assertEqual((code, said.count("In which language?")), (0, 0), said)

    def test_criar_a_second_time_changes_nothing(self):
        self.good("criar", self.at(self.base), "--idioma", "pt")
        self.sql(self.base, "DELETE FROM TblLista")
        self.refused(1, "not empty", "criar", self.at(self.base), "--idioma", "en")
        self.assertEqual(self.sql(self.base, "SELECT count(*) FROM tbllista"), "0")

    def test_criar_wants_the_desks_role(self):
        self.refused(1, "role of the desks is missing: ninguem", "criar", self.at(self.base), "--vazia", "--posto", "ninguem")
        self.assertEqual(self.tables_of(self.base), "0")

    def test_criar_wants_every_letter_kept(self):
        name = self.base + "_latin"
        self.sql("postgres", f"CREATE DATABASE {name} OWNER morvex_dono TEMPLATE template0 ENCODING 'LATIN1' LOCALE 'C' LOCALE_PROVIDER libc")
        self.addCleanup(self.sql, "postgres", f"DROP DATABASE {name} WITH (FORCE)")
        self.refused(1, "UTF8 is needed", "criar", self.at(name), "--vazia")

    def test_there_and_back_again_all_is_the_same(self):
        everything = bytes(range(256)) * 40
        path = self.file(
            "UPDATE TblConfig SET Idioma = 'InglesUK', Remetente = NULL",
            ("INSERT INTO TblLista (ID, Nome, Obs, Morada, Grupo) VALUES (3, ?, ?, '', 2)", ("Zé \\ ' \t", "a\r\nb\\.\n\\N")),
            "INSERT INTO TblLista (ID, Nome) VALUES (900, NULL), (901, '')",
            "DELETE FROM TblLista WHERE ID = 901",
            "INSERT INTO TblGrupos VALUES (2, 'Família', 0), (4, '日本', 7)",
            "INSERT INTO TblUsers VALUES (7, 'Maria', 'x', 1, 0, 1, 0, 1, -1)",
            "DELETE FROM TblUsers WHERE ID = 7",
            "INSERT INTO TblMemos VALUES (1, 't', 'd', 0.1, 8.25, 1e10, -3.5, 'Arial', 8, 0, 1, -2147483648, 0)",
            "INSERT INTO TblTarefas VALUES (1, 'a', '2027-02-01', '09:00:00', 7, 1)",
            "INSERT INTO TblRepeticao VALUES (1, 'Não')",
            "INSERT INTO TblEmails VALUES (1, 'm@a.pt', 'pop.a.pt', 'm', 'pm', 7)",
            ("INSERT INTO TblFotografias VALUES ('bd:a.jpg', ?), ('bd:b.jpg', NULL), ('', x'')", (everything,)),
            ("INSERT INTO TblCartoes VALUES (3, 'u', 'c', 'h', 'e', ?, 'r')", (everything,)),
            "INSERT INTO TblDiferentes VALUES (3, 900), (3, 900)")
        before = contents(path)
        said = self.good("mudar", path, self.at(self.base))
        self.assertIn("TblLista: 2 rows\n", said)
        self.assertEqual(contents(path), before)
        back = self.folder / "volta.mdb"
        self.good("trazer", self.at(self.base), back)
        after = contents(back)
        for table in before:
            self.assertEqual(after[table], before[table], table)
        self.assertEqual(self.sql(self.base, "INSERT INTO TblLista (Nome) VALUES ('x') RETURNING id"), "902")
        self.assertEqual(self.sql(self.base, "INSERT INTO TblUsers (Utilizador) VALUES ('x') RETURNING id"), "8")
        with sqlite3.connect(back) as file:
            self.assertEqual(file.execute("INSERT INTO TblLista (Fax) VALUES ('1') RETURNING ID").fetchone(), (902,))

    def test_mudar_fills_a_database_that_was_made_empty(self):
        self.good("criar", self.at(self.base), "--vazia")
        self.good("mudar", self.file("INSERT INTO TblGrupos VALUES (6, 'g', 0)"), self.at(self.base))
        self.assertEqual(self.sql(self.base, "INSERT INTO TblGrupos (NomeGrupo) VALUES ('h') RETURNING id"), "7")
        self.assertIn("All is as it should be.", self.good("verificar", self.at(self.base)))

    def test_mudar_refuses_a_database_with_data(self):
        self.good("criar", self.at(self.base), "--idioma", "pt")
        self.refused(1, "not empty: TblLista has rows", "mudar", self.file(), self.at(self.base))

    def test_mudar_says_where_a_character_stands_that_no_server_keeps(self):
        path = self.file(("INSERT INTO TblLista (ID, Nome, Obs) VALUES (12, 'Ana', ?)", ("a\0b",)))
        self.refused(1, "U+0000, which no server keeps: TblLista, ID 12, Obs", "mudar", path, self.at(self.base))
        self.assertEqual(self.tables_of(self.base), "0")

    def test_mudar_refuses_a_row_without_its_number(self):
        path = self.file("INSERT INTO TblIdiomas (PortuguesPT) VALUES ('x')")
        self.refused(1, "without its number: TblIdiomas, ID ?, ID", "mudar", path, self.at(self.base))
        self.assertEqual(self.tables_of(self.base), "0")

    def test_mudar_refuses_what_is_no_file_of_this_program(self):
        self.refused(1, "not found", "mudar", self.folder / "nada.mdb", self.at(self.base))
        (self.folder / "texto.mdb").write_text("no database at all\n" * 300)
        self.refused(1, "is no database of this program", "mudar", self.folder / "texto.mdb", self.at(self.base))
        with sqlite3.connect(self.folder / "outra.mdb") as file:
            file.execute("CREATE TABLE coisas (a)")
        self.refused(1, "no table TblLista", "mudar", self.folder / "outra.mdb", self.at(self.base))
        self.refused(1, "newer version", "mudar", self.file("PRAGMA user_version = 99"), self.at(self.base))
        self.assertEqual(self.tables_of(self.base), "0")

    def test_mudar_takes_a_file_of_an_older_program(self):
        path = self.file("DROP TABLE TblFotografias", "DROP TABLE TblCartoes", "DROP TABLE TblDiferentes",
                         "DELETE FROM TblIdiomas WHERE ID >= 274", "PRAGMA user_version = 0",
                         "INSERT INTO TblLista (ID, Nome) VALUES (5, 'antigo')")
        self.good("mudar", path, self.at(self.base))
        self.assertEqual(self.sql(self.base, "SELECT nome FROM tbllista"), "antigo")
        self.assertIn("All is as it should be.", self.good("verificar", self.at(self.base)))
        with sqlite3.connect(path) as file:
            self.assertEqual(file.execute("PRAGMA user_version").fetchone(), (0,))

    def test_a_desk_can_neither_make_nor_move(self):
        self.refused(1, "", "criar", self.at(self.base, "morvex_ensaio"), "--vazia", "--posto", "morvex_ensaio")
        self.good("criar", self.at(self.base), "--vazia")
        self.refused(1, "must be owner", "mudar", self.file(), self.at(self.base, "morvex"), "--posto", "morvex_dono")

    def test_trazer_leaves_a_file_that_is_there(self):
        self.good("criar", self.at(self.base), "--idioma", "pt")
        there = self.folder / "ha.mdb"
        there.write_text("mine")
        self.refused(1, "exists already", "trazer", self.at(self.base), there)
        self.assertEqual(there.read_text(), "mine")
        self.refused(1, "", "trazer", self.at(self.base), self.folder / "nao_ha" / "x.mdb")
        self.assertEqual(sorted(p.name for p in self.folder.iterdir()), ["ha.mdb"])

    def test_trazer_leaves_nothing_behind_where_the_file_does_not_take_its_name(self):
        self.good("criar", self.at(self.base), "--vazia")
        nowhere = self.folder / "livro.mdb"
        nowhere.symlink_to(self.folder / "nao_ha" / "x.mdb")
        self.refused(1, "could not be written", "trazer", self.at(self.base), nowhere)
        self.assertEqual([p.name for p in self.folder.iterdir()], ["livro.mdb"])

    def test_trazer_keeps_one_moment_while_others_write(self):
        self.good("criar", self.at(self.base), "--vazia")
        self.sql(self.base, "INSERT INTO TblLista (Nome, Obs) SELECT 'n', repeat('x', 400) FROM generate_series(1, 3000)")
        pairs = "BEGIN; INSERT INTO TblGrupos (NomeGrupo) VALUES ('g'); INSERT INTO TblRepeticao (Nome) VALUES ('r'); COMMIT;\n"
        writer = subprocess.Popen(["psql", self.at(self.base, "morvex"), "-Xq"], stdin=subprocess.PIPE, text=True)
        try:
            for number in range(3):
                writer.stdin.write(pairs * 400)
                writer.stdin.flush()
                path = self.folder / f"momento{number}.mdb"
                self.good("trazer", self.at(self.base), path)
                with sqlite3.connect(path) as file:
                    counts = [file.execute(f"SELECT count(*) FROM {t}").fetchone()[0] for t in ("TblGrupos", "TblRepeticao")]
                self.assertEqual(counts[0], counts[1])
        finally:
            writer.stdin.close()
            writer.wait()
        self.assertEqual(self.sql(self.base, "SELECT count(*) FROM tblgrupos"), "1200")

    def test_verificar_finds_each_fault_and_atualizar_mends_it(self):
        self.good("criar", self.at(self.base), "--idioma", "pt")
        for says, fault in (("tbllista.morvex_avisar_u", "DROP TRIGGER morvex_avisar_u ON tbllista"),
                            ("tblgrupos.morvex_numerar", "ALTER TABLE tblgrupos DISABLE TRIGGER morvex_numerar"),
                            ("counter of the table tblmemos", "DELETE FROM morvex_contadores WHERE tabela = 'tblmemos'"),
                            ("DELETE public.tblidiomas", "GRANT DELETE ON tblidiomas TO morvex"),
                            ("INSERT public.tbllista", "REVOKE INSERT ON tbllista FROM morvex"),
                            ("2 texts", "DELETE FROM tblidiomas WHERE id IN (300, 301)"),
                            ("(1 / 4)", "UPDATE morvex_esquema SET numero = 1"),
                            ("table or a column is missing: tbldiferentes", "DROP TABLE tbldiferentes; UPDATE morvex_esquema SET numero = 1"),
                            ("letters otherwise", "CREATE OR REPLACE FUNCTION morvex_dobrar(t text) RETURNS text LANGUAGE sql IMMUTABLE AS 'SELECT lower(t)'")):
            with self.subTest(fault):
                self.sql(self.base, fault)
                self.refused(4, says, "verificar", self.at(self.base))
                self.good("atualizar", self.at(self.base))
                self.assertIn("All is as it should be.", self.good("verificar", self.at(self.base)))

    def test_verificar_names_a_column_that_is_missing(self):
        self.good("criar", self.at(self.base), "--vazia")
        self.sql(self.base, "ALTER TABLE tblcartoes DROP COLUMN uid")
        done = self.run_program("verificar", self.at(self.base))
        self.assertEqual(done.returncode, 4)
        self.assertEqual(done.stdout.splitlines(), ["A table or a column is missing: tblcartoes.uid"])

    def test_verificar_counts_the_letters_that_only_the_server_takes_for_one(self):
        self.good("criar", self.at(self.base), "--vazia")
        folding = self.sql(self.base, "SELECT prosrc FROM pg_proc WHERE proname = 'morvex_dobrar'")
        self.sql(self.base, "CREATE OR REPLACE FUNCTION morvex_dobrar(t text) RETURNS text LANGUAGE sql IMMUTABLE "
                            f"PARALLEL SAFE AS $dobra$ SELECT replace(({folding}), 'b', 'a') $dobra$")
        self.refused_by_the_look("compares 2 letters otherwise")  # the large one and the small one
        self.good("atualizar", self.at(self.base))
        self.good("verificar", self.at(self.base))

    def test_where_the_servers_order_has_moved_the_indexes_are_made_anew(self):
        indexes = ("SELECT i.indexrelid, c.relfilenode FROM pg_index i JOIN pg_class c ON c.oid = i.indexrelid "
                   "WHERE c.relnamespace = 'public'::regnamespace AND i.indrelid::regclass::text LIKE 'tbl%'")
        self.good("criar", self.at(self.base), "--idioma", "pt")
        before = set(self.sql(self.base, indexes).splitlines())
        self.assertNotIn("made anew", self.good("atualizar", self.at(self.base)))
        self.assertEqual(set(self.sql(self.base, indexes).splitlines()), before)
        self.sql(self.base, "UPDATE pg_collation SET collversion = '0' WHERE collname = 'morvex'")
        self.assertIn("(morvex)", self.refused_by_the_look("order of letters has changed"))
        done = self.run_program("atualizar", self.at(self.base))
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("The server's order of letters had changed: the indexes were made anew.", done.stdout)
        after = set(self.sql(self.base, indexes).splitlines())
        self.assertEqual(len(after), len(before))
        self.assertEqual(after & before, set())
        self.assertIn("All is as it should be.", self.good("verificar", self.at(self.base)))
        self.assertNotIn("made anew", self.good("atualizar", self.at(self.base)))

    def test_what_is_newer_than_the_program_is_left_alone(self):
        self.good("criar", self.at(self.base), "--vazia")
        self.sql(self.base, "UPDATE morvex_esquema SET numero = 99")
        self.refused(1, "newer version", "atualizar", self.at(self.base))
        self.refused(1, "newer version", "trazer", self.at(self.base), self.folder / "x.mdb")
        self.refused(1, "newer version", "mudar", self.file(), self.at(self.base))
        self.assertFalse((self.folder / "x.mdb").exists())

    def test_another_programs_database_is_left_alone(self):
        self.sql(self.base, "CREATE TABLE coisas (a integer)")
        for words in (["atualizar", self.at(self.base)], ["verificar", self.at(self.base)],
                      ["trazer", self.at(self.base), self.folder / "x.mdb"]):
            self.refused(1, "none of this program's", *words)
        self.refused(1, "has the table coisas", "criar", self.at(self.base), "--vazia")

    def test_a_server_that_is_not_reached_has_a_code_of_its_own(self):
        self.refused(3, "", "verificar", "postgresql://morvex_dono@127.0.0.1:1/nada")
        self.refused(3, "", "verificar", self.at("nao_ha_tal_base"))
        os.environ["PGPASSFILE"], kept = "/dev/null", os.environ["PGPASSFILE"]
        self.addCleanup(os.environ.__setitem__, "PGPASSFILE", kept)
        self.refused(3, "", "verificar", self.at(self.base))

    def test_a_password_in_the_address_is_refused_and_not_repeated(self):
        address = self.at(self.base).replace("morvex_dono@", "morvex_dono:segredo@")
        said = self.refused(3, "", "verificar", address)
        self.assertNotIn("segredo", said)

    def test_without_the_servers_library_it_says_which_package_is_missing(self):
        (self.folder / "libpq.so.5").write_text("no library")
        os.environ["LD_LIBRARY_PATH"] = str(self.folder)
        self.addCleanup(os.environ.pop, "LD_LIBRARY_PATH")
        said = self.refused(3, "libpq5", "verificar", self.at(self.base))
        self.assertNotIn(self.base, said)  # nothing of an address that cannot be read is shown


if __name__ == "__main__":
    unittest.main()
