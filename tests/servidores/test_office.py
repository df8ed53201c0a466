"""Does what docs/office.md says, word for word, on a machine of its own: namespaces in which the configuration, the
homes and the network are empty. The packages alone are taken to be there.
Usage: test_office.py <docs/office.md> <morvex-servidor>"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
EMPTY = ["/etc/postgresql", "/var/lib/postgresql", "/var/log/postgresql", "/run/postgresql", "/etc/cron.daily",
         "/var/backups", "/media", "/home", "/root"]
DESK_USER = "65534"


def blocks(page, *kinds):
    found = re.findall(r"^```sh (\w+)\n(.*?)^```$", page, re.S | re.M)
    return [text for kind, text in found if kind in kinds]


def bash(script, **environment):
    """Each command's failure is a failure of the page."""
    return subprocess.run(["bash", "-euo", "pipefail", "-c", script], text=True, capture_output=True,
                          stdin=subprocess.DEVNULL, env={"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", **environment})


def must(done, what):
    if done.returncode != 0:
        sys.exit(f"FAILED: {what}\n{done.stdout}\n{done.stderr}")
    return done.stdout


def at_desk(home, script):
    return subprocess.run(["setpriv", f"--reuid={DESK_USER}", f"--regid={DESK_USER}", "--clear-groups", "bash", "-euo",
                           "pipefail", "-c", script], text=True, capture_output=True, stdin=subprocess.DEVNULL,
                          env={"PATH": os.environ["PATH"], "HOME": home, "LC_ALL": "C.UTF-8"})


def desk(number, page):
    home = f"/home/desk{number}"
    os.mkdir(home)
    os.chown(home, int(DESK_USER), int(DESK_USER))
    for script in blocks(page, "desk"):
        must(at_desk(home, script), "the desk's commands")
    return home


def ask(home, sql, address="postgresql://morvex@servidor/morvex?sslmode=verify-full"):
    return at_desk(home, f"psql -XAtq '{address}' -c \"{sql}\"")


def expect(what, got, wanted):
    if got != wanted:
        sys.exit(f"FAILED: {what}: {got!r}, not {wanted!r}")
    print(f"ok: {what}")


def inside(page):
    subprocess.run(["ip", "link", "set", "lo", "up"], check=True)
    for folder in EMPTY:
        if os.path.isdir(folder):
            subprocess.run(["mount", "-t", "tmpfs", "-o", "mode=0755", "tmpfs", folder], check=True)
    hosts = pathlib.Path(tempfile.mkdtemp(dir="/media")) / "hosts"
    hosts.write_text("127.0.0.1 localhost\n127.0.0.1 servidor\n")
    subprocess.run(["mount", "--bind", hosts, "/etc/hosts"], check=True)
    for folder in ("/var/lib/postgresql", "/run/postgresql", "/var/log/postgresql", "/etc/postgresql"):
        shutil.chown(folder, "postgres", "postgres")
    must(bash("pg_createcluster --start 15 main"), "what the package does when it is installed")

    must(bash("\n".join(blocks(page, "server")), HOME="/root"), "the server's commands")
    stick = pathlib.Path("/media/usb")
    stick.mkdir()
    for name in ("ca.crt", "pgpass"):
        shutil.copy(f"/root/morvex/{name}", stick / name)
        (stick / name).chmod(0o644)

    first, second = desk(1, page), desk(2, page)
    expect("the first desk reads the book, which was restored from its backup",
           must(ask(first, "SELECT nomegrupo FROM TblGrupos WHERE id = 1"), "a question").strip(), "Friends")
    must(ask(first, "INSERT INTO TblLista (Nome, Grupo) VALUES ('Zé', 1)"), "a desk's contact")
    expect("the second desk sees what the first has written",
           must(ask(second, "SELECT nome FROM TblLista ORDER BY id DESC LIMIT 1"), "a question").strip(), "Zé")
    expect("a desk changes no texts", ask(first, "DELETE FROM TblIdiomas").returncode != 0, True)
    expect("nobody comes without encryption",
           ask(first, "SELECT 1", "postgresql://morvex@servidor/morvex?sslmode=disable").returncode != 0, True)
    elsewhere = "postgresql://morvex@localhost/morvex?sslmode=verify-full"
    expect("a desk insists on the server's name", "does not match" in ask(first, "SELECT 1", elsewhere).stderr, True)
    os.chmod(f"{second}/.pgpass", 0o644)
    expect("a file of passwords that others may read is not looked at", ask(second, "SELECT 1").returncode != 0, True)
    expect("the desks' role owns nothing", must(ask(first, "SELECT count(*) FROM pg_tables WHERE tableowner = 'morvex'"),
                                                "a question").strip(), "0")
    must(bash("/etc/cron.daily/morvex"), "the backup a second time")
    expect("the old database waits beside the new one",
           must(bash("runuser -u postgres -- psql -XAtc \"SELECT count(*) FROM pg_database WHERE datname ~ '^morvex'\""),
                "a question").strip(), "2")
    must(bash("pg_ctlcluster 15 main stop -m immediate"), "the end")
    moved(page)


# The words that are said in place of another's, on a database that is empty.
def moved(page):
    must(bash("pg_ctlcluster 15 main start"), "a start")
    must(bash("HOME=/root; cd ~/morvex\n" + blocks(page, "server")[0] +
              "cp /var/backups/morvex/$(date +%u).mdb morvex.mdb\n"
              "runuser -u postgres -- psql -q -c 'DROP DATABASE morvex'\n"
              "runuser -u postgres -- createdb -O morvex_dono -T template0 -E UTF8 --locale=C.UTF-8 morvex\n" +
              "\n".join(blocks(page, "instead")), HOME="/root"), "the file taken along")
    expect("a file that is moved is there", must(ask("/home/desk1", "SELECT nomegrupo FROM TblGrupos WHERE id = 1"),
                                                 "a question").strip(), "Friends")
    must(bash("pg_ctlcluster 15 main stop -m immediate"), "the end")


def main():
    if sys.argv[1] == "--inside":
        inside(pathlib.Path(sys.argv[2]).read_text(encoding="utf-8"))
        return 0
    page, tool = map(pathlib.Path, sys.argv[1:3])
    text = page.read_text(encoding="utf-8")
    packages, = blocks(text, "packages")
    for package in set(packages.split()[2:]) - {"morvex"}:
        if subprocess.run(["dpkg", "-s", package], capture_output=True, check=False).returncode != 0:
            print(f"the package {package} is not installed")
            return SKIPPED
    apart = ["unshare", "--mount", "--net", "--pid", "--fork", "--kill-child", "--mount-proc"]
    if os.geteuid() != 0 or subprocess.run([*apart, "true"], capture_output=True, check=False).returncode != 0:
        print("a machine of its own can't be had here")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:  # the homes will be empty
        os.chmod(folder, 0o755)
        for source, name in ((page, "office.md"), (tool, "morvex-servidor"), (pathlib.Path(__file__), "test_office.py")):
            shutil.copy(source, pathlib.Path(folder) / name)
        path = f"{folder}:/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"
        python = shutil.which("python3", path="/usr/bin:/bin") or sys.executable  # another's may lie in a home
        return subprocess.run([*apart, python, f"{folder}/test_office.py", "--inside", f"{folder}/office.md"],
                              env={"PATH": path, "LC_ALL": "C.UTF-8"}, check=False).returncode


sys.exit(main())
