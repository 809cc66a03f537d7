"""What the tests' own HTTP servers have in common: answers that are cut, stalled or slow, over HTTP or HTTPS."""

import os
import socket
import ssl
import subprocess
import sys
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path


class FaultHandler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    disable_nagle_algorithm = True

    @property
    def owner(self):
        return self.server.owner

    def cut(self):
        """Closes the connection where it is."""
        self.wfile.flush()
        self.connection.shutdown(socket.SHUT_RDWR)
        self.close_connection = True

    def stall(self):
        """Says nothing more while the server lasts."""
        self.owner.ending.wait()
        self.close_connection = True

    def answer(self, status, body, headers=()):
        self.send_response(status)
        self.send_header("Content-Length", str(len(body)))
        for name, value in headers:
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


class _Server(ThreadingHTTPServer):
    daemon_threads = True
    request_queue_size = 64

    def handle_error(self, request, client_address):
        """A client that goes away is what some tests are about."""


class FaultServer:
    def __init__(self, handler, certificate=None, port=0):
        """certificate: (certificate file, key file) makes it an HTTPS server."""
        self.requests = []
        self.ending = threading.Event()
        self.lock = threading.Lock()
        self._http = _Server(("127.0.0.1", port), handler)
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
        return self.address("127.0.0.1")

    def address(self, host):
        """The same server under another name of this machine."""
        return f"{self._scheme}://{host}:{self.port}"

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self.ending.set()
        self._http.shutdown()
        self._http.server_close()

    def serve_until_ended(self, port_file):
        """For a server in a process of its own; the file is written once connections are accepted."""
        part = port_file.with_suffix(".part")
        part.write_text(str(self.port))
        os.rename(part, port_file)
        try:
            self._http.serve_forever()
        except KeyboardInterrupt:
            sys.exit(130)


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
