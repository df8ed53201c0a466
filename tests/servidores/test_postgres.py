"""The database server of the tests: it comes, it is shared, and it goes whatever becomes of whoever started it.
Usage: test_postgres.py <scripts' folder>"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

SCRIPT = pathlib.Path(sys.argv.pop(1)) / "postgres"


def run(command, folder, *arguments):
    return subprocess.run([SCRIPT, command, folder, *map(str, arguments)], capture_output=True, text=True)


def someone():
    return subprocess.Popen(["sleep", "300"])


class Postgres(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="mpgt"))
        self.folder.chmod(0o755)
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.people = []
        self.addCleanup(self.send_home)

    def person(self):
        self.people.append(someone())
        return self.people[-1]

    def send_home(self):
        for person in self.people:
            person.kill()
            person.wait()
        deadline = time.monotonic() + 30
        while any(self.folder.glob("*/dados/postmaster.pid")) and time.monotonic() < deadline:
            time.sleep(0.2)

    def start(self, name, person):
        started = run("start", self.folder / name, person.pid)
        if started.returncode == 77:
            self.skipTest(started.stderr)
        self.assertEqual(started.returncode, 0, started.stderr)
        return started.stdout.strip()

    def running(self, name):
        return (self.folder / name / "dados" / "postmaster.pid").exists()

    def answer(self, name, sql):
        address = (self.folder / name / "morada").read_text().strip()
        return subprocess.run(["psql", address, "-Atc", sql], capture_output=True, text=True, stdin=subprocess.DEVNULL,
                              env={"PATH": "/usr/bin:/bin", "PGPASSFILE": str(self.folder / name / "senhas")})

    def wait_until_gone(self, name, what="dados/postmaster.pid"):
        deadline = time.monotonic() + 30
        while (self.folder / name / what).exists():
            self.assertLess(time.monotonic(), deadline, f"{what} is still there")
            time.sleep(0.2)

    def test_answers_at_its_address_with_the_password_alone(self):
        self.start("a", self.person())
        self.assertEqual(self.answer("a", "SELECT 6 * 7").stdout.strip(), "42")
        (self.folder / "a" / "senhas").write_text("")
        self.assertIn("password", self.answer("a", "SELECT 6 * 7").stderr)

    def test_two_folders_have_two_servers(self):
        first, second = self.start("a", self.person()), self.start("b", self.person())
        self.assertNotEqual(first, second)
        self.answer("a", "CREATE DATABASE so_desta")
        count = "SELECT count(*) FROM pg_database WHERE datname = 'so_desta'"
        self.assertEqual(self.answer("a", count).stdout.strip(), "1")
        self.assertEqual(self.answer("b", count).stdout.strip(), "0")

    def test_who_comes_second_shares_it_and_the_last_one_ends_it(self):
        first, second = self.person(), self.person()
        self.assertEqual(self.start("a", first), self.start("a", second))
        run("stop", self.folder / "a", first.pid)
        self.assertTrue(self.running("a"))
        self.assertEqual(self.answer("a", "SELECT 1").stdout.strip(), "1")
        run("stop", self.folder / "a", second.pid)
        self.assertFalse(self.running("a"))

    def test_it_ends_when_whoever_started_it_was_killed(self):
        person = self.person()
        self.start("a", person)
        self.assertTrue(self.running("a"))
        person.kill()
        person.wait()
        self.wait_until_gone("a")
        self.wait_until_gone("a", "morada")  # the server itself goes a moment before what was written of it

    def test_it_comes_back_after_it_was_killed_itself(self):
        person = self.person()
        self.start("a", person)
        self.answer("a", "CREATE DATABASE ficou")
        server = (self.folder / "a" / "dados" / "postmaster.pid").read_text().split()[0]
        subprocess.run(["kill", "-KILL", server], check=True)
        time.sleep(0.5)
        self.start("a", person)
        self.assertEqual(self.answer("a", "SELECT count(*) FROM pg_database WHERE datname = 'ficou'").stdout.strip(), "1")

    def test_it_leaves_nothing_running_and_no_sockets(self):
        person = self.person()
        self.start("a", person)
        sockets = pathlib.Path((self.folder / "a" / "tomadas").read_text().strip())
        self.assertTrue(any(sockets.iterdir()))
        run("stop", self.folder / "a", person.pid)
        self.assertFalse(sockets.exists())


if __name__ == "__main__":
    unittest.main()
