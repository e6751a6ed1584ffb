#!/usr/bin/env python3
"""fileserver.py PROTOCOL FAULT SIZE [CERTIFICATE KEY]: a server of one file on the loopback interface, for tests.

Prints its port and serves /dir/f.fw, SIZE bytes of "x", until it is killed. PROTOCOL: ftp, http, https, tftp.
FAULT: none; refuse (whoever logs in, by TFTP: access); missing; cut (half of the file, then the end of the
connection); stall (half of the file, a line "stalled", then silence). The login is "me" with "s3cret".
"""
import base64
import http.server
import socket
import ssl
import struct
import sys
import threading
import time

PROTOCOL, FAULT, SIZE = sys.argv[1], sys.argv[2], int(sys.argv[3])
CONTENT = b"x" * SIZE
NAME, USER, PASSWORD = "dir/f.fw", "me", "s3cret"


def stay_silent():
    while True:
        time.sleep(3600)


def send_file(send):
    """The content, or what the fault leaves of it."""
    send(CONTENT[:SIZE // 2] if FAULT in ("cut", "stall") else CONTENT)
    if FAULT == "stall":
        print("stalled", flush=True)
        stay_silent()


class Http(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        login = base64.b64encode(f"{USER}:{PASSWORD}".encode()).decode()
        known = self.headers.get("Authorization") == "Basic " + login
        status = 401 if FAULT == "refuse" or not known else 404 if FAULT == "missing" or self.path != "/" + NAME else 200
        self.send_response(status)
        self.send_header("Content-Length", str(SIZE if status == 200 else 0))
        self.end_headers()
        if status == 200:
            send_file(self.wfile.write)
        self.close_connection = True

    def log_message(self, *_):
        pass


class Ftp:
    """One control connection (RFC 959, RFC 2428): enough to log in and fetch."""

    def __init__(self, control):
        self.control, self.lines, self.data, self.user = control, control.makefile("r"), None, None

    def say(self, text):
        self.control.sendall((text + "\r\n").encode())

    def serve(self):
        self.say("220 ready")
        folder = ""
        for line in self.lines:
            verb, _, word = line.strip().partition(" ")
            path = (folder + word) if not word.startswith("/") else word[1:]
            if verb == "USER":
                self.user = word
                self.say("331 password")
            elif verb == "PASS":
                right = (self.user, word) == (USER, PASSWORD) and FAULT != "refuse"
                self.say("230 in" if right else "530 not you")
            elif verb == "PWD":
                self.say('257 "/" is here')
            elif verb == "CWD":
                folder = path + "/"
                self.say("250 there")
            elif verb == "TYPE":
                self.say("200 binary")
            elif verb == "EPSV":
                self.data = socket.create_server(("127.0.0.1", 0))
                self.say(f"229 passive (|||{self.data.getsockname()[1]}|)")
            elif verb in ("SIZE", "RETR") and (FAULT == "missing" or path != NAME):
                self.say("550 no such file")
            elif verb == "SIZE":
                self.say(f"213 {SIZE}")
            elif verb == "RETR":
                self.say("150 coming")
                with self.data.accept()[0] as data:
                    send_file(data.sendall)
                self.say("426 broken" if FAULT == "cut" else "226 done")
            elif verb == "QUIT":
                return self.say("221 bye")
            else:
                self.say("502 unknown")


def tftp(server):
    """RFC 1350, without options: curl's are ignored, as the RFC of options allows."""
    while True:
        request, peer = server.recvfrom(600)
        name = request[2:].split(b"\0")[0].decode()
        transfer = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        transfer.bind(("127.0.0.1", 0))
        if FAULT == "refuse" or FAULT == "missing" or name != NAME:
            code = 2 if FAULT == "refuse" else 1
            transfer.sendto(struct.pack(">HH", 5, code) + b"no\0", peer)
            continue
        end = SIZE // 2 if FAULT in ("cut", "stall") else SIZE + 1
        for block, at in enumerate(range(0, end, 512), 1):
            transfer.sendto(struct.pack(">HH", 3, block) + CONTENT[at:at + 512], peer)
            transfer.recvfrom(600)  # its acknowledgement; nothing is lost on loopback
        if FAULT == "cut":
            transfer.sendto(struct.pack(">HH", 5, 0) + b"broken\0", peer)


def listening(port):
    print(port, flush=True)


if PROTOCOL in ("http", "https"):
    web = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Http)
    if PROTOCOL == "https":
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(sys.argv[4], sys.argv[5])
        web.socket = context.wrap_socket(web.socket, server_side=True)
    listening(web.server_port)
    web.serve_forever()
elif PROTOCOL == "ftp":
    ftp = socket.create_server(("127.0.0.1", 0))
    listening(ftp.getsockname()[1])
    while True:
        threading.Thread(target=Ftp(ftp.accept()[0]).serve, daemon=True).start()
else:
    udp = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
    udp.bind(("127.0.0.1", 0))
    listening(udp.getsockname()[1])
    tftp(udp)
