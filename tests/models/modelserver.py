"""A model host that behaves, or misbehaves on purpose, over HTTP or HTTPS.

    with ModelServer(folder) as server:
        server.fault = Fault(cut_after=1000)
        ...download from server.url...
        server.requests   # what was asked: (path, Range, If-Range)

It serves every file of the folder under /resolve/main/, with ranges, entity tags and conditional ranges as the public
host does. Run as a program it serves a folder until it is ended:

    modelserver.py FOLDER [--port-file FILE] [--requests FILE] [--fault JSON]
"""

import argparse
import email.utils
import hashlib
import json
import os
import re
import socket
import ssl
import subprocess
import sys
import threading
from dataclasses import dataclass, field
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path

PREFIX = "/resolve/main/"
_CHUNK_BYTES = 256 * 1024


@dataclass
class Fault:
    """What goes wrong. Positions count in the file, whatever part of it was asked for."""

    status: int = 0                # answer this instead of the file
    cut_after: int | None = None   # close the connection when so much of the file is out
    stall_after: int | None = None  # say nothing more from there on, with the connection open
    announce: int | None = None    # a Content-Length that is not the body's
    flip_byte: int | None = None   # one byte of the file is another one
    redirect_to: str = ""          # 302 to this address and the path
    redirect_body: bytes = b""     # a body beside the redirect
    ignore_ranges: bool = False    # always the whole file
    no_validators: bool = False    # neither ETag nor Last-Modified
    wrong_range: bool = False      # another range than was asked for
    pause_at: int | None = None    # waits there until `resume` is set
    once: bool = False             # only the first answer
    served: int = field(default=0, compare=False)


class _Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        server = self.server.owner
        path = re.sub(r"^https?://[^/]+", "", self.path)  # a proxy is asked with the whole address
        server.note(path, self.headers)
        fault = server.take_fault()
        if fault.redirect_to:
            return self._redirect(fault.redirect_to + path, fault)
        if fault.status:
            return self._refuse(fault.status)
        file = server.folder / path.removeprefix(PREFIX)
        if not path.startswith(PREFIX) or not file.is_file():
            return self._refuse(404)
        self._send_file(file, fault)

    def _redirect(self, target, fault):
        self.send_response(302)
        self.send_header("Location", target)
        self.send_header("Content-Length", str(len(fault.redirect_body)))
        self.end_headers()
        self.wfile.write(fault.redirect_body)

    def _refuse(self, status):
        body = b"<html>no model here</html>"
        self.send_response(status)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def _send_file(self, file, fault):
        stat = file.stat()
        etag = f'"{stat.st_size:x}-{stat.st_mtime_ns:x}"'
        modified = email.utils.formatdate(stat.st_mtime, usegmt=True)
        start = 0 if fault.ignore_ranges else self._asked_start(etag, modified)
        if start >= stat.st_size:
            return self._refuse(416)
        told = start + 1 if fault.wrong_range and start else start
        length = stat.st_size - start
        self.send_response(206 if start else 200)
        if start:
            self.send_header("Content-Range", f"bytes {told}-{stat.st_size - 1}/{stat.st_size}")
        if not fault.no_validators:
            self.send_header("ETag", etag)
            self.send_header("Last-Modified", modified)
        self.send_header("Content-Length", str(length if fault.announce is None else fault.announce))
        if fault.announce is not None:
            self.close_connection = True
            self.send_header("Connection", "close")
        self.end_headers()
        self._send_body(file, start, fault)

    def _asked_start(self, etag, modified):
        match = re.fullmatch(r"bytes=(\d+)-", self.headers.get("Range", ""))
        condition = self.headers.get("If-Range")
        return int(match[1]) if match and condition in (None, etag, modified) else 0

    def _send_body(self, file, start, fault):
        server = self.server.owner
        stops = [at for at in (fault.cut_after, fault.stall_after, fault.pause_at) if at is not None]
        at = start
        with file.open("rb") as source:
            if not stops and fault.flip_byte is None:
                self.wfile.flush()
                if isinstance(self.connection, ssl.SSLSocket):
                    source.seek(start)
                    while chunk := source.read(_CHUNK_BYTES):
                        self.wfile.write(chunk)
                else:
                    self.connection.sendfile(source, start)
                return
            source.seek(start)
            while True:
                next_stop = min((stop for stop in stops if stop >= at), default=None)
                chunk = bytearray(source.read(_CHUNK_BYTES if next_stop is None else min(_CHUNK_BYTES, next_stop - at)))
                if fault.flip_byte is not None and at <= fault.flip_byte < at + len(chunk):
                    chunk[fault.flip_byte - at] ^= 0xFF
                self.wfile.write(chunk)
                at += len(chunk)
                if at == fault.cut_after:
                    self.wfile.flush()
                    self.connection.shutdown(socket.SHUT_RDWR)
                    self.close_connection = True
                    return
                if at == fault.stall_after:
                    server.ending.wait()
                    self.close_connection = True
                    return
                if at == fault.pause_at:
                    server.paused.set()
                    server.resume.wait()
                    stops.remove(fault.pause_at)
                if not chunk and at not in stops:
                    return

    def log_message(self, *_):
        pass


class _Server(ThreadingHTTPServer):
    daemon_threads = True
    request_queue_size = 64

    def handle_error(self, request, client_address):
        """A client that goes away is what some tests are about."""


class ModelServer:
    def __init__(self, folder, certificate=None, port=0):
        """certificate: (certificate file, key file) makes it an HTTPS server."""
        self.folder = Path(folder)
        self.fault = Fault()
        self.requests = []
        self.request_log = None
        self.paused, self.resume, self.ending = threading.Event(), threading.Event(), threading.Event()
        self._lock = threading.Lock()
        self._http = _Server(("127.0.0.1", port), _Handler)
        self._http.owner = self
        self._scheme = "http"
        if certificate:
            context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
            context.load_cert_chain(*certificate)
            self._http.socket = context.wrap_socket(self._http.socket, server_side=True, do_handshake_on_connect=False)
            self._scheme = "https"
        self._thread = threading.Thread(target=self._http.serve_forever, kwargs={"poll_interval": 0.02}, daemon=True)

    @property
    def port(self):
        return self._http.server_address[1]

    @property
    def url(self):
        return f"{self._scheme}://127.0.0.1:{self.port}"

    def address(self, host):
        """The same server under another name of this machine."""
        return f"{self._scheme}://{host}:{self.port}"

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self.ending.set()
        self.resume.set()
        self._http.shutdown()
        self._http.server_close()

    def serve_until_ended(self):
        self._http.serve_forever()

    def note(self, path, headers):
        with self._lock:
            self.requests.append((path, headers.get("Range"), headers.get("If-Range")))
            if self.request_log:
                with self.request_log.open("a") as log:
                    log.write(f"{path} {headers.get('Range', '-')}\n")

    def take_fault(self):
        with self._lock:
            self.fault.served += 1
            return Fault() if self.fault.once and self.fault.served > 1 else self.fault


class CertificateAuthority:
    """Makes certificates for 127.0.0.1 and localhost with the openssl command."""

    def __init__(self, folder):
        self._folder = Path(folder)
        self.certificate, self._key = self._self_signed("authority")

    def valid(self):
        return self._signed("valid", "-days", "2")

    def expired(self):
        # Begins and ends in the past.
        return self._signed("expired", "-not_before", "20200101000000Z", "-not_after", "20200201000000Z")

    def self_signed(self):
        return self._self_signed("selfsigned")

    def _self_signed(self, name):
        certificate, key = self._folder / f"{name}.pem", self._folder / f"{name}.key"
        self._openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2",
                      "-subj", f"/CN={name} of a test", "-addext", "subjectAltName=IP:127.0.0.1,DNS:localhost",
                      "-keyout", key, "-out", certificate)
        return certificate, key

    def _signed(self, name, *validity):
        certificate, key, request = (self._folder / f"{name}.{kind}" for kind in ("pem", "key", "csr"))
        self._openssl("req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-subj",
                      f"/CN={name}", "-keyout", key, "-out", request)
        config = self._folder / f"{name}.cnf"
        config.write_text("[ca]\ndefault_ca=test\n[test]\n"
                          f"database={self._folder}/{name}.index\nserial={self._folder}/{name}.serial\n"
                          f"new_certs_dir={self._folder}\ndefault_md=sha256\npolicy=any\n"
                          "x509_extensions=names\n[any]\ncommonName=supplied\n[names]\n"
                          "subjectAltName=IP:127.0.0.1,DNS:localhost\n")
        (self._folder / f"{name}.index").write_text("")
        dates = [part.replace("-not_before", "-startdate").replace("-not_after", "-enddate") for part in validity]
        self._openssl("ca", "-batch", "-config", config, "-cert", self.certificate, "-keyfile", self._key, "-in",
                      request, "-out", certificate, "-notext", "-rand_serial", *dates)
        return certificate, key

    @staticmethod
    def _openssl(*arguments):
        subprocess.run(["openssl", *map(str, arguments)], check=True, capture_output=True)


def sha1(path):
    return hashlib.sha1(Path(path).read_bytes()).hexdigest()


def main():
    parser = argparse.ArgumentParser(description="Serves a folder of model files.")
    parser.add_argument("folder", type=Path)
    parser.add_argument("--port-file", type=Path, help="where to write the port once connections are accepted")
    parser.add_argument("--requests", type=Path, help="where to write a line for each request")
    parser.add_argument("--fault", type=json.loads, default={}, help="the fields of a Fault")
    options = parser.parse_args()
    server = ModelServer(options.folder)
    server.request_log = options.requests
    server.fault = Fault(**options.fault)
    if options.port_file:
        part = options.port_file.with_suffix(".part")
        part.write_text(str(server.port))
        os.rename(part, options.port_file)
    try:
        server.serve_until_ended()
    except KeyboardInterrupt:
        sys.exit(130)


if __name__ == "__main__":
    main()
