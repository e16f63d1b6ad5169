"""A PostgreSQL server of the test's own, on a socket in a temporary folder."""
import glob
import os
import pathlib
import pwd
import shutil
import subprocess
import tempfile
import time


class Server:
    def __init__(self):
        self.process = None
        folders = sorted(glob.glob("/usr/lib/postgresql/*/bin"))
        programs = pathlib.Path(folders[-1]) if folders else None
        if programs is None or not (programs / "initdb").exists():
            raise LookupError("there is no PostgreSQL server on this machine")
        self.folder = pathlib.Path(tempfile.mkdtemp())
        # The server does not run as root.
        self.account = {}
        if os.geteuid() == 0:
            entry = pwd.getpwnam("postgres")
            os.chown(self.folder, entry.pw_uid, entry.pw_gid)
            self.account = {"user": entry.pw_uid, "group": entry.pw_gid, "extra_groups": []}
        data = self.folder / "data"
        self._run([programs / "initdb", "-D", data, "-U", "postgres", "-A", "trust", "-E", "UTF8", "--no-sync"])
        self.process = subprocess.Popen(
            [programs / "postgres", "-D", data, "-k", self.folder, "-h", "", "-F"], cwd=self.folder,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **self.account)
        self.address = f"postgresql:///postgres?host={self.folder}&user=postgres"
        self._wait(programs / "pg_isready")

    def _run(self, command):
        subprocess.run(command, cwd=self.folder, check=True, stdout=subprocess.DEVNULL, **self.account)

    def _wait(self, ready):
        end = time.monotonic() + 60
        while subprocess.run([ready, "-q", "-h", self.folder]).returncode != 0:
            if time.monotonic() > end:
                raise RuntimeError("the PostgreSQL server does not come")
            time.sleep(0.1)

    def stop(self):
        if self.process is not None:
            self.process.terminate()
            self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)
