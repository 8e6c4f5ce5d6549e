#!/usr/bin/python3
"""A stand-in for an Enigma2 receiver on loopback: FTP (pyftpdlib), Telnet and the web interface.

It serves a folder as the box's file system and answers the way busybox telnetd, vsftpd and
OpenWebif do. Once every server listens it prints one JSON line with the chosen ports on stdout.
Faults can be switched on to test the clients' error paths. See README.md for the options.
"""

import argparse
import base64
import html
import json
import logging
import os
import signal
import socket
import socketserver
import subprocess
import sys
import tempfile
import threading
import time
import urllib.parse
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer

from pyftpdlib.authorizers import AuthenticationFailed, DummyAuthorizer
from pyftpdlib.handlers import DTPHandler, FTPHandler
from pyftpdlib.servers import ThreadedFTPServer

IAC, DONT, DO, WONT, WILL, SB, SE = 255, 254, 253, 252, 251, 250, 240
ECHO, SGA, NAWS = 1, 3, 31


class Journal:
    """One JSON object per line, appended as requests arrive; tests read the file."""

    def __init__(self, path):
        self.path = path
        self.lock = threading.Lock()
        if path:
            open(path, "w").close()

    def record(self, **entry):
        if not self.path:
            return
        with self.lock, open(self.path, "a", encoding="utf-8") as out:
            out.write(json.dumps(entry, ensure_ascii=False) + "\n")


class Children:
    """Shell commands still running, killed when the double stops."""

    def __init__(self):
        self.lock = threading.Lock()
        self.processes = set()

    def add(self, process):
        with self.lock:
            self.processes.add(process)

    def discard(self, process):
        with self.lock:
            self.processes.discard(process)

    def kill_all(self):
        with self.lock:
            for process in self.processes:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except OSError:
                    pass


# --- FTP -----------------------------------------------------------------------------------------

class BoxAuthorizer(DummyAuthorizer):
    """vsftpd's wording; refuses everyone when asked to."""

    refuse = False

    def validate_authentication(self, username, password, handler):
        if self.refuse:
            raise AuthenticationFailed("Login incorrect.")
        try:
            super().validate_authentication(username, password, handler)
        except AuthenticationFailed:
            raise AuthenticationFailed("Login incorrect.")


class FaultyDTPHandler(DTPHandler):
    """A data connection that can stall or drop in the middle of a download."""

    drop_after = -1
    stall_seconds = 0.0
    stall_after = 0

    def use_sendfile(self):
        return False

    def send(self, data):
        if self.stall_seconds > 0 and not getattr(self, "_stalled", False) \
                and self.tot_bytes_sent + len(data) > self.stall_after:
            head = data[:max(0, self.stall_after - self.tot_bytes_sent)]
            sent = super().send(head) if head else 0
            self._stalled = True
            # Stop writing for a while; the control connection stays responsive, as on a box
            # whose disk or network hangs.
            self.modify_ioloop_events(self.ioloop.READ)
            self.call_later(self.stall_seconds, self.modify_ioloop_events, self.ioloop.WRITE)
            return sent
        if self.drop_after >= 0 and self.tot_bytes_sent + len(data) > self.drop_after:
            head = data[:max(0, self.drop_after - self.tot_bytes_sent)]
            if head:
                super().send(head)
            self.cmd_channel.socket.shutdown(socket.SHUT_RDWR)
            self.socket.shutdown(socket.SHUT_RDWR)
            self.close()
            self.cmd_channel.close()
            return 0
        return super().send(data)


class BoxFTPHandler(FTPHandler):
    banner = "(vsFTPd 3.0.5)"
    auth_failed_timeout = 0.2
    dtp_handler = FaultyDTPHandler
    permit_foreign_addresses = False


def start_ftp(args):
    authorizer = BoxAuthorizer()
    authorizer.refuse = args.refuse_logins
    authorizer.add_user(args.user, args.password, args.root, perm="elradfmwMT")
    handler = BoxFTPHandler
    handler.authorizer = authorizer
    FaultyDTPHandler.drop_after = args.drop_after
    FaultyDTPHandler.stall_seconds = args.stall
    FaultyDTPHandler.stall_after = args.stall_after
    server = ThreadedFTPServer((args.bind, args.ftp_port), handler)
    threading.Thread(target=server.serve_forever, kwargs={"handle_exit": False}, daemon=True).start()
    return server.socket.getsockname()[1]


# --- Telnet --------------------------------------------------------------------------------------

class TelnetHandler(socketserver.BaseRequestHandler):
    """busybox telnetd with login(1) in front of a shell."""

    def setup(self):
        self.args = self.server.args
        self.pending = b""
        self.sent = 0

    def send(self, data):
        if isinstance(data, str):
            data = data.encode("utf-8")
        limit = self.args.drop_after
        if limit >= 0 and self.sent + len(data) > limit:
            self.request.sendall(data[:max(0, limit - self.sent)])
            self.request.shutdown(socket.SHUT_RDWR)
            raise ConnectionError("dropped on purpose")
        self.request.sendall(data)
        self.sent += len(data)

    def read_line(self):
        """One line typed by the client, without Telnet commands; None when it hung up."""
        while True:
            for end in (b"\r\n", b"\r\0", b"\n", b"\r"):
                index = self.pending.find(end)
                if index >= 0 and (end != b"\r" or index + 1 < len(self.pending)):
                    line, self.pending = self.pending[:index], self.pending[index + len(end):]
                    return line.decode("utf-8", "replace")
            chunk = self.request.recv(4096)
            if not chunk:
                return None
            self.pending += strip_telnet_commands(chunk)

    def handle(self):
        try:
            self.dialogue()
        except (ConnectionError, OSError):
            pass

    def dialogue(self):
        args = self.args
        self.send(bytes([IAC, DO, ECHO, IAC, DO, NAWS, IAC, WILL, ECHO, IAC, WILL, SGA]))
        self.send("\r\n" + args.banner + "\r\n")
        if args.telnet_silent:
            while self.request.recv(4096):
                pass
            return
        if not args.telnet_no_login and not self.login():
            return
        self.shell()

    def login(self):
        args = self.args
        for _ in range(3):
            self.send(args.hostname + " login: ")
            user = self.read_line()
            if user is None:
                return False
            self.send(user + "\r\n")
            accepted = not args.refuse_logins and user == args.user
            if args.password == "" and accepted:
                return True
            self.send("Password: ")
            password = self.read_line()
            if password is None:
                return False
            self.send("\r\n")
            if accepted and password == args.password:
                return True
            time.sleep(args.login_delay)
            self.send("Login incorrect\r\n")
        return False

    def shell(self):
        args = self.args
        prompt = "root@%s:~# " % args.hostname
        self.send(prompt)
        while True:
            line = self.read_line()
            if line is None:
                return
            self.server.journal.record(protocol="telnet", command=line)
            self.send(line + "\r\n")
            if line.strip() == "exit":
                return
            if line.strip():
                self.run(line)
            self.send(prompt)

    def run(self, line):
        process = subprocess.Popen(["/bin/sh", "-c", line], cwd=self.server.workdir,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, start_new_session=True,
                                   env=dict(os.environ, HOME=self.server.workdir, TERM="vt102"))
        self.server.children.add(process)
        try:
            while True:
                chunk = os.read(process.stdout.fileno(), 4096)
                if not chunk:
                    break
                # A terminal turns each line feed into CR LF.
                self.send(chunk.replace(b"\n", b"\r\n"))
            process.wait()
        finally:
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
            self.server.children.discard(process)


def strip_telnet_commands(data):
    out = bytearray()
    i = 0
    while i < len(data):
        byte = data[i]
        if byte != IAC:
            out.append(byte)
            i += 1
        elif i + 1 < len(data) and data[i + 1] in (DO, DONT, WILL, WONT):
            i += 3
        elif i + 1 < len(data) and data[i + 1] == SB:
            end = data.find(bytes([IAC, SE]), i)
            i = len(data) if end < 0 else end + 2
        else:
            i += 2
    return bytes(out)


class TelnetServer(socketserver.ThreadingTCPServer):
    daemon_threads = True
    allow_reuse_address = True


def start_telnet(args, journal, children):
    server = TelnetServer((args.bind, args.telnet_port), TelnetHandler)
    server.args = args
    server.journal = journal
    server.children = children
    server.workdir = tempfile.mkdtemp(prefix="fakebox-shell-")
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_address[1]


# --- Web interface -------------------------------------------------------------------------------

def xml_text(value):
    """OpenWebif escapes only these three."""
    return str(value).replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def xml_document(root, children):
    lines = ['<?xml version="1.0" encoding="UTF-8"?>', "<%s>" % root]
    lines += ["\t" + child for child in children]
    lines.append("</%s>" % root)
    return "\n".join(lines) + "\n"


def simple_result(state, text):
    return xml_document("e2simplexmlresult", [
        "<e2state>%s</e2state>" % ("True" if state else "False"),
        "<e2statetext>%s</e2statetext>" % xml_text(text)])


def service_name(root, reference):
    """The name of a service in the box's lamedb, looked up by the reference's key fields."""
    fields = reference.split(":")
    if len(fields) < 7:
        return None
    try:
        sid, tsid, onid, ns = (int(fields[i], 16) for i in (3, 4, 5, 6))
    except ValueError:
        return None
    try:
        with open(os.path.join(root, "etc/enigma2/lamedb"), encoding="utf-8", errors="replace") as db:
            lines = db.read().split("\n")
    except OSError:
        return None
    try:
        start = lines.index("services")
    except ValueError:
        return None
    i = start + 1
    while i + 1 < len(lines) and lines[i] != "end":
        parts = lines[i].split(":")
        try:
            if len(parts) >= 4 and (int(parts[0], 16), int(parts[1], 16), int(parts[2], 16),
                                    int(parts[3], 16)) == (sid, ns, tsid, onid):
                return lines[i + 1]
        except ValueError:
            pass
        i += 3
    return None


class BoxState:
    def __init__(self, args):
        self.lock = threading.Lock()
        self.in_standby = False
        self.reference = args.service_ref
        self.name = args.service_name


class WebHandler(BaseHTTPRequestHandler):
    server_version = "TwistedWeb/22.4.0"
    sys_version = ""

    def log_message(self, format, *args):
        if self.server.args.verbose:
            super().log_message(format, *args)

    def authorized(self):
        args = self.server.args
        if not args.http_auth:
            return True
        if args.refuse_logins or args.password == "":
            return False
        expected = base64.b64encode(("%s:%s" % (args.user, args.password)).encode("utf-8")).decode()
        return self.headers.get("Authorization", "") == "Basic " + expected

    def do_GET(self):
        args = self.server.args
        url = urllib.parse.urlsplit(self.path)
        query = urllib.parse.parse_qsl(url.query, keep_blank_values=True)
        authorized = self.authorized()
        if args.stall > 0:
            time.sleep(args.stall)
        if not authorized:
            status, body, content_type = 401, "<html><body><h1>401 Unauthorized</h1></body></html>", "text/html"
        elif args.http_status and url.path.startswith("/web/"):
            status, body, content_type = args.http_status, \
                "<html><body><h1>%d</h1></body></html>" % args.http_status, "text/html"
        else:
            status, body, content_type = self.answer(url.path, dict(query))
        self.server.journal.record(protocol="http", path=url.path, query=query, rawQuery=url.query,
                                   authorization=self.headers.get("Authorization"),
                                   authorized=authorized, status=status)
        data = body.encode("utf-8")
        self.send_response(status)
        self.send_header("Content-Type", content_type)
        self.send_header("Content-Length", str(len(data)))
        if status == 401:
            self.send_header("WWW-Authenticate", 'Basic realm="OpenWebif"')
        self.end_headers()
        self.wfile.write(data)

    def answer(self, path, query):
        state = self.server.state
        xml = "text/xml"
        if path == "/web/servicelistreload":
            texts = {"0": "reloaded both", "1": "reloaded lamedb", "2": "reloaded bouquets",
                     "3": "reloaded transponders", "4": "reloaded parentalcontrol white-/blacklist"}
            mode = query.get("mode")
            if mode in texts:
                return 200, simple_result(True, texts[mode]), xml
            return 200, simple_result(False, "missing or wrong parameter mode [%s]" % mode), xml
        if path == "/web/zap":
            reference = query.get("sRef")
            if reference is None:
                return 200, simple_result(False, "Missing mandatory parameter 'sRef'"), xml
            with state.lock:
                state.reference = reference
                state.name = service_name(self.server.args.root, reference) or reference
            return 200, simple_result(True, "Active service is now '%s'" % reference), xml
        if path == "/web/powerstate":
            with state.lock:
                before = state.in_standby
                if "newstate" in query:
                    try:
                        newstate = int(query["newstate"])
                    except ValueError:
                        return 500, "<html><body><h1>500 Internal Server Error</h1></body></html>", "text/html"
                    if newstate == 0:
                        state.in_standby = not state.in_standby
                    elif newstate == 4:
                        state.in_standby = False
                    elif newstate == 5:
                        state.in_standby = True
            return 200, xml_document("e2powerstate", [
                "<e2instandby>", "\t%s" % ("true" if before else "false"), "</e2instandby>"]), xml
        if path == "/web/signal":
            with state.lock:
                tuned = bool(state.reference) and not state.in_standby
            values = ("12.50 dB", "75 %", "0", "80 %") if tuned else (" dB", " %", "", " %")
            return 200, xml_document("e2frontendstatus", [
                "<e2snrdb>%s</e2snrdb>" % values[0], "<e2snr>%s</e2snr>" % values[1],
                "<e2ber>%s</e2ber>" % values[2], "<e2acg>%s</e2acg>" % values[3]]), xml
        if path == "/web/subservices":
            with state.lock:
                reference, name = (state.reference, state.name) if state.reference else ("N/A", "N/A")
            return 200, xml_document("e2servicelist", [
                "<e2service>",
                "\t<e2servicereference>%s</e2servicereference>" % xml_text(reference),
                "\t<e2servicename>%s</e2servicename>" % xml_text(name),
                "</e2service>"]), xml
        return 404, "<html><body><h1>No Such Resource</h1><p>%s</p></body></html>" % html.escape(path), \
            "text/html"


def start_http(args, journal):
    server = ThreadingHTTPServer((args.bind, args.http_port), WebHandler)
    server.daemon_threads = True
    server.args = args
    server.journal = journal
    server.state = BoxState(args)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server.server_address[1]


# --- Main ----------------------------------------------------------------------------------------

def parse_arguments(argv):
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--root", required=True, help="folder served as the box's /")
    parser.add_argument("--user", default="root")
    parser.add_argument("--password", default="", help="empty: no password prompt over Telnet")
    parser.add_argument("--bind", default="127.0.0.1")
    parser.add_argument("--ftp-port", type=int, default=0, help="0 picks a free port")
    parser.add_argument("--http-port", type=int, default=0)
    parser.add_argument("--telnet-port", type=int, default=0)
    parser.add_argument("--journal", default="", help="file that records every request")
    parser.add_argument("--hostname", default="fakebox")
    parser.add_argument("--banner", default="openpli 9.0 fakebox")
    parser.add_argument("--service-ref", default="1:0:19:2B66:401:1:C00000:0:0:0:")
    parser.add_argument("--service-name", default="Example HD")
    parser.add_argument("--no-http-auth", dest="http_auth", action="store_false",
                        help="answer web requests without checking the password")
    parser.add_argument("--login-delay", type=float, default=0.3,
                        help="seconds before 'Login incorrect' (a real box waits about 3)")
    # Faults.
    parser.add_argument("--refuse-logins", action="store_true", help="reject every login")
    parser.add_argument("--drop-after", type=int, default=-1,
                        help="close the connection after this many bytes of FTP data or Telnet output")
    parser.add_argument("--stall", type=float, default=0.0,
                        help="seconds without a byte: in FTP downloads and before HTTP answers")
    parser.add_argument("--stall-after", type=int, default=0, help="FTP bytes sent before the stall")
    parser.add_argument("--http-status", type=int, default=0, help="answer every /web/ request with it")
    parser.add_argument("--telnet-no-login", action="store_true", help="shell prompt at once, no login")
    parser.add_argument("--telnet-silent", action="store_true", help="no prompt at all after the banner")
    parser.add_argument("--exit-on-stdin-eof", action="store_true",
                        help="stop when standard input closes (the launcher of the tests uses this)")
    parser.add_argument("--verbose", action="store_true")
    args = parser.parse_args(argv)
    args.root = os.path.realpath(args.root)
    return args


def main(argv):
    args = parse_arguments(argv)
    logging.basicConfig(level=logging.INFO if args.verbose else logging.ERROR)
    os.makedirs(os.path.join(args.root, "etc", "enigma2"), exist_ok=True)
    journal = Journal(args.journal)
    children = Children()

    stop = threading.Event()
    signal.signal(signal.SIGTERM, lambda *_: stop.set())
    signal.signal(signal.SIGINT, lambda *_: stop.set())

    ports = {"ftp": start_ftp(args), "http": start_http(args, journal),
             "telnet": start_telnet(args, journal, children), "pid": os.getpid()}
    print(json.dumps(ports), flush=True)
    if args.exit_on_stdin_eof:
        # Also stop when the launcher goes away without a signal.
        threading.Thread(target=lambda: (sys.stdin.read(), stop.set()), daemon=True).start()
    stop.wait()
    children.kill_all()
    os._exit(0)


if __name__ == "__main__":
    main(sys.argv[1:])
