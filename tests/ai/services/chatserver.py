"""A language-model provider that answers as it is told to, and remembers what it was asked, over HTTP or HTTPS.

    with ChatServer() as server:
        server.answer = Answer.chat("Dear Ada, ...")
        ...ask server.url...
        server.requests   # what was asked: dictionaries with method, path, headers, body, connection

Run as a program it serves until it is ended, and reads its answer anew from a file for each request:

    chatserver.py --folder FOLDER [--certificate valid|selfsigned]

FOLDER/port is written once connections are accepted, FOLDER/log gets a line of JSON for each connection and each request,
FOLDER/answer.json holds the fields of the Answer, and FOLDER/authority.pem is the certificate to trust.
"""

import argparse
import base64
import json
import sys
import tempfile
import time
from dataclasses import dataclass, field
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2]))
from faultserver import CertificateAuthority, FaultHandler, FaultServer  # noqa: E402

_CHUNK_BYTES = 64 * 1024


@dataclass
class Answer:
    """What is answered. Positions and sizes count in the body."""

    status: int = 200
    body: str = ""
    body_base64: str = ""             # a body that is no text
    fill_bytes: int = 0               # as many letters instead of the body
    headers: dict = field(default_factory=dict)
    content_type: str = "application/json"
    announce: bool = True             # with a Content-Length
    cut_after: int | None = None      # close the connection when so much is out
    stall: bool = False               # take the request and say nothing
    raw: str = ""                     # exactly this instead of HTTP
    delay_s: float = 0
    redirects: int = 0                # so many requests get the redirect, then the plain answer follows

    @staticmethod
    def chat(text, finish_reason="stop", **more):
        """A success in the shape of chat completions."""
        choice = {"message": {"role": "assistant", "content": text}, "finish_reason": finish_reason}
        return Answer(body=json.dumps({"choices": [choice]}), **more)

    def content(self):
        if self.fill_bytes:
            return b"x" * self.fill_bytes
        return base64.b64decode(self.body_base64) if self.body_base64 else self.body.encode()


class _Handler(FaultHandler):
    def setup(self):
        super().setup()
        self.owner.note_connection(self.client_address[1])

    def parse_request(self):
        self._begun_s = time.perf_counter()
        return super().parse_request()

    def do_POST(self):
        body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
        answer = self.owner.note_request(self, body)
        if answer.delay_s:
            time.sleep(answer.delay_s)
        if answer.stall:
            self.stall()
        elif answer.raw:
            self.wfile.write(answer.raw.encode())
            self.close_connection = True
        else:
            self._send(answer)

    do_GET = do_POST

    def _send(self, answer):
        content = answer.content()
        self.send_response(answer.status)
        self.send_header("Content-Type", answer.content_type)
        if answer.announce:
            self.send_header("Content-Length", str(len(content)))
        else:
            self.send_header("Connection", "close")
        for name, value in answer.headers.items():
            self.send_header(name, value)
        self.end_headers()
        if answer.cut_after is not None:
            content = content[:answer.cut_after]
        for start in range(0, len(content), _CHUNK_BYTES):
            self.wfile.write(content[start:start + _CHUNK_BYTES])
        self.owner.served_s.append(time.perf_counter() - self._begun_s)
        if answer.cut_after is not None:
            self.cut()


class ChatServer(FaultServer):
    def __init__(self, certificate=None):
        super().__init__(_Handler, certificate)
        self.answer = Answer()
        self.connections = []
        self.served_s = []  # from a request's first byte to the answer's last, for each

    def note_connection(self, connection):
        with self.lock:
            self.connections.append(connection)

    def note_request(self, handler, body):
        """Remembers a request and tells what to answer."""
        with self.lock:
            self.requests.append({"method": handler.command, "path": handler.path, "headers": dict(handler.headers),
                                  "body": body.decode(errors="replace"), "connection": handler.client_address[1]})
            return self._take_answer()

    def _take_answer(self):
        answer = self.answer
        if answer.redirects and len(self.requests) > answer.redirects:
            return Answer.chat("after the redirect")
        return answer


class _FileServer(ChatServer):
    """Takes its answers from a file and writes down what it sees, for a test in another process."""

    def __init__(self, folder, certificate):
        self._folder = folder
        self._log = (folder / "log").open("a", buffering=1)
        super().__init__(certificate)

    def note_connection(self, connection):
        super().note_connection(connection)
        self._log.write(json.dumps({"connection": connection}) + "\n")

    def note_request(self, handler, body):
        answer = super().note_request(handler, body)
        self._log.write(json.dumps(self.requests[-1]) + "\n")
        return answer

    def _take_answer(self):
        self.answer = Answer(**json.loads((self._folder / "answer.json").read_text()))
        return super()._take_answer()


def make_certificate(kind, folder):
    """A certificate for 127.0.0.1 from an authority of its own, or one that nobody vouches for."""
    with tempfile.TemporaryDirectory(dir=folder) as name:
        authority = CertificateAuthority(name)
        (folder / "authority.pem").write_bytes(authority.certificate.read_bytes())
        pair = authority.valid() if kind == "valid" else authority.self_signed()
        return [path.replace(folder / f"server{path.suffix}") for path in pair]


def main():
    parser = argparse.ArgumentParser(description="Serves as a provider of a language model.")
    parser.add_argument("--folder", type=Path, required=True)
    parser.add_argument("--certificate", choices=("valid", "selfsigned"))
    options = parser.parse_args()
    server = _FileServer(options.folder,
                         make_certificate(options.certificate, options.folder) if options.certificate else None)
    server.serve_until_ended(options.folder / "port")


if __name__ == "__main__":
    main()
