"""A PostgreSQL server of the tour's own: on a free port, in a folder of its own, as a user without privileges."""

import os
import pathlib
import pwd
import shutil
import signal
import socket
import subprocess
import tempfile
import time

PASSWORD = "tour"


def _programs():
    return pathlib.Path(subprocess.run(["pg_config", "--bindir"], capture_output=True, text=True, check=True).stdout.strip())


def _free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


class Server:
    """Runs from the start to stop(), with the database, the schema and one user in it."""

    def __init__(self, schema):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quillet-tour-"))
        self.port = _free_port()
        self.user = "nobody" if os.geteuid() == 0 else None  # the server refuses to run as root
        if self.user:
            os.chown(self.folder, pwd.getpwnam(self.user).pw_uid, -1)
        self._run("initdb", "--pgdata", self._data(), "--username", "administrator", "--auth-local", "trust",
                  "--auth-host", "scram-sha-256", "--encoding", "UTF8", "--no-sync")
        self._start()
        self._sql("postgres", "CREATE ROLE quillet_users NOLOGIN")
        self._sql("postgres", "CREATE DATABASE quillet")
        self._sql("quillet", pathlib.Path(schema).read_text(encoding="utf-8"))
        self._sql("quillet", f"CREATE ROLE ada LOGIN PASSWORD '{PASSWORD}' IN ROLE quillet_users")

    def _start(self):
        self.process = subprocess.Popen(
            [_programs() / "postgres", "-D", self._data(), "-k", self.folder, "-p", str(self.port),
             "-c", "listen_addresses=127.0.0.1", "-c", "fsync=off"],
            user=self.user, cwd=self.folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self._run("pg_isready", "--host", self.folder, "--port", str(self.port), tries=200)

    def restart(self, how):
        """`fast` hangs up on everybody; `immediate` is a crash, after which the server recovers from its log."""
        self.process.send_signal({"fast": signal.SIGINT, "immediate": signal.SIGQUIT}[how])
        self.process.wait()
        self._start()

    def sign_in(self, home):
        """Writes what a signed-in user has in the home folder."""
        service = pathlib.Path(home) / ".pg_service.conf"
        service.write_text(f"[quillet]\nhost=127.0.0.1\nport={self.port}\ndbname=quillet\nuser=ada\n", encoding="utf-8")
        passwords = pathlib.Path(home) / ".pgpass"
        passwords.write_text(f"127.0.0.1:{self.port}:quillet:ada:{PASSWORD}\n", encoding="utf-8")
        passwords.chmod(0o600)

    def stop(self):
        self.process.send_signal(signal.SIGINT)  # without waiting for who is still connected
        self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _data(self):
        return self.folder / "data"

    def _sql(self, database, text):
        self._run("psql", "--quiet", "--no-psqlrc", "--set", "ON_ERROR_STOP=1", "--host", self.folder, "--port", str(self.port),
                  "--username", "administrator", "--dbname", database, text=text)

    def _run(self, program, *arguments, text=None, tries=1):
        command = [_programs() / program, *arguments]
        for _ in range(tries):
            done = subprocess.run(command, input=text, capture_output=True, text=True, user=self.user, cwd=self.folder)
            if done.returncode == 0:
                return
            time.sleep(0.1)
        raise RuntimeError(f"{program}: {done.stderr.strip()}")
