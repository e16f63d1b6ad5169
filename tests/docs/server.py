"""Servers of the test's own, each on a socket in a temporary folder."""
import glob
import os
import pathlib
import pwd
import shutil
import subprocess
import tempfile
import time


class Server:
    """A server that is started by its class and ends with `stop`; `address` is that of an empty database."""

    name = account = None  # as a message says it, and under which account it runs for root

    def __init__(self):
        self.process = None
        self.find()
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.identity = {}
        if os.geteuid() == 0:  # as which it does not run
            entry = pwd.getpwnam(self.account)
            os.chown(self.folder, entry.pw_uid, entry.pw_gid)
            self.identity = {"user": entry.pw_uid, "group": entry.pw_gid, "extra_groups": []}
        self.make()
        self.process = subprocess.Popen(self.command(), cwd=self.folder, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL, **self.identity)
        end = time.monotonic() + 60
        while not self.answers():
            if time.monotonic() > end:
                raise RuntimeError(f"the {self.name} server does not come")
            time.sleep(0.1)

    def need(self, program):
        if program is None or not pathlib.Path(program).exists():
            raise LookupError(f"there is no {self.name} server on this machine")
        return program

    def run(self, command):
        subprocess.run(command, cwd=self.folder, check=True, stdout=subprocess.DEVNULL, **self.identity)

    def stop(self):
        if self.process is not None:
            self.process.terminate()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)


class PostgreSQL(Server):
    name, account = "PostgreSQL", "postgres"

    def find(self):
        folders = sorted(glob.glob("/usr/lib/postgresql/*/bin"))
        self.programs = pathlib.Path(folders[-1] if folders else "/nowhere")
        self.need(self.programs / "initdb")

    def make(self):
        self.run([self.programs / "initdb", "-D", self.folder / "data", "-U", "postgres", "-A", "trust", "-E", "UTF8",
                  "--no-sync"])
        self.address = f"postgresql:///postgres?host={self.folder}&user=postgres"

    def command(self):
        return [self.programs / "postgres", "-D", self.folder / "data", "-k", self.folder, "-h", "", "-F"]

    def answers(self):
        return subprocess.run([self.programs / "pg_isready", "-q", "-h", self.folder]).returncode == 0


class MariaDB(Server):
    name, account = "MariaDB", "mysql"

    def find(self):
        path = os.environ["PATH"] + ":/usr/sbin"
        self.server = self.need(shutil.which("mariadbd", path=path))
        self.install = self.need(shutil.which("mariadb-install-db", path=path))
        self.client = self.need(shutil.which("mariadb", path=path))

    def make(self):
        self.socket = self.folder / "socket"
        self.run([self.install, "--no-defaults", f"--datadir={self.folder}/data",
                  "--auth-root-authentication-method=normal", "--skip-test-db", "--skip-name-resolve"])
        self.address = f"mysql://root@/company?unix_socket={self.socket}"

    def command(self):
        return [self.server, "--no-defaults", f"--datadir={self.folder}/data", f"--socket={self.socket}",
                "--skip-networking", "--skip-log-bin"]

    def answers(self):
        make = "CREATE DATABASE IF NOT EXISTS company"
        return subprocess.run([self.client, "--no-defaults", f"--socket={self.socket}", "-uroot", "-e", make],
                              stderr=subprocess.DEVNULL).returncode == 0
