#!/usr/bin/python3
"""A web server for tests. Prints two ports: of Python's own HTTP server, which serves what it is asked for by path, and of
one that speaks to sockets itself and misbehaves. The file that it is given holds the reply to queries for the newest version.
Lives until its standard input ends."""
import http.server
import socket
import sys
import threading
import time

REPLIES = {"/version": b"16.3", "/empty": b"", "/bytes": b"\xff\x00\xfe", "/just": b"x" * (1 << 20), "/over": b"x" * ((1 << 20) + 1)}


class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        path, _, query = self.path.partition("?")
        if path.startswith("/status/"):
            self.reply(int(path.split("/")[2]), b"not this")
        elif path.startswith("/hops/"):
            left = int(path.split("/")[2])
            self.redirect(f"/hops/{left - 1}" if left else "/version")
        elif path == "/circle":
            self.redirect("/circle")
        elif path == "/to-file":
            self.redirect("file:///etc/hostname")
        elif path == "/check/currentversion.php" and query == "p=ORTL":
            self.reply(200, open(sys.argv[1], "rb").read())
        elif path == "/query":
            self.reply(200, query.encode())
        else:
            self.reply(200 if path in REPLIES else 404, REPLIES.get(path, b"none"))

    def reply(self, status, body):
        self.send_response(status)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def redirect(self, to):
        self.send_response(302)
        self.send_header("Location", to)
        self.send_header("Content-Length", "0")
        self.end_headers()

    def log_message(self, *args):
        pass


def misbehave(client):
    path = client.recv(4096).split(b" ")[1].decode()
    head = b"HTTP/1.1 200 OK\r\n"
    try:
        if path == "/hang":
            time.sleep(3600)
        elif path == "/trickle":
            client.sendall(head + b"Content-Length: 1000\r\n\r\n")
            while True:
                client.sendall(b"x")
                time.sleep(0.05)
        elif path == "/cut":
            client.sendall(head + b"Content-Length: 1000\r\n\r\n16.3")
        elif path == "/cut-chunk":
            client.sendall(head + b"Transfer-Encoding: chunked\r\n\r\nff\r\n16.3")
        elif path == "/trailer":
            client.sendall(head + b"Transfer-Encoding: chunked\r\n\r\n4\r\n16.3\r\n0\r\nX-Sum: 1\r\n\r\n")
        elif path == "/more-than-said":
            client.sendall(head + b"Content-Length: 4\r\n\r\n16.3 and more")
        elif path == "/less-head":
            client.sendall(b"HTTP/1.1 200 OK\r\nContent-Le")
        elif path == "/endless":
            client.sendall(head + b"\r\n")
            while True:
                client.sendall(b"x" * 65536)
        elif path == "/endless-head":
            client.sendall(head)
            while True:
                client.sendall(b"X-Again: " + b"x" * 65536 + b"\r\n")
        elif path == "/garbage":
            client.sendall(b"\xff\xfe\x00 no HTTP at all\r\n\r\n")
        elif path == "/says-huge":
            client.sendall(head + b"Content-Length: 99999999999999999999999\r\n\r\nx")
        elif path == "/nothing":
            pass
    except OSError:
        pass  # the client has gone
    client.close()


class Server(http.server.ThreadingHTTPServer):
    def handle_error(self, *args):
        pass  # the client has gone


proper = Server(("127.0.0.1", 0), Handler)
threading.Thread(target=proper.serve_forever, daemon=True).start()
rude = socket.create_server(("127.0.0.1", 0))


def accept():
    while True:
        threading.Thread(target=misbehave, args=(rude.accept()[0],), daemon=True).start()


threading.Thread(target=accept, daemon=True).start()
print(proper.server_port, rude.getsockname()[1], flush=True)
sys.stdin.read()
