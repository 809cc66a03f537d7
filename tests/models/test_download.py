#!/usr/bin/python3
"""The models command fetches the real tiny.en from a host that does all that hosts, networks and disks do wrong.

VANTRO_PROGRAM names the program. After every fault there is either no model or the right one, and a good host
afterwards always leads to the model.
"""

import json
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import unittest
from pathlib import Path
from urllib.parse import urlsplit

from modelserver import Fault, ModelServer, sha1
from faultserver import CertificateAuthority  # modelserver has made it known

ROOT = Path(__file__).resolve().parent.parent.parent
PROGRAM = Path(os.environ.get("VANTRO_PROGRAM", ROOT / "build/dev/bin/vantro"))
MODEL = "tiny.en"
FILE = "ggml-tiny.en.bin"
SHA1 = "c78c86eb1a8faa21b369bcd33207cc90d64ae9df"
SIZE = 77_704_715
MIDDLE = 30_000_000
TIMEOUT_S = 60
DONE, FAILED, USAGE, NOT_FOUND, NO_SERVICE, INTERRUPTED = 0, 1, 2, 3, 4, 130
SKIPPED = 77


def setUpModule():
    global mirror
    mirror = Path(unittest.enterModuleContext(tempfile.TemporaryDirectory(prefix="vantro-mirror-")))
    subprocess.run([ROOT / "scripts" / "get-model", "--dir", mirror], check=True, stdout=subprocess.DEVNULL)


def can_mount():
    return subprocess.run(["unshare", "-rm", "mount", "-t", "tmpfs", "none", "/mnt"], capture_output=True).returncode == 0


class DownloadCase(unittest.TestCase):
    def setUp(self):
        self.profile = Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vantro-profile-")))
        self.models = self.profile / "data/vantro/models"
        self.file = self.models / FILE
        self.marker = self.models / (FILE + ".verified")
        self.part = self.models / ".work" / (FILE + ".part")
        self.server = self.enterContext(ModelServer(mirror))
        clean = {name: value for name, value in os.environ.items()
                 if not name.lower().endswith("_proxy") and not name.startswith(("XDG_", "VANTRO_", "SSL_CERT"))}
        self.env = clean | {"HOME": str(self.profile), "XDG_DATA_HOME": str(self.profile / "data"),
                            "XDG_CONFIG_HOME": str(self.profile / "config"), "XDG_DATA_DIRS": str(self.profile / "usr"),
                            "LC_ALL": "C.UTF-8"}

    def run_models(self, *arguments, host=None, env=None, prefix=()):
        command = [*prefix, PROGRAM, "models", *arguments, *(["--model-host", host] if host else [])]
        return subprocess.run([str(word) for word in command], env=self.env | (env or {}), capture_output=True,
                              text=True, timeout=TIMEOUT_S)

    def download(self, host=None, **options):
        return self.run_models("download", MODEL, host=host or self.server.url, **options)

    def start_download(self):
        return self.enterContext(subprocess.Popen(
            [PROGRAM, "models", "download", MODEL, "--model-host", self.server.url], env=self.env,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True))

    def check_ready(self):
        self.assertEqual(sha1(self.file), SHA1)
        self.assertTrue(self.marker.exists())
        self.assertFalse(self.part.exists())

    def check_failed(self, result, exit_code, *texts):
        self.assertEqual(result.returncode, exit_code, result.stderr)
        self.assertEqual(result.stdout, "")
        message = result.stderr.splitlines()[-1]
        self.assertTrue(message.startswith(f"vantro: download of {MODEL}: "), message)
        for text in texts:
            self.assertIn(text, message)
        self.assertFalse(self.file.exists(), "only a whole file may bear the model's name")
        self.assertFalse(self.marker.exists())

    def check_good_host_helps(self):
        self.server.fault = Fault()
        self.server.requests.clear()
        result = self.download()
        self.assertEqual(result.returncode, DONE, result.stderr)
        self.check_ready()

    def asked_from(self):
        """Where the requests so far began."""
        return [int(asked.removeprefix("bytes=").removesuffix("-")) if asked else 0
                for _, asked, _ in self.server.requests]

    def leave_part(self):
        """A part up to the middle, as an interruption leaves it."""
        self.server.fault = Fault(pause_at=MIDDLE, once=True)
        download = self.start_download()
        self.assertTrue(self.server.paused.wait(TIMEOUT_S))
        wait_for(lambda: self.part.exists() and self.part.stat().st_size == MIDDLE)
        return download


def wait_for(condition):
    done = threading.Event()
    for _ in range(TIMEOUT_S * 100):
        if condition():
            return
        done.wait(0.01)
    raise AssertionError("waited in vain")


class HostFaultTest(DownloadCase):
    def test_the_user_reads_who_failed_and_why_and_a_good_host_helps(self):
        with socket.socket() as unused:
            unused.bind(("127.0.0.1", 0))
            closed = f"http://127.0.0.1:{unused.getsockname()[1]}"
            for host, text in ((closed, f"{urlsplit(closed).netloc} cannot be reached (Connection refused)"),
                               ("http://models.invalid", "models.invalid cannot be reached"),
                               (f"file://{self.profile}", f"{self.profile}/resolve/main/ has no readable file {FILE}")):
                with self.subTest(host):
                    self.check_failed(self.download(host), NO_SERVICE, text)
        for status, text in ((404, "has no file"), (403, "refuses access to"), (500, "cannot deliver")):
            with self.subTest(status):
                self.server.fault = Fault(status=status)
                self.check_failed(self.download(), NO_SERVICE, f"127.0.0.1 {text}", FILE, f"(error {status})")
                self.assertFalse(self.part.exists(), "the page of an error is no part of a model")
        self.check_good_host_helps()

    def test_a_cut_is_continued_by_itself(self):
        self.server.fault = Fault(cut_after=MIDDLE, once=True)
        result = self.download()
        self.assertEqual(result.returncode, DONE, result.stderr)
        self.assertIn("trying again", result.stderr)
        self.assertEqual(len(self.server.requests), 2)
        self.assertGreater(self.asked_from()[1], 0)
        self.check_ready()

    def test_a_body_shorter_than_announced_is_no_model_and_what_came_is_kept(self):
        self.server.fault = Fault(announce=SIZE + 1000)
        self.check_failed(self.download(), NO_SERVICE, "to resume the download")
        self.check_good_host_helps()

    def test_what_lies_beyond_the_announced_end_is_ignored(self):
        self.server.fault = Fault(announce=MIDDLE)
        self.check_failed(self.download(), FAILED, f"{FILE} is not the published file", "will be fetched again")
        self.check_good_host_helps()

    def test_right_length_and_wrong_content_is_never_kept(self):
        self.server.fault = Fault(flip_byte=MIDDLE)
        self.check_failed(self.download(), FAILED, f"{FILE} is not the published file", SHA1, "will be fetched again")
        self.assertFalse(self.part.exists(), "the rest of a wrong file is of no use")
        self.check_good_host_helps()

    def test_redirects_lead_to_another_host_but_not_in_circles(self):
        other = self.enterContext(ModelServer(mirror))
        self.server.fault = Fault(redirect_to=self.server.address("localhost"))
        self.check_failed(self.download(), NO_SERVICE, f"{urlsplit(self.server.url).netloc} redirects in a loop", "Too many redirects")
        self.server.fault = Fault(redirect_to=other.address("localhost"), redirect_body=b"not the model " * 1000)
        other.fault = Fault(cut_after=MIDDLE, once=True)
        result = self.download()
        self.assertEqual(result.returncode, DONE, result.stderr)
        self.assertIsNotNone(other.requests[1][1], "the rest is asked of the other host as well")
        self.check_ready()

    def test_a_proxy_of_the_system_is_used(self):
        proxy = {"http_proxy": self.server.url}
        self.server.requests.clear()
        result = self.download("http://models.invalid", env=proxy)
        self.assertEqual(result.returncode, DONE, result.stderr)
        self.assertEqual(len(self.server.requests), 1)

    def test_a_server_on_this_machine_is_asked_directly(self):
        result = self.download(env={"http_proxy": "http://proxy.invalid:3128"})
        self.assertEqual(result.returncode, DONE, result.stderr)


class EncryptionTest(DownloadCase):
    def test_only_certificates_that_can_be_trusted_are(self):
        authority = CertificateAuthority(self.profile)
        trusting = {"SSL_CERT_FILE": str(authority.certificate)}
        for certificate, text in ((authority.self_signed(), "self-signed"), (authority.expired(), "expired")):
            with self.subTest(text), ModelServer(mirror, certificate) as server:
                self.check_failed(self.download(server.url, env=trusting), NO_SERVICE,
                                  f"The encrypted connection to {urlsplit(server.url).netloc} cannot be trusted", text)
                self.assertEqual(server.requests, [])
        with ModelServer(mirror, authority.valid()) as server:
            self.check_failed(self.download(server.url), NO_SERVICE, "cannot be trusted")
            server.fault = Fault(redirect_to=self.server.url)
            self.check_failed(self.download(server.url, env=trusting), NO_SERVICE, "redirects in a loop or to an insecure address")
            server.fault = Fault(cut_after=MIDDLE, once=True)
            result = self.download(server.url, env=trusting)
            self.assertEqual(result.returncode, DONE, result.stderr)
            self.check_ready()


class ContinuationTest(DownloadCase):
    def test_ctrl_c_keeps_the_part_and_the_next_command_fetches_the_rest(self):
        download = self.leave_part()
        download.send_signal(signal.SIGINT)
        _, message = download.communicate(timeout=TIMEOUT_S)
        self.assertEqual(download.returncode, INTERRUPTED)
        self.assertIn("It can be resumed later", message)
        self.assertEqual(self.part.stat().st_size, MIDDLE)
        listed = json.loads(self.run_models("list", "--json").stdout)
        self.assertEqual([entry["state"] for entry in listed if entry["name"] == MODEL], ["partial"])
        self.check_good_host_helps()
        self.assertEqual(self.asked_from(), [MIDDLE])

    def test_kill_9_in_the_middle_leaves_a_part_and_no_lock(self):
        download = self.leave_part()
        download.kill()
        download.wait()
        self.assertFalse(self.file.exists())
        self.check_good_host_helps()
        self.assertEqual(self.asked_from(), [MIDDLE])

    def test_a_file_that_changed_on_the_host_is_fetched_anew(self):
        with tempfile.TemporaryDirectory() as folder:
            shutil.copy(mirror / FILE, folder)
            self.server.folder = Path(folder)
            download = self.leave_part()
            download.kill()
            download.wait()
            os.utime(Path(folder) / FILE, (1, 1))
            self.check_good_host_helps()
            self.assertEqual(self.asked_from(), [MIDDLE], "asked for the rest, given the whole")

    def test_hosts_that_know_no_ranges_or_wrong_ones_or_no_tags_still_deliver(self):
        for fault in (Fault(ignore_ranges=True), Fault(wrong_range=True), Fault(no_validators=True)):
            with self.subTest(fault):
                download = self.leave_part()
                download.kill()
                download.wait()
                self.server.fault = fault
                result = self.download()
                self.assertEqual(result.returncode, DONE, result.stderr)
                self.check_ready()
                self.assertEqual(self.run_models("remove", MODEL).returncode, DONE)
                self.server.paused.clear()

    def test_a_part_that_is_complete_or_damaged_or_too_long_does_no_harm(self):
        whole = (mirror / FILE).read_bytes()
        note = json.dumps({"sha1": SHA1, "etag": "", "lastModified": "", "totalBytes": SIZE})
        parts = {"complete": (whole, note, 0), "damaged": (bytes(MIDDLE), note, 1), "too long": (whole + b"x", note, 0),
                 "without a note": (whole[:MIDDLE], "", 0),
                 "of another file": (whole[:MIDDLE], note.replace(SHA1, "0" * 40), 0)}
        for kind, (contents, text, failures) in parts.items():
            with self.subTest(kind):
                self.part.parent.mkdir(parents=True, exist_ok=True)
                self.part.write_bytes(contents)
                self.part.with_suffix(".json").write_text(text)
                for _ in range(failures):
                    self.check_failed(self.download(), FAILED, "is not the published file")
                self.check_good_host_helps()
                self.assertEqual(self.run_models("remove", MODEL).returncode, DONE)

    def test_two_processes_fetch_a_file_once(self):
        first = self.leave_part()
        second = self.start_download()
        # The second one tells that it waits; that line is how we know.
        self.assertIn("Waiting for another vantro", second.stderr.readline())
        self.server.resume.set()
        for download in (first, second):
            download.communicate(timeout=TIMEOUT_S)
            self.assertEqual(download.returncode, DONE)
        self.assertEqual(len(self.server.requests), 1)
        self.check_ready()


@unittest.skipUnless(can_mount(), "file systems cannot be mounted here")
class DiskTest(DownloadCase):
    def in_mounted(self, options, *steps):
        """Runs with the models folder on a file system of its own."""
        self.models.mkdir(parents=True)
        script = f'mount -t tmpfs {options} none "$1" || exit 99; shift; {"; ".join(steps)}'
        return ["unshare", "-rm", "sh", "-c", script, "sh", self.models]

    def test_too_small_a_disk_is_noticed_before_the_first_byte(self):
        result = self.download(prefix=self.in_mounted("-o size=20m", '"$@"; code=$?', 'stat -c "part %s" "$PART"',
                                                      "exit $code"), env={"PART": str(self.part)})
        self.assertEqual(result.returncode, FAILED)
        self.assertIn("There is not enough space", result.stderr)
        self.assertIn("20.0 MiB free", result.stderr)
        self.assertIn("part 0", result.stdout)

    def test_a_disk_that_becomes_full_meanwhile_keeps_the_part(self):
        self.server.fault = Fault(pause_at=MIDDLE)
        script = ('"$@" & pid=$!; while [ "$(stat -c %s "$PART" 2>/dev/null || echo 0)" -lt 30000000 ]; do :; done; '
                  'head -c 45000000 /dev/zero > "$MODELS"/filler; touch "$GO"; wait $pid; code=$?; '
                  'rm "$MODELS"/filler; stat -c "part %s" "$PART"; "$@"; echo "then $?"; exit $code')
        go = self.profile / "go"
        threading.Thread(target=lambda: (wait_for(go.exists), self.server.resume.set()), daemon=True).start()
        result = self.download(prefix=self.in_mounted("-o size=100m", script),
                               env={"PART": str(self.part), "MODELS": str(self.models), "GO": str(go)})
        self.assertEqual(result.returncode, FAILED, result.stderr)
        self.assertIn("is full. Free some space", result.stderr)
        self.assertIn("part ", result.stdout)
        self.assertIn("then 0", result.stdout, "with room again the rest is fetched")

    def test_a_read_only_folder_is_named(self):
        result = self.download(prefix=self.in_mounted("-o size=1m,ro", '"$@"'))
        self.assertEqual(result.returncode, FAILED)
        self.assertIn(f"The folder {self.models} is not writable", result.stderr)


class StoreTest(DownloadCase):
    def test_a_models_life_by_command(self):
        self.assertEqual(self.run_models("verify", MODEL).returncode, NOT_FOUND)
        self.assertEqual(self.run_models("download", "enormous").returncode, NOT_FOUND)
        self.assertEqual(self.run_models("download").returncode, USAGE)
        self.assertEqual(self.run_models("list", host="ftp://models.example").returncode, USAGE)
        mirror_folder = self.profile / "mirror/resolve/main"
        mirror_folder.mkdir(parents=True)
        (mirror_folder / FILE).symlink_to(mirror / FILE)
        result = self.download(f"file://{self.profile}/mirror")
        self.assertEqual((result.returncode, result.stdout.strip()), (DONE, str(self.file)))
        self.check_ready()
        self.assertEqual(self.download("http://models.invalid").returncode, DONE, "nothing is fetched twice")

        self.assertEqual(self.run_models("select", "TINY.EN").returncode, DONE)
        self.assertEqual(self.run_models("remove", MODEL).returncode, FAILED, "the selected one stays")
        self.assertEqual(self.run_models("clear").returncode, DONE)
        self.check_ready()
        self.assertEqual(self.run_models("select", "tiny").returncode, DONE)
        cleared = json.loads(self.run_models("clear", "--json").stdout)
        self.assertEqual((cleared["freed_bytes"], cleared["used_bytes"], cleared["kept"]), (SIZE, 0, "tiny"))
        self.assertFalse(self.file.exists())

    def test_verify_finds_a_file_that_went_bad_and_removes_it(self):
        self.download()
        with self.file.open("r+b") as damaged:
            damaged.seek(MIDDLE)
            damaged.write(b"\0\0\0\0damaged")
        self.assertEqual(self.run_models("list", "--json").returncode, DONE)
        result = self.run_models("verify")
        self.assertEqual((result.returncode, result.stdout), (FAILED, f"{MODEL}\twrong\n"))
        self.assertIn(f"{FILE} is not the published file", result.stderr)
        self.assertFalse(self.file.exists())
        self.check_good_host_helps()

    def test_models_of_the_system_are_used_and_left_alone(self):
        shared = self.profile / "usr/vantro/models" / FILE
        shared.parent.mkdir(parents=True)
        shutil.copy(mirror / FILE, shared)
        for _ in range(2):
            result = self.download("http://models.invalid")
            self.assertEqual((result.returncode, result.stdout.strip()), (DONE, str(shared)))
        self.assertEqual(self.run_models("remove", MODEL).returncode, FAILED)
        self.assertEqual(os.listdir(shared.parent), [FILE], "nothing is written there")
        with shared.open("r+b") as damaged:
            damaged.write(b"damaged")
        self.assertEqual(self.run_models("verify", MODEL).returncode, FAILED)
        self.assertTrue(shared.exists(), "what belongs to the system is not removed")
        self.check_good_host_helps()


def main():
    if not os.access(PROGRAM, os.X_OK):
        print(f"skipped: there is no program {PROGRAM}")
        sys.exit(SKIPPED)
    result = unittest.main(exit=False, verbosity=2, module="__main__").result
    for test, reason in result.skipped:
        print(f"skipped: {test}: {reason}")
    sys.exit(0 if result.wasSuccessful() else 1)


if __name__ == "__main__":
    main()
