# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""What the tests of the feedback window share: a web server on the loopback interface, and the program in a fresh home."""
import http.server
import os
import signal
import subprocess
import tempfile
import threading
import time
import unittest
import urllib.parse
from pathlib import Path

PROGRAM = os.environ["FEEDBACK"]


class FormServer(http.server.ThreadingHTTPServer):
    """Serves `pages`: a path leads to HTML, or to a function of the request. Remembers what was asked and told."""

    daemon_threads = True

    def __init__(self):
        super().__init__(("127.0.0.1", 0), FormRequest)
        self.pages = {"/form": "<h1>Form</h1>"}
        self.asked = []  # (path, headers)
        self.told = {}  # what pages said at /tell?name=value
        self.ending = threading.Event()
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def address(self, path="/form", host="127.0.0.1"):
        return f"http://{host}:{self.server_port}{path}"

    def paths(self):
        return [path for path, _ in self.asked]

    def stop(self):
        self.ending.set()
        self.shutdown()
        self.server_close()

    def handle_error(self, request, client_address):
        pass  # a client that went away


class FormRequest(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        path, _, query = self.path.partition("?")
        if path == "/tell":
            self.server.told.update(urllib.parse.parse_qsl(query, keep_blank_values=True))
            return self.answer("")
        self.server.asked.append((path, dict(self.headers)))
        page = self.server.pages.get(path)
        if page is None:
            return self.answer("<h1>404</h1>", status=404)
        return page(self) if callable(page) else self.answer(page)

    def answer(self, text, status=200, **headers):
        body = text.encode()
        self.send_response(status)
        for name, value in {"content_type": "text/html", **headers}.items():
            self.send_header(name.replace("_", "-"), value)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


def never(request):
    """Accepts a request and does not answer it."""
    request.server.ending.wait()


def block_signals():
    """As the application does, which takes them from a descriptor."""
    signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGTERM, signal.SIGINT, signal.SIGHUP])


class Feedback:
    """One run of the program, started as the application starts it."""

    def __init__(self, form, *arguments, flags="", program=PROGRAM):
        environment = {**os.environ, "ORRINVALE_FEEDBACK_FORM": form, "QTWEBENGINE_CHROMIUM_FLAGS": flags}
        if os.geteuid() == 0:
            environment["QTWEBENGINE_DISABLE_SANDBOX"] = "1"  # the engine refuses to run as root with it
        self.errors = tempfile.TemporaryFile("w+")
        self.process = subprocess.Popen([program, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=self.errors, text=True, bufsize=1, env=environment,
                                        start_new_session=True, preexec_fn=block_signals)
        self.started = time.monotonic()
        self.reports = []  # (line, seconds after the start)
        self.reader = threading.Thread(target=self.read, daemon=True)
        self.reader.start()

    def read(self):
        for line in self.process.stdout:
            self.reports.append((line.rstrip("\n"), time.monotonic() - self.started))

    def lines(self):
        return [line for line, _ in self.reports]

    def order(self, line):
        self.process.stdin.write(line + "\n")

    def processes(self):
        """The processes of this run's session that have not ended."""
        found = []
        for folder in Path("/proc").glob("[0-9]*"):
            try:
                state, _, _, session = (folder / "stat").read_text().rpartition(")")[2].split()[:4]
            except OSError:
                continue  # it ended meanwhile
            if int(session) == self.process.pid and state != "Z":
                found.append(int(folder.name))
        return found

    def close(self):
        """Ends the orders, which closes the window; the exit status."""
        self.process.stdin.close()
        return self.ended()

    def ended(self, limit=5):
        status = self.process.wait(limit)
        self.reader.join(limit)
        return status


def wait_for(what, condition, limit=10):
    end = time.monotonic() + limit
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.02)
    raise AssertionError(f"no {what} within {limit} s")


class FeedbackTest(unittest.TestCase):
    """A fresh home, a server and at most a few runs of the program."""

    def setUp(self):
        self.home = Path(tempfile.mkdtemp(prefix="h", dir=os.environ["BED"]))
        for name, part in [("HOME", ""), ("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data"),
                           ("XDG_CACHE_HOME", "cache")]:
            (self.home / part).mkdir(exist_ok=True)
            os.environ[name] = str(self.home / part)
        self.server = FormServer()
        self.runs = []

    def tearDown(self):
        self.server.stop()
        for run in self.runs:
            if run.process.poll() is None:
                run.process.kill()
                run.process.wait()
            for file in [run.process.stdin, run.process.stdout, run.errors]:
                file.close()
            wait_for("end of its helpers", lambda: not run.processes())

    def files(self):
        """What lies in the home, which begins empty; where the system has no cache of its fonts, each program makes one."""
        return [path for path in self.home.rglob("*") if path.is_file() and "fontconfig" not in path.parts]

    def start(self, form, *arguments, **keywords):
        run = Feedback(form, *arguments, **keywords)
        self.runs.append(run)
        return run

    def open(self, page, **keywords):
        """Shows `page` as the form."""
        self.server.pages["/form"] = page
        return self.start(self.server.address(), **keywords)

    def wait_for_line(self, run, line, limit=10):
        """Seconds from the program's start to that report."""
        def found():
            self.assertTrue(line in run.lines() or run.process.poll() is None, "the program ended")
            return [seconds for reported, seconds in list(run.reports) if reported == line]
        return wait_for(f"'{line}'", found, limit)[0]

    def tells(self, *names, limit=10):
        """What the pages told under these names."""
        told = self.server.told
        wait_for(f"word of {names}", lambda: all(name in told for name in names), limit)
        return [told[name] for name in names]
