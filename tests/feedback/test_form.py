#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The orrinvale developers
# SPDX-License-Identifier: MIT
"""How the form loads or fails to, against a real server on the loopback interface, and what a page may not do."""
import os
import signal
import socket
import ssl
import subprocess
import time
import unittest
from pathlib import Path

from feedback import FeedbackTest, never, wait_for

TELL = """<script>
const tell = (name, value) => fetch('/tell?' + name + '=' + encodeURIComponent(value));
const attempt = (name, action) => { let told; try { told = action(); } catch (error) { told = error.name; } tell(name, told); };
</script>"""


def closed_port():
    """A port of the loopback interface at which nobody listens."""
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def attachment(request):
    request.answer("x" * 1000, content_type="application/octet-stream",
                   Content_Disposition="attachment; filename=got.bin")


class LoadTest(FeedbackTest):
    def test_a_form_that_loads_is_loaded_once(self):
        run = self.open("<h1>Form</h1>")
        self.wait_for_line(run, "loaded")
        time.sleep(0.5)
        self.assertEqual(run.lines(), ["loading", "loaded"])
        self.assertEqual(self.server.paths(), ["/form"])

    def test_a_404_page_is_loaded(self):
        run = self.start(self.server.address("/missing"))
        self.wait_for_line(run, "loaded")
        self.assertEqual(self.server.paths(), ["/missing"])

    def test_a_refused_connection_fails(self):
        run = self.start(f"http://127.0.0.1:{closed_port()}/form")
        self.assertLess(self.wait_for_line(run, "failed"), 8)
        time.sleep(0.5)
        self.assertEqual(run.lines(), ["loading", "failed"])

    def test_an_unknown_host_fails(self):
        run = self.start("https://no-such-host.invalid/form")
        self.wait_for_line(run, "failed", 14)
        self.assertEqual(run.lines(), ["loading", "failed"])

    def test_a_form_that_may_not_be_framed_fails(self):
        run = self.open(lambda request: request.answer("<h1>Form</h1>", X_Frame_Options="DENY"))
        self.assertLess(self.wait_for_line(run, "failed"), 8)

    def test_a_certificate_that_nobody_vouches_for_fails(self):
        key, certificate = self.home / "key", self.home / "certificate"
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                        "-subj", "/CN=localhost", "-keyout", key, "-out", certificate], check=True, capture_output=True)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(certificate, key)
        self.server.socket = context.wrap_socket(self.server.socket, server_side=True)
        run = self.start(f"https://localhost:{self.server.server_port}/form")
        self.assertLess(self.wait_for_line(run, "failed"), 8)
        self.assertEqual(self.server.asked, [])

    def test_a_page_that_wants_a_password_is_loaded_without_a_question(self):
        run = self.open(lambda request: request.answer("<h1>401</h1>", status=401, WWW_Authenticate="Basic realm=x"))
        self.wait_for_line(run, "loaded")

    def test_an_answer_that_breaks_off_before_the_page_fails(self):
        run = self.open(lambda request: request.connection.shutdown(socket.SHUT_RDWR))
        self.assertLess(self.wait_for_line(run, "failed"), 8)

    def test_what_does_not_load_within_twelve_seconds_fails_for_good(self):
        self.server.pages["/never"] = never
        self.server.pages["/late"] = lambda request: (time.sleep(13.5), request.answer(""))
        self.server.pages["/no-load-event"] = "<h1>Visible</h1><img src=/never>"
        self.server.pages["/late-load-event"] = "<h1>Visible</h1><img src=/late>"
        self.server.pages["/file"] = attachment
        pages = ["/never", "/no-load-event", "/late-load-event", "/file"]
        runs = [self.start(self.server.address(page)) for page in pages]
        for run in runs:
            failed = self.wait_for_line(run, "failed", 20)
            self.assertGreaterEqual(failed, 12)
            self.assertLess(failed - self.wait_for_line(run, "loading"), 13)
        time.sleep(3)
        for run in runs:
            self.assertEqual(run.lines(), ["loading", "failed"])
        self.assertEqual(self.files(), [])

    def test_a_second_load_event_is_harmless(self):
        self.server.pages["/next"] = "<h1>Thank you</h1>" + TELL + "<script>tell('next', '')</script>"
        run = self.open("<h1>Form</h1><script>addEventListener('load', () => setTimeout(() => location = '/next', 300))</script>")
        self.wait_for_line(run, "loaded")
        self.tells("next")
        time.sleep(0.5)
        self.assertEqual(run.lines(), ["loading", "loaded"])
        self.assertIsNone(run.process.poll())

    def test_a_loaded_form_that_leads_into_an_error_fails(self):
        gone = f"http://127.0.0.1:{closed_port()}/"
        run = self.open(f"<script>addEventListener('load', () => setTimeout(() => location = '{gone}', 300))</script>")
        self.wait_for_line(run, "failed")
        self.assertEqual(run.lines(), ["loading", "loaded", "failed"])

    def test_what_the_form_embeds_may_fail(self):
        run = self.open(f"<h1>Form</h1><iframe src='http://127.0.0.1:{closed_port()}/'></iframe>")
        self.wait_for_line(run, "loaded")
        time.sleep(0.5)
        self.assertEqual(run.lines(), ["loading", "loaded"])

    def test_another_origin_cannot_speak_for_the_form(self):
        self.server.pages["/hang"] = never
        self.server.pages["/stranger"] = """<script>
          let outcome = 'posted';
          try { top.webkit.messageHandlers.formLoaded.postMessage('loaded'); } catch (error) { outcome = error.name; }
          console.log('formLoaded'); console.log('navigationFailed');
          top.postMessage('loaded', '*');
          fetch('/tell?own=' + (typeof window.webkit) + '&outcome=' + outcome);</script>"""
        stranger = self.server.address("/stranger", host="localhost")
        run = self.open(f"<iframe src='{stranger}'></iframe><img src=/hang>")
        self.assertEqual(self.tells("own", "outcome"), ["undefined", "SecurityError"])
        time.sleep(0.5)
        self.assertEqual(run.lines(), ["loading"])

    def test_a_form_that_replaces_the_whole_page_cannot_report_itself(self):
        self.server.pages["/top"] = TELL + "<script>attempt('top', () => webkit.messageHandlers.formLoaded.postMessage(''))</script>"
        self.server.pages["/hang"] = never
        run = self.open("<script>top.location = '/top'</script><img src=/hang>")
        self.tells("top")
        time.sleep(0.5)
        self.assertNotIn("loaded", run.lines())

    def test_a_renderer_that_dies_fails(self):
        run = self.open("<h1>Form</h1>")
        self.wait_for_line(run, "loaded")
        for process in run.processes():
            if b"--type=renderer" in Path(f"/proc/{process}/cmdline").read_bytes():
                os.kill(process, signal.SIGKILL)
        self.wait_for_line(run, "failed")
        self.assertIsNone(run.process.poll())


class RefusalTest(FeedbackTest):
    def test_scripts_open_no_window_and_no_dialog(self):
        run = self.open(TELL + """<script>
          attempt('window', () => window.open('/elsewhere'));
          attempt('alert', () => alert('Hello'));
          attempt('confirm', () => confirm('Sure?'));
          attempt('prompt', () => prompt('Name?', 'x'));</script>""")
        self.assertEqual(self.tells("window", "alert", "confirm", "prompt"), ["null", "undefined", "false", "null"])
        self.wait_for_line(run, "loaded")
        self.assertNotIn("/elsewhere", self.server.paths())

    def test_permissions_are_refused(self):
        run = self.open(TELL + """<script>
          navigator.mediaDevices.getUserMedia({video: true}).then(() => tell('camera', 'granted'), e => tell('camera', e.name));
          navigator.mediaDevices.getUserMedia({audio: true}).then(() => tell('microphone', 'granted'), e => tell('microphone', e.name));
          navigator.geolocation.getCurrentPosition(() => tell('place', 'granted'), e => tell('place', e.code));
          Notification.requestPermission().then(answer => tell('notifications', answer));</script>""",
                        flags="--use-fake-device-for-media-stream")
        self.assertEqual(self.tells("camera", "microphone", "place"), ["NotAllowedError", "NotAllowedError", "1"])
        self.assertEqual(self.tells("notifications"), ["denied"])
        self.wait_for_line(run, "loaded")

    def test_files_of_the_machine_stay_out_of_reach(self):
        secret = self.home / "secret.html"
        secret.write_text(f"<script>fetch('{self.server.address('/stolen')}', {{mode: 'no-cors'}})</script>")
        self.server.pages["/redirect"] = lambda request: request.answer("", status=302, Location=f"file://{secret}")
        run = self.open(TELL + f"""<iframe src="/redirect"></iframe><img src="file://{secret}" onload="tell('image', 'read')" onerror="tell('image', 'refused')">
          <iframe src="file://{secret}"></iframe><script>
          fetch('file://{secret}').then(() => tell('fetch', 'read'), () => tell('fetch', 'refused'));
          setTimeout(() => {{ location = 'file://{secret}'; tell('left', ''); }}, 300);</script>""")
        self.assertEqual(self.tells("image", "fetch", "left"), ["refused", "refused", ""])
        time.sleep(1)
        self.assertNotIn("/stolen", self.server.paths())
        self.assertIsNone(run.process.poll())

    def test_downloads_are_dropped(self):
        self.server.pages["/file"] = attachment
        run = self.open("<script>addEventListener('load', () => setTimeout(() => location = '/file', 300))</script>")
        wait_for("request for the file", lambda: "/file" in self.server.paths())
        time.sleep(1)
        self.assertEqual(run.lines(), ["loading", "loaded"])
        self.assertEqual(self.files(), [])

    def test_nothing_is_kept_after_closing(self):
        page = "<script>localStorage.setItem('a', 'b')</script>" + TELL + "<script>attempt('cookie', () => document.cookie)</script>"
        for _ in range(2):
            run = self.open(lambda request: request.answer(page, Set_Cookie="id=7; Max-Age=86400", Cache_Control="max-age=86400"))
            self.wait_for_line(run, "loaded")
            self.assertEqual(self.tells("cookie"), ["id=7"])
            self.server.told.clear()
            self.assertEqual(run.close(), 0)
        self.assertEqual(self.server.paths(), ["/form", "/form"])
        self.assertFalse([headers for _, headers in self.server.asked if "Cookie" in headers])
        self.assertEqual(self.files(), [])


class EndTest(FeedbackTest):
    def test_the_end_of_the_orders_closes_it_and_no_process_remains(self):
        run = self.open("<h1>Form</h1>")
        self.wait_for_line(run, "loaded")
        self.assertGreater(len(run.processes()), 1)
        self.assertEqual(run.close(), 0)
        wait_for("end of its helpers", lambda: not run.processes(), 3)

    def test_it_ends_when_its_orders_end_before_it_has_started(self):
        run = self.open("<h1>Form</h1>")
        self.assertEqual(run.close(), 0)
        wait_for("end of its helpers", lambda: not run.processes(), 3)

    def test_termination_ends_all_of_it(self):
        run = self.open("<h1>Form</h1>")
        self.wait_for_line(run, "loaded")
        run.process.terminate()
        self.assertEqual(run.ended(), -signal.SIGTERM)
        wait_for("end of its helpers", lambda: not run.processes(), 3)

    def test_unknown_orders_change_nothing(self):
        run = self.open("<h1>Form</h1>")
        self.wait_for_line(run, "loaded")
        for order in ["", "look", "look nothing", "x" * 5000, "close", "\udcff".encode("utf-8", "surrogateescape").decode("latin-1")]:
            run.order(order)
        run.order("look dark")
        time.sleep(0.3)
        self.assertIsNone(run.process.poll())
        self.assertEqual(run.close(), 0)

    def test_wrong_arguments_and_forms_that_are_none_are_refused(self):
        for form, arguments in [("http://example.org/", []), ("file:///etc/passwd", []), ("", []),
                                (self.server.address(), ["--look", "blue"]), (self.server.address(), ["--unknown"]),
                                (self.server.address(), ["https://elsewhere.example.org/"])]:
            run = self.start(form, *arguments)
            self.assertEqual(run.ended(), 2, (form, arguments))
            self.assertEqual(run.lines(), [])
        self.assertEqual(self.server.asked, [])

    def test_the_program_itself_has_one_form_and_takes_no_other(self):
        run = self.start(self.server.address(), program=os.environ["FEEDBACK_RELEASED"])
        self.wait_for_line(run, "loading")
        time.sleep(1)
        self.assertEqual(self.server.asked, [])
        self.assertEqual(run.close(), 0)


if __name__ == "__main__":
    unittest.main()
