"""A model host that behaves, or misbehaves on purpose, over HTTP or HTTPS.

    with ModelServer(folder) as server:
        server.fault = Fault(cut_after=1000)
        ...download from server.url...
        server.requests   # what was asked: (path, Range, If-Range)

It serves every file of the folder under /resolve/main/, with ranges, entity tags and conditional ranges as the public
host does. Run as a program it serves a folder until it is ended:

    modelserver.py FOLDER --port-file FILE [--requests FILE] [--fault JSON]
"""

import argparse
import email.utils
import hashlib
import json
import re
import ssl
import sys
import threading
import time
from dataclasses import dataclass, field
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
from faultserver import FaultHandler, FaultServer  # noqa: E402

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
    no_digest: bool = False        # no SHA-256 in the answer to a request for the head
    wrong_range: bool = False      # another range than was asked for
    pause_at: int | None = None    # waits there until `resume` is set
    bytes_per_s: int = 0           # no quicker than that
    once: bool = False             # only the first answer
    served: int = field(default=0, compare=False)


class _Handler(FaultHandler):
    def do_GET(self):
        path = re.sub(r"^https?://[^/]+", "", self.path)  # a proxy is asked with the whole address
        self.owner.note(path, self.headers)
        fault = self.owner.take_fault()
        if fault.redirect_to:
            return self.answer(302, fault.redirect_body, [("Location", fault.redirect_to + path)])
        if fault.status:
            return self._refuse(fault.status)
        file = self.owner.folder / path.removeprefix(PREFIX)
        if not path.startswith(PREFIX) or not file.is_file():
            return self._refuse(404)
        self._send_file(file, fault)

    def do_HEAD(self):
        file = self.owner.folder / self.path.removeprefix(PREFIX)
        if not file.is_file():
            return self.answer(404, b"")
        digest = hashlib.sha256(file.read_bytes()).hexdigest()
        self.send_response(302)
        self.send_header("Location", self.path)
        if not self.owner.fault.no_digest:
            self.send_header("X-Linked-ETag", f'"{digest}"')
        self.send_header("Content-Length", "0")
        self.end_headers()

    def _refuse(self, status):
        self.answer(status, b"<html>no model here</html>")

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
        stops = [at for at in (fault.cut_after, fault.stall_after, fault.pause_at) if at is not None]
        at = start
        with file.open("rb") as source:
            if not stops and fault.flip_byte is None and not fault.bytes_per_s:
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
                if fault.bytes_per_s:
                    time.sleep(len(chunk) / fault.bytes_per_s)
                if at == fault.cut_after:
                    return self.cut()
                if at == fault.stall_after:
                    return self.stall()
                if at == fault.pause_at:
                    self.owner.paused.set()
                    self.owner.resume.wait()
                    stops.remove(fault.pause_at)
                if not chunk and at not in stops:
                    return


class ModelServer(FaultServer):
    def __init__(self, folder, certificate=None, port=0):
        super().__init__(_Handler, certificate, port)
        self.folder = Path(folder)
        self.fault = Fault()
        self.request_log = None
        self.paused, self.resume = threading.Event(), threading.Event()

    def __exit__(self, *_):
        self.resume.set()
        super().__exit__()

    def note(self, path, headers):
        with self.lock:
            self.requests.append((path, headers.get("Range"), headers.get("If-Range")))
            if self.request_log:
                with self.request_log.open("a") as log:
                    log.write(f"{path} {headers.get('Range', '-')}\n")

    def take_fault(self):
        with self.lock:
            self.fault.served += 1
            return Fault() if self.fault.once and self.fault.served > 1 else self.fault


def sha1(path):
    return hashlib.sha1(Path(path).read_bytes()).hexdigest()


def main():
    parser = argparse.ArgumentParser(description="Serves a folder of model files.")
    parser.add_argument("folder", type=Path)
    parser.add_argument("--port-file", type=Path, required=True, help="where to write the port once connections are accepted")
    parser.add_argument("--requests", type=Path, help="where to write a line for each request")
    parser.add_argument("--fault", type=json.loads, default={}, help="the fields of a Fault")
    options = parser.parse_args()
    server = ModelServer(options.folder)
    server.request_log = options.requests
    server.fault = Fault(**options.fault)
    server.serve_until_ended(options.port_file)


if __name__ == "__main__":
    main()
